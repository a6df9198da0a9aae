#include "nexo/base/NumberText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace nexo {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::array<std::uint64_t, 20> kPowers = [] {
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// "00" to "99", so that one store writes two digits.
template <class Ch>
constexpr auto kPairs = [] {
    std::array<std::array<Ch, 2>, 100> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[i] = {static_cast<Ch>('0' + i / 10), static_cast<Ch>('0' + i % 10)};
    }
    return pairs;
}();

/// Number of decimal digits, 1 for zero.
int CountDigits(std::uint64_t value) {
    const int guess = static_cast<int>(std::bit_width(value | 1)) * 1233 >> 12;  // log10(2) = 1233 / 4096
    return guess + (guess < 20 && value >= kPowers[static_cast<std::size_t>(guess)]) + (value == 0);
}

/// Writes exactly `count` digits ending before `end`, with leading zeros where the value is shorter.
template <class Ch, class Int>
void WriteDigits(Ch* end, Int value, int count) {
    for (; count >= 2; count -= 2, value /= 100) {
        end -= 2;
        std::memcpy(end, kPairs<Ch>[static_cast<std::size_t>(value % 100)].data(), 2 * sizeof(Ch));
    }
    if (count == 1) end[-1] = static_cast<Ch>('0' + value % 10);
}

template <class Ch>
Ch* WriteCounted(Ch* out, std::uint64_t value, int count) {
    if (value <= UINT32_MAX) {
        WriteDigits(out + count, static_cast<std::uint32_t>(value), count);
    } else {
        WriteDigits(out + count, value, count);
    }
    return out + count;
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

/// Rounds half to even: `order` is the sign of (remainder - half).
std::uint64_t Rounded(std::uint64_t quotient, int order) {
    return quotient + (order > 0 || (order == 0 && (quotient & 1)));
}

template <class T>
int Order(T a, T b) {
    return (a > b) - (a < b);
}

/// value * 10^power rounded to an integer, exact because the product fits 128 bits. False where it does not,
/// or where the result exceeds 64 bits.
bool ScaleUp(Binary value, int power, std::uint64_t& result) {
    if (power >= static_cast<int>(kPowers.size())) return false;
    Wide product = Wide{value.mantissa} * kPowers[static_cast<std::size_t>(power)];
    int order = -1;
    if (value.exponent < 0) {
        const int shift = -value.exponent;
        if (shift >= 127) {  // the product is below 2^117, so the quotient is below a half
            result = 0;
            return true;
        }
        const Wide remainder = product & ((Wide{1} << shift) - 1);
        order = Order(remainder, Wide{1} << (shift - 1));
        product >>= shift;
    } else {
        if (value.exponent > 11 || product >> (64 - value.exponent)) return false;
        product <<= value.exponent;
    }
    if (product >= UINT64_MAX) return false;
    result = Rounded(static_cast<std::uint64_t>(product), order);
    return true;
}

/// value / 10^power rounded to an integer, for values below 2^64 and power > 0.
bool ScaleDown(Binary value, int power, std::uint64_t& result) {
    if (value.exponent > 11 || power >= static_cast<int>(kPowers.size())) return false;
    const std::uint64_t divisor = kPowers[static_cast<std::size_t>(power)];
    std::uint64_t whole = 0;
    bool fraction = false;
    if (value.exponent >= 0) {
        whole = value.mantissa << value.exponent;
    } else if (value.exponent > -53) {
        whole = value.mantissa >> -value.exponent;
        fraction = whole << -value.exponent != value.mantissa;
    }
    const std::uint64_t remainder = whole % divisor;
    int order = Order(remainder, divisor / 2);
    if (order == 0 && fraction) order = 1;
    result = Rounded(whole / divisor, order);
    return true;
}

/// The first significant digits of a value: d.ddd times 10^exponent.
struct Digits {
    /// No double has more significant digits than these; the rest of any longer text are zeros.
    static constexpr int kMost = 800;
    std::array<char, kMost + 16> text;
    int count = 0;
    int exponent = 0;
};

/// Exact digits for the range that 128 bits cover, up to 17 of them.
bool FastDigits(double value, int count, Digits& digits) {
    static constexpr double kBounds[] = {1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7,
                                         1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,  1e1,  1e2,
                                         1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,  1e10, 1e11,
                                         1e12,  1e13,  1e14,  1e15,  1e16,  1e17,  1e18, 1e19};
    if (count > 17 || !(value >= 1e-15 && value < 1e19)) return false;
    const Binary binary(value);
    int exponent = (binary.exponent + 52) * 1233 >> 12;
    exponent += exponent < 19 && value >= kBounds[exponent + 16];
    std::uint64_t result = 0;
    const auto scale = [&] {
        const int power = count - 1 - exponent;
        return power >= 0 ? ScaleUp(binary, power, result) : ScaleDown(binary, -power, result);
    };
    if (!scale()) return false;
    if (result >= kPowers[static_cast<std::size_t>(count)]) {  // rounded up to the next power of ten
        ++exponent;
        if (!scale()) return false;
    }
    if (result < kPowers[static_cast<std::size_t>(count - 1)]) return false;
    WriteCounted(digits.text.data(), result, count);
    digits.count = count;
    digits.exponent = exponent;
    return true;
}

/// Any value and number of digits through the exact printer.
void ExactDigits(double value, int count, Digits& digits) {
    char* const text = digits.text.data();
    count = std::min(count, Digits::kMost);
    const auto written =
        std::to_chars(text, text + digits.text.size(), value, std::chars_format::scientific, count - 1);
    const char* const mark = std::find(text, written.ptr, 'e');
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, written.ptr, digits.exponent);
    if (count > 1) std::memmove(text + 1, text + 2, static_cast<std::size_t>(count - 1));
    digits.count = count;
}

