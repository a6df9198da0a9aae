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

TEST(Guid, CompressesAndExpandsThePublishedPairs) {
    const std::pair<const wchar_t*, const wchar_t*> pairs[] = {
        {L"04abf900-d1c4-11e1-8000-00215ad4efdf", L"04g$a0qSGHuO00025QrE$V"},
        {L"6b61ce71-1a7a-473c-8f87-4262e0bdb41a", L"1hOSvn6df7F8_7GcBWlRGQ"},
        {L"00000000-0000-0000-0000-000000000000", L"0000000000000000000000"},
        {L"ffffffff-ffff-ffff-ffff-ffffffffffff", L"3$$$$$$$$$$$$$$$$$$$$$"}};
    for (const auto& [text, compressed] : pairs) {
        nexo::Guid guid, back;
        ASSERT_TRUE(nexo::ParseGuidText(text, guid));
        EXPECT_EQ(nexo::CompressGuid(guid), compressed);
        ASSERT_TRUE(nexo::ExpandGuid(compressed, back));
        EXPECT_EQ(back, guid);
        EXPECT_EQ(nexo::GuidText(back), text);
    }
}

TEST(Guid, RefusesWhatIsNoCompressedForm) {
    const std::pair<const char*, CString> rows[] = {{"empty", L""},
                                                    {"21 characters", L"04g$a0qSGHuO00025QrE$"},
                                                    {"23 characters", L"04g$a0qSGHuO00025QrE$VV"},
                                                    {"first two above a byte", L"44g$a0qSGHuO00025QrE$V"},
                                                    {"hyphen", L"04g-a0qSGHuO00025QrE$V"},
                                                    {"low byte of V", L"04g$a0qSGHuO00025QrE$\x0156"},
                                                    {"zero", CString(L"04g$a0qSGHuO00025QrE$", 22)}};
    for (const auto& [name, text] : rows) {
        nexo::Guid guid{1, 2, 3, {4}};
        EXPECT_FALSE(nexo::ExpandGuid(text.View(), guid)) << name;
        EXPECT_EQ(guid, (nexo::Guid{1, 2, 3, {4}})) << name;
    }
}

TEST(Guid, ReadsItsTextFormOnly) {
    const std::pair<const wchar_t*, bool> rows[] = {{L"04ABF900-D1C4-11E1-8000-00215AD4EFDF", true},
                                                    {L"{04abf900-d1c4-11e1-8000-00215ad4efdf}", true},
                                                    {L"{04abf900-d1c4-11e1-8000-00215ad4efdf", false},
                                                    {L"04abf900d1c411e1800000215ad4efdf", false},
                                                    {L"04abf900d-1c4-11e1-8000-00215ad4efdf", false},
                                                    {L"04abf900-d1c4-11e1-8000-00215ad4efdg", false},
                                                    {L"\xFF10"
                                                     L"4abf900-d1c4-11e1-8000-00215ad4efdf",
                                                     false}};
    for (const auto& [text, want] : rows) {
        nexo::Guid guid;
        EXPECT_EQ(nexo::ParseGuidText(text, guid), want) << CString(text);
        EXPECT_EQ(guid.first, want ? 0x04abf900u : 0u);
    }
}

TEST(Guid, OfATextIsAlwaysTheSame) {
    EXPECT_STREQ(FromText(L"abc").get(), "3FSnJEne3ziwZZty06hSCL");
    EXPECT_STREQ(FromText(L"abc").get(), "3FSnJEne3ziwZZty06hSCL");
    EXPECT_STRNE(FromText(L"abd").get(), "3FSnJEne3ziwZZty06hSCL");
}

TEST(Guid, IsMadeOfDigestsOnly) {
    const nexo::Guid want{0x33221100, 0x5544, 0x7766, {0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}};
    EXPECT_EQ(nexo::GuidFromDigest(L"00112233445566778899AABBCCDDEEFF"), want);
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
        nexo::Guid guid;
        ASSERT_TRUE(made && nexo::ExpandGuid(CString(made.get()).View(), guid));
        EXPECT_EQ(guid.third >> 12, 4);
        EXPECT_EQ(guid.last[0] >> 6, 2);
        EXPECT_TRUE(seen.insert(made.get()).second);
    }
}

}  // namespace
