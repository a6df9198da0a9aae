#include "nexo/base/NumberWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

#include "nexo/base/DecimalScale.h"
#include "nexo/base/DigitBlock.h"

namespace nexo {
namespace {

constexpr std::uint64_t kBlock = 100000000;  // what eight digits hold

/// Writes a value below 10^8 without leading zeros.
template <class Ch>
Ch* WriteBlock(Ch* out, std::uint32_t value) {
    const std::uint64_t digits = EightDigits(value);
    const int zeros = LeadingZeros(digits);
    StoreDigits(out, (digits | kZeroDigits) >> (8 * zeros));
    return out + 8 - zeros;
}

/// Writes all eight digits of a value below 10^8.
template <class Ch>
Ch* WriteFullBlock(Ch* out, std::uint64_t value) {
    StoreDigits(out, EightDigits(static_cast<std::uint32_t>(value)) | kZeroDigits);
    return out + 8;
}

/// The sixteen digits of a value below 10^16.
Wide SixteenDigits(std::uint64_t value) {
    const std::uint64_t first = EightDigits(static_cast<std::uint32_t>(value / kBlock)) | kZeroDigits;
    const std::uint64_t second = EightDigits(static_cast<std::uint32_t>(value % kBlock)) | kZeroDigits;
    return Wide{second} << 64 | first;
}

/// A few significant digits of a value: d.ddd times 10^exponent. Block is std::uint64_t for up to 7, Wide
/// for 15.
template <class Block>
struct ShortDigits {
    static constexpr int kRoom = sizeof(Block);
    Block ascii;  // the first digit in the lowest byte
    int count;
    int exponent;

