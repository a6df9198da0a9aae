#include "nexo/base/TextSearch.h"

#include <string>

namespace nexo {
namespace {

/// Finds by a table of how far `part` matches itself, never stepping back in `text` (Knuth, Morris, Pratt).
template <class Ch>
std::size_t FindByTable(std::basic_string_view<Ch> text, std::basic_string_view<Ch> part, std::size_t from) {
    std::vector<std::uint32_t> border(part.size());
    for (std::size_t i = 1, matched = 0; i < part.size(); ++i) {
        while (matched > 0 && part[i] != part[matched]) matched = border[matched - 1];
        matched += part[i] == part[matched];
        border[i] = static_cast<std::uint32_t>(matched);
    }
    for (std::size_t i = from, matched = 0; i < text.size(); ++i) {
        while (matched > 0 && text[i] != part[matched]) matched = border[matched - 1];
        matched += text[i] == part[matched];
        if (matched == part.size()) return i + 1 - matched;
    }
    return text.npos;
}

template <class Ch>
std::size_t MatchedLength(const Ch* a, const Ch* b, std::size_t length) {
    std::size_t matched = 0;
    while (matched < length && a[matched] == b[matched]) ++matched;
    return matched;
}

/// Looks for the first character with the platform's vector search. Once the comparisons behind such
/// candidates outgrow the way that was made, the table takes over.
template <class Ch>
std::size_t Find(std::basic_string_view<Ch> text, std::basic_string_view<Ch> part, std::size_t from) {
    if (from > text.size() || part.size() > text.size() - from) return text.npos;
    if (part.empty()) return from;
    const std::size_t last = text.size() - part.size();
    std::size_t compared = 0;
    for (std::size_t at = from; at <= last; ++at) {
        const Ch* const found = std::char_traits<Ch>::find(text.data() + at, last - at + 1, part[0]);
        if (!found) break;
        at = static_cast<std::size_t>(found - text.data());
        const std::size_t matched = MatchedLength(found, part.data(), part.size());
        if (matched == part.size()) return at;
        compared += matched;
        if (compared > 256 + 4 * (at - from)) return FindByTable(text, part, at);
    }
    return text.npos;
}

}  // namespace

std::size_t FindText(std::wstring_view text, std::wstring_view part, std::size_t from) {
    return Find(text, part, from);
}

std::size_t FindText(std::string_view text, std::string_view part, std::size_t from) {
    return Find(text, part, from);
}

}  // namespace nexo
