#include "nexo/text/SubStr.h"

#include <wchar.h>

#include <string_view>

#include "nexo/base/TextSearch.h"

namespace {

struct SeparatorPlace {
    std::size_t begin;
    std::size_t end;
};

/// The next occurrence of `sep` from `at` on; the end of the text if there is none. The character that
/// breaks off a partial match is passed over (stored texts rely on it).
SeparatorPlace FindSeparator(std::wstring_view text, std::wstring_view sep, std::size_t at) {
    std::size_t matched = 0;
    for (; at < text.size() && !sep.empty(); ++at) {
        matched = text[at] == sep[matched] ? matched + 1 : 0;
        if (matched == sep.size()) return {at + 1 - matched, at + 1};
    }
    return {text.size(), text.size()};
}

/// The text behind the (n-1)-th occurrence of `sep`; empty if one is missing.
std::wstring_view CutFront(std::wstring_view text, int n, std::wstring_view sep) {
    for (; n > 1 && !sep.empty(); --n) {
        const std::size_t found = nexo::FindText(text, sep);
        if (found == std::wstring_view::npos) return {};
        text.remove_prefix(found + sep.size());
    }
    return text;
}

std::wstring_view CutAtAnyOf(std::wstring_view text, std::wstring_view stops) {
    return text.substr(0, text.find_first_of(stops));
}

}  // namespace

int substr(const wchar_t* text, int n, wchar_t sep, wchar_t* out) {
    if (!text) return 0;
    for (; n > 1; --n) {
        const wchar_t* const found = sep ? wcschr(text, sep) : nullptr;
        if (!found) {
            *out = 0;
            return 0;
        }
        text = found + 1;
    }
    const wchar_t* end = text;
    while (*end && *end != sep && *end != L'\n') ++end;
    const auto length = static_cast<std::size_t>(end - text);
    wmemmove(out, text, length);
    out[length] = 0;
    return 1;
}

int substr(wchar_t* text, int n, wchar_t sep, wchar_t* out) {
    return substr(static_cast<const wchar_t*>(text), n, sep, out);
}

CString substr(const CString& text, int n, const CString& sep) {
    const std::wstring_view whole = text.View();
    std::size_t begin = 0;
    SeparatorPlace place = FindSeparator(whole, sep.View(), begin);
    for (; n > 1; --n) {
        begin = place.end;
        if (begin == whole.size()) return CString();
        place = FindSeparator(whole, sep.View(), begin);
    }
    std::wstring_view field = whole.substr(begin, place.begin - begin);
    if (place.begin == whole.size() && field.ends_with(L'\n')) field.remove_suffix(1);
    return CString(field);
}

CString substr(const CString& text, int n, wchar_t* const sep) {
    return substr(text, n, sep, true);
}

CString substr(const CString& text, int n, wchar_t* const sep, bool cutAtLineEnd) {
    const std::wstring_view separator = sep ? std::wstring_view(sep) : std::wstring_view();
    std::wstring_view field = CutAtAnyOf(CutFront(text.View(), n, separator), separator);
    if (cutAtLineEnd) field = CutAtAnyOf(field, L"\r\n");
    return CString(field);
}
