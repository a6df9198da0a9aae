#include "nexo/text/Crc32.h"

#include <array>
#include <vector>

#include "nexo/platform/UserInterface.h"
#include "nexo/text/Crc32Kernels.h"
#include "nexo/text/FileBlocks.h"
#include "nexo/text/LittleEndian.h"

namespace nexo {
namespace {

using Tables = std::array<std::array<std::uint32_t, 256>, 16>;

/// tables[k][b]: the state that byte b leaves when k further bytes, all zero, follow it.
constexpr Tables MakeTables() {
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t state = byte;
        for (int bit = 0; bit < 8; ++bit) state = (state >> 1) ^ (state & 1 ? 0xEDB88320u : 0u);
        tables[0][byte] = state;
    }
    for (std::size_t k = 1; k < tables.size(); ++k)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[k - 1][byte];
            tables[k][byte] = (before >> 8) ^ tables[0][before & 255];
        }
    return tables;
}

constexpr Tables tables = MakeTables();

/// The state that the four bytes of `word` leave when `behind` further bytes follow them.
inline std::uint32_t Advance(std::uint32_t word, std::size_t behind) {
    return tables[behind + 3][word & 255] ^ tables[behind + 2][word >> 8 & 255] ^
           tables[behind + 1][word >> 16 & 255] ^ tables[behind][word >> 24];
}

std::vector<Crc32Kernel> MakeKernels() {
    std::vector<Crc32Kernel> kernels;
    AddCrc32Clmul(kernels);
    kernels.push_back({"tables", UpdateCrc32ByTables});
    return kernels;
}

}  // namespace

std::uint32_t UpdateCrc32ByTables(std::uint32_t state, const unsigned char* data, std::size_t n) {
    for (; n >= 16; data += 16, n -= 16)
        state = Advance(state ^ LittleEndian(data), 12) ^ Advance(LittleEndian(data + 4), 8) ^
                Advance(LittleEndian(data + 8), 4) ^ Advance(LittleEndian(data + 12), 0);
    for (; n > 0; ++data, --n) state = (state >> 8) ^ tables[0][(state ^ *data) & 255];
    return state;
}

std::span<const Crc32Kernel> Crc32Kernels() {
    static const std::vector<Crc32Kernel> kernels = MakeKernels();
    return kernels;
}

std::uint32_t Crc32(const void* data, std::size_t n, std::uint32_t crc) {
    static const Crc32Kernel kernel = Crc32Kernels().front();
    return ~kernel.update(~crc, static_cast<const unsigned char*>(data), n);
}

}  // namespace nexo

namespace {

unsigned int FileCrc32(const wchar_t* file, unsigned long& crc) {
    std::uint32_t sum = 0;
    const auto take = [&](std::string_view block) { sum = nexo::Crc32(block.data(), block.size(), sum); };
    const unsigned int error = nexo::ReadFileBlocks(file, take);
    crc = error == 0 ? sum : 0;
    return error;
}

}  // namespace

unsigned long CCrc32::FileCrc32Win32(const wchar_t* file, unsigned long& crc) {
    return FileCrc32(file, crc);
}

unsigned long CCrc32::FileCrc32Assembly(const wchar_t* file, unsigned long& crc) {
    return FileCrc32(file, crc);
}

CString CCrc32::GetCRC32String(CString file) {
    unsigned long crc;
    CString text;
    if (const unsigned long error = FileCrc32Win32(file, crc); error != 0) {
        text.Format(L"Error: [0x%08x]", static_cast<unsigned int>(error));
        nexo::platform::ShowError(text.View());
    } else {
        text.Format(L"0x%08x", static_cast<unsigned int>(crc));
    }
    return text;
}
