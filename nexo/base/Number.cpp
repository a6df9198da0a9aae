#include "nexo/base/Number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
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
    wchar_t PeekLower() const { return ToLower(Peek()); }
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
            if (PeekLower() == static_cast<wchar_t>(*lower)) continue;
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

/// The significant digits of a number and the power that scales them: digits * base^exponent.
///
/// A double is settled by fewer than 768 decimal digits and the question whether anything follows, so longer
/// numbers keep 800 digits and a 1 for the rest.
class Significand {
public:
    explicit Significand(int base) : base_(static_cast<unsigned>(base)) {}

    /// Takes digits up to the first other character, behind the point or before it.
    void Read(Cursor& text, bool fraction) {
        for (; IsMine(text.Peek()); text.Step()) {
            any_ = true;
            Add(static_cast<char>(text.Peek()));
            exponent_ -= fraction;
        }
    }
    bool Any() const { return any_; }
    std::int64_t& Exponent() { return exponent_; }

    /// digits * 10^exponent when one exact operation gives the correctly rounded value.
    bool Exact(double& value) const {
        static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                             1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
        if (count_ > 19 || value_ > (std::uint64_t{1} << 53) || exponent_ < -22 || exponent_ > 22)
            return false;
        const auto digits = static_cast<double>(value_);
        value = exponent_ < 0 ? digits / kPowers[-exponent_] : digits * kPowers[exponent_];
        return true;
    }

    double Decimal() {
        double value = 0;
        if (count_ == 0 || Exact(value)) return value;
        return Convert(std::chars_format::general, 'e', 1);
    }
    /// The exponent counts binary places; the digits are worth four each.
    double Hexadecimal() {
        if (count_ == 0) return 0;
        return Convert(std::chars_format::hex, 'p', 4);
    }

private:
    static constexpr std::size_t kKept = 800;

    bool IsMine(wchar_t unit) const {
        return IsDigit(unit) || (base_ == 16 && IsBetween(unit | 0x20, L'a', L'f'));
    }
    void Add(char digit) {
        if (count_ == 0 && digit == '0') return;
        if (count_ < 19) value_ = value_ * 10 + static_cast<std::uint64_t>(digit - '0');
        if (count_ < kKept) {
            digits_[count_++] = digit;
        } else {
            rest_ = rest_ || digit != '0';
            ++dropped_;
        }
    }

    double Convert(std::chars_format format, char mark, int scale) {
        char* end = digits_.data() + count_;
        std::int64_t power = exponent_ + dropped_ * scale;
        if (rest_) {
            *end++ = '1';
            power -= scale;
        }
        const std::int64_t size = power + static_cast<std::int64_t>(count_) * scale;
        *end++ = mark;
        end = std::to_chars(end, digits_.data() + digits_.size(),
                            std::clamp<std::int64_t>(power, -99999, 99999))
                  .ptr;
        double value = 0;
        const auto result = std::from_chars(digits_.data(), end, value, format);
        if (result.ec == std::errc()) return value;
        return size > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }

    unsigned base_;
    bool any_ = false;
    bool rest_ = false;
    std::size_t count_ = 0;
    std::uint64_t value_ = 0;
    std::int64_t exponent_ = 0;
    std::int64_t dropped_ = 0;
    std::array<char, kKept + 16> digits_;
};

/// Reads "e+5" and the like; without a digit nothing is taken. Huge exponents stay far outside every range.
std::int64_t ReadExponent(Cursor& text, wchar_t mark) {
    constexpr std::int64_t limit = std::int64_t{1} << 40;
    if (text.PeekLower() != mark) return 0;
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

/// "0x" followed by a hexadecimal digit, perhaps behind a point.
bool ReadHexadecimal(Cursor& text, double& value) {
    const wchar_t* const start = text.At();
    if (!text.TakeWord("0x")) return false;
    Significand digits(16);
    digits.Read(text, false);
    if (text.Peek() == L'.') {
        const wchar_t* const point = text.At();
        text.Step();
        digits.Read(text, true);
        if (!digits.Any()) text.MoveTo(point);
    }
    if (!digits.Any()) {
        text.MoveTo(start);
        return false;
    }
    digits.Exponent() = digits.Exponent() * 4 + ReadExponent(text, L'p');
    value = digits.Hexadecimal();
    return true;
}

bool ReadDecimal(Cursor& text, double& value) {
    const wchar_t* const start = text.At();
    Significand digits(10);
    digits.Read(text, false);
    if (text.Peek() == L'.') {
        text.Step();
        digits.Read(text, true);
    }
    if (!digits.Any()) {
        text.MoveTo(start);
        return false;
    }
    digits.Exponent() += ReadExponent(text, L'e');
    value = digits.Decimal();
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
    found = ReadHexadecimal(text, value) || ReadDecimal(text, value) || ReadName(text, value);
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
