#ifndef NEXO_BASE_NUMBER_H
#define NEXO_BASE_NUMBER_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "nexo/base/Export.h"

/// Numbers from text, by the rules of the classic conversion functions and never by the locale.
///
/// White space (IsSpace) is skipped, then at most one sign may stand directly before the number; whatever
/// follows the number is ignored. No number gives 0. `used`, where given, receives the code units up to the
/// end of the number, 0 when there is none. The pointer forms read up to the terminator, null counts as "". A
/// CString takes the pointer form.
namespace nexo {

/// Decimal integer; out of range it saturates ("99999999999" gives 2147483647). "0x10" is 0, "010" is 10.
[[nodiscard]] NEXO_API int ParseInt(std::wstring_view text, std::size_t* used = nullptr) noexcept;
[[nodiscard]] NEXO_API int ParseInt(const wchar_t* text) noexcept;
[[nodiscard]] NEXO_API std::int64_t ParseInt64(std::wstring_view text, std::size_t* used = nullptr) noexcept;
[[nodiscard]] NEXO_API std::int64_t ParseInt64(const wchar_t* text) noexcept;

/// Decimal integer of 32 bits without sign; saturates at 4294967295, a minus sign negates modulo 2^32.
[[nodiscard]] NEXO_API std::uint32_t ParseUnsigned(std::wstring_view text,
                                                   std::size_t* used = nullptr) noexcept;
[[nodiscard]] NEXO_API std::uint32_t ParseUnsigned(const wchar_t* text) noexcept;

/// Floating-point number with a decimal point, correctly rounded: "5.", ".5", "1e3", hexadecimal floats,
/// "inf", "infinity" and "nan" in any case. A comma ends it; an exponent counts only with a digit. Too large
/// gives infinity, too small 0, both with the sign.
[[nodiscard]] NEXO_API double ParseDouble(std::wstring_view text, std::size_t* used = nullptr) noexcept;
[[nodiscard]] NEXO_API double ParseDouble(const wchar_t* text) noexcept;

}  // namespace nexo

#endif
