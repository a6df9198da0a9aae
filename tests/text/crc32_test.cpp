#include "nexo/text/Crc32.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "nexo/text/Crc32Kernels.h"
#include "support/MessageBoxes.h"
#include "support/TemporaryFolder.h"

namespace {

/// The definition: one bit after the other.
std::uint32_t ReferenceUpdate(std::uint32_t state, std::string_view bytes) {
    for (const char byte : bytes) {
        state ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) state = state & 1 ? state >> 1 ^ 0xEDB88320u : state >> 1;
    }
    return state;
}

std::string RandomBytes(std::size_t n) {
    std::mt19937 random(static_cast<unsigned>(n) + 1);
    std::string bytes(n, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

TEST(Crc32, GivesThePublishedCheckValue) {
    EXPECT_EQ(nexo::Crc32("123456789", 9), 0xCBF43926u);
    EXPECT_EQ(nexo::Crc32("6789", 4, nexo::Crc32("12345", 5)), 0xCBF43926u);
    EXPECT_EQ(nexo::Crc32("", 0), 0u);
}

TEST(Crc32, EveryKernelAgreesWithTheDefinition) {
    for (const nexo::Crc32Kernel& kernel : nexo::Crc32Kernels()) {
        SCOPED_TRACE(kernel.name);
        for (std::size_t n = 0; n <= 1200; n += n < 600 ? 1 : 37) {
            const std::string bytes = RandomBytes(n + n % 17);
            const std::string_view data = std::string_view(bytes).substr(n % 17);
            for (const std::uint32_t state : {0xFFFFFFFFu, 0u, 0x12345678u})
                ASSERT_EQ(kernel.update(state, reinterpret_cast<const unsigned char*>(data.data()), n),
                          ReferenceUpdate(state, data))
                    << n;
        }
    }
}

TEST(Crc32, FilesGiveTheSameByBothEntries) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0u, 1u, 4096u, 65536u, 65537u, 300001u}) {
        SCOPED_TRACE(size);
        const std::string bytes = RandomBytes(size);
        const CString file = folder.Write("file", bytes);
        unsigned long first = 1, second = 1;
        EXPECT_EQ(CCrc32::FileCrc32Win32(file, first), 0u);
        EXPECT_EQ(CCrc32::FileCrc32Assembly(file, second), 0u);
        EXPECT_EQ(first, ~ReferenceUpdate(~0u, bytes));
        EXPECT_EQ(second, first);
    }
}

TEST(Crc32, AFileThatCannotBeOpenedGivesTheErrorCodeAndZero) {
    const TemporaryFolder folder;
    const std::pair<CString, unsigned long> rows[] = {
        {folder.Path("missing"), 2}, {folder.Path("missing/file"), 3}, {folder.Path(""), 5}, {L"", 3}};
    for (const auto& [path, want] : rows) {
        unsigned long crc = 1;
        EXPECT_EQ(CCrc32::FileCrc32Win32(path, crc), want) << path;
        EXPECT_EQ(crc, 0u);
        EXPECT_EQ(CCrc32::FileCrc32Assembly(path, crc), want) << path;
    }
    unsigned long crc = 1;
    EXPECT_EQ(CCrc32::FileCrc32Win32(nullptr, crc), 3u);
}

TEST(Crc32, TextOfAFileAndOfAnError) {
    const MessageBoxes boxes;
    const TemporaryFolder folder;
    EXPECT_EQ(CCrc32::GetCRC32String(folder.Write("check", "123456789")), L"0xcbf43926");
    EXPECT_EQ(CCrc32::GetCRC32String(folder.Write("empty", "")), L"0x00000000");
    EXPECT_EQ(boxes.Errors(), L"");
    EXPECT_EQ(CCrc32::GetCRC32String(folder.Path("missing")), L"Error: [0x00000002]");
    EXPECT_EQ(boxes.Errors(), L"Error: [0x00000002]|");
}

}  // namespace
