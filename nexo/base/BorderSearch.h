#ifndef NEXO_BASE_BORDERSEARCH_H
#define NEXO_BASE_BORDERSEARCH_H

// Private to the library.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// The text search that never steps back (Knuth, Morris, Pratt): what quicker searches turn to in texts where
// they would compare the same characters again and again.

namespace nexo {

/// Follows how much of a text's tail is a head of `part`, looking at each character once.
///
/// `Case::Fold(c)` gives the form in which characters are compared. `part` must not be empty, has at most
/// 2^32-1 characters, and is not copied. Construction and a whole pass are linear.
template <class Ch, class Case>
class BorderTable {
public:
    explicit BorderTable(std::basic_string_view<Ch> part) : part_(part), borders_(part.size() + 1) {
        for (std::size_t i = 1, length = 0; i < part.size(); ++i) {
            length = Next(length, part[i]);
            borders_[i + 1] = static_cast<std::uint32_t>(length);
        }
    }

    /// The length of the longest such head after `c`, when it was `length` before.
    [[nodiscard]] std::size_t Next(std::size_t length, Ch c) const {
        while (length > 0 && (length == part_.size() || !Same(part_[length], c))) length = borders_[length];
        return Same(part_[length], c) ? length + 1 : 0;
    }

private:
    static bool Same(Ch a, Ch b) { return Case::Fold(a) == Case::Fold(b); }

    std::basic_string_view<Ch> part_;
    std::vector<std::uint32_t> borders_;  // for each head, its longest proper head that is also its tail
};

/// The first occurrence of `part` at or behind `from`, or npos.
template <class Case, class Ch>
[[nodiscard]] std::size_t FindByBorders(std::basic_string_view<Ch> text, std::basic_string_view<Ch> part,
                                        std::size_t from) {
    const BorderTable<Ch, Case> borders(part);
    std::size_t matched = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        matched = borders.Next(matched, text[i]);
        if (matched == part.size()) return i + 1 - matched;
    }
    return text.npos;
}

}  // namespace nexo

#endif
