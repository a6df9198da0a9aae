#include "nexo/base/CodeUnits.h"

#include <array>
#include <cstdint>

namespace nexo {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

std::uint32_t Value(wchar_t unit) {
    return static_cast<std::uint32_t>(unit);
}

bool IsSupplementary(std::uint32_t value) {
    return value >= 0x10000 && value <= 0x10FFFF;
}

/// Bytes 80 to 9F of code page 1252; the undefined ones stand for themselves.
constexpr std::array<char16_t, 32> kAnsiHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, std::uint32_t value) {
    const auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (value < 0x80) return put(value);
    if (value < 0x800) {
        put(0xC0 | value >> 6);
    } else if (value < 0x10000) {
        put(0xE0 | value >> 12);
        put(0x80 | (value >> 6 & 0x3F));
    } else {
        put(0xF0 | value >> 18);
        put(0x80 | (value >> 12 & 0x3F));
        put(0x80 | (value >> 6 & 0x3F));
    }
    put(0x80 | (value & 0x3F));
}

/// Takes one code point off the front of `text`; a lone surrogate is returned as it is.
std::uint32_t TakeCodePoint(std::wstring_view& text) {
    const std::uint32_t first = Value(text[0]);
    const std::uint32_t second = text.size() > 1 ? Value(text[1]) : 0;
    const bool pair = (first & ~0x3FFu) == 0xD800 && (second & ~0x3FFu) == 0xDC00;
    text.remove_prefix(pair ? 2 : 1);
    return pair ? 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF) : first;
}

}  // namespace

std::size_t SplitLength(const wchar_t* text, std::size_t length) noexcept {
    std::size_t units = length;
    for (std::size_t i = 0; i < length; ++i) units += IsSupplementary(Value(text[i]));
    return units;
}

wchar_t* SplitInto(wchar_t* out, const wchar_t* text, std::size_t length) noexcept {
    for (std::size_t i = 0; i < length; ++i) {
        const std::uint32_t value = Value(text[i]);
        if (IsSupplementary(value)) {
            *out++ = static_cast<wchar_t>(0xD800 + ((value - 0x10000) >> 10));
            *out++ = static_cast<wchar_t>(0xDC00 + (value & 0x3FF));
        } else {
            *out++ = static_cast<wchar_t>(value > 0x10FFFF ? kReplacement : value);
        }
    }
    return out;
}

std::wstring JoinedUnits(std::wstring_view text) {
    std::wstring joined;
    joined.reserve(text.size());
    while (!text.empty()) joined.push_back(static_cast<wchar_t>(TakeCodePoint(text)));
    return joined;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::uint32_t value = TakeCodePoint(text);
        AppendUtf8(bytes, (value & ~0x7FFu) == 0xD800 || value > 0x10FFFF ? kReplacement : value);
    }
    return bytes;
}

wchar_t WidenAnsi(char byte) noexcept {
    const auto value = static_cast<unsigned char>(byte);
    const bool special = value >= 0x80 && value < 0xA0;
    return static_cast<wchar_t>(special ? kAnsiHigh[value - 0x80u] : value);
}

char NarrowAnsi(wchar_t unit) noexcept {
    const std::uint32_t value = Value(unit);
    if (value < 0x80 || (value >= 0xA0 && value < 0x100)) return static_cast<char>(value);
    for (std::size_t i = 0; i < kAnsiHigh.size(); ++i) {
        if (kAnsiHigh[i] == value) return static_cast<char>(0x80 + i);
    }
    return '?';
}

void WidenAnsi(wchar_t* out, const char* text, std::size_t length) noexcept {
    for (std::size_t i = 0; i < length; ++i) out[i] = WidenAnsi(text[i]);
}

void NarrowAnsi(char* out, const wchar_t* text, std::size_t length) noexcept {
    for (std::size_t i = 0; i < length; ++i) out[i] = NarrowAnsi(text[i]);
}

}  // namespace nexo
