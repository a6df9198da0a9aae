#ifndef NEXO_EXPORT_PARTSTEMPLATE_H
#define NEXO_EXPORT_PARTSTEMPLATE_H

// Private to the library.

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/export/LineLayout.h"

namespace nexo {

/// Fields of header and footer lines, in the order of kPageFieldNames.
enum class PageField : std::size_t { kDate, kPageNumber, kProjectName, kProjectNumber, kProjectText };
inline constexpr std::array<std::wstring_view, 5> kPageFieldNames = {L"DATE_TD", L"PAGE_NR", L"PROJ_NA",
                                                                     L"PROJ_NR", L"PROJ_DA"};

/// Fields of the line of an article, in the order of kArticleFieldNames.
enum class ArticleField : std::size_t {
    kPosition,
    kQuantity,
    kUnit,
    kText,
    kArticleNumber,
    kPrice,
    kCurrency
};
inline constexpr std::array<std::wstring_view, 7> kArticleFieldNames = {L"POS", L"NUM", L"UNT", L"TXT",
                                                                        L"ART", L"PRC", L"CURR"};

/// A line of a template and where it stands there, counted from 1.
struct TemplateLine {
    int number = 0;
    LineLayout layout;
};

/// A header or footer: the lines of its block, and how many lines the page keeps for them at least.
struct TemplateBlock {
    bool isRead = false;
    std::vector<TemplateLine> lines;
    std::optional<int> height;  ///< LINES_T1, LINES_TN or LINES_BO
};

/// The layout of a printed parts list as its template describes it; docs/parts-list.md tells the format.
struct NEXO_API PartsTemplate {
    TemplateBlock firstHeader;
    TemplateBlock nextHeader;
    TemplateBlock footer;
    std::optional<TemplateLine> output;  ///< the line of an article; none when the template has none
    bool isOutputRead = false;
    int emptyLines = 0;  ///< written after each line of an article
    bool areVariablesRead = false;
    std::optional<int> pageLines;  ///< LINES_PG; without it the list is one page of any length

    /// Whether to use a page size that is hardly meant; shows the question to the user.
    using Ask = std::function<bool(const CString& question)>;

    /// Reads a whole template. False with what is wrong in `message`, in the user's language; the message is
    /// empty when the user refused a page size. The template is to be empty before and is not to be used
    /// after a failure. Linear.
    bool Read(std::wstring_view text, const Ask& ask, CString& message);
};

}  // namespace nexo

#endif
