#ifndef NEXO_EXPORT_PAGEWRITER_H
#define NEXO_EXPORT_PAGEWRITER_H

// Private to the library.

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "nexo/base/CString.h"
#include "nexo/export/PartsTemplate.h"
#include "nexo/export/StList.h"
#include "nexo/export/TextSink.h"

namespace nexo {

/// Lays a parts list out page by page. A page has LINES_PG lines: its header, the articles, empty lines, and
/// the footer at its foot.
class PageWriter {
public:
    PageWriter(const PartsTemplate& layout, const CProjectInfo& project, TextSink& sink);

    /// Writes all pages. False with the cause in `message`, or with an empty one when the sink failed.
    bool Write(const CStList& list, CString& message);

private:
    /// The lines of an article's text, one after the other.
    class TextLines;

    bool BeginPage(bool needsRoom);
    bool EndPage();
    bool WriteHeader(const TemplateBlock& header);
    bool WriteBlockLines(const TemplateBlock& block);
    bool WriteArticle(const CArticle& article);
    bool WriteArticleLine(const LineLayout& layout, std::span<const std::wstring_view> values);
    bool WriteLine(const TemplateLine& line, const LineLayout& layout,
                   std::span<const std::wstring_view> values, std::span<const std::wstring_view> names);

    [[nodiscard]] std::int64_t Room(const TemplateBlock& header) const;
    [[nodiscard]] std::wstring_view& PageValue(PageField field) {
        return m_pageValues[static_cast<std::size_t>(field)];
    }
    bool Fail(CString message) {
        m_message = std::move(message);
        return false;
    }

    const PartsTemplate& m_layout;
    TextSink& m_sink;
    CString m_message;
    LineLayout m_furtherLines;  // of an article
    CString m_date;
    CString m_pageNumber;
    std::array<std::wstring_view, kPageFieldNames.size()> m_pageValues;
    int m_page = 0;
    std::int64_t m_lineHeight = 1;  // printable lines of an article's line
    std::int64_t m_nextRoom = 0;    // article lines on page 2 and following
    std::int64_t m_room = 0;        // article lines left on this page
    std::int64_t m_used = 0;        // lines of this page that are written
};

}  // namespace nexo

#endif
