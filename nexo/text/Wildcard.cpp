// moxStrUtil: matching with "*" and "?".
//
// The back-tracking is shallow on purpose: behind a "*" only the next candidate is tried, and the end of the
// pattern never returns to it. Patterns in use rely on it, and it keeps the match linear in the text.
#include <wchar.h>

#include <string>

#include "nexo/base/CharClass.h"
#include "nexo/text/CharScan.h"
#include "nexo/text/StrUtil.h"

namespace {

struct AsItIs {
    static wchar_t Fold(wchar_t c) { return c; }
    static wchar_t OtherForm(wchar_t c) { return c; }
};

/// Lower and upper case are one to one, so a letter has no third form.
struct LowerCase {
    static wchar_t Fold(wchar_t c) { return nexo::ToLower(c); }
    static wchar_t OtherForm(wchar_t c) { return nexo::ToUpper(c); }
};

/// The text that is matched; its end is looked for once it is needed.
template <class Case>
class Subject {
public:
    explicit Subject(const wchar_t* text) : at_(text) {}

    bool AtEnd() const { return !*at_; }
    wchar_t Take() { return Case::Fold(*at_++); }
    const wchar_t* Position() const { return at_; }

    /// Whether the pattern character consumes the character here, which is not the end.
    bool Suits(wchar_t pattern) const { return pattern == L'?' || Case::Fold(pattern) == Case::Fold(*at_); }

    /// Goes on to the first character equal to `next`, or to the end; also when `next` is a "?", which then
    /// equals a "?" alone.
    void GoTo(wchar_t next) {
        if (!end_) end_ = at_ + wcslen(at_);
        at_ = next ? nexo::FindAnyOf(at_, end_, {{next, Case::Fold(next), Case::OtherForm(next)}}) : end_;
    }

private:
    const wchar_t* at_;
    const wchar_t* end_ = nullptr;
};

const wchar_t* SkipStars(const wchar_t* pattern) {
    while (*pattern == L'*') ++pattern;
    return pattern;
}

template <class Case>
bool MatchesWhole(const wchar_t* s, const wchar_t* pattern) {
    Subject<Case> subject(s);
    const wchar_t* star = nullptr;
    for (const wchar_t* p = pattern; *p;) {
        if (*p == L'*') {
            star = p;
            p = SkipStars(p);
            subject.GoTo(*p);
        } else if (subject.AtEnd()) {
            return false;
        } else if (subject.Suits(*p)) {
            subject.Take();
            ++p;
        } else if (star) {
            p = star;
        } else {
            return false;
        }
    }
    return subject.AtEnd();
}

template <class Case>
bool CollectMatch(std::wstring& matched, const wchar_t* s, const wchar_t* pattern, bool wholeString) {
    Subject<Case> subject(s);
    const wchar_t* star = nullptr;
    for (const wchar_t* p = pattern; *p;) {
        if (*p == L'*') {
            star = p;
            p = SkipStars(p);
            const wchar_t* passed = subject.Position();
            subject.GoTo(*p);
            while (passed != subject.Position()) matched += Case::Fold(*passed++);
        } else if (subject.AtEnd()) {
            return false;
        } else if (subject.Suits(*p)) {
            matched += subject.Take();
            ++p;
        } else if (star) {
            p = star;
        } else if (wholeString) {
            return false;
        } else {
            matched.clear();
            p = pattern;
            subject.Take();
        }
    }
    return wholeString ? subject.AtEnd() : !matched.empty();
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
