#include "nexo/platform/WildcardPattern.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "nexo/base/CharClass.h"
#include "nexo/platform/PathText.h"

namespace nexo::platform {
namespace {

// Codes of the wildcards in a compiled pattern; no name holds these characters.
constexpr wchar_t kStar = L'*';     // any run
constexpr wchar_t kDosStar = L'<';  // any run, but not beyond the last dot when it begins before that
constexpr wchar_t kDosMark = L'>';  // one character other than "."; nothing before a "." and at the end
constexpr wchar_t kDosDot = L'"';   // a "."; nothing at the end

constexpr wchar_t kNothing = L'|';  // matches no name
constexpr std::wstring_view kMayBeNothing = L"*<>\"";

bool IsWildcard(wchar_t unit) {
    return unit == L'*' || unit == L'?';
}

wchar_t ElementAt(std::wstring_view text, std::size_t i, bool endedInDot) {
    const wchar_t next = i + 1 < text.size() ? text[i + 1] : L'\0';
    switch (text[i]) {
        case L'?':
            return kDosMark;
        case L'.':
            return IsWildcard(next) ? kDosDot : L'.';
        case L'*':
            return next == L'.' || (next == L'\0' && endedInDot) ? kDosStar : kStar;
        default:
            return IsIllegalInName(text[i]) ? kNothing : ToUpper(text[i]);
    }
}

/// The places in a pattern that a name read so far may have reached, advanced character by character: no
/// pattern makes this slower than pattern times name.
class Matcher {
public:
    explicit Matcher(std::wstring_view elements) : elements_(elements) {
        const std::size_t places = elements.size() + 1;
        if (places > kOnStack) heap_ = std::make_unique<bool[]>(2 * places);
        now_ = heap_ ? heap_.get() : stack_;
        next_ = now_ + places;
    }

    bool Run(std::wstring_view name) {
        const std::size_t lastDot = name.rfind(L'.');
        now_[0] = true;
        for (std::size_t i = 0; i < name.size(); ++i)
            if (!Step(ToUpper(name[i]), i == lastDot)) return false;
        return ReachesEnd();
    }

private:
    static constexpr std::size_t kOnStack = 64;

    // Reads one character; false when no place is left.
    bool Step(wchar_t unit, bool isLastDot) {
        bool any = false;
        for (std::size_t place = 0; place < elements_.size(); ++place) {
            if (!std::exchange(now_[place], false)) continue;
            const wchar_t element = elements_[place];
            const bool run = element == kStar || element == kDosStar;
            if (run || (element == kDosMark && unit == L'.')) now_[place + 1] = true;
            if (!run && !Takes(element, unit)) continue;
            next_[element == kStar || (run && !isLastDot) ? place : place + 1] = true;
            any = true;
        }
        now_[elements_.size()] = false;
        std::swap(now_, next_);
        return any;
    }

    static bool Takes(wchar_t element, wchar_t unit) {
        if (element == kDosMark) return unit != L'.';
        return unit == (element == kDosDot ? L'.' : element);
    }

    // Whether only elements that may be nothing follow some place.
    bool ReachesEnd() const {
        for (std::size_t place = elements_.size();; --place) {
            if (now_[place]) return true;
            if (place == 0 || kMayBeNothing.find(elements_[place - 1]) == kMayBeNothing.npos) return false;
        }
    }

    std::wstring_view elements_;
    bool stack_[2 * kOnStack] = {};
    std::unique_ptr<bool[]> heap_;
    bool* now_;
    bool* next_;
};

bool EndsWithUpper(std::wstring_view name, std::wstring_view upper) {
    if (name.size() < upper.size()) return false;
    name.remove_prefix(name.size() - upper.size());
    for (std::size_t i = 0; i < upper.size(); ++i)
        if (ToUpper(name[i]) != upper[i]) return false;
    return true;
}

}  // namespace

WildcardPattern::WildcardPattern(std::wstring_view pattern) {
    const bool endedInDot = pattern.ends_with(L'.');
    const std::wstring_view text = WithoutTrailingDots(pattern);
    everything_ = !endedInDot && (text == L"*" || text == L"*.*");
    for (std::size_t i = 0; i < text.size(); ++i) elements_ += ElementAt(text, i, endedInDot);
    plain_ = std::none_of(text.begin(), text.end(), IsWildcard);
    // "*.txt" and its like are decided by the end of the name alone: its dot is the last one.
    suffix_ = elements_.starts_with(L"<.") && elements_.find_first_of(L".*<>\"", 2) == elements_.npos;
}

bool WildcardPattern::Matches(std::wstring_view name) const {
    if (everything_) return true;
    if (suffix_) return EndsWithUpper(name, std::wstring_view(elements_).substr(1));
    return Matcher(elements_).Run(name);
}

bool WildcardPattern::MatchesDotEntries() const {
    // To "?" the directory's own entry is a name of one character like any other.
    return Matches(L".") || Matches(L"/");
}

}  // namespace nexo::platform
