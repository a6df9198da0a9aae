#include "nexo/base/TextSearch.h"

#include <string>

#include "nexo/base/BorderSearch.h"

namespace nexo {
namespace {

template <class Ch>
struct Exact {
    static Ch Fold(Ch c) { return c; }
};

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
        if (compared > 256 + 4 * (at - from)) return FindByBorders<Exact<Ch>>(text, part, at);
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
