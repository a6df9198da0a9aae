#ifndef NEXO_TEXT_GUID_H
#define NEXO_TEXT_GUID_H

#include <array>
#include <cstdint>
#include <string_view>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// Globally unique identifiers and their 22-character form in building models (IFC). All functions may be
// called from any thread.

namespace nexo {

/// An identifier in its field order; all zero by default, which stands for "none".
struct Guid {
    std::uint32_t first = 0;
    std::uint16_t second = 0;
    std::uint16_t third = 0;
    std::array<unsigned char, 8> last{};

    friend bool operator==(const Guid&, const Guid&) = default;
};

inline constexpr int kCompressedGuidLength = 22;

/// A new random identifier (version 4); all zero when the system gives no random bytes.
[[nodiscard]] NEXO_API Guid CreateGuid();

/// The identifier as 36 lower-case characters: "04abf900-d1c4-11e1-8000-00215ad4efdf".
[[nodiscard]] NEXO_API CString GuidText(const Guid& guid);

/// Reads the form of GuidText, in any case, also between braces. False, with `guid` unchanged, for all else.
NEXO_API bool ParseGuidText(std::wstring_view text, Guid& guid);

/// The identifier that 32 hexadecimal digits, an MD5 text, make: their 16 bytes are taken as the identifier
/// lies in little-endian memory, so that the first field is the bytes 3, 2, 1, 0.
///
/// Throws std::invalid_argument("Invalid input string") for a digit that is none and for any other length.
[[nodiscard]] NEXO_API Guid GuidFromDigest(std::wstring_view digits);

/// The compressed form: "04abf900-d1c4-11e1-8000-00215ad4efdf" gives "04g$a0qSGHuO00025QrE$V".
///
/// Each character carries 6 bits of "0" to "9", "A" to "Z", "a" to "z", "_", "$"; the first two hold the top
/// byte, each further four hold three bytes.
[[nodiscard]] NEXO_API CString CompressGuid(const Guid& guid);

/// Reads the compressed form. False, with `guid` unchanged, when it has not exactly 22 characters, one of
/// them is not in the alphabet, or the first two hold more than a byte.
NEXO_API bool ExpandGuid(std::wstring_view compressed, Guid& guid);

}  // namespace nexo

/// A new random identifier in the compressed form: 22 characters and the terminator, to be released with
/// `free`. Null when the system gives no random bytes or no memory.
NEXO_API char* CreateCompressedGuidString();

/// The identifier of a text in the compressed form: the same for the same text, made from its MD5. For an
/// empty text a new random one. To be released with `free`; null as above.
///
/// CreateIFCGuidStringFromString(L"abc") gives "3FSnJEne3ziwZZty06hSCL"
NEXO_API char* CreateIFCGuidStringFromString(const CString& s);

#endif
