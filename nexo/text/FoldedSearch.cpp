#include "nexo/text/FoldedSearch.h"

#include <wchar.h>

#include <algorithm>

#include "nexo/base/BorderSearch.h"
#include "nexo/base/CharClass.h"
#include "nexo/text/CharScan.h"

namespace nexo {
namespace {

struct Exact {
    static wchar_t Fold(wchar_t c) { return c; }
    static LetterForms Forms(wchar_t c) { return {c, c}; }
};

struct NoCase {
    static wchar_t Fold(wchar_t c) { return FoldForSearch(c); }
    /// A folded letter may stand for the character 32 below it, if that folds to it.
    static LetterForms Forms(wchar_t c) {
        const wchar_t folded = Fold(c);
        const wchar_t upper = folded - 32;
        return {folded, Fold(upper) == folded ? upper : folded};
    }
};

/// Lower and upper case are one to one, so a letter has no third form.
struct LowerCase {
    static wchar_t Fold(wchar_t c) { return ToLower(c); }
    static LetterForms Forms(wchar_t c) { return {ToLower(c), ToUpper(c)}; }
};

template <class Case>
std::size_t CommonLength(const wchar_t* text, std::wstring_view part) {
    std::size_t n = 0;
    while (n < part.size() && Case::Fold(text[n]) == Case::Fold(part[n])) ++n;
    return n;
}

/// Looks for the first and last letter at their distance, then compares what lies between. Text in which
/// that compares too much for too little progress goes to FindByBorders().
template <class Case>
std::size_t Find(std::wstring_view text, std::wstring_view part, std::size_t from) {
    if (part.empty()) return from;
    if (text.size() < part.size()) return kNotFound;
    const LetterForms first = Case::Forms(part.front()), last = Case::Forms(part.back());
    const wchar_t* const start = text.data() + std::min(from, text.size());
    const wchar_t* const end = text.data() + text.size() - (part.size() - 1);
    std::size_t compared = 0;
    for (const wchar_t* p = start; p < end; ++p) {
        p = FindPair(p, end, part.size() - 1, first, last);
        if (p == end) break;
        const std::size_t common = CommonLength<Case>(p, part);
        const auto at = static_cast<std::size_t>(p - text.data());
        if (common == part.size()) return at;
        compared += common;
        if (compared > 1024 + 4 * static_cast<std::size_t>(p - start))
            return FindByBorders<Case>(text, part, at + 1);
    }
    return kNotFound;
}

/// Searches piece by piece, so that a match near the start does not cost the length of the text.
template <class Case>
const wchar_t* FindInTerminated(const wchar_t* text, std::wstring_view part) {
    constexpr std::size_t first = 128, most = 4096;
    for (std::size_t window = std::max(first, 2 * part.size());;
         window = std::max(window, std::min(2 * window, most))) {
        const std::size_t length = wcsnlen(text, window);
        const std::size_t found = Find<Case>({text, length}, part, 0);
        if (found != kNotFound) return text + found;
        if (length < window) return nullptr;
        text += length - (part.size() - 1);
    }
}

}  // namespace

std::size_t FindTextNoCase(std::wstring_view text, std::wstring_view part, std::size_t from) {
    return Find<NoCase>(text, part, from);
}

bool EndsWithHeadNoCase(std::wstring_view text, std::wstring_view part) {
    const BorderTable<wchar_t, NoCase> borders(part);
    std::size_t matched = 0;
    for (const wchar_t c : text) matched = borders.Next(matched, c);
    return matched > 0;
}

const wchar_t* FindText(const wchar_t* text, std::wstring_view part) {
    return FindInTerminated<Exact>(text, part);
}

const wchar_t* FindTextNoCase(const wchar_t* text, std::wstring_view part) {
    return FindInTerminated<NoCase>(text, part);
}

const wchar_t* FindTextLowerCase(const wchar_t* text, std::wstring_view part) {
    return FindInTerminated<LowerCase>(text, part);
}

}  // namespace nexo
