#ifndef NEXO_TEXT_CRC32KERNELS_H
#define NEXO_TEXT_CRC32KERNELS_H

// Private to the library.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "nexo/base/Export.h"

// The inner loops of Crc32.h, one for each instruction set.
namespace nexo {

/// One way to carry a CRC over further bytes; `state` is the complement of the CRC so far.
struct Crc32Kernel {
    const char* name;
    std::uint32_t (*update)(std::uint32_t state, const unsigned char* data, std::size_t n);
};

/// The ways that this processor can go, the fastest first; the last one is by tables, sixteen bytes at a
/// time.
NEXO_API std::span<const Crc32Kernel> Crc32Kernels();

/// The way by tables, which also finishes what is too short for the others.
std::uint32_t UpdateCrc32ByTables(std::uint32_t state, const unsigned char* data, std::size_t n);

/// Adds the ways by carry-less multiplication that this processor can go, the fastest first.
void AddCrc32Clmul(std::vector<Crc32Kernel>& kernels);

}  // namespace nexo

#endif
