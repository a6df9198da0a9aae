#ifndef NEXO_TEXT_LITTLEENDIAN_H
#define NEXO_TEXT_LITTLEENDIAN_H

// Private to the library.

#include <cstdint>

namespace nexo {

/// Four bytes, low one first, as a number. A single load where the processor's order is the same.
inline std::uint32_t LittleEndian(const unsigned char* bytes) {
    return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[3]} << 24;
}

}  // namespace nexo

#endif
