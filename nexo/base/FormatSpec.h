#ifndef NEXO_BASE_FORMATSPEC_H
#define NEXO_BASE_FORMATSPEC_H

// Private to the library.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "nexo/base/FormatArg.h"

/// Reading of printf conversions; the inner part of Format.cpp, where the rules for callers are.
namespace nexo {

/// The most that a width or precision can be.
inline constexpr int kMostWidth = 65535;

enum class ArgSize : std::uint8_t { None, Char, Short, Long, Int64, Wide };

/// One conversion as it stands in the format.
struct FormatSpec {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    bool bad = false;  ///< a "*" met an argument that is no integer
    ArgSize size = ArgSize::None;
    char conversion = 0;  ///< 0 for an unknown one
    int width = 0;
    int precision = -1;  ///< -1 for none
};

/// The arguments in the order in which conversions take them.
class ArgList {
public:
    explicit ArgList(std::span<const FormatArg> args) noexcept : args_(args) {}

    /// The next argument; behind the last one a "none".
    const FormatArg& Peek() const noexcept { return next_ < args_.size() ? args_[next_] : none_; }
    const FormatArg& Next() noexcept { return next_ < args_.size() ? args_[next_++] : none_; }

private:
    std::span<const FormatArg> args_;
    std::size_t next_ = 0;
    FormatArg none_;
};

[[nodiscard]] inline bool IsInteger(const FormatArg& arg) noexcept {
    return arg.kind == FormatArg::Kind::Signed || arg.kind == FormatArg::Kind::Unsigned;
}

/// Reads one conversion behind its percent sign and stands behind it afterwards.
template <class Ch>
class SpecReader {
public:
    SpecReader(const Ch* at, ArgList& args) noexcept : at_(at), args_(args) {}

    const Ch* At() const noexcept { return at_; }

    FormatSpec Read() noexcept {
        FormatSpec spec;
        if (!IsConversion(*at_)) ReadModifiers(spec);
        if (IsConversion(*at_)) spec.conversion = static_cast<char>(*at_++);
        return spec;
    }

private:
    static bool IsConversion(Ch character) noexcept {
        static constexpr auto known = [] {
            std::array<bool, 128> table{};
            for (const char letter : std::string_view("diuoxXfFeEgGaAcCsSpn%")) table[letter & 0x7F] = true;
            return table;
        }();
        const auto value = static_cast<std::uint32_t>(character);
        return value < known.size() && known[value];
    }

    void ReadModifiers(FormatSpec& spec) noexcept {
        while (ReadFlag(spec)) ++at_;
        spec.width = ReadNumber(spec);
        if (spec.width < 0) {
            spec.left = true;
            spec.width = -spec.width;
        }
        if (*at_ == '.') {
            ++at_;
            spec.precision = std::max(ReadNumber(spec), -1);
        }
        ReadSize(spec);
    }

    bool ReadFlag(FormatSpec& spec) const noexcept {
        if (*at_ == '0') return spec.zero = true;
        if (*at_ == '-') return spec.left = true;
        if (*at_ == '+') return spec.plus = true;
        if (*at_ == ' ') return spec.blank = true;
        if (*at_ == '#') return spec.alternate = true;
        return false;
    }

    /// Digits, 0 without any, or "*" for the next argument.
    int ReadNumber(FormatSpec& spec) noexcept {
        if (*at_ == '*') {
            ++at_;
            return ReadArgument(spec);
        }
        int value = 0;
        for (; *at_ >= '0' && *at_ <= '9'; ++at_) {
            value = std::min(value * 10 + static_cast<int>(*at_ - '0'), kMostWidth);
        }
        return value;
    }

    int ReadArgument(FormatSpec& spec) noexcept {
        const FormatArg& arg = args_.Next();
        spec.bad |= !IsInteger(arg) && arg.kind != FormatArg::Kind::None;
        if (!IsInteger(arg)) return 0;
        return std::clamp(static_cast<std::int32_t>(arg.integer), -kMostWidth, kMostWidth);
    }

    void ReadSize(FormatSpec& spec) noexcept {
        switch (*at_) {
            case 'h':
                spec.size = TakeSecond('h') ? ArgSize::Char : ArgSize::Short;
                break;
            case 'l':
                spec.size = TakeSecond('l') ? ArgSize::Int64 : ArgSize::Long;
                break;
            case 'w':
                spec.size = ArgSize::Wide;
                break;
            case 'I':
                spec.size = TakeBits();
                break;
            case 'j':
            case 'z':
            case 't':
                spec.size = ArgSize::Int64;
                break;
            case 'L':
                break;
            default:
                return;
        }
        ++at_;
    }

    bool TakeSecond(Ch letter) noexcept {
        if (at_[1] != letter) return false;
        ++at_;
        return true;
    }

    /// "I64", "I32" or "I" alone, up to its last character.
    ArgSize TakeBits() noexcept {
        const bool is32 = at_[1] == '3' && at_[2] == '2';
        const bool is64 = at_[1] == '6' && at_[2] == '4';
        if (is32 || is64) at_ += 2;
        return is32 ? ArgSize::Long : ArgSize::Int64;
    }

    const Ch* at_;
    ArgList& args_;
};

}  // namespace nexo

#endif
