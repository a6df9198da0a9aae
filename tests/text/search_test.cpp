#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <tuple>

#include "nexo/text/FoldedSearch.h"
#include "nexo/text/StrUtil.h"
#include "support/LocaleScope.h"

namespace {

TEST(Search, FoldsExactlyItsOwnRanges) {
    for (int c = 32; c < 0x600; ++c) {
        const wchar_t other[] = {static_cast<wchar_t>(c + 32), 0}, text[] = {static_cast<wchar_t>(c), 0};
        const bool folds = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE) || (c >= 0x410 && c <= 0x42F);
        EXPECT_EQ(moxStrUtil::FindNoCase(text, other) != nullptr, folds) << c;
        EXPECT_EQ(moxStrUtil::FindNoCase(other, text) != nullptr, folds) << c;
    }
}

TEST(Search, FindsWithoutCase) {
    const CString street(L"STRASSE");
    EXPECT_EQ(moxStrUtil::FindNoCase(street, L"sse"), street.GetString() + 4);
    EXPECT_EQ(moxStrUtil::FindNoCase(street, L""), street.GetString());
    EXPECT_EQ(moxStrUtil::FindIndexNoCase(street, L"s", 1), 4);
    EXPECT_EQ(moxStrUtil::FindIndexNoCase(street, L"x", 7), -1);
    EXPECT_EQ(moxStrUtil::FindIndexNoCase(street, L"", 7), 7);
    EXPECT_EQ(moxStrUtil::FindIndexNoCase(street, L"", 8), -1);
    EXPECT_EQ(moxStrUtil::FindIndexNoCase(street, L"s", -1), -1);
    EXPECT_EQ(moxStrUtil::FindIndexNoCase(street, nullptr, 0), -1);
    const LocaleScope turkish("tr_TR.UTF-8");
    EXPECT_TRUE(moxStrUtil::ContainsNoCase(L"Ωmega ÄTI", L"ωMEGA äti"));
    EXPECT_EQ(moxStrUtil::FindNoCase(L"Ω", L"ω"), nullptr) << "this search does not fold Greek";
    EXPECT_TRUE(moxStrUtil::ContainsNoCase(L"", L""));
    EXPECT_FALSE(moxStrUtil::ContainsNoCase(nullptr, L""));
    EXPECT_FALSE(moxStrUtil::ContainsNoCase(L"", nullptr));
}

TEST(Search, StaysLinearWhereEverythingNearlyMatches) {
    const std::wstring text(2000000, L'a');
    std::wstring part(200000, L'a');
    part[100000] = L'b';
    EXPECT_EQ(nexo::FindTextNoCase(text, part), nexo::kNotFound);
    EXPECT_EQ(moxStrUtil::FindNoCase(text.c_str(), part.c_str()), nullptr);
}

TEST(Replace, ReplacesEverySpelling) {
    struct Row {
        const char* name;
        const wchar_t* text;
        const wchar_t* old;
        const wchar_t* neu;
        int count;
        const wchar_t* want;
    };
    const Row rows[] = {
        {"every spelling", L"aAa bA", L"a", L"x", 4, L"xxx bx"},
        {"by nothing", L"xAbaBx", L"ab", L"", 2, L"xx"},
        {"an equal text replaces all, also behind", L"foo FOO foo", L"foo", L"foo", 6, L"foo foo foo"},
        {"the first spelling sets the alignment", L"Aa aAaa", L"aa", L"X", 2, L"X aXa"},
        {"contained, but behind the search", L"aa", L"a", L"ab", 4, L"abbabb"},
        {"first step may be long", L"x", L"X", L"[x][x][x]", 1, L"[x][x][x]"},
        {"nothing to find", L"abc", L"d", L"x", 0, L"abc"},
        {"old empty", L"abc", L"", L"x", 0, L"abc"},
        {"old null", L"abc", nullptr, L"x", 0, L"abc"},
        {"new null", L"abc", L"a", nullptr, 0, L"abc"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CString text(row.text);
        EXPECT_EQ(moxStrUtil::ReplaceNoCase(text, row.old, row.neu), row.count);
        EXPECT_EQ(text, row.want);
    }
}

TEST(Replace, EndlessGrowthEndsAtItsLimitAndSoon) {
    const auto start = std::chrono::steady_clock::now();
    for (const wchar_t* neu : {L"[x]", L"ab x c", L"Xx", L"xx", L"x|X", L"(x|X)"}) {
        CString text(L"x and x");
        EXPECT_GT(moxStrUtil::ReplaceNoCase(text, L"x", neu), 2);
        EXPECT_LE(text.GetLength(), 16 * 7 + 1048576);
        EXPECT_GT(text.GetLength(), 300000);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(Wildcard, MatchesWholeTexts) {
    struct Row {
        const wchar_t* text;
        const wchar_t* pattern;
        bool sensitive;
        bool folded;
    };
    const Row rows[] = {
        {L"", L"", true, true},         {L"a", L"", false, false},          {L"", L"*", true, true},
        {L"", L"?", false, false},      {L"abc", L"a?c", true, true},       {L"ABC", L"a*", false, true},
        {L"ÄÖ", L"äö", false, true},    {L"a.b.txt", L"*.txt", true, true}, {L"aba", L"*a", false, false},
        {L"aab", L"*ab", true, true},   {L"aac", L"**ab", false, false},    {L"x?y", L"*?y", true, true},
        {L"xay", L"*?y", false, false}, {L"ab", L"a*b*", true, true},       {L"K", L"\x212A", false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.text << " by " << row.pattern);
        EXPECT_EQ(moxStrUtil::MatchesWildcardPattern(row.text, row.pattern, 1), row.sensitive);
        EXPECT_EQ(moxStrUtil::MatchesWildcardPattern(row.text, row.pattern, 0), row.folded);
    }
}

TEST(Wildcard, CollectsWhatItConsumed) {
    const std::tuple<const wchar_t*, const wchar_t*, int, bool, const wchar_t*> rows[] = {
        {L"xxABy", L"ab", 0, true, L"ab"},  {L"aab", L"ab", 0, false, L""},
        {L"xaby", L"a*y", 0, true, L"aby"}, {L"xab", L"ab", 1, false, L""},
        {L"ab", L"a?", 1, true, L"ab"},     {L"abc", L"ab", 1, false, L"ab"},
        {L"", L"", 1, true, L""},           {L"a", L"", 1, false, L""},
        {L"a", L"", 0, false, L""},         {L"aXb", L"*xc", 0, false, L"axb"},
    };
    for (const auto& [text, pattern, whole, want, collected] : rows) {
        SCOPED_TRACE(testing::Message() << text << " by " << pattern);
        CString matched(text);
        EXPECT_EQ(moxStrUtil::MatchesWildcardPattern(matched, matched, pattern, 0, whole), want);
        EXPECT_EQ(matched, collected);
    }
}

}  // namespace
