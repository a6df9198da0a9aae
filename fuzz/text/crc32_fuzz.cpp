// The first byte shifts and cuts the others; every kernel must agree with the definition, bit by bit.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "nexo/text/Crc32.h"
#include "nexo/text/Crc32Kernels.h"

namespace {

std::uint32_t Reference(std::uint32_t state, const std::uint8_t* data, std::size_t n) {
    for (; n > 0; --n) {
        state ^= *data++;
        for (int bit = 0; bit < 8; ++bit) state = state & 1 ? state >> 1 ^ 0xEDB88320u : state >> 1;
    }
    return state;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    // Repeated, so that short inputs reach the wide loops too; in memory of its own, so that sanitizers see
    // every byte too many.
    const std::size_t repeats = 1 + data[0] % 9;
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < repeats; ++i) bytes.insert(bytes.end(), data + 1, data + size);
    bytes.shrink_to_fit();

    const std::uint32_t want = Reference(~0u, bytes.data(), bytes.size());
    for (const nexo::Crc32Kernel& kernel : nexo::Crc32Kernels())
        if (kernel.update(~0u, bytes.data(), bytes.size()) != want) std::abort();
    const std::size_t cut = data[0] * bytes.size() / 256;
    if (nexo::Crc32(bytes.data() + cut, bytes.size() - cut, nexo::Crc32(bytes.data(), cut)) != ~want)
        std::abort();
    return 0;
}
