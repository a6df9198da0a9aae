#ifndef NEXO_BASE_NUMBERTEXT_H
#define NEXO_BASE_NUMBERTEXT_H

#include <cstddef>
#include <cstdint>

#include "nexo/base/Export.h"

/// Digits of numbers written straight into a buffer, for the printf core and for writers of records and
/// documents.
///
/// All functions write without a terminator and return the end. They exist for `wchar_t` and `char`.
namespace nexo {

/// Room that the integer writers need.
inline constexpr std::size_t kIntegerRoom = 20;

template <class Ch>
NEXO_API Ch* WriteUnsigned(Ch* out, std::uint64_t value) noexcept;
template <class Ch>
NEXO_API Ch* WriteSigned(Ch* out, std::int64_t value) noexcept;

/// How a floating-point number is written, as in a printf conversion.
struct FloatStyle {
    char letter = 'g';       ///< 'e', 'f' or 'g'
    int precision = 6;       ///< 0 to 65,535
    bool alternate = false;  ///< "#": always a point, and %g keeps its trailing zeros
};

/// Room that WriteFloat needs for any value.
inline constexpr std::size_t FloatRoom(int precision) {
    return 330 + static_cast<std::size_t>(precision);
}

/// Writes a finite value without its sign, correctly rounded at any size and precision (ties to even), with a
/// decimal point and an exponent of at least two digits.
template <class Ch>
NEXO_API Ch* WriteFloat(Ch* out, double value, const FloatStyle& style) noexcept;

/// Room that WriteGeneral needs.
inline constexpr std::size_t kGeneralRoom = 16;

/// Writes any value as "%g" does: sign, six significant digits, "inf", "nan".
template <class Ch>
NEXO_API Ch* WriteGeneral(Ch* out, double value) noexcept;

}  // namespace nexo

#endif
