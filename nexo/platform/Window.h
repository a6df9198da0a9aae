#ifndef NEXO_PLATFORM_WINDOW_H
#define NEXO_PLATFORM_WINDOW_H

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"
#include "nexo/base/Rect.h"

// What the library asks of windows, menus and tool bars. The toolkit that shows them implements these classes
// (qt/ does for Qt); the library never creates one. Objects belong to whoever hands them out and are used
// from the thread of the user interface only.

/// A window: its place, and the texts it shows.
class NEXO_API CWnd {
public:
    virtual ~CWnd();

    /// Outer rectangle in screen coordinates, frame included.
    virtual void GetWindowRect(CRect& rect) const = 0;

    /// Whether the display system tells windows where they stand. Where it does not, the top left corner
    /// of GetWindowRect is (0, 0) and MoveWindow applies the size only.
    [[nodiscard]] virtual bool IsPositionKnown() const { return true; }

    virtual void MoveWindow(const CRect& rect, bool repaint = true) = 0;

    /// Centres over the parent, or over the monitor when there is none.
    virtual void CenterWindow() = 0;

    [[nodiscard]] virtual CWnd* GetParent() const = 0;
    [[nodiscard]] virtual bool IsWindowEnabled() const = 0;
    [[nodiscard]] virtual bool IsDialogOrSheet() const = 0;  ///< a dialog or a property sheet
    [[nodiscard]] virtual bool HasSizingBorder() const = 0;

    /// The user-visible texts of this window alone: its caption or label first, then tab labels, column
    /// headings, tool tips and the like. What the user typed is none of them.
    [[nodiscard]] virtual int GetTextCount() const = 0;
    [[nodiscard]] virtual CString GetText(int index) const = 0;
    virtual void SetText(int index, const CString& text) = 0;

    /// Direct child windows, in their order.
    [[nodiscard]] virtual int GetChildCount() const = 0;
    [[nodiscard]] virtual CWnd* GetChild(int index) const = 0;
};

/// A menu: its items by position. A separator is an item without text.
class NEXO_API CMenu {
public:
    virtual ~CMenu();
    [[nodiscard]] virtual int GetMenuItemCount() const = 0;
    [[nodiscard]] virtual CString GetMenuString(int position) const = 0;
    virtual void SetMenuString(int position, const CString& text) = 0;
    [[nodiscard]] virtual CMenu* GetSubMenu(int position) const = 0;  ///< null for a plain item
};

/// One button of a tool bar; a drop-down button has buttons of its own.
class NEXO_API CMFCToolBarButton {
public:
    virtual ~CMFCToolBarButton();
    [[nodiscard]] virtual CString GetText() const = 0;
    virtual void SetText(const CString& text) = 0;
    [[nodiscard]] virtual int GetCount() const { return 0; }  ///< entries of the drop-down menu
    [[nodiscard]] virtual CMFCToolBarButton* GetButton(int) const { return nullptr; }
};

/// A tool bar: its buttons by position.
class NEXO_API CMFCToolBar {
public:
    virtual ~CMFCToolBar();
    [[nodiscard]] virtual int GetCount() const = 0;
    [[nodiscard]] virtual CMFCToolBarButton* GetButton(int index) const = 0;
};

#endif
