#ifndef NEXO_EXPORT_STLIST_H
#define NEXO_EXPORT_STLIST_H

// The parts list of a project: its articles, and the texts that stand in the header of a printed list. The
// text export is in TextStListExport.h.

#include <cstdint>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"

/// One line item of a parts list. Without texts and values when new; a plain value.
///
/// A negative quantity or price means that there is none.
class NEXO_API CArticle {
public:
    CArticle() = default;

    /// Lines of `text`: its line feeds + 1, so 1 for an empty text.
    [[nodiscard]] int GetTextLines() const;

    /// Copies the text from the cursor up to the next line feed or the end to `line` and moves the cursor
    /// behind that line feed. Returns 1 while more lines follow; 0 with the last line, and the next call
    /// gives the first one again.
    ///
    ///     "A\nB": "A" and 1, "B" and 0, "A" and 1, ...
    int GetNextLine(CString& line);

    CString position;
    double quantity = -1.0;
    CString unit;
    CString text;  ///< lines separated by a line feed
    CString articleNumber;
    double price = -1.0;
    double totalPrice = -1.0;
    CString currency;
    CString extra;
    int textCursor = 0;  ///< where the next line of `text` begins
};

/// The articles of one parts list, in order.
class NEXO_API CStList : public CList<CArticle> {
public:
    using CList::CList;

    /// Divides the article at `pos` at the end of a page, by the rule of nexo::TextLinesBeforeBreak().
    ///
    /// `freeLines` printable lines are left on the page, each text line takes `lineHeight` of them (at least
    /// 1; more where empty lines follow each), and the next page offers `nextPageLines`. Returns how many
    /// text lines stay on the page. When some stay and some do not, the article keeps the former, the others
    /// become an article without further values behind it, and `pos` moves there. Otherwise nothing changes:
    /// with 0 the whole article belongs on the next page, with all text lines it fits. A null `pos` gives 0.
    int SplitArticle(POSITION& pos, int freeLines, int lineHeight, int nextPageLines);
};

/// What a parts list says about its project; a single blank each when new.
class NEXO_API CProjectInfo {
public:
    CProjectInfo() = default;

    CString projectName = L" ";
    CString projectNumber = L" ";
    CString projectText = L" ";
};

namespace nexo {

/// How many of `textLines` lines of an article go on a page with room for `room` of them, when the next page
/// has room for `nextRoom`. All when they fit; else as many as fit, except that a single line does not stay
/// behind when the whole article fits on the next page.
[[nodiscard]] NEXO_API std::int64_t TextLinesBeforeBreak(std::int64_t textLines, std::int64_t room,
                                                         std::int64_t nextRoom) noexcept;

}  // namespace nexo

#endif
