#ifndef NEXO_PLATFORM_CODEPAGE_H
#define NEXO_PLATFORM_CODEPAGE_H

#include <cstddef>
#include <string>
#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"
#include "nexo/platform/ByteBuffer.h"

// Conversion between bytes in a numbered code page and wide text of UTF-16 code units, one to a wchar_t.
//
// 1252, 437, 850 and 65001 (UTF-8) are converted here; any other number goes to the system's converter
// without transliteration. The numbers a text-file interface adds (-1, 3331 to 3333) are unknown here: their
// meaning depends on the direction, and text/ resolves them. Every function takes a whole text; zero units
// are converted like any other. Safe from any thread. Cost is linear.

namespace nexo::platform {

inline constexpr unsigned int kCodePageOem437 = 437;
inline constexpr unsigned int kCodePageOem850 = 850;
inline constexpr unsigned int kCodePageWindows1252 = 1252;
inline constexpr unsigned int kCodePageUtf8 = 65001;

/// What happens to malformed bytes, and to units that the page does not hold.
enum class Malformed {
    kReplace,  ///< U+FFFD on reading; "?" on writing a page, U+FFFD on writing UTF-8
    kRefuse,   ///< the conversion fails with kErrorNoUnicodeTranslation
};

enum class ByteOrder { kLittle, kBig };

/// The code page of console programs: 850.
[[nodiscard]] NEXO_API unsigned int OemCodePage();

/// Whether ToWide and FromWide know the number.
[[nodiscard]] NEXO_API bool IsCodePage(unsigned int codePage);

/// Converts bytes to wide text. False, with `out` unchanged, for an unknown code page
/// (kErrorInvalidParameter) and for malformed bytes that are to be refused.
///
/// In 1252 the bytes 81 8D 8F 90 9D give the units of the same value. In UTF-8 each maximal ill-formed part
/// gives one U+FFFD, overlong forms and encoded surrogates are ill-formed, a byte-order mark gives U+FEFF,
/// and a supplementary character gives two units. In other pages each byte that cannot be read gives one
/// U+FFFD.
NEXO_API bool ToWide(unsigned int codePage, std::string_view bytes, CString& out,
                     Malformed malformed = Malformed::kReplace);
NEXO_API bool ToWide(unsigned int codePage, std::string_view bytes, std::wstring& out,
                     Malformed malformed = Malformed::kReplace);

/// The same into the caller's memory, not terminated. Returns the number of units, or -1, also when
/// `capacity` units do not suffice (kErrorInsufficientBuffer; then `out` holds anything). `bytes.size()`
/// units always suffice for the four pages named above.
NEXO_API std::ptrdiff_t ToWide(unsigned int codePage, std::string_view bytes, wchar_t* out,
                               std::size_t capacity, Malformed malformed = Malformed::kReplace);

/// Converts wide text to bytes. False, with `out` unchanged, as for ToWide.
///
/// In a page, a unit without an exact equal gives "?", look-alikes are never taken, and a supplementary
/// character gives "??". A letter followed by one combining mark is first composed; when the page does not
/// hold the composed letter, the letter and "?" are written. In UTF-8 surrogate pairs are joined and lone
/// surrogates become EF BF BD. A wchar_t above U+FFFF is taken as the character it names.
NEXO_API bool FromWide(unsigned int codePage, std::wstring_view text, std::string& out,
                       Malformed malformed = Malformed::kReplace);
NEXO_API bool FromWide(unsigned int codePage, std::wstring_view text, CStringA& out,
                       Malformed malformed = Malformed::kReplace);

/// Appends to `out`; the way to write large texts without touching memory twice.
NEXO_API bool FromWide(unsigned int codePage, std::wstring_view text, ByteBuffer& out,
                       Malformed malformed = Malformed::kReplace);

/// UTF-8 both ways, for names, messages and terminals; cannot fail.
[[nodiscard]] NEXO_API CString WideFromUtf8(std::string_view bytes);
[[nodiscard]] NEXO_API std::string Utf8FromWide(std::wstring_view text);

/// UTF-16 bytes to units. Writes `bytes.size() / 2` units, which `out` must have room for, and returns that
/// number; an odd last byte is dropped. Surrogates pass as they are.
NEXO_API std::size_t WideFromUtf16(std::string_view bytes, ByteOrder order, wchar_t* out);

/// Units to UTF-16 bytes (low 16 bits of each unit), appended to `out`.
NEXO_API void Utf16FromWide(std::wstring_view text, ByteOrder order, ByteBuffer& out);

}  // namespace nexo::platform

#endif
