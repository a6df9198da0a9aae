#include "nexo/export/PartsTemplate.h"

#include <algorithm>
#include <utility>

#include "nexo/base/CharClass.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Format.h"
#include "nexo/base/Number.h"
#include "nexo/text/LibraryText.h"
#include "nexo/text/TextFile.h"

namespace nexo {
namespace {

constexpr std::wstring_view kBlockEnd = L"#END";

constexpr wchar_t kUnknownBlock[] = L"Zeile %d: \"%s\"\nUnbekannter oder fehlplazierter Block!";
constexpr wchar_t kOpenBlock[] = L"Zeile %d: \"%s\"\nDer Block ist nicht mit #END abgeschlossen!";
constexpr wchar_t kBadPageField[] =
    L"Zeile %d: \"%s\"\n\nEs dürfen nur gültige Variablennamen\nmit der Kennzeichnung '$' aufgeführt sein!";
constexpr wchar_t kEarlyEmptyLine[] =
    L"Zeile %d: %s\n\nZusätzliche Leerzeilen sind nur nach der Definitionder Ausgabezeile gestattet!";
constexpr wchar_t kSecondOutput[] =
    L"Die Definition der Ausgabezeile wurde bereits eingelesen.Eine mehrzeilige Ausgabe ist nicht möglich!";
constexpr wchar_t kSecondVariables[] = L"Es wurde bereits ein Variablenblock eingelesen!";
constexpr wchar_t kNoVariable[] =
    L"Zeile %d: \"%s\"\n\nIm Variablenblock dürfen nur gültige Variablennamen\nmit der Kennzeichnung '&' "
    L"aufgeführt sein!";
constexpr wchar_t kNoValue[] = L"Zeile %d: \"%s\"\nKein Wert für die Variable %s angegeben!";
constexpr wchar_t kUnknownVariable[] = L"Zeile %d: \"%s\"\n Unbekannter Variablenname!";

struct HeaderRow {
    std::wstring_view keyword;
    TemplateBlock PartsTemplate::*block;
    const wchar_t* second;
};

constexpr HeaderRow kHeaders[] = {
    {L"TOP1", &PartsTemplate::firstHeader, L"Zeile: %d\nDer Kopf der 1. Seite wurde bereits eingelesen!"},
    {L"TOPN", &PartsTemplate::nextHeader, L"Zeile: %d\nDer Kopf der 2. Seite wurde bereits eingelesen!"},
    {L"BOTTOM", &PartsTemplate::footer, L"Zeile: %d\nDie Fußzeile wurde bereits eingelesen!"},
};

struct VariableRow {
    std::wstring_view name;
    std::optional<int>& (*value)(PartsTemplate&);
    int least;  // accepted without a question
    int most;
    const wchar_t* question;
};

constexpr VariableRow kVariables[] = {
    {L"LINES_PG", [](PartsTemplate& t) -> std::optional<int>& { return t.pageLines; }, 10, 100,
     L"Gibt es wirklich %d druckbare Zeilen?"},
    {L"LINES_T1", [](PartsTemplate& t) -> std::optional<int>& { return t.firstHeader.height; }, 2, 30,
     L"Ist der Kopf für Seite 1 wirklich %d Zeilen groß?"},
    {L"LINES_TN", [](PartsTemplate& t) -> std::optional<int>& { return t.nextHeader.height; }, 2, 30,
     L"Ist der Kopf für Seite 2 und folgende wirklich %d Zeilen groß?"},
    {L"LINES_BO", [](PartsTemplate& t) -> std::optional<int>& { return t.footer.height; }, 1, 20,
     L"Ist die Fußzeile wirklich %d Zeilen groß?"},
};

std::wstring_view FirstWord(std::wstring_view text) {
    const auto end = std::find_if(text.begin(), text.end(), [](wchar_t c) { return IsSpace(c); });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

bool IsIgnored(std::wstring_view line) {
    return line.starts_with(L"//") ||
           std::all_of(line.begin(), line.end(), [](wchar_t c) { return IsSpace(c); });
}

// As the keywords, in any case.
bool IsBlockEnd(std::wstring_view line) {
    return CompareNoCase(line.substr(0, kBlockEnd.size()), kBlockEnd) == 0;
}

class Reader {
public:
    Reader(PartsTemplate& result, const PartsTemplate::Ask& ask, CString& message)
        : m_result(result), m_ask(ask), m_message(message) {}

    bool Read(const CStringList& lines) {
        for (const CString& line : lines) {
            ++m_number;
            m_text = line;
            m_line = line.View();
            if (!IsIgnored(m_line) && !TakeLine()) return false;
        }
        return m_takeContent == nullptr || Fail(kOpenBlock, m_blockNumber, m_blockLine);
    }

private:
    using Take = bool (Reader::*)();

    template <class... Args>
    bool Fail(const wchar_t* german, const Args&... args) {
        m_message.Format(TranslateLibraryText(german), args...);
        return false;
    }
    bool FailLine(const wchar_t* german) { return Fail(german, m_number, m_text); }

    bool TakeLine() {
        if (m_takeContent == nullptr) return !m_line.starts_with(L'#') || OpenBlock();
        if (!IsBlockEnd(m_line)) return (this->*m_takeContent)();
        m_takeContent = nullptr;
        return true;
    }

    bool OpenBlock() {
        m_blockNumber = m_number;
        m_blockLine = m_text;
        const std::wstring_view keyword = FirstWord(m_line.substr(1));
        for (const HeaderRow& row : kHeaders) {
            if (CompareNoCase(keyword, row.keyword) == 0) return OpenHeader(row);
        }
        if (CompareNoCase(keyword, L"OUTPUT") == 0)
            return Open(m_result.isOutputRead, kSecondOutput, &Reader::TakeOutput);
        if (CompareNoCase(keyword, L"VAR") == 0)
            return Open(m_result.areVariablesRead, kSecondVariables, &Reader::TakeVariable);
        return FailLine(kUnknownBlock);
    }

    bool OpenHeader(const HeaderRow& row) {
        m_header = &(m_result.*row.block);
        return Open(m_header->isRead, row.second, &Reader::TakeHeader);
    }

    // Of the messages about a second block, those of headers name the line.
    bool Open(bool& isRead, const wchar_t* second, Take takeContent) {
        if (isRead) return Fail(second, m_number);
        isRead = true;
        m_takeContent = takeContent;
        return true;
    }

    bool TakeHeader() {
        TemplateLine line{m_number, {}};
        if (!line.layout.Compile(m_line, kPageFieldNames)) return FailLine(kBadPageField);
        m_header->lines.push_back(std::move(line));
        return true;
    }

    bool TakeOutput() {
        const bool isEmptyLine = m_line.starts_with(L'%');
        if (m_result.output) {
            if (!isEmptyLine) return Fail(kSecondOutput);
            ++m_result.emptyLines;
            return true;
        }
        if (isEmptyLine) return FailLine(kEarlyEmptyLine);
        TemplateLine line{m_number, {}};
        if (!line.layout.Compile(m_line, kArticleFieldNames)) return FailLine(kBadPageField);
        m_result.output = std::move(line);
        return true;
    }

    bool TakeVariable() {
        if (!m_line.starts_with(L'&')) return FailLine(kNoVariable);
        const std::wstring_view name = FirstWord(m_line.substr(1));
        std::size_t used = 0;
        const int value = ParseInt(m_line.substr(1 + name.size()), &used);
        if (used == 0) return Fail(kNoValue, m_number, m_text, CString(name));
        const auto row = std::find_if(std::begin(kVariables), std::end(kVariables),
                                      [name](const VariableRow& known) { return known.name == name; });
        if (row == std::end(kVariables)) return FailLine(kUnknownVariable);
        row->value(m_result) = value;
        if (value >= row->least && value <= row->most) return true;
        return m_ask(Formatted(TranslateLibraryText(row->question), value));
    }

    PartsTemplate& m_result;
    const PartsTemplate::Ask& m_ask;
    CString& m_message;
    int m_number = 0;  // of the line
    CString m_text;
    std::wstring_view m_line;
    Take m_takeContent = nullptr;  // what the lines of the open block are for; null outside blocks
    TemplateBlock* m_header = nullptr;
    int m_blockNumber = 0;
    CString m_blockLine;
};

}  // namespace

bool PartsTemplate::Read(std::wstring_view text, const Ask& ask, CString& message) {
    CStringList lines;
    SplitLines(text, lines);
    message.Empty();
    return Reader(*this, ask, message).Read(lines);
}

}  // namespace nexo
