#ifndef NEXO_BASE_CHARCLASS_H
#define NEXO_BASE_CHARCLASS_H

#include <string_view>

#include "nexo/base/Export.h"

/// Classes and case of UTF-16 code units, from one table that no locale can change.
///
/// Case maps one unit to one unit and only where both directions agree, so sharp s, U+0130, U+0131, final
/// sigma, long s and the micro sign stay as they are. Surrogates have neither class nor case. A value above
/// U+FFFF, which is no code unit, belongs to no class and maps to itself.
namespace nexo {

/// Whole-table forms of the functions below, for units from U+0080 on.
NEXO_API bool IsSpaceBeyondAscii(wchar_t unit) noexcept;
NEXO_API bool IsControlBeyondAscii(wchar_t unit) noexcept;
NEXO_API bool IsAlphaBeyondAscii(wchar_t unit) noexcept;
NEXO_API wchar_t ToLowerBeyondAscii(wchar_t unit) noexcept;
NEXO_API wchar_t ToUpperBeyondAscii(wchar_t unit) noexcept;

[[nodiscard]] inline bool IsAscii(wchar_t unit) noexcept {
    return static_cast<unsigned>(unit) < 0x80;
}

/// True for first <= unit <= last.
[[nodiscard]] inline bool IsBetween(wchar_t unit, wchar_t first, wchar_t last) noexcept {
    return static_cast<unsigned>(unit) - static_cast<unsigned>(first) <=
           static_cast<unsigned>(last) - static_cast<unsigned>(first);
}

/// "0" to "9" only.
[[nodiscard]] inline bool IsDigit(wchar_t unit) noexcept {
    return IsBetween(unit, L'0', L'9');
}

/// Tab to carriage return, blank, U+0085, no-break space and the other Unicode blanks; not U+200B, not
/// U+FEFF.
[[nodiscard]] inline bool IsSpace(wchar_t unit) noexcept {
    if (IsAscii(unit)) return unit == L' ' || IsBetween(unit, L'\t', L'\r');
    return IsSpaceBeyondAscii(unit);
}

/// U+0000 to U+001F, U+007F to U+009F and the invisible format characters (U+200B to U+200F, U+FEFF, ...).
[[nodiscard]] inline bool IsControl(wchar_t unit) noexcept {
    if (IsAscii(unit)) return unit < L' ' || unit == 0x7F;
    return IsControlBeyondAscii(unit);
}

/// Letters of any script.
[[nodiscard]] inline bool IsAlpha(wchar_t unit) noexcept {
    if (IsAscii(unit)) return IsBetween(unit | 0x20, L'a', L'z');
    return IsAlphaBeyondAscii(unit);
}

/// Letters of any script and the digits "0" to "9".
[[nodiscard]] inline bool IsAlnum(wchar_t unit) noexcept {
    return IsDigit(unit) || IsAlpha(unit);
}

[[nodiscard]] inline wchar_t ToLower(wchar_t unit) noexcept {
    if (IsAscii(unit)) return IsBetween(unit, L'A', L'Z') ? unit + 32 : unit;
    return ToLowerBeyondAscii(unit);
}

[[nodiscard]] inline wchar_t ToUpper(wchar_t unit) noexcept {
    if (IsAscii(unit)) return IsBetween(unit, L'a', L'z') ? unit - 32 : unit;
    return ToUpperBeyondAscii(unit);
}

/// -1, 0 or 1 by the lower-cased code units: the order of texts for people ("_" sorts before letters).
[[nodiscard]] NEXO_API int CompareNoCase(std::wstring_view a, std::wstring_view b) noexcept;

/// -1, 0 or 1 by the upper-cased code units: the order of names in file systems and key stores.
[[nodiscard]] NEXO_API int CompareOrdinalNoCase(std::wstring_view a, std::wstring_view b) noexcept;

/// True when both texts are the same but for case.
[[nodiscard]] inline bool EqualNoCase(std::wstring_view a, std::wstring_view b) noexcept {
    return a.size() == b.size() && CompareNoCase(a, b) == 0;
}

}  // namespace nexo

#endif
