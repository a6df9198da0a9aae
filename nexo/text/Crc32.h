#ifndef NEXO_TEXT_CRC32_H
#define NEXO_TEXT_CRC32_H

#include <cstddef>
#include <cstdint>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

/// CRC-32 of files: the checksum of IEEE 802.3 and of zip archives. All functions may be called from any
/// thread.
class NEXO_API CCrc32 {
public:
    /// The checksum of the whole file `file` in `crc`, whose value is below 2^32.
    ///
    /// Returns 0, or the platform's error code (2 no such file, 5 access denied, ...) with `crc` 0 when the
    /// file cannot be opened or read to its end.
    static unsigned long FileCrc32Win32(const wchar_t* file, unsigned long& crc);

    /// The same by the same contract. Both entries take the fastest way this processor offers.
    static unsigned long FileCrc32Assembly(const wchar_t* file, unsigned long& crc);

    /// The checksum as "0x%08x", e.g. "0xcbf43926"; on an error "Error: [0x%08x]" with the error code, which
    /// is also shown in a message box.
    static CString GetCRC32String(CString file);
};

namespace nexo {

/// The CRC-32 of `n` bytes, or, with the CRC of what precedes them in `crc`, of both together.
///
/// Crc32("123456789", 9) == 0xCBF43926
[[nodiscard]] NEXO_API std::uint32_t Crc32(const void* data, std::size_t n, std::uint32_t crc = 0);

}  // namespace nexo

#endif
