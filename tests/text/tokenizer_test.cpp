#include "nexo/text/Tokenizer.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <tuple>

namespace {

TEST(Tokenizer, Walks) {
    struct Row {
        const char* name;
        const wchar_t *text, *delimiter;
        int keepEmpty, count;
        const wchar_t* want;  // each token, followed by ">" for 1 or "." for 0
    };
    const Row rows[] = {
        {"starts again behind its end", L"a;b", L";", 0, 2, L"a>b>.a>"},
        {"empty token ends, and is passed", L"a;;b", L";", 0, 1, L"a>.b>."},
        {"keeps empty ones", L"a;;b", L";", 1, 3, L"a>>b>."},
        {"empty last one", L"a;b;", L";", 1, 3, L"a>b>>."},
        {"empty last one ends", L"a;b;", L";", 0, 2, L"a>b>..a>"},
        {"empty text", L"", L";", 1, 0, L"old.old."},
        {"empty delimiter", L"a", L"", 1, 0, L"old."},
        {"long delimiter", L"x--y-z", L"--", 1, 2, L"x>y-z>."},
        {"counted by its steps", L"aaa", L"aa", 1, 3, L">a>."},
        {"delimiter longer than the text", L"a", L"aa", 1, 1, L"a>."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CTokenizer tokenizer(row.text, row.delimiter, row.keepEmpty);
        EXPECT_EQ(tokenizer.GetCount(), row.count);
        std::wstring walked;
        CString token(L"old");
        while (walked.size() < std::wcslen(row.want)) {
            const int result = tokenizer.GetNext(token);
            walked.append(token.View()).append(result ? L">" : L".");
        }
        EXPECT_EQ(walked, row.want);
    }
}

TEST(Tokenizer, ReadsNumbers) {
    CTokenizer tokenizer(L" 12x;1,5;;", L";", 0);
    int number = 7;
    double value = 7;
    EXPECT_EQ(tokenizer.GetNext(number), 1);
    EXPECT_EQ(number, 12);
    EXPECT_EQ(tokenizer.GetNext(value), 1);
    EXPECT_EQ(value, 1) << "the comma ends the number";
    EXPECT_EQ(tokenizer.GetNext(value), 0);
    EXPECT_EQ(value, 1);
}

TEST(Tokenizer, ContainsKeepsThePlace) {
    CTokenizer tokenizer(L"x;aBc;;y", L";", 0);
    CString token;
    tokenizer.GetNext(token);
    for (const int exact : {0, 1}) {
        EXPECT_EQ(tokenizer.Contains(L"Abc", exact), 1);
        EXPECT_EQ(tokenizer.Contains(L"ab", exact), 0);
        EXPECT_EQ(tokenizer.Contains(L"y", exact), 0) << "behind an empty token";
    }
    tokenizer.GetNext(token);
    EXPECT_EQ(token, L"aBc");
}

TEST(GetToken, PicksByIndex) {
    const std::tuple<const wchar_t*, const wchar_t*, unsigned int, int, const wchar_t*> rows[] = {
        {L"a,b,c", L",", 2, 1, L"c"},        {L"a,b,c", L",", 3, 0, L""},
        {L"a,,c", L",", 1, 1, L""},          {L"", L",", 0, 1, L""},
        {L"abc", L"", 4000000000u, 1, L""},  {L"a-->b", L"-->", 1, 1, L"b"},
        {L"a,b", L",", 4000000000u, 0, L""},
    };
    for (const auto& [text, delimiter, index, exists, want] : rows) {
        SCOPED_TRACE(testing::Message() << text << " " << index);
        std::wstring buffer(text);
        EXPECT_EQ(GetToken(buffer.c_str(), delimiter, index, buffer.data()), exists);
        EXPECT_STREQ(buffer.c_str(), want);
        CString same(text);
        EXPECT_EQ(GetToken(same, delimiter, index, same), GetToken(text, delimiter, index));
        EXPECT_EQ(same, want);
        EXPECT_EQ(GetNotEmptyToken(text, delimiter, index, same), *want != 0);
    }
}

TEST(ReadTaggedString, FirstMarkersWin) {
    const std::tuple<const wchar_t*, int, const wchar_t*> rows[] = {
        {L"<v>12</v>", 1, L"12"},
        {L"<v>12", 0, L""},
        {L"12</v>", 0, L""},
        {L"</v>a<v>b</v>", 1, L""},
        {L"<v><v>1</v></v>", 1, L"<v>1"},
        {L"<V>1</V>", 0, L""},
        {L"<v></v>", 1, L""},
    };
    for (const auto& [text, found, want] : rows) {
        CString out(text);
        EXPECT_EQ(ReadTaggedString(out, L"v", out), found) << text;
        EXPECT_EQ(out, want);
    }
}

}  // namespace
