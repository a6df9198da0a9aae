#ifndef NEXO_BASE_FOREIGNTEXT_H
#define NEXO_BASE_FOREIGNTEXT_H

// Private to the library.

#include <cstddef>
#include <string_view>
#include <type_traits>

#include "nexo/base/CString.h"
#include "nexo/base/CodeUnits.h"

/// Arguments of CString's members as code units: wide text from outside may hold code points above U+FFFF in
/// one character. The inner part of CString.cpp, the same for narrow text, which is always taken as it is.
namespace nexo {

/// True when anything in the text must be split; narrow text never needs it.
inline bool HoldsForeign(std::wstring_view text) {
    return NeedsSplit(text.data(), text.size());
}
inline bool HoldsForeign(std::string_view) {
    return false;
}

/// One character as the one or two units that it stands for.
template <class Ch>
class SplitCharacter {
public:
    explicit SplitCharacter(Ch character) : units_{character} {
        if constexpr (sizeof(Ch) > 1)
            count_ = static_cast<std::size_t>(SplitInto(units_, &character, 1) - units_);
    }
    std::basic_string_view<Ch> View() const { return {units_, count_}; }

private:
    Ch units_[2];
    std::size_t count_ = 1;
};

/// -1, 0 or 1 by the folded characters; what is foreign in `b` is compared as the units it stands for.
template <class Ch, class Fold>
int CompareSplit(std::basic_string_view<Ch> a, std::basic_string_view<Ch> b, Fold fold) {
    using Unsigned = std::make_unsigned_t<std::conditional_t<sizeof(Ch) == 1, Ch, int>>;
    for (const Ch character : b) {
        Ch units[2] = {character};
        std::size_t count = 1;
        if constexpr (sizeof(Ch) > 1)
            count = static_cast<std::size_t>(SplitInto(units, &character, 1) - units);
        for (std::size_t i = 0; i < count; ++i) {
            if (a.empty()) return -1;
            const auto x = static_cast<Unsigned>(fold(a.front()));
            const auto y = static_cast<Unsigned>(fold(units[i]));
            if (x != y) return x < y ? -1 : 1;
            a.remove_prefix(1);
        }
    }
    return !a.empty();
}

/// A searched text as code units; keeps the split form of a literal that holds larger code points.
template <class Ch>
class Needle {
public:
    explicit Needle(std::basic_string_view<Ch> text) : view_(text) {
        if (!HoldsForeign(text)) return;
        split_ = BasicString<Ch>(text);
        view_ = split_.View();
    }
    explicit Needle(const Ch* text)
        : Needle(text ? std::basic_string_view<Ch>(text) : std::basic_string_view<Ch>()) {}
    std::basic_string_view<Ch> View() const { return view_; }

private:
    BasicString<Ch> split_;
    std::basic_string_view<Ch> view_;
};

}  // namespace nexo

#endif
