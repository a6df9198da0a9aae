#ifndef NEXO_BASE_DECIMALSCALE_H
#define NEXO_BASE_DECIMALSCALE_H

// Private to the library.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "nexo/base/DigitBlock.h"

/// Scaling of doubles by powers of ten without any error, as far as 128 bits reach; the inner part of
/// NumberWriter.cpp.
namespace nexo {

inline constexpr std::array<std::uint64_t, 20> kPowers = [] {
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

constexpr std::uint64_t PowerOfTen(int exponent) {
    return kPowers[static_cast<std::size_t>(exponent)];
}

/// A positive double as integer times power of two.
struct Binary {
    std::uint64_t mantissa;
    int exponent;

    explicit Binary(double value) {
        constexpr int bits = 52;
        const auto raw = std::bit_cast<std::uint64_t>(value);
        const int biased = static_cast<int>(raw >> bits & 0x7FF);
        mantissa = (raw & ((std::uint64_t{1} << bits) - 1)) | (std::uint64_t{biased != 0} << bits);
        exponent = std::max(biased, 1) - 1023 - bits;
    }
};

/// value / 2^shift rounded half to even, for shift > 0 and a sum that stays within 128 bits.
inline Wide ShiftRounded(Wide value, int shift) {
    const auto lower = static_cast<std::uint64_t>(value);
    const auto upper = static_cast<std::uint64_t>(value >> 64);
    if (shift < 64 && upper >> shift == 0) {  // the usual case, in one register
        const std::uint64_t quotient = upper << (64 - shift) | lower >> shift;
        const std::uint64_t rest = lower << (64 - shift);
        return Wide{quotient} + (rest > (std::uint64_t{1} << 63) - (quotient & 1));
    }
    return (value + ((Wide{1} << (shift - 1)) - 1) + (static_cast<std::uint64_t>(value >> shift) & 1)) >>
           shift;
}

/// value * 10^power rounded half to even, exact because the product fits 128 bits. False where it does not,
/// or where the result exceeds 64 bits.
inline bool ScaleUp(Binary value, int power, std::uint64_t& result) {
    if (power >= static_cast<int>(kPowers.size())) return false;
    Wide product = Wide{value.mantissa} * PowerOfTen(power);
    if (value.exponent >= 0) {
        if (value.exponent > 11 || product >> (64 - value.exponent)) return false;
        result = static_cast<std::uint64_t>(product) << value.exponent;
        return true;
    }
    const int shift = std::min(-value.exponent, 120);  // behind 118 bits nothing of the product is left
    product = ShiftRounded(product, shift);
    result = static_cast<std::uint64_t>(product);
    return product <= UINT64_MAX;
}

/// Division by 10^power = 2^power * 5^power as a shift and a multiplication; exact for every 64-bit dividend.
struct Divisor {
    std::uint64_t factor;  // 2^(64 + shift) / 5^power, rounded up
    int shift;

    constexpr explicit Divisor(int power) : factor(0), shift(0) {
        const std::uint64_t five = PowerOfTen(power) >> power;
        shift = static_cast<int>(std::bit_width(five)) - 1;
        factor = static_cast<std::uint64_t>((Wide{1} << (64 + shift)) / five + 1);
    }
};

inline constexpr auto kDivisors = []<std::size_t... Power>(std::index_sequence<Power...>) {
    return std::array{Divisor(Power + 1)...};
}
(std::make_index_sequence<kPowers.size() - 1>());

inline std::uint64_t DividedByPower(std::uint64_t value, int power) {
    const Divisor& divisor = kDivisors[static_cast<std::size_t>(power - 1)];
    return static_cast<std::uint64_t>(Wide{value >> power} * divisor.factor >> 64) >> divisor.shift;
}

/// value / 10^power rounded to an integer, for values from 1 to 2^64 and power > 0.
inline bool ScaleDown(Binary value, int power, std::uint64_t& result) {
    if (value.exponent > 11 || power >= static_cast<int>(kPowers.size())) return false;
    std::uint64_t whole = value.mantissa;
    bool fraction = false;
    if (value.exponent >= 0) {
        whole <<= value.exponent;
    } else {
        whole >>= -value.exponent;
        fraction = whole << -value.exponent != value.mantissa;
    }
    const std::uint64_t quotient = DividedByPower(whole, power);
    const std::uint64_t remainder = whole - quotient * PowerOfTen(power);
    const std::uint64_t half = PowerOfTen(power) / 2;
    const bool tie = remainder == half && !fraction;
    result = quotient + (tie ? quotient & 1 : remainder >= half);
    return true;
}

}  // namespace nexo

#endif
