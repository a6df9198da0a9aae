#ifndef NEXO_PLATFORM_CODEPAGEKERNELS_H
#define NEXO_PLATFORM_CODEPAGEKERNELS_H

// Private to the library.

#include <cstddef>

#include "nexo/base/Export.h"
#include "nexo/platform/CodePageTables.h"

// The conversion loops behind CodePage.h, once per instruction set. Every set gives the same result for every
// input; tests and fuzz targets compare them.

namespace nexo::platform {

struct Converted {
    std::size_t length;     ///< units or bytes written
    std::size_t malformed;  ///< how many of them replace something that could not be converted
};

struct CodePageKernels {
    /// Writes exactly `size` units.
    void (*pageToWide)(const SingleBytePage& page, const char* bytes, std::size_t size, wchar_t* out);
    /// Writes at most `size` bytes.
    Converted (*wideToPage)(const SingleBytePage& page, const wchar_t* text, std::size_t size, char* out);
    /// Writes at most `size` units.
    Converted (*utf8ToWide)(const char* bytes, std::size_t size, wchar_t* out);
    /// Writes at most 3 bytes a unit, 4 for a wchar_t above U+FFFF.
    Converted (*wideToUtf8)(const wchar_t* text, std::size_t size, char* out);
    /// `count` units from and to UTF-16 bytes; `swap` for the byte order that is not the machine's.
    void (*utf16ToWide)(const char* bytes, std::size_t count, bool swap, wchar_t* out);
    void (*wideToUtf16)(const wchar_t* text, std::size_t count, bool swap, char* out);
};

/// The loops that every machine runs.
[[nodiscard]] NEXO_API const CodePageKernels& PlainKernels();

/// The fastest loops that this machine runs; chosen once.
[[nodiscard]] NEXO_API const CodePageKernels& BestKernels();

/// The AVX2 loops; null where this processor has no AVX2.
[[nodiscard]] const CodePageKernels* Avx2Kernels();

}  // namespace nexo::platform

#endif
