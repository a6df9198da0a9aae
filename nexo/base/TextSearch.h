#ifndef NEXO_BASE_TEXTSEARCH_H
#define NEXO_BASE_TEXTSEARCH_H

// Private to the library.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "nexo/base/Export.h"

/// Searching in texts of code units or bytes in linear time; what CString's members are made of.
namespace nexo {

/// The first occurrence of `part` at or behind `from`, or npos. An empty part is found at `from`.
///
/// Time is linear in the lengths, also for texts like "aaaa...ab". Throws std::bad_alloc only for such texts.
[[nodiscard]] NEXO_API std::size_t FindText(std::wstring_view text, std::wstring_view part,
                                            std::size_t from = 0);
[[nodiscard]] NEXO_API std::size_t FindText(std::string_view text, std::string_view part,
                                            std::size_t from = 0);

/// A set of characters with a constant-time test, whatever their number.
template <class Ch>
class CharSet {
public:
    explicit CharSet(std::basic_string_view<Ch> members) {
        for (const Ch member : members) Insert(Value(member));
    }

    bool Has(Ch character) const noexcept {
        const std::uint32_t value = Value(character);
        if (value < 256) return low_[value / 64] >> (value % 64) & 1;
        return value < 0x10000 && !high_.empty() && (high_[value / 64] >> (value % 64) & 1);
    }

    /// Number of characters at the front of `text` that are members, or with `member` false are none.
    std::size_t Span(std::basic_string_view<Ch> text, bool member) const noexcept {
        std::size_t length = 0;
        while (length < text.size() && Has(text[length]) == member) ++length;
        return length;
    }

private:
    static std::uint32_t Value(Ch character) noexcept {
        const auto value = static_cast<std::uint32_t>(character);
        return sizeof(Ch) == 1 ? value & 0xFF : value;
    }
    void Insert(std::uint32_t value) {
        if (value < 256) {
            low_[value / 64] |= std::uint64_t{1} << (value % 64);
        } else if (value < 0x10000) {
            if (high_.empty()) high_.resize(0x10000 / 64);
            high_[value / 64] |= std::uint64_t{1} << (value % 64);
        }
    }

    std::array<std::uint64_t, 4> low_{};
    std::vector<std::uint64_t> high_;  // a bit for every code unit once there is one above 255
};

}  // namespace nexo

#endif