void GetDigits(double value, int count, Digits& digits) {
    if (value == 0) {
        digits.text[0] = '0';
        digits.count = 1;
        digits.exponent = 0;
    } else if (!FastDigits(value, count, digits)) {
        ExactDigits(value, count, digits);
    }
}

/// Writes `count` digits from `first` on; behind the known digits stand zeros, before them too.
template <class Ch>
Ch* CopyDigits(Ch* out, const Digits& digits, int first, int count) {
    for (int i = first; i < first + count; ++i) {
        const bool known = i >= 0 && i < digits.count;
        *out++ = static_cast<Ch>(known ? digits.text[static_cast<std::size_t>(i)] : '0');
    }
    return out;
}

template <class Ch>
Ch* LayScientific(Ch* out, const Digits& digits, int decimals, bool point) {
    out = CopyDigits(out, digits, 0, 1);
    if (point || decimals > 0) *out++ = '.';
    out = CopyDigits(out, digits, 1, decimals);
    *out++ = 'e';
    *out++ = digits.exponent < 0 ? '-' : '+';
    const auto power = static_cast<std::uint64_t>(std::abs(digits.exponent));
    return WriteCounted(out, power, std::max(2, CountDigits(power)));
}

template <class Ch>
Ch* LayFixed(Ch* out, const Digits& digits, int decimals, bool point) {
    if (digits.exponent < 0) {
        *out++ = '0';
    } else {
        out = CopyDigits(out, digits, 0, digits.exponent + 1);
    }
    if (point || decimals > 0) *out++ = '.';
    return CopyDigits(out, digits, digits.exponent + 1, decimals);
}

template <class Ch>
Ch* WriteGeneralDigits(Ch* out, double value, const FloatStyle& style) {
    const int precision = std::max(style.precision, 1);
    Digits digits;
    GetDigits(value, precision, digits);
    int kept = precision;
    if (!style.alternate) {
        kept = digits.count;
        while (kept > 1 && digits.text[static_cast<std::size_t>(kept - 1)] == '0') --kept;
    }
    const bool scientific = digits.exponent < -4 || digits.exponent >= precision;
    if (scientific) return LayScientific(out, digits, kept - 1, style.alternate);
    return LayFixed(out, digits, std::max(kept - 1 - digits.exponent, 0), style.alternate);
}

