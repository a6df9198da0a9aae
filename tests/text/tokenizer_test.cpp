#include "nexo/text/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Steps = std::vector<std::pair<int, std::wstring>>;

Steps Walk(CTokenizer& tokenizer, std::size_t steps) {
    Steps walked;
    CString token(L"old");
    while (walked.size() < steps) {
        const int result = tokenizer.GetNext(token);
        walked.emplace_back(result, token.View());
    }
    return walked;
}

TEST(Tokenizer, Walks) {
    struct Row {
        const char* name;
        const wchar_t *text, *delimiter;
        int keepEmpty, count;
        Steps want;
    };
    const Row rows[] = {
        {"starts again behind its end", L"a;b", L";", 0, 2, {{1, L"a"}, {1, L"b"}, {0, L""}, {1, L"a"}}},
        {"empty token ends, and is passed", L"a;;b", L";", 0, 1, {{1, L"a"}, {0, L""}, {1, L"b"}, {0, L""}}},
        {"keeps empty ones", L"a;;b", L";", 1, 3, {{1, L"a"}, {1, L""}, {1, L"b"}, {0, L""}}},
        {"empty last one", L"a;b;", L";", 1, 3, {{1, L"a"}, {1, L"b"}, {1, L""}, {0, L""}}},
        {"empty last one ends", L"a;b;", L";", 0, 2, {{1, L"a"}, {1, L"b"}, {0, L""}, {0, L""}, {1, L"a"}}},
        {"empty text", L"", L";", 1, 0, {{0, L"old"}, {0, L"old"}}},
        {"empty delimiter", L"a", L"", 1, 0, {{0, L"old"}}},
        {"long delimiter", L"x--y-z", L"--", 1, 2, {{1, L"x"}, {1, L"y-z"}, {0, L""}}},
        {"counted by its steps", L"aaa", L"aa", 1, 3, {{1, L""}, {1, L"a"}, {0, L""}}},
        {"delimiter longer than the text", L"a", L"aa", 1, 1, {{1, L"a"}, {0, L""}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CTokenizer tokenizer(row.text, row.delimiter, row.keepEmpty);
        EXPECT_EQ(tokenizer.GetCount(), row.count);
        EXPECT_EQ(Walk(tokenizer, row.want.size()), row.want);
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
    struct Row {
        const wchar_t *text, *delimiter;
        unsigned int index;
        int exists;
        const wchar_t* want;
    };
    const Row rows[] = {
        {L"a,b,c", L",", 0, 1, L"a"},
        {L"a,b,c", L",", 2, 1, L"c"},
        {L"a,b,c", L",", 3, 0, L""},
        {L"a,,c", L",", 1, 1, L""},
        {L"", L",", 0, 1, L""},
        {L"", L",", 1, 0, L""},
        {L"a-->b", L"-->", 1, 1, L"b"},
        {L"abc", L"", 4000000000u, 1, L""},
        {L"a,b", L",", 4000000000u, 0, L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.text << " " << row.index);
        EXPECT_EQ(GetToken(row.text, row.delimiter, row.index), row.want);
        std::wstring buffer(row.text);
        EXPECT_EQ(GetToken(buffer.c_str(), row.delimiter, row.index, buffer.data()), row.exists);
        EXPECT_STREQ(buffer.c_str(), row.want);
        CString same(row.text);
        EXPECT_EQ(&GetToken(same, row.delimiter, row.index, same), &same);
        EXPECT_EQ(same, row.want);
        EXPECT_EQ(GetNotEmptyToken(row.text, row.delimiter, row.index, same), *row.want != 0);
    }
}

TEST(ReadTaggedString, FirstMarkersWin) {
    struct Row {
        const wchar_t *text, *tag;
        int found;
        const wchar_t* want;
    };
    const Row rows[] = {
        {L"<v>12</v>", L"v", 1, L"12"},
        {L"<v>12", L"v", 0, L""},
        {L"12</v>", L"v", 0, L""},
        {L"</v>a<v>b</v>", L"v", 1, L""},
        {L"<v><v>1</v></v>", L"v", 1, L"<v>1"},
        {L"<V>1</V>", L"v", 0, L""},
        {L"<v></v>", L"v", 1, L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        CString out(row.text);
        EXPECT_EQ(ReadTaggedString(out, row.tag, out), row.found);
        EXPECT_EQ(out, row.want);
    }
}

}  // namespace
