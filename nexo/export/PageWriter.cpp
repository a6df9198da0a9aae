#include "nexo/export/PageWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "nexo/base/Format.h"
#include "nexo/base/Time.h"
#include "nexo/text/LibraryText.h"

namespace nexo {
namespace {

constexpr std::int64_t kUnlimited = std::numeric_limits<std::int64_t>::max();

constexpr wchar_t kTooNarrow[] = L"Zeile %d: \"%s\"\n\nDer Wert \"%s\" ist zu lang für das Feld \"$%s\"!";
constexpr wchar_t kNoRoom[] = L"Auf Seite %d ist kein Platz für eine Artikelzeile!";
constexpr wchar_t kNoOutput[] = L"Die Vorlage enthält keine Definition der Ausgabezeile!";

std::int64_t HeightOf(const TemplateBlock& block) {
    return std::max<std::int64_t>(block.height.value_or(0), static_cast<std::int64_t>(block.lines.size()));
}

CString Today() {
    const CTime now = CTime::GetCurrentTime();
    return Formatted(L"%02d.%02d.%02d", now.GetDay(), now.GetMonth(), now.GetYear());
}

/// A quantity or price with two decimals; empty for none.
class NumberText {
public:
    explicit NumberText(double value) {
        if (std::isnan(value) || value < 0) return;
        char digits[kRoom];
        char* const end = std::to_chars(digits, digits + kRoom, value, std::chars_format::fixed, 2).ptr;
        m_length = static_cast<std::size_t>(end - digits);
        std::copy(digits, end, m_text);
    }
    [[nodiscard]] std::wstring_view View() const { return {m_text, m_length}; }

private:
    static constexpr std::size_t kRoom = 320;  // the largest double has 309 digits before the point
    wchar_t m_text[kRoom];
    std::size_t m_length = 0;
};

}  // namespace

class PageWriter::TextLines {
public:
    explicit TextLines(std::wstring_view text) : m_rest(text) {}

    std::wstring_view Next() {
        const std::size_t end = m_rest.find(L'\n');
        std::wstring_view line = m_rest.substr(0, end);
        m_rest.remove_prefix(end == m_rest.npos ? m_rest.size() : end + 1);
        if (line.ends_with(L'\r')) line.remove_suffix(1);
        return line;
    }

private:
    std::wstring_view m_rest;
};

PageWriter::PageWriter(const PartsTemplate& layout, const CProjectInfo& project, TextSink& sink)
    : m_layout(layout), m_sink(sink), m_date(Today()), m_lineHeight(std::int64_t{layout.emptyLines} + 1) {
    if (layout.output)
        m_furtherLines = layout.output->layout.Only(static_cast<std::size_t>(ArticleField::kText));
    m_nextRoom = Room(layout.nextHeader);
    PageValue(PageField::kDate) = m_date.View();
    PageValue(PageField::kProjectName) = project.projectName.View();
    PageValue(PageField::kProjectNumber) = project.projectNumber.View();
    PageValue(PageField::kProjectText) = project.projectText.View();
}

bool PageWriter::Write(const CStList& list, CString& message) {
    const auto writeAll = [&] {
        if (!list.IsEmpty() && !m_layout.output) return Fail(TranslateLibraryText(kNoOutput));
        if (!BeginPage(!list.IsEmpty())) return false;
        for (const CArticle& article : list) {
            if (!WriteArticle(article)) return false;
        }
        return EndPage();
    };
    const bool written = writeAll() && !m_sink.HasFailed();
    message = m_message;
    return written;
}

// How many article lines fit below the header, each with the empty lines behind it.
std::int64_t PageWriter::Room(const TemplateBlock& header) const {
    if (!m_layout.pageLines) return kUnlimited;
    return (*m_layout.pageLines - HeightOf(header) - HeightOf(m_layout.footer)) / m_lineHeight;
}

bool PageWriter::BeginPage(bool needsRoom) {
    m_pageNumber.Format(L"%d", ++m_page);
    PageValue(PageField::kPageNumber) = m_pageNumber.View();
    const TemplateBlock& header = m_page == 1 ? m_layout.firstHeader : m_layout.nextHeader;
    m_room = Room(header);
    if (needsRoom && m_room < 1) return Fail(Formatted(TranslateLibraryText(kNoRoom), m_page));
    return WriteHeader(header);
}

bool PageWriter::WriteHeader(const TemplateBlock& header) {
    if (!WriteBlockLines(header)) return false;
    m_used = HeightOf(header);
    m_sink.EmptyLines(m_used - static_cast<std::int64_t>(header.lines.size()));
    return !m_sink.HasFailed();
}

// Whatever the footer's block leaves of its height is above it, so that its last line is that of the page.
bool PageWriter::EndPage() {
    const auto footer = static_cast<std::int64_t>(m_layout.footer.lines.size());
    const std::int64_t end = m_layout.pageLines ? *m_layout.pageLines : m_used + HeightOf(m_layout.footer);
    m_sink.EmptyLines(end - m_used - footer);
    return WriteBlockLines(m_layout.footer) && !m_sink.HasFailed();
}

bool PageWriter::WriteBlockLines(const TemplateBlock& block) {
    return std::all_of(block.lines.begin(), block.lines.end(), [this](const TemplateLine& line) {
        return WriteLine(line, line.layout, m_pageValues, kPageFieldNames);
    });
}

bool PageWriter::WriteArticle(const CArticle& article) {
    const NumberText quantity(article.quantity);
    const NumberText price(article.price);
    TextLines lines(article.text.View());
    std::array<std::wstring_view, kArticleFieldNames.size()> values = {
        article.position.View(),      quantity.View(), article.unit.View(),    L"",
        article.articleNumber.View(), price.View(),    article.currency.View()};
    const LineLayout* layout = &m_layout.output->layout;
    for (std::int64_t left = article.GetTextLines(); left > 0;) {
        const std::int64_t stay = TextLinesBeforeBreak(left, m_room, m_nextRoom);
        if (stay == 0) {
            if (!EndPage() || !BeginPage(true)) return false;
            continue;
        }
        for (std::int64_t i = 0; i < stay; ++i) {
            values[static_cast<std::size_t>(ArticleField::kText)] = lines.Next();
            if (!WriteArticleLine(*layout, values)) return false;
            layout = &m_furtherLines;
        }
        m_room -= stay;
        left -= stay;
    }
    return true;
}

bool PageWriter::WriteArticleLine(const LineLayout& layout, std::span<const std::wstring_view> values) {
    if (!WriteLine(*m_layout.output, layout, values, kArticleFieldNames)) return false;
    m_sink.EmptyLines(m_layout.emptyLines);
    m_used += m_lineHeight;
    return !m_sink.HasFailed();
}

bool PageWriter::WriteLine(const TemplateLine& line, const LineLayout& layout,
                           std::span<const std::wstring_view> values,
                           std::span<const std::wstring_view> names) {
    const LineField* tooNarrow = nullptr;
    wchar_t* const end = layout.Write(m_sink.Line(layout.MaxLength(values)), values, &tooNarrow);
    if (end != nullptr) return m_sink.EndLine(end), true;
    return Fail(Formatted(TranslateLibraryText(kTooNarrow), line.number, CString(line.layout.Line()),
                          CString(values[tooNarrow->name]), CString(names[tooNarrow->name])));
}

}  // namespace nexo
