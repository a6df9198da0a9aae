#ifndef NEXO_TEXT_MD5_H
#define NEXO_TEXT_MD5_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "nexo/base/Export.h"

namespace nexo {

/// An MD5 computation (RFC 1321) that takes its message in pieces; empty at first. A copy goes on from the
/// same point. For whole texts and files see Hashing.h. Not a protection against deliberate collisions.
class NEXO_API Md5 {
public:
    using Digest = std::array<unsigned char, 16>;

    void Update(const void* data, std::size_t n);

    /// Takes the low 16 bits of each code unit, low byte first.
    void UpdateUnits(std::wstring_view units);

    /// Ends the message and returns its digest; the object must not be used again but by assignment.
    [[nodiscard]] Digest Finish();

private:
    void TakeBlocks(const unsigned char* data, std::size_t count);

    std::uint32_t state_[4] = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    std::uint64_t length_ = 0;
    unsigned char rest_[64];  // the length_ % 64 bytes that do not fill a block yet
};

}  // namespace nexo

#endif
