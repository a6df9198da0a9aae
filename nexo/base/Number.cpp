#include "nexo/base/Number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "nexo/base/CharClass.h"

namespace nexo {
namespace {

/// Reads from a view or up to a terminator; behind the end it shows zeros.
class Cursor {
public:
    explicit Cursor(std::wstring_view text) : at_(text.data()), end_(text.data() + text.size()) {}
    explicit Cursor(const wchar_t* text) : at_(text ? text : L""), end_(nullptr) {}

    const wchar_t* At() const { return at_; }
    void MoveTo(const wchar_t* at) { at_ = at; }
    wchar_t Peek() const { return at_ == end_ ? L'\0' : *at_; }
    /// True at this ASCII letter in either case.
    bool IsAt(char lower) const { return (Peek() | 0x20) == lower; }
    void Step() { ++at_; }

    void SkipSpace() {
        while (IsSpace(Peek())) Step();
    }
    /// Skips a sign and tells whether it was a minus.
    bool TakeSign() {
        const bool minus = Peek() == L'-';
        if (minus || Peek() == L'+') Step();
        return minus;
    }
    bool TakeWord(const char* lower) {
        const wchar_t* const start = at_;
        for (; *lower; ++lower, Step()) {
            if (IsAt(*lower)) continue;
            MoveTo(start);
            return false;
        }
        return true;
    }

private:
    const wchar_t* at_;
    const wchar_t* end_;
};

struct Integer {
    std::uint64_t magnitude = 0;  // at most `limit` as given, whatever the text says
    bool minus = false;
    bool found = false;
    bool saturated = false;
};

/// A magnitude beyond the limit of its sign becomes that limit.
Integer ReadInteger(Cursor& text, std::uint64_t limit, std::uint64_t minusLimit) {
    text.SkipSpace();
    Integer number;
    number.minus = text.TakeSign();
    if (number.minus) limit = minusLimit;
    for (; IsDigit(text.Peek()); text.Step()) {
        const auto digit = static_cast<std::uint64_t>(text.Peek() - L'0');
        number.found = true;
        if (number.saturated) continue;
        number.saturated = number.magnitude > (limit - digit) / 10;
        number.magnitude = number.saturated ? limit : number.magnitude * 10 + digit;
    }
    return number;
}

template <class Int>
Int ReadSigned(Cursor& text, bool& found) {
    constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<Int>::max());
    const Integer number = ReadInteger(text, limit, limit + 1);
    found = number.found;
    return static_cast<Int>(number.minus ? 0 - number.magnitude : number.magnitude);
}

std::uint32_t ReadUnsigned(Cursor& text, bool& found) {
    constexpr std::uint64_t limit = std::numeric_limits<std::uint32_t>::max();
    const Integer number = ReadInteger(text, limit, limit);
    found = number.found;
    const bool negate = number.minus && !number.saturated;
    return static_cast<std::uint32_t>(negate ? 0 - number.magnitude : number.magnitude);
}

/// Runs a reader over a view and reports how much of it the number took.
template <class Read>
auto ReadView(Read read, std::wstring_view text, std::size_t* used) {
    Cursor cursor(text);
    bool found = false;
    const auto value = read(cursor, found);
    if (used) *used = found ? static_cast<std::size_t>(cursor.At() - text.data()) : 0;
    return value;
}

template <class Read>
auto ReadPointer(Read read, const wchar_t* text) {
    Cursor cursor(text);
    bool found = false;
    return read(cursor, found);
}

__extension__ using Wide = unsigned __int128;

/// value * 2^exponent where that is exact.
double Scaled(double value, int exponent) {
    return value * std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
}

/// The quotient as a double, correctly rounded; neither argument is 0.
double Quotient(std::uint64_t value, std::uint64_t divisor) {
    const int up = std::countl_zero(value);
    const int divisorUp = std::countl_zero(divisor);
    const Wide dividend = Wide{value << up}
                          << 63;  // its upper half is below the divisor: the result has 64 bits
    const std::uint64_t shifted = divisor << divisorUp;
    const auto quotient = static_cast<std::uint64_t>(dividend / shifted);
    const bool rest =
        quotient * Wide{shifted} != dividend;  // joins the many bits that are rounded away anyway
    return Scaled(static_cast<double>(quotient | rest), divisorUp - up - 63);
}

/// digits * 10^exponent, correctly rounded, where 128 bits suffice; false elsewhere.
bool Multiply(std::uint64_t digits, std::int64_t exponent, double& value) {
    static constexpr double kExact[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    static constexpr auto kFives = [] {
        std::array<std::uint64_t, 28> powers{1};
        for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 5;
        return powers;
    }();
    const auto power = static_cast<std::size_t>(exponent < 0 ? -exponent : exponent);
    if (power < std::size(kExact) && digits <= std::uint64_t{1} << 53) {  // both exact: one rounding
        const auto number = static_cast<double>(digits);
        value = exponent < 0 ? number / kExact[power] : number * kExact[power];
        return true;
    }
    if (power >= kFives.size()) return false;
    value = 0;
    if (digits == 0) return true;
    const int twos = static_cast<int>(exponent);
    value = exponent < 0 ? Scaled(Quotient(digits, kFives[power]), twos)
                         : Scaled(static_cast<double>(Wide{digits} * kFives[power]), twos);
    return true;
}

/// The significant digits of a long, huge, tiny or hexadecimal number and the power that scales them.
///
/// A double is settled by fewer than 768 decimal digits and the question whether anything follows, so longer
/// numbers keep 800 digits and a 1 for the rest.
class Significand {
public:
    explicit Significand(bool hexadecimal) : hexadecimal_(hexadecimal) {}

    /// Takes digits up to the first other character, behind the point or before it.
    void Read(Cursor& text, bool fraction) {
        for (; IsMine(text.Peek()); text.Step()) {
            any_ = true;
            Add(static_cast<char>(text.Peek()));
            exponent_ -= fraction;
        }
    }
    bool Any() const { return any_; }

    double Decimal(std::int64_t exponent) {
        return Convert(std::chars_format::general, 'e', 1, exponent_ + exponent);
    }
    /// `exponent` counts binary places; the digits are worth four each.
    double Hexadecimal(std::int64_t exponent) {
        return Convert(std::chars_format::hex, 'p', 4, exponent_ * 4 + exponent);
    }

private:
    static constexpr std::size_t kKept = 800;

    bool IsMine(wchar_t unit) const {
        return IsDigit(unit) || (hexadecimal_ && IsBetween(unit | 0x20, L'a', L'f'));
    }
    void Add(char digit) {
        if (count_ == 0 && digit == '0') return;
        if (count_ < kKept) {
            digits_[count_++] = digit;
        } else {
            rest_ = rest_ || digit != '0';
            ++dropped_;
        }
    }

    double Convert(std::chars_format format, char mark, int scale, std::int64_t power) {
        if (count_ == 0) return 0;
        char* end = digits_.data() + count_;
        power += dropped_ * scale;
        const bool large = power + static_cast<std::int64_t>(count_) * scale > 0;
        if (rest_) {
            *end++ = '1';
            power -= scale;
        }
        *end++ = mark;
        end = std::to_chars(end, digits_.data() + digits_.size(),
                            std::clamp<std::int64_t>(power, -99999, 99999))
                  .ptr;
        double value = 0;
        const auto result = std::from_chars(digits_.data(), end, value, format);
        if (result.ec == std::errc()) return value;
        return large ? std::numeric_limits<double>::infinity() : 0.0;
    }

    bool hexadecimal_;
    bool any_ = false;
    bool rest_ = false;
    std::size_t count_ = 0;
    std::int64_t exponent_ = 0;
    std::int64_t dropped_ = 0;
    std::array<char, kKept + 16> digits_;
};

/// Reads "e+5" and the like; without a digit nothing is taken. Huge exponents stay far outside every range.
std::int64_t ReadExponent(Cursor& text, char mark) {
    constexpr std::int64_t limit = std::int64_t{1} << 40;
    if (!text.IsAt(mark)) return 0;
    const wchar_t* const start = text.At();
    text.Step();
    const bool minus = text.TakeSign();
    if (!IsDigit(text.Peek())) {
        text.MoveTo(start);
        return 0;
    }
    std::int64_t value = 0;
    for (; IsDigit(text.Peek()); text.Step()) value = std::min(limit, value * 10 + (text.Peek() - L'0'));
    return minus ? -value : value;
}

/// Digits with perhaps a point among them; false and nothing taken when there is no digit.
bool ReadSignificand(Cursor& text, Significand& digits) {
    const wchar_t* const start = text.At();
    digits.Read(text, false);
    if (text.Peek() == L'.') {
        text.Step();
        digits.Read(text, true);
    }
    if (!digits.Any()) text.MoveTo(start);
    return digits.Any();
}

/// The digits behind "0x", where `text` stands at the x; without one the number is the zero before it.
double ReadHexadecimal(Cursor& text) {
    const wchar_t* const start = text.At();
    text.Step();
    Significand digits(true);
    if (ReadSignificand(text, digits)) return digits.Hexadecimal(ReadExponent(text, 'p'));
    text.MoveTo(start);
    return 0;
}

/// Appends digits to `value`, modulo 2^64, and returns their number.
std::int64_t ReadDigits(Cursor& text, std::uint64_t& value) {
    const wchar_t* const start = text.At();
    for (; IsDigit(text.Peek()); text.Step())
        value = value * 10 + static_cast<std::uint64_t>(text.Peek() - L'0');
    return text.At() - start;
}

/// The number from `start` on, by its digits one after the other: for those that Multiply() does not cover.
double ReadAgain(Cursor text, const wchar_t* start, std::int64_t exponent) {
    text.MoveTo(start);
    Significand all(false);
    ReadSignificand(text, all);
    return all.Decimal(exponent);
}

bool ReadFinite(Cursor& text, double& value) {
    const wchar_t* const start = text.At();
    std::uint64_t digits = 0;
    std::int64_t count = ReadDigits(text, digits);
    std::int64_t decimals = 0;
    if (text.Peek() == L'.') {
        text.Step();
        decimals = ReadDigits(text, digits);
        count += decimals;
    } else if (text.IsAt('x') && count == 1 && digits == 0) {
        value = ReadHexadecimal(text);
        return true;
    }
    if (count == 0) {
        text.MoveTo(start);
        return false;
    }
    const std::int64_t exponent = ReadExponent(text, 'e');
    if (count > 19 || !Multiply(digits, exponent - decimals, value)) value = ReadAgain(text, start, exponent);
    return true;
}

/// "inf", "infinity", "nan" and "nan(characters)".
bool ReadName(Cursor& text, double& value) {
    if (text.TakeWord("inf")) {
        text.TakeWord("inity");
        value = std::numeric_limits<double>::infinity();
        return true;
    }
    if (!text.TakeWord("nan")) return false;
    value = std::numeric_limits<double>::quiet_NaN();
    const wchar_t* const behind = text.At();
    if (text.Peek() != L'(') return true;
    do text.Step();
    while (IsAscii(text.Peek()) && (IsAlnum(text.Peek()) || text.Peek() == L'_'));
    if (text.Peek() == L')') {
        text.Step();
    } else {
        text.MoveTo(behind);
    }
    return true;
}

double ReadDouble(Cursor& text, bool& found) {
    text.SkipSpace();
    const bool minus = text.TakeSign();
    double value = 0;
    found = ReadFinite(text, value) || ReadName(text, value);
    return found ? std::copysign(value, minus ? -1.0 : 1.0) : 0.0;
}

}  // namespace

int ParseInt(std::wstring_view text, std::size_t* used) noexcept {
    return ReadView(ReadSigned<int>, text, used);
}
int ParseInt(const wchar_t* text) noexcept {
    return ReadPointer(ReadSigned<int>, text);
}

std::int64_t ParseInt64(std::wstring_view text, std::size_t* used) noexcept {
    return ReadView(ReadSigned<std::int64_t>, text, used);
}
std::int64_t ParseInt64(const wchar_t* text) noexcept {
    return ReadPointer(ReadSigned<std::int64_t>, text);
}

std::uint32_t ParseUnsigned(std::wstring_view text, std::size_t* used) noexcept {
    return ReadView(ReadUnsigned, text, used);
}
std::uint32_t ParseUnsigned(const wchar_t* text) noexcept {
    return ReadPointer(ReadUnsigned, text);
}

double ParseDouble(std::wstring_view text, std::size_t* used) noexcept {
    return ReadView(ReadDouble, text, used);
}
double ParseDouble(const wchar_t* text) noexcept {
    return ReadPointer(ReadDouble, text);
}

}  // namespace nexo
