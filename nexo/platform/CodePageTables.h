#ifndef NEXO_PLATFORM_CODEPAGETABLES_H
#define NEXO_PLATFORM_CODEPAGETABLES_H

// Private to the library.

#include <cstdint>

#include "nexo/base/Export.h"

// Tables behind CodePage.h: the single-byte pages converted here, and the compositions that writing a page
// makes.

namespace nexo::platform {

/// A single-byte code page in both directions.
struct SingleBytePage {
    wchar_t wide[256];             ///< unit of each byte
    bool latin;                    ///< bytes A0 to FF are the units of the same value
    std::uint8_t upper[2][8][16];  ///< low and high bytes of the units of bytes 80 to FF
    std::uint8_t blockOf[256];     ///< row of `bytes` for the high byte of a unit; row 0 holds nothing
    std::uint8_t bytes[9][256];    ///< byte of a unit by its low byte; 0 where there is none

    /// Byte of a unit; 0 for units that the page does not hold, and for U+0000.
    [[nodiscard]] std::uint8_t ByteOf(std::uint32_t unit) const {
        return unit > 0xFFFF ? std::uint8_t{0} : bytes[blockOf[unit >> 8]][unit & 0xFF];
    }
};

/// The page of a number (437, 850, 1252), or null.
[[nodiscard]] NEXO_API const SingleBytePage* FindSingleBytePage(unsigned int codePage);

/// Whether any letter composes with the unit.
[[nodiscard]] NEXO_API bool IsCombiningMark(std::uint32_t unit);

/// The letter that `base` followed by `mark` is composed to; 0 when there is none.
[[nodiscard]] NEXO_API std::uint32_t Compose(std::uint32_t base, std::uint32_t mark);

}  // namespace nexo::platform

#endif
