// moxStrUtil: matching with "*" and "?".
//
// The back-tracking is shallow on purpose: behind a "*" only the next candidate is tried, and the end of the
// pattern never returns to it. Patterns in use rely on it, and it keeps the match linear in the text.
#include <string>

#include "nexo/base/CharClass.h"
#include "nexo/text/StrUtil.h"

namespace {

using Fold = wchar_t (*)(wchar_t);

wchar_t AsItIs(wchar_t c) {
    return c;
}
wchar_t LowerCase(wchar_t c) {
    return nexo::ToLower(c);
}

const wchar_t* SkipStars(const wchar_t* pattern) {
    while (*pattern == L'*') ++pattern;
    return pattern;
}

/// The first character equal to `next`, or the terminator. `next` may be a "?": only a "?" in the text is
/// equal.
template <Fold fold>
const wchar_t* FindCandidate(const wchar_t* s, wchar_t next) {
    const wchar_t folded = fold(next);
    while (*s && fold(*s) != folded) ++s;
    return s;
}

/// Whether the pattern character consumes a character that is not the terminator.
template <Fold fold>
bool Consumes(wchar_t pattern, wchar_t c) {
    return pattern == L'?' || fold(pattern) == fold(c);
}

template <Fold fold>
bool MatchesWhole(const wchar_t* s, const wchar_t* pattern) {
    const wchar_t* star = nullptr;
    for (const wchar_t* p = pattern; *p;) {
        if (*p == L'*') {
            star = p;
            p = SkipStars(p);
            s = FindCandidate<fold>(s, *p);
        } else if (!*s) {
            return false;
        } else if (Consumes<fold>(*p, *s)) {
            ++s;
            ++p;
        } else if (star) {
            p = star;
        } else {
            return false;
        }
    }
    return !*s;
}

template <Fold fold>
bool CollectMatch(std::wstring& matched, const wchar_t* s, const wchar_t* pattern, bool wholeString) {
    const wchar_t* star = nullptr;
    for (const wchar_t* p = pattern; *p;) {
        if (*p == L'*') {
            star = p;
            p = SkipStars(p);
            const wchar_t* const candidate = FindCandidate<fold>(s, *p);
            while (s != candidate) matched += fold(*s++);
        } else if (!*s) {
            return false;
        } else if (Consumes<fold>(*p, *s)) {
            matched += fold(*s++);
            ++p;
        } else if (star) {
            p = star;
        } else if (wholeString) {
            return false;
        } else {
            matched.clear();
            p = pattern;
            ++s;
        }
    }
    return wholeString ? !*s : !matched.empty();
}

}  // namespace

bool moxStrUtil::MatchesWildcardPattern(const wchar_t* s, const wchar_t* pattern, int caseSensitive) {
    return caseSensitive ? MatchesWhole<AsItIs>(s, pattern) : MatchesWhole<LowerCase>(s, pattern);
}

bool moxStrUtil::MatchesWildcardPattern(CString& matched, const wchar_t* s, const wchar_t* pattern,
                                        int caseSensitive, int wholeString) {
    std::wstring collected;
    const bool matches = caseSensitive ? CollectMatch<AsItIs>(collected, s, pattern, wholeString != 0)
                                       : CollectMatch<LowerCase>(collected, s, pattern, wholeString != 0);
    matched = std::wstring_view(collected);
    return matches;
}
