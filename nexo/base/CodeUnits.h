#ifndef NEXO_BASE_CODEUNITS_H
#define NEXO_BASE_CODEUNITS_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "nexo/base/Export.h"

/// Passage between the library's wide text and foreign text.
///
/// Every `wchar_t` of the library holds one UTF-16 code unit. Foreign wide text (literals, other libraries)
/// may hold code points above U+FFFF in one `wchar_t`; they are split where they enter and joined where they
/// leave. Whole files and buffers in other encodings go through the code-page functions, not through these.
namespace nexo {

/// True when `text` holds anything that is no code unit, so that it must be split before it is kept.
[[nodiscard]] inline bool NeedsSplit(const wchar_t* text, std::size_t length) noexcept {
    std::size_t i = 0;
    for (; i + 8 <= length; i += 8) {
        std::uint64_t block[4];
        std::memcpy(block, text + i, sizeof block);
        if ((block[0] | block[1] | block[2] | block[3]) & 0xFFFF0000FFFF0000u) return true;
    }
    std::uint32_t rest = 0;
    for (; i < length; ++i) rest |= static_cast<std::uint32_t>(text[i]);
    return rest > 0xFFFF;
}

/// Number of code units that `text` has once split. Values above U+10FFFF count as one (they become U+FFFD).
[[nodiscard]] NEXO_API std::size_t SplitLength(const wchar_t* text, std::size_t length) noexcept;

/// Writes the split form of `text`, SplitLength() code units, and returns the end of it. No overlap allowed.
NEXO_API wchar_t* SplitInto(wchar_t* out, const wchar_t* text, std::size_t length) noexcept;

/// `text` with its surrogate pairs joined to code points; lone surrogates stay.
[[nodiscard]] NEXO_API std::wstring JoinedUnits(std::wstring_view text);

/// `text` as UTF-8, for streams and messages; lone surrogates become U+FFFD.
[[nodiscard]] NEXO_API std::string ToUtf8(std::wstring_view text);

/// The code unit of a byte of code page 1252; its five undefined bytes give the unit of the same value.
[[nodiscard]] NEXO_API wchar_t WidenAnsi(char byte) noexcept;

/// The byte of code page 1252 for a code unit, "?" where the page has none.
[[nodiscard]] NEXO_API char NarrowAnsi(wchar_t unit) noexcept;

/// Widens `length` bytes of code page 1252.
NEXO_API void WidenAnsi(wchar_t* out, const char* text, std::size_t length) noexcept;

/// Narrows `length` code units to code page 1252. A code point above U+FFFF in one `wchar_t` gives one "?".
NEXO_API void NarrowAnsi(char* out, const wchar_t* text, std::size_t length) noexcept;

}  // namespace nexo

#endif
