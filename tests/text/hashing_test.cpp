#include "nexo/text/Hashing.h"

#include <string>

#include <gtest/gtest.h>

#include "nexo/text/Md5.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr std::pair<std::string_view, const wchar_t*> published[] = {
    {"", L"d41d8cd98f00b204e9800998ecf8427e"},
    {"a", L"0cc175b9c0f1b6a831c399e269772661"},
    {"abc", L"900150983cd24fb0d6963f7d28e17f72"},
    {"message digest", L"f96b697d7cb7938d525a2f31aaf161d0"},
    {"abcdefghijklmnopqrstuvwxyz", L"c3fcd3d76192e4007dfb496cca67e13b"},
    {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789", L"d174ab98d277d9f5a5611c2c9f419d9f"},
    {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
     L"57edf4a22be3c955ac49da2e2107b67a"}};

/// Wide text whose UTF-16LE bytes are `bytes`, of which there must be an even number.
CString UnitsOf(std::string_view bytes) {
    CString units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned char>(bytes[i + 1]) << 8);
    return units;
}

TEST(Hashing, FilesAndTextsGiveThePublishedDigests) {
    const TemporaryFolder folder;
    for (const auto& [message, digest] : published) {
        EXPECT_EQ(CHashing::md5_file(folder.Write("file", message)), digest) << message;
        if (message.size() % 2 == 0) {
            EXPECT_EQ(CHashing::md5(UnitsOf(message)), digest) << message;
        }
    }
}

TEST(Hashing, TextsAreTakenAsTwoBytesForEachUnit) {
    EXPECT_EQ(CHashing::md5(L"abc"), L"ce1473cf80c6b3fda8e3dfc006adc315");
    EXPECT_NE(CHashing::md5(L"\x0141"), CHashing::md5(L"A"));
    EXPECT_EQ(CHashing::md5(CString(L"a\0b", 3)), CHashing::md5(UnitsOf(std::string_view("a\0\0\0b\0", 6))));
}

TEST(Hashing, AFileThatCannotBeReadGivesNothing) {
    const TemporaryFolder folder;
    EXPECT_EQ(CHashing::md5_file(folder.Path("missing")), L"");
    EXPECT_EQ(CHashing::md5_file(folder.Path("")), L"");
}

TEST(Md5, TheCutIntoPiecesDoesNotMatter) {
    std::string message;
    for (std::size_t n = 0; n <= 300; ++n) {
        nexo::Md5 whole;
        whole.Update(message.data(), n);
        const nexo::Md5::Digest want = whole.Finish();
        for (const std::size_t piece : {1u, 7u, 55u, 64u, 65u, 129u}) {
            nexo::Md5 cut;
            for (std::size_t at = 0; at < n; at += piece) cut.Update(&message[at], std::min(piece, n - at));
            ASSERT_EQ(cut.Finish(), want) << n << " by " << piece;
        }
        if (n % 2 == 0) {
            nexo::Md5 units;
            units.UpdateUnits(UnitsOf(message).View());
            ASSERT_EQ(units.Finish(), want) << n;
        }
        message += static_cast<char>(n * 37 + 11);
    }
}

}  // namespace
