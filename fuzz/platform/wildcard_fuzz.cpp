// The pattern matcher answers like a slow one that tries every possibility.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "nexo/base/CharClass.h"
#include "nexo/platform/WildcardPattern.h"

namespace {

/// What the element at `p` of the pattern may take, tried one by one.
class SlowMatcher {
public:
    SlowMatcher(std::wstring pattern, std::wstring name)
        : pattern_(std::move(pattern)), name_(std::move(name)) {
        endedInDot_ = pattern_.ends_with(L'.');
        while (!pattern_.empty() && (pattern_.back() == L'.' || pattern_.back() == L' ')) pattern_.pop_back();
    }

    bool Matches() const { return (!endedInDot_ && (pattern_ == L"*" || pattern_ == L"*.*")) || From(0, 0); }

private:
    wchar_t Next(std::size_t p) const { return p + 1 < pattern_.size() ? pattern_[p + 1] : L'\0'; }

    bool From(std::size_t p, std::size_t n) const {
        if (p == pattern_.size()) return n == name_.size();
        const bool end = n == name_.size();
        const wchar_t unit = end ? L'\0' : name_[n];
        if (pattern_[p] == L'*') return Run(p, n);
        if (pattern_[p] == L'?') {
            if (end || unit == L'.') return From(p + 1, n);
            return From(p + 1, n + 1);
        }
        const bool wildcardFollows = Next(p) == L'*' || Next(p) == L'?';
        if (pattern_[p] == L'.' && wildcardFollows && end) return From(p + 1, n);
        return !end && nexo::ToUpper(unit) == nexo::ToUpper(pattern_[p]) && From(p + 1, n + 1);
    }

    bool Run(std::size_t p, std::size_t n) const {
        const bool stopsAtDot = Next(p) == L'.' || (Next(p) == L'\0' && endedInDot_);
        const std::size_t lastDot = name_.rfind(L'.');
        const bool limited = stopsAtDot && lastDot != name_.npos && n <= lastDot;
        const std::size_t last = limited ? lastDot + 1 : name_.size();
        for (std::size_t end = n; end <= last; ++end)
            if (From(p + 1, end)) return true;
        return false;
    }

    std::wstring pattern_;
    std::wstring name_;
    bool endedInDot_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Few characters and short texts: what is rare in real names is common here.
    constexpr wchar_t kPatternUnits[] = L"*?.aB *?";
    constexpr wchar_t kNameUnits[] = L".Ab.a bx";
    if (size < 2) return 0;
    std::wstring pattern, name;
    const std::size_t patternSize = data[0] % 9u, nameSize = data[1] % 12u;
    for (std::size_t i = 2; i < size && pattern.size() < patternSize; ++i)
        pattern += kPatternUnits[data[i] % 8u];
    for (std::size_t i = size; i-- > 2 && name.size() < nameSize;) name += kNameUnits[data[i] % 8u];
    if (nexo::platform::WildcardPattern(pattern).Matches(name) != SlowMatcher(pattern, name).Matches())
        std::abort();
    return 0;
}
