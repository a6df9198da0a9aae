// The procedure of the interface replaces each text found in ALL of `s` at once and goes on behind the new
// text: a pass for every spelling met, and no end where the new text contains the old one. Three shortcuts
// give the same result: a single pass where no occurrence can touch a new text; no pass where a text is
// replaced by itself; and where one spelling is met again and again, following its places instead of the
// text.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "nexo/base/TextSearch.h"
#include "nexo/text/FoldedSearch.h"
#include "nexo/text/ReplaceNoCase.h"
#include "nexo/text/StrUtil.h"

namespace {

using nexo::FindText;
using nexo::FindTextNoCase;
using nexo::kNotFound;

std::size_t CountExact(std::wstring_view text, std::wstring_view part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = FindText(text, part, at)) != kNotFound; at += part.size()) ++count;
    return count;
}

/// Whether in no text an occurrence of `oldText` could share a character with an inserted `newText`.
bool NeverTouch(std::wstring_view oldText, std::wstring_view newText) {
    return !newText.empty() && FindTextNoCase(newText, oldText) == kNotFound &&
           FindTextNoCase(oldText, newText) == kNotFound && !nexo::EndsWithHeadNoCase(newText, oldText) &&
           !nexo::EndsWithHeadNoCase(oldText, newText);
}

/// Replaces every occurrence in one pass. False, with `result` in pieces, if two of them overlap.
bool ReplaceInOnePass(std::wstring_view text, std::wstring_view oldText, std::wstring_view newText,
                      std::wstring& result, std::size_t& count) {
    std::size_t copied = 0;
    std::size_t at = FindTextNoCase(text, oldText);
    result.reserve(text.size());
    for (count = 0; at != kNotFound; ++count) {
        result.append(text, copied, at - copied).append(newText);
        copied = at + oldText.size();
        at = FindTextNoCase(text, oldText, at + 1);
        if (at < copied) return false;
    }
    result.append(text, copied);
    return true;
}

/// `text` with each `part` replaced by `newText`; `count` is their number.
std::wstring ReplacedExactly(std::wstring_view text, std::wstring_view part, std::wstring_view newText,
                             std::size_t count) {
    std::wstring result;
    result.reserve(text.size() + count * newText.size() - count * part.size());
    for (; count > 0; --count) {
        const std::size_t at = FindText(text, part);
        result.append(text, 0, at).append(newText);
        text.remove_prefix(at + part.size());
    }
    return result.append(text);
}

/// The state of the procedure between two steps.
struct Progress {
    std::wstring text;
    std::size_t index = 0;    // where the search goes on
    std::uint64_t count = 0;  // replacements so far
};

/// Follows a replacement that grows at each step: `spelling` becomes `before` + `spelling` + `behind`, so
/// that behind i steps each of its places is `before` i times, the spelling, `behind` i times.
class GrowingReplacement {
public:
    GrowingReplacement(std::wstring_view spelling, std::wstring_view newText)
        : spelling_(spelling), newText_(newText), before_(newText.substr(0, FindText(newText, spelling))) {
        behind_ = newText.substr(before_.size() + spelling.size());
    }

    /// How often the step must have been made before nothing new can come up beside the places: until the
    /// runs of `before` and `behind` are longer than the spelling.
    std::size_t StepsToSettle() const { return std::max(RunLength(before_), RunLength(behind_)); }

    /// Makes all steps up to the end, up to one that might meet another spelling, or up to one that would
    /// exceed `limit` (then true). Makes none where the text is not of that kind.
    bool Follow(Progress& progress, std::wstring_view oldText, std::size_t limit) {
        if (!FindPlaces(progress.text, oldText)) return false;
        const std::size_t growth = places_.size() * (newText_.size() - spelling_.size());
        std::size_t steps = 0;
        bool exceeds = false;
        for (std::size_t next; (next = NextPlace(progress.index, steps)) != places_.size(); ++steps) {
            const std::size_t at = PositionOf(next, steps);
            if (at - progress.index > places_[next].clear) break;
            exceeds = progress.text.size() + (steps + 1) * growth > limit;
            if (exceeds) break;
            progress.count += places_.size();
            progress.index = at + newText_.size();
        }
        progress.text = Grown(progress.text, steps);
        return exceeds;
    }

private:
    struct Place {
        std::size_t at;
        std::size_t clear;  // in so many characters before it nothing changes and no spelling begins
    };

    std::size_t RunLength(std::wstring_view run) const {
        return run.empty() ? 0 : spelling_.size() / run.size() + 2;
    }

    static bool IsRun(std::wstring_view text, std::wstring_view run) {
        for (; !text.empty(); text.remove_prefix(run.size())) {
            if (!text.starts_with(run)) return false;
        }
        return true;
    }

    /// Lists the places of the spelling; false unless they are apart and have settled runs around them.
    bool FindPlaces(std::wstring_view text, std::wstring_view oldText) {
        const std::size_t runBefore = RunLength(before_) * before_.size();
        const std::size_t runBehind = RunLength(behind_) * behind_.size();
        std::size_t end = 0;    // of the last place
        std::size_t taken = 0;  // up to here and no further an occurrence of any spelling has begun
        for (std::size_t at = 0; (at = FindTextNoCase(text, oldText, at)) != kNotFound; ++at) {
            if (text.substr(at, spelling_.size()) == spelling_) {
                if (at < end + (places_.empty() ? 0 : runBehind) + runBefore) return false;
                if (!IsRun(text.substr(at - runBefore, runBefore), before_)) return false;
                const std::size_t steady = before_.empty() ? end : at - runBefore;
                places_.push_back({at, at - std::max(steady, taken)});
                end = at + spelling_.size();
                if (text.size() - end < runBehind || !IsRun(text.substr(end, runBehind), behind_))
                    return false;
            }
            taken = at + 1;
        }
        return true;
    }

