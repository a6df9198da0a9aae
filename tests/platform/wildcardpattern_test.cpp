#include "nexo/platform/WildcardPattern.h"

#include <gtest/gtest.h>

namespace {

using nexo::platform::WildcardPattern;

TEST(WildcardPattern, Matches) {
    struct Row {
        const char* name;
        const wchar_t* pattern;
        const wchar_t* file;
        bool want;
    };
    const Row rows[] = {
        {"everything", L"*", L"a.b.c", true},
        {"everything, also without a dot", L"*.*", L"a", true},
        {"star dot: names without a dot", L"*.", L"abc", true},
        {"star dot: not names with one", L"*.", L"a.b", false},
        {"an extension that may be missing", L"x.*", L"x", true},
        {"the same with one", L"x.*", L"X.tar.gz", true},
        {"the same, other name", L"x.*", L"xy.txt", false},
        {"as many letters at most", L"??.txt", L"a.txt", true},
        {"as many letters at most, two", L"??.txt", L"ab.TXT", true},
        {"as many letters at most, three", L"??.txt", L"abc.txt", false},
        {"two-letter extension", L"*.??", L"heizung_dict.en", true},
        {"one-letter extension", L"*.??", L"a.b", true},
        {"three-letter extension", L"*.??", L"a.txt", false},
        {"no dot at all", L"*.??", L"README", true},
        {"last extension counts", L"*.??", L"a.txt.en", true},
        {"last extension counts, long", L"*.??", L"a.en.txt", false},
        {"leading dot", L"*.??", L".db", true},
        {"extension in another case", L"*.txt", L"A.B.TXT", true},
        {"extension is the whole name", L"*.txt", L".txt", true},
        {"extension in the middle", L"*.txt", L"a.txt.b", false},
        {"without dot", L"*.txt", L"txt", false},
        {"two extensions", L"*.tar.gz", L"a.b.tar.gz", true},
        {"dot in the middle", L"a*.b*", L"axx.y.bzz", true},
        {"star before a dot that is not the last", L"*.a*", L"x.abc.d", true},
        {"dos star may begin behind the last dot", L"*a*.", L"a.ba", true},
        {"dos star may not cross the last dot", L"*a*.", L"a.b", false},
        {"prefix", L"NexoV1_dict.*", L"NexoV1_dict.en", true},
        {"umlaut in another case", L"\u00C4*", L"\u00E4rger", true},
        {"no expansion of sharp s", L"*ss*", L"stra\u00DFe", false},
        {"no plain letter for a mark", L"?", L"", true},
        {"plain name", L"Readme.TXT", L"rEADME.txt", true},
        {"trailing dots and blanks of the pattern", L"a. . ", L"a", true},
        {"characters no name holds match nothing", L"<", L"abc", false},
        {"many stars", L"*a*a*a*a*a*a*a*a*a*a*b", L"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(WildcardPattern(row.pattern).Matches(row.file), row.want) << row.name;
    EXPECT_TRUE(WildcardPattern(std::wstring(300, L'?')).Matches(std::wstring(300, L'x')));
    EXPECT_FALSE(WildcardPattern(std::wstring(300, L'?')).Matches(std::wstring(301, L'x')));
}

TEST(WildcardPattern, DotEntries) {
    for (const wchar_t* pattern : {L"*", L"*.*", L"*.", L"?", L".*", L"*.??"})
        EXPECT_TRUE(WildcardPattern(pattern).MatchesDotEntries()) << pattern;
    for (const wchar_t* pattern : {L"*.txt", L"x_dict.*", L"a?", L"a*"})
        EXPECT_FALSE(WildcardPattern(pattern).MatchesDotEntries()) << pattern;
}

}  // namespace
