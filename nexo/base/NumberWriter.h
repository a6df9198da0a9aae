#ifndef NEXO_BASE_NUMBERWRITER_H
#define NEXO_BASE_NUMBERWRITER_H

// Private to the library.

#include <cstddef>
#include <cstdint>

#include "nexo/base/Export.h"

/// Digits of numbers written straight into a buffer, for the printf core and for writers of records and
/// documents.
///
/// All functions write without a terminator and return the end; up to the room that they ask for, anything
/// may be left behind the end. They exist for `wchar_t` and `char`.
namespace nexo {

/// Room that the integer writers need.
inline constexpr std::size_t kIntegerRoom = 24;

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

/// Room for a value with `decimals` places behind the point.
inline constexpr std::size_t FixedRoom(double value, int decimals) {
    const bool large = !(value < 1e15 && value > -1e15);
    return (large ? 350 : 40) + static_cast<std::size_t>(decimals);
}

/// Room that WriteFloat needs.
inline constexpr std::size_t FloatRoom(double value, const FloatStyle& style) {
    return FixedRoom(style.letter == 'f' ? value : 0, style.precision);
}

/// Writes a finite value without its sign, correctly rounded at any size and precision (ties to even), with a
/// decimal point and an exponent of at least two digits.
template <class Ch>
NEXO_API Ch* WriteFloat(Ch* out, double value, const FloatStyle& style) noexcept;

/// Room that WriteGeneral needs.
inline constexpr std::size_t kGeneralRoom = 40;

/// Writes any value as "%g" does: sign, six significant digits, "inf", "nan".
template <class Ch>
NEXO_API Ch* WriteGeneral(Ch* out, double value) noexcept;

/// Writes any value as "%.<decimals>f" does; needs FixedRoom().
template <class Ch>
NEXO_API Ch* WriteFixed(Ch* out, double value, int decimals) noexcept;

}  // namespace nexo

#endif
