#ifndef NEXO_PLATFORM_USERINTERFACE_H
#define NEXO_PLATFORM_USERINTERFACE_H

#include <memory>
#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"
#include "nexo/base/Rect.h"

// Message boxes and monitors. Windows themselves are in Window.h.

namespace nexo::platform {

enum class MessageIcon { kNone, kError, kQuestion, kWarning, kInformation };
enum class MessageButtons { kOk, kOkCancel, kAbortRetryIgnore, kYesNoCancel, kYesNo, kRetryCancel };
enum class MessageAnswer { kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

/// What the library needs of a user interface. The default speaks to the console: messages go to stderr in
/// UTF-8, a question is asked when stdin and stderr are a terminal and is otherwise answered with its refusal
/// (No, Cancel, Abort). A desktop program sets its own with SetUserInterface.
class NEXO_API UserInterface {
public:
    virtual ~UserInterface();

    /// Shows a message and returns when it is answered. `text` is shown as it is; an empty `title` means the
    /// program's name.
    virtual MessageAnswer ShowMessage(std::wstring_view text, std::wstring_view title, MessageIcon icon,
                                      MessageButtons buttons) = 0;

    /// The monitor that shows the largest part of `rect`, in screen coordinates; false when none shows any of
    /// it.
    virtual bool MonitorFromRect(const CRect& rect, CRect& monitor) = 0;

    /// Height of a window's title bar in pixels.
    [[nodiscard]] virtual int GetCaptionHeight() = 0;

    /// Long work begins (true) or has ended (false); calls may nest. Does nothing by default.
    virtual void ShowWaitCursor(bool show);
};

[[nodiscard]] NEXO_API std::shared_ptr<UserInterface> GetUserInterface();

/// Replaces the user interface of the process; null restores the console.
NEXO_API void SetUserInterface(std::shared_ptr<UserInterface> userInterface);

/// Translation of the few German texts that this layer shows itself (the answers asked for on a terminal).
/// The layer that owns translations sets it; null shows them as they are.
using TextTranslator = CString (*)(const wchar_t* german);
NEXO_API void SetTextTranslator(TextTranslator translator);

/// Shows the wait cursor as long as it lives.
class NEXO_API WaitCursor {
public:
    WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();

private:
    std::shared_ptr<UserInterface> userInterface_;  // the one that was told the beginning is told the end
};

/// Shows `text` with the error icon and an OK button.
NEXO_API void ShowError(std::wstring_view text, std::wstring_view title = {});

}  // namespace nexo::platform

#endif