    void Set(std::uint64_t value, int digits, int power) {
        count = digits;
        exponent = power;
        if constexpr (kRoom == 8) {
            ascii = EightDigits(static_cast<std::uint32_t>(value)) | kZeroDigits;
        } else {
            ascii = SixteenDigits(value);
        }
        ascii >>= 8 * (kRoom - digits);
    }
};

/// Estimates the decimal exponent of a value from 1e-15 to 1e19; right but for values next to a power of ten.
int EstimateExponent(double value, Binary binary) {
    static constexpr double kBounds[] = {1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7,
                                         1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,  1e1,  1e2,
                                         1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,  1e10, 1e11,
                                         1e12,  1e13,  1e14,  1e15,  1e16,  1e17,  1e18, 1e19};
    const int below = (binary.exponent + 52) * 1233 >> 12;  // log10(2) = 1233 / 4096
    return below + (value >= kBounds[below + 16]);
}

/// The digits where 128 bits hold the exact scaled value, else false.
template <class Block>
bool GetShortDigits(double value, int count, ShortDigits<Block>& digits) {
    if (count >= digits.kRoom) return false;
    if (value == 0) {
        digits.Set(0, count, 0);
        return true;
    }
    if (!(value >= 1e-15 && value < 1e19)) return false;
    const Binary binary(value);
    int exponent = EstimateExponent(value, binary);
    std::uint64_t result = 0;
    const auto scale = [&] {
        const int power = count - 1 - exponent;
        return power >= 0 ? ScaleUp(binary, power, result) : ScaleDown(binary, -power, result);
    };
    if (!scale()) return false;
    if (result >= PowerOfTen(count)) {  // rounded up to the next power of ten
        ++exponent;
        if (!scale()) return false;
    }
    if (result < PowerOfTen(count - 1)) return false;
    digits.Set(result, count, exponent);
    return true;
}

int SignificantBytes(std::uint64_t ascii) {
    return (71 - std::countl_zero(ascii & 0x0F0F0F0F0F0F0F0Fu)) / 8;
}

/// Forgets trailing zeros.
void DropZeros(ShortDigits<std::uint64_t>& digits) {
    digits.count = std::max(SignificantBytes(digits.ascii), 1);
}

void DropZeros(ShortDigits<Wide>& digits) {
    const int second = SignificantBytes(static_cast<std::uint64_t>(digits.ascii >> 64));
    const int first = SignificantBytes(static_cast<std::uint64_t>(digits.ascii));
    digits.count = std::max(second ? 8 + second : first, 1);
}

template <class Ch>
Ch* WriteExponent(Ch* out, int exponent) {
    *out++ = 'e';
    *out++ = exponent < 0 ? '-' : '+';
    const int size = exponent < 0 ? -exponent : exponent;
    if (size >= 100) *out++ = static_cast<Ch>('0' + size / 100);
    *out++ = static_cast<Ch>('0' + size / 10 % 10);
    *out++ = static_cast<Ch>('0' + size % 10);
    return out;
}

template <class Ch, class Block>
Ch* LayScientific(Ch* out, const ShortDigits<Block>& digits) {
    *out = static_cast<Ch>(digits.ascii & 0xFF);
    out[1] = '.';
    StoreDigits(out + 2, static_cast<Block>(digits.ascii >> 8), digits.count > 9);
    return WriteExponent(out + digits.count + (digits.count > 1), digits.exponent);
}

/// Fixed notation for exponents from -4 to the number of digits: the digits are stored twice, for the places
/// before and behind the point, so that only the positions depend on the value.
template <class Ch, class Block>
Ch* LayFixed(Ch* out, const ShortDigits<Block>& digits) {
    constexpr std::uint64_t zeroPoint = 0x3030303030302E30u;  // "0.000000"
    const bool below = digits.exponent < 0;
    const int whole = below ? 0 : digits.exponent + 1;
    Ch* const fraction = out + (below ? 1 - digits.exponent : whole + 1);
    StoreDigits(out, below ? Block{zeroPoint} : digits.ascii, whole > 8);
    out[below ? 1 : whole] = '.';
    StoreDigits(fraction, static_cast<Block>(digits.ascii >> (8 * whole)), digits.count - whole > 8);
    return digits.count > whole ? fraction + digits.count - whole : out + whole;
}

template <class Ch, class Block>
Ch* LayGeneral(Ch* out, ShortDigits<Block> digits, int precision) {
    DropZeros(digits);
    const bool scientific = digits.exponent < -4 || digits.exponent >= precision;
    return scientific ? LayScientific(out, digits) : LayFixed(out, digits);
}

/// The first significant digits of any value.
struct Digits {
    /// No double has more significant digits than these; the rest of any longer text are zeros.
    static constexpr int kMost = 800;
    std::array<char, kMost + 16> text;
    int count = 0;
    int exponent = 0;
};

/// Any value and number of digits through the exact printer.
void GetDigits(double value, int count, Digits& digits) {
    char* const text = digits.text.data();
    count = std::min(count, Digits::kMost);
    const auto written =
        std::to_chars(text, text + digits.text.size(), value, std::chars_format::scientific, count - 1);
    const char* const mark = std::find(text, written.ptr, 'e');
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, written.ptr, digits.exponent);
    if (count > 1) std::memmove(text + 1, text + 2, static_cast<std::size_t>(count - 1));
    digits.count = count;
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
    return WriteExponent(CopyDigits(out, digits, 1, decimals), digits.exponent);
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
Ch* WriteExactGeneral(Ch* out, double value, int precision, bool alternate) {
    Digits digits;
    GetDigits(value, precision, digits);
    int kept = precision;
    if (!alternate) {
        kept = digits.count;
        while (kept > 1 && digits.text[static_cast<std::size_t>(kept - 1)] == '0') --kept;
    }
    const bool scientific = digits.exponent < -4 || digits.exponent >= precision;
    if (scientific) return LayScientific(out, digits, kept - 1, alternate);
    return LayFixed(out, digits, std::max(kept - 1 - digits.exponent, 0), alternate);
}

template <class Ch>
Ch* WriteGeneralDigits(Ch* out, double value, int precision, bool alternate) {
    precision = std::max(precision, 1);
    ShortDigits<std::uint64_t> few;
    ShortDigits<Wide> more;
    if (alternate) return WriteExactGeneral(out, value, precision, alternate);
    if (GetShortDigits(value, precision, few)) return LayGeneral(out, few, precision);
    if (GetShortDigits(value, precision, more)) return LayGeneral(out, more, precision);
    return WriteExactGeneral(out, value, precision, alternate);
}

template <class Ch>
Ch* WriteScientific(Ch* out, double value, const FloatStyle& style) {
    ShortDigits<Wide> few;
    if (style.precision > 0 && GetShortDigits(value, style.precision + 1, few))
        return LayScientific(out, few);
    Digits digits;
    GetDigits(value, style.precision + 1, digits);
    return LayScientific(out, digits, style.precision, style.alternate);
}

/// scaled / 10^decimals for 1 to 7 decimals and a scaled value below 10^8: the point joins the digits before
/// they are stored.
template <class Ch>
Ch* LayFewScaled(Ch* out, std::uint32_t scaled, int decimals) {
    const std::uint64_t values = EightDigits(scaled);
    const int zeros = std::min(LeadingZeros(values), 7 - decimals);
    const std::uint64_t digits = (values | kZeroDigits) >> (8 * zeros);
    const int count = 8 - zeros;
    const int place = 8 * (count - decimals);
    const std::uint64_t whole = digits & ((std::uint64_t{1} << place) - 1);
    StoreDigits(out, whole | std::uint64_t{'.'} << place | (digits ^ whole) << 8);
    out[8] = static_cast<Ch>(digits >> 56);
    return out + count + 1;
}

/// scaled / 10^decimals for up to 15 decimals and a scaled value below 10^16.
template <class Ch>
Ch* LayScaled(Ch* out, std::uint64_t scaled, int decimals, bool point) {
    const Wide digits = SixteenDigits(scaled);
    const auto upper = static_cast<std::uint64_t>(digits) ^ kZeroDigits;
    const auto lower = static_cast<std::uint64_t>(digits >> 64) ^ kZeroDigits;
    const int zeros = std::min(upper ? LeadingZeros(upper) : 8 + LeadingZeros(lower), 15 - decimals);
    const int whole = 16 - decimals - zeros;
    StoreDigits(out, digits >> (8 * zeros), whole > 8);
    if (decimals == 0 && !point) return out + whole;
    out[whole] = '.';
    StoreDigits(out + whole + 1, digits >> (8 * (16 - decimals) % 128), decimals > 8);
    return out + whole + 1 + decimals;
}

template <class Ch>
Ch* WriteExactFixed(Ch* out, double value, int precision, bool point) {
    constexpr int most = 1074;  // decimals of the smallest double; whatever follows are zeros
    std::array<char, 320 + most> text;
    const int decimals = std::min(precision, most);
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    out = std::copy(text.data(), written.ptr, out);
    if (point && precision == 0) *out++ = '.';
    return std::fill_n(out, precision - decimals, static_cast<Ch>('0'));
}

template <class Ch>
Ch* WriteFixedDigits(Ch* out, double value, int precision, bool point) {
    std::uint64_t scaled = 0;
    const bool small = precision < 16 && ScaleUp(Binary(value), precision, scaled);
    if (small && scaled < kBlock && precision > 0 && precision < 8) {
        return LayFewScaled(out, static_cast<std::uint32_t>(scaled), precision);
    }
    if (small && scaled < kBlock * kBlock) return LayScaled(out, scaled, precision, point);
    return WriteExactFixed(out, value, precision, point);
}

/// Sign, "inf" and "nan"; the digits of all other values come from `write`.
template <class Ch, class Write>
Ch* WriteAny(Ch* out, double value, Write write) {
    *out = '-';
    out += std::signbit(value);
    if (std::isfinite(value)) return write(out, std::fabs(value));
    return std::copy_n(std::isnan(value) ? "nan" : "inf", 3, out);
}

}  // namespace

template <class Ch>
Ch* WriteUnsigned(Ch* out, std::uint64_t value) noexcept {
    if (value < kBlock) return WriteBlock(out, static_cast<std::uint32_t>(value));
    const std::uint64_t upper = value / kBlock;
    if (upper < kBlock) {
        out = WriteBlock(out, static_cast<std::uint32_t>(upper));
    } else {
        out = WriteFullBlock(WriteBlock(out, static_cast<std::uint32_t>(upper / kBlock)), upper % kBlock);
    }
    return WriteFullBlock(out, value % kBlock);
}

template <class Ch>
Ch* WriteSigned(Ch* out, std::int64_t value) noexcept {
    const auto bits = static_cast<std::uint64_t>(value);
    *out = '-';
    return WriteUnsigned(out + (value < 0), value < 0 ? 0 - bits : bits);
}

template <class Ch>
Ch* WriteFloat(Ch* out, double value, const FloatStyle& style) noexcept {
    value = std::fabs(value);
    if (style.letter == 'f') return WriteFixedDigits(out, value, style.precision, style.alternate);
    if (style.letter == 'e') return WriteScientific(out, value, style);
    return WriteGeneralDigits(out, value, style.precision, style.alternate);
}

template <class Ch>
Ch* WriteGeneral(Ch* out, double value) noexcept {
    return WriteAny(out, value, [](Ch* at, double size) { return WriteGeneralDigits(at, size, 6, false); });
}

template <class Ch>
Ch* WriteFixed(Ch* out, double value, int decimals) noexcept {
    return WriteAny(out, value,
                    [&](Ch* at, double size) { return WriteFixedDigits(at, size, decimals, false); });
}

template NEXO_API char* WriteUnsigned(char*, std::uint64_t) noexcept;
template NEXO_API wchar_t* WriteUnsigned(wchar_t*, std::uint64_t) noexcept;
template NEXO_API char* WriteSigned(char*, std::int64_t) noexcept;
template NEXO_API wchar_t* WriteSigned(wchar_t*, std::int64_t) noexcept;
template NEXO_API char* WriteFloat(char*, double, const FloatStyle&) noexcept;
template NEXO_API wchar_t* WriteFloat(wchar_t*, double, const FloatStyle&) noexcept;
template NEXO_API char* WriteGeneral(char*, double) noexcept;
template NEXO_API wchar_t* WriteGeneral(wchar_t*, double) noexcept;
template NEXO_API char* WriteFixed(char*, double, int) noexcept;
template NEXO_API wchar_t* WriteFixed(wchar_t*, double, int) noexcept;

}  // namespace nexo