template <class Ch>
Ch* WriteScientific(Ch* out, double value, const FloatStyle& style) {
    Digits digits;
    GetDigits(value, style.precision + 1, digits);
    return LayScientific(out, digits, style.precision, style.alternate);
}

/// Digits first, then the point is made room for: no division is spent on parting them.
template <class Ch>
Ch* LayScaled(Ch* out, std::uint64_t scaled, int decimals, bool point) {
    const int count = std::max(CountDigits(scaled), decimals + 1);
    if (decimals == 0 && !point) return WriteCounted(out, scaled, count);
    Ch* const end = WriteCounted(out + 1, scaled, count);
    const int whole = count - decimals;
    std::memmove(out, out + 1, static_cast<std::size_t>(whole) * sizeof(Ch));
    out[whole] = '.';
    return end;
}

template <class Ch>
Ch* WriteFixed(Ch* out, double value, const FloatStyle& style) {
    std::uint64_t scaled = 0;
    if (style.precision < 20 && ScaleUp(Binary(value), style.precision, scaled)) {
        return LayScaled(out, scaled, style.precision, style.alternate);
    }
    constexpr int most = 1074;  // decimals of the smallest double; whatever follows are zeros
    std::array<char, 320 + most> text;
    const int decimals = std::min(style.precision, most);
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    out = std::copy(text.data(), written.ptr, out);
    if (style.alternate && style.precision == 0) *out++ = '.';
    return std::fill_n(out, style.precision - decimals, static_cast<Ch>('0'));
}

template <class Ch>
Ch* WriteName(Ch* out, const char* name) {
    return std::copy_n(name, 3, out);
}

}  // namespace

template <class Ch>
Ch* WriteUnsigned(Ch* out, std::uint64_t value) noexcept {
    return WriteCounted(out, value, CountDigits(value));
}

template <class Ch>
Ch* WriteSigned(Ch* out, std::int64_t value) noexcept {
    const auto bits = static_cast<std::uint64_t>(value);
    if (value < 0) *out++ = '-';
    return WriteUnsigned(out, value < 0 ? 0 - bits : bits);
}

template <class Ch>
Ch* WriteFloat(Ch* out, double value, const FloatStyle& style) noexcept {
    value = std::fabs(value);
    if (style.letter == 'f') return WriteFixed(out, value, style);
    if (style.letter == 'e') return WriteScientific(out, value, style);
    return WriteGeneralDigits(out, value, style);
}

template <class Ch>
Ch* WriteGeneral(Ch* out, double value) noexcept {
    if (std::signbit(value)) *out++ = '-';
    if (std::isnan(value)) return WriteName(out, "nan");
    if (std::isinf(value)) return WriteName(out, "inf");
    return WriteGeneralDigits(out, std::fabs(value), FloatStyle());
}

template NEXO_API char* WriteUnsigned(char*, std::uint64_t) noexcept;
template NEXO_API wchar_t* WriteUnsigned(wchar_t*, std::uint64_t) noexcept;
template NEXO_API char* WriteSigned(char*, std::int64_t) noexcept;
template NEXO_API wchar_t* WriteSigned(wchar_t*, std::int64_t) noexcept;
template NEXO_API char* WriteFloat(char*, double, const FloatStyle&) noexcept;
template NEXO_API wchar_t* WriteFloat(wchar_t*, double, const FloatStyle&) noexcept;
template NEXO_API char* WriteGeneral(char*, double) noexcept;
template NEXO_API wchar_t* WriteGeneral(wchar_t*, double) noexcept;

}  // namespace nexo
