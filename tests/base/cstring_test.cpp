#include "nexo/base/CString.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <unordered_set>

namespace {

TEST(CString, BuildsFromEverySource) {
    EXPECT_EQ(CString(), L"");
    EXPECT_EQ(CString(nullptr), L"");
    EXPECT_EQ(CString(static_cast<const wchar_t*>(nullptr), 5), L"");
    EXPECT_EQ(CString(L"abc"), L"abc");
    EXPECT_EQ(CString(L"abc", 2), L"ab");
    EXPECT_EQ(CString(L"abc", -1), L"");
    EXPECT_EQ(CString(L"a\0b", 3).GetLength(), 3);
    EXPECT_EQ(CString(L'x', 3), L"xxx");
    EXPECT_EQ(CString(L'x', -3), L"");
    EXPECT_EQ(CString("\x80\x81\xE4"), L"€\x81ä");
    EXPECT_EQ(CStringA(L"€\x81ä\x3B1"), "\x80\x81\xE4?");
    EXPECT_EQ(CString(std::wstring_view(L"view")), L"view");
}

TEST(CString, HoldsForeignCodePointsAsTwoUnits) {
    const CString smile = L"\U0001F600";
    ASSERT_EQ(smile.GetLength(), 2);
    EXPECT_EQ(smile[0], 0xD83D);
    EXPECT_EQ(smile[1], 0xDE00);
    EXPECT_EQ(smile, L"\U0001F600");
    CString text = L"a";
    text += L'\U0001F600';
    text.Insert(0, L"\U0001F600");
    EXPECT_EQ(text.GetLength(), 5);
    EXPECT_EQ(text.Find(L"\U0001F600", 1), 3);
    EXPECT_EQ(text.Find(L'\U0001F600'), 0);
    EXPECT_EQ(text.Replace(L"\U0001F600", L"-"), 2);
    EXPECT_EQ(text, L"-a-");
    EXPECT_EQ(CString(L"\x7FFFFFFF"), L"\xFFFD");
}

TEST(CString, TakesArgumentsThatPointIntoItself) {
    CString text = L"abc";
    text += text;
    EXPECT_EQ(text, L"abcabc");
    text.Insert(1, text);
    EXPECT_EQ(text, L"aabcabcbcabc");
    text = text.GetString() + 8;
    EXPECT_EQ(text, L"cabc");
    const CString copy = text;
    text = text.GetString() + 1;
    EXPECT_EQ(text, L"abc");
    EXPECT_EQ(copy, L"cabc");
    text.Append(text.GetString() + 1, 2);
    EXPECT_EQ(text.Replace(text.GetString() + 3, text), 2);
    EXPECT_EQ(text, L"aabcbcabcbc");
}

}  // namespace
