#include "nexo/text/Tokenizer.h"

#include <wchar.h>

#include <optional>
#include <string_view>

#include "nexo/base/CharClass.h"
#include "nexo/base/Number.h"
#include "nexo/base/TextSearch.h"
#include "nexo/text/FoldedSearch.h"

namespace {

std::wstring_view ViewOf(const wchar_t* text) {
    return text ? std::wstring_view(text) : std::wstring_view();
}

/// Token number `index` as a piece of `text`; nothing if there are fewer.
std::optional<std::wstring_view> TokenAt(const wchar_t* text, const wchar_t* delim, unsigned int index) {
    const std::wstring_view delimiter = ViewOf(delim);
    if (delimiter.empty()) return std::wstring_view();
    for (text = text ? text : L""; index > 0; --index) {
        const wchar_t* const found = nexo::FindText(text, delimiter);
        if (!found) return std::nullopt;
        text = found + delimiter.size();
    }
    const wchar_t* const end = nexo::FindText(text, delimiter);
    return end ? std::wstring_view(text, static_cast<std::size_t>(end - text)) : std::wstring_view(text);
}

}  // namespace

CTokenizer::CTokenizer(const CString& text, const CString& delim, int keepEmpty)
    : m_text(text), m_delimiter(delim), m_keepEmpty(keepEmpty) {}

int CTokenizer::GetNext(CString& tok) {
    if (m_position == -1) {
        m_position = 0;
        tok.Empty();
        return 0;
    }
    if (m_position == 0 && (m_text.IsEmpty() || m_delimiter.IsEmpty())) return 0;
    const auto from = static_cast<std::size_t>(m_position);
    const std::size_t found = nexo::FindText(m_text.View(), m_delimiter.View(), from);
    tok = m_text.View().substr(from, found - from);
    m_position = found == nexo::kNotFound ? -1 : static_cast<int>(found) + m_delimiter.GetLength();
    return m_keepEmpty || !tok.IsEmpty();
}

int CTokenizer::GetNext(int& v) {
    if (!GetNext(m_current)) return 0;
    v = nexo::ParseInt(m_current.View());
    return 1;
}

int CTokenizer::GetNext(double& v) {
    if (!GetNext(m_current)) return 0;
    v = nexo::ParseDouble(m_current.View());
    return 1;
}

int CTokenizer::GetCount() const {
    const std::wstring_view text = m_text.View(), delimiter = m_delimiter.View();
    if (text.empty() || delimiter.empty()) return 0;
    int count = 0;
    for (std::size_t index = 0; index < text.size(); ++count) {
        const std::size_t found = nexo::FindText(text, delimiter, index);
        if (!m_keepEmpty && found == index) return count;
        index = found == nexo::kNotFound ? text.size() : found + delimiter.size();
    }
    return m_keepEmpty && text.ends_with(delimiter) ? count + 1 : count;
}

int CTokenizer::Contains(const CString& s, int /*exact*/) {
    const int kept = m_position;
    m_position = 0;
    CString token;
    bool found = false;
    while (!found && GetNext(token)) found = nexo::EqualNoCase(token.View(), s.View());
    m_position = kept;
    return found;
}

CString GetToken(const wchar_t* text, const wchar_t* delim, unsigned int index) {
    return CString(TokenAt(text, delim, index).value_or(std::wstring_view()));
}

CString& GetToken(const wchar_t* text, const wchar_t* delim, unsigned int index, CString& out) {
    return out = GetToken(text, delim, index);
}

int GetToken(const wchar_t* text, const wchar_t* delim, unsigned int index, wchar_t* out) {
    const std::optional<std::wstring_view> token = TokenAt(text, delim, index);
    if (token) wmemmove(out, token->data(), token->size());
    out[token ? token->size() : 0] = 0;
    return token.has_value();
}

int GetNotEmptyToken(const wchar_t* text, const wchar_t* delim, unsigned int index, CString& out) {
    return !GetToken(text, delim, index, out).IsEmpty();
}

int ReadTaggedString(const CString& text, const CString& tag, CString& out) {
    const CString opening = L"<" + tag + L">", closing = L"</" + tag + L">";
    const std::wstring_view whole = text.View();
    const std::size_t first = nexo::FindText(whole, opening.View());
    const std::size_t last = nexo::FindText(whole, closing.View());
    const bool found = first != nexo::kNotFound && last != nexo::kNotFound;
    const std::size_t begin = found ? first + opening.View().size() : 0;
    out = found && last > begin ? CString(whole.substr(begin, last - begin)) : CString();
    return found;
}
