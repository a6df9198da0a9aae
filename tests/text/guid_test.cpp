#include "nexo/text/Guid.h"

#include <cstdlib>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace {

using Text = std::unique_ptr<char, decltype(&std::free)>;

Text FromText(const wchar_t* text) {
    return {CreateIFCGuidStringFromString(text), std::free};
}

struct Pair {
    const wchar_t *text, *compressed;
};
constexpr Pair published[] = {{L"04abf900-d1c4-11e1-8000-00215ad4efdf", L"04g$a0qSGHuO00025QrE$V"},
                              {L"6b61ce71-1a7a-473c-8f87-4262e0bdb41a", L"1hOSvn6df7F8_7GcBWlRGQ"},
                              {L"00000000-0000-0000-0000-000000000000", L"0000000000000000000000"},
                              {L"ffffffff-ffff-ffff-ffff-ffffffffffff", L"3$$$$$$$$$$$$$$$$$$$$$"}};

TEST(Guid, CompressesAndExpandsThePublishedPairs) {
    for (const Pair& pair : published) {
        SCOPED_TRACE(testing::PrintToString(pair.text));
        nexo::Guid guid, back;
        ASSERT_TRUE(nexo::ParseGuidText(pair.text, guid));
        EXPECT_EQ(nexo::CompressGuid(guid), pair.compressed);
        ASSERT_TRUE(nexo::ExpandGuid(pair.compressed, back));
        EXPECT_EQ(back, guid);
        EXPECT_EQ(nexo::GuidText(back), pair.text);
    }
}

TEST(Guid, RefusesWhatIsNoCompressedForm) {
    struct Row {
        const char* name;
        const wchar_t* text;
    };
    constexpr Row rows[] = {{"empty", L""},
                            {"21 characters", L"04g$a0qSGHuO00025QrE$"},
                            {"23 characters", L"04g$a0qSGHuO00025QrE$VV"},
                            {"first two above a byte", L"44g$a0qSGHuO00025QrE$V"},
                            {"hyphen", L"04g-a0qSGHuO00025QrE$V"},
                            {"only the low byte is good", L"04g$a0qSGHuO00025QrE$\x0156"},
                            {"zero", L"04g$a0qSGHuO00025QrE$\0"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        nexo::Guid guid{1, 2, 3, {4}};
        const std::size_t length = row.text[0] == 0 ? 0 : std::max<std::size_t>(std::wcslen(row.text), 21);
        EXPECT_FALSE(nexo::ExpandGuid({row.text, length + (row.name == std::string_view("zero"))}, guid));
        EXPECT_EQ(guid, (nexo::Guid{1, 2, 3, {4}}));
    }
}

TEST(Guid, ReadsItsTextFormOnly) {
    struct Row {
        const char* name;
        const wchar_t* text;
        bool want;
    };
    constexpr Row rows[] = {{"upper case", L"04ABF900-D1C4-11E1-8000-00215AD4EFDF", true},
                            {"braces", L"{04abf900-d1c4-11e1-8000-00215ad4efdf}", true},
                            {"one brace", L"{04abf900-d1c4-11e1-8000-00215ad4efdf", false},
                            {"no hyphens", L"04abf900d1c411e1800000215ad4efdf", false},
                            {"misplaced hyphen", L"04abf900d-1c4-11e1-8000-00215ad4efdf", false},
                            {"no digit", L"04abf900-d1c4-11e1-8000-00215ad4efdg", false},
                            {"wide digit",
                             L"\xFF10"
                             L"4abf900-d1c4-11e1-8000-00215ad4efdf",
                             false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        nexo::Guid guid;
        EXPECT_EQ(nexo::ParseGuidText(row.text, guid), row.want);
        EXPECT_EQ(guid.first, row.want ? 0x04abf900u : 0u);
    }
}

TEST(Guid, OfATextIsAlwaysTheSame) {
    EXPECT_STREQ(FromText(L"abc").get(), "3FSnJEne3ziwZZty06hSCL");
    EXPECT_STREQ(FromText(L"abc").get(), "3FSnJEne3ziwZZty06hSCL");
    EXPECT_STRNE(FromText(L"abd").get(), "3FSnJEne3ziwZZty06hSCL");
}

TEST(Guid, IsMadeOfDigestsOnly) {
    const nexo::Guid guid = nexo::GuidFromDigest(L"00112233445566778899AABBCCDDEEFF");
    EXPECT_EQ(guid,
              (nexo::Guid{0x33221100, 0x5544, 0x7766, {0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}}));
    for (const wchar_t* digits :
         {L"0011223344556677889900112233445g", L"", L"00112233445566778899001122334455 "})
        try {
            static_cast<void>(nexo::GuidFromDigest(digits));
            ADD_FAILURE() << "accepted";
        } catch (const std::invalid_argument& fault) {
            EXPECT_STREQ(fault.what(), "Invalid input string");
        }
}

TEST(Guid, NewOnesAreRandomAndMarkedSo) {
    std::set<std::string> seen;
    for (int i = 0; i < 200; ++i) {
        const Text made = i % 2 ? FromText(L"") : Text(CreateCompressedGuidString(), std::free);
        ASSERT_TRUE(made);
        ASSERT_EQ(std::string(made.get()).size(), 22u);
        nexo::Guid guid;
        ASSERT_TRUE(nexo::ExpandGuid(CString(made.get()).View(), guid));
        EXPECT_EQ(guid.third >> 12, 4);
        EXPECT_EQ(guid.last[0] >> 6, 2);
        EXPECT_TRUE(seen.insert(made.get()).second);
    }
}

}  // namespace