    std::size_t PositionOf(std::size_t place, std::size_t steps) const {
        return places_[place].at + steps * (before_.size() + place * (newText_.size() - spelling_.size()));
    }

    /// The first place at or behind `index` after so many steps.
    std::size_t NextPlace(std::size_t index, std::size_t steps) const {
        std::size_t low = 0, high = places_.size();
        while (low < high) {
            const std::size_t middle = (low + high) / 2;
            if (PositionOf(middle, steps) < index) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

    std::wstring Grown(std::wstring_view text, std::size_t steps) const {
        std::wstring result;
        result.reserve(text.size() + steps * places_.size() * (newText_.size() - spelling_.size()));
        std::size_t copied = 0;
        for (const Place& place : places_) {
            result.append(text, copied, place.at - copied);
            for (std::size_t i = 0; i < steps; ++i) result.append(before_);
            result.append(spelling_);
            for (std::size_t i = 0; i < steps; ++i) result.append(behind_);
            copied = place.at + spelling_.size();
        }
        return result.append(text, copied);
    }

    std::wstring_view spelling_;
    std::wstring_view newText_;
    std::wstring_view before_;
    std::wstring_view behind_;
    std::vector<Place> places_;
};

/// The procedure as it is told, with the shortcuts that follow one spelling.
class Procedure {
public:
    Procedure(std::wstring_view text, std::wstring_view oldText, std::wstring_view newText, std::size_t limit)
        : oldText_(oldText),
          newText_(newText),
          mayGrow_(newText.size() > oldText.size() && FindTextNoCase(newText, oldText) != kNotFound),
          limit_(limit) {
        progress_.text = text;
    }

    Progress& Run() {
        std::size_t found;
        while ((found = FindTextNoCase(progress_.text, oldText_, progress_.index)) != kNotFound) {
            Meet(std::wstring_view(progress_.text).substr(found, oldText_.size()));
            if (spelling_ == newText_) {
                KeepAll(found);
            } else if (!(mayGrow_ && FollowGrowth()) && !ReplaceAll(found)) {
                break;
            }
        }
        return progress_;
    }

private:
    void Meet(std::wstring_view spelling) {
        repeats_ = spelling == spelling_ ? repeats_ + 1 : 0;
        if (repeats_ == 0) spelling_ = spelling;
    }

    /// Replaces the spelling by itself.
    void KeepAll(std::size_t found) {
        if (repeats_ == 0) kept_ = CountExact(progress_.text, spelling_);
        progress_.count += kept_;
        progress_.index = found + newText_.size();
    }

    /// True if that made the progress of at least one step, or ended the procedure.
    bool FollowGrowth() {
        if (repeats_ == 0 || FindText(newText_, spelling_) == kNotFound) return false;
        GrowingReplacement growing(spelling_, newText_);
        if (repeats_ <= growing.StepsToSettle()) return false;
        repeats_ = 0;
        const std::uint64_t before = progress_.count;
        if (growing.Follow(progress_, oldText_, limit_)) progress_.index = progress_.text.size();
        return progress_.count != before;
    }

    /// One step of the procedure; false, with nothing done, if the text would grow too long. The first step
    /// is always made: the text replaced may be short and the new one long.
    bool ReplaceAll(std::size_t found) {
        const std::size_t count = CountExact(progress_.text, spelling_);
        const std::size_t size = progress_.text.size() + count * newText_.size() - count * spelling_.size();
        if (size > INT_MAX) throw std::bad_alloc();
        if (mayGrow_ && progress_.count > 0 && size > limit_) return false;
        progress_.text = ReplacedExactly(progress_.text, spelling_, newText_, count);
        progress_.count += count;
        progress_.index = found + newText_.size();
        return true;
    }

    std::wstring_view oldText_;
    std::wstring_view newText_;
    bool mayGrow_;
    std::size_t limit_;
    Progress progress_;
    std::wstring spelling_;
    std::size_t repeats_ = 0;  // how often in a row the spelling was met before
    std::size_t kept_ = 0;
};

}  // namespace

namespace nexo {

std::uint64_t ReplaceTextNoCase(std::wstring_view text, std::wstring_view oldText, std::wstring_view newText,
                                std::size_t limit, std::wstring& result) {
    std::size_t count = 0;
    result.clear();
    if (NeverTouch(oldText, newText) && ReplaceInOnePass(text, oldText, newText, result, count)) return count;
    Procedure procedure(text, oldText, newText, limit);
    Progress& progress = procedure.Run();
    result = std::move(progress.text);
    return progress.count;
}

}  // namespace nexo

int moxStrUtil::ReplaceNoCase(CString& s, const wchar_t* old, const wchar_t* neu) {
    const CString oldText(old), newText(neu);
    if (oldText.IsEmpty() || !neu || FindTextNoCase(s.View(), oldText.View()) == kNotFound) return 0;
    const std::size_t limit = 16 * s.View().size() + 1048576;
    std::wstring result;
    const std::uint64_t count =
        nexo::ReplaceTextNoCase(s.View(), oldText.View(), newText.View(), limit, result);
    s.SetUnits(result);
    return static_cast<int>(std::min<std::uint64_t>(count, INT_MAX));
}
