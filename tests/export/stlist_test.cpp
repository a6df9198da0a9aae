#include "nexo/export/StList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

CArticle WithText(const wchar_t* text) {
    CArticle article;
    article.position = L"1";
    article.quantity = 2.5;
    article.text = text;
    return article;
}

TEST(Article, LinesOfTheText) {
    struct Row {
        const char* name;
        const wchar_t* text;
        std::vector<std::wstring> lines;
    };
    const Row rows[] = {
        {"empty", L"", {L""}},
        {"one", L"Pipe", {L"Pipe"}},
        {"two", L"A\nB", {L"A", L"B"}},
        {"ends with a line feed", L"A\n", {L"A", L""}},
        {"nothing but line feeds", L"\n\n", {L"", L"", L""}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CArticle article = WithText(row.text);
        ASSERT_EQ(article.GetTextLines(), static_cast<int>(row.lines.size()));
        for (int round = 0; round < 2; ++round) {
            for (std::size_t i = 0; i < row.lines.size(); ++i) {
                CString line = L"old";
                EXPECT_EQ(article.GetNextLine(line), i + 1 < row.lines.size() ? 1 : 0);
                EXPECT_EQ(line.View(), row.lines[i]);
            }
        }
    }
}

TEST(StList, SplitsAtTheEndOfThePage) {
    struct Row {
        const char* name;
        int freeLines, lineHeight, nextPageLines;
        int stay;
        const wchar_t* first;
        const wchar_t* second;  // null: nothing is divided
    };
    const Row rows[] = {
        {"fits", 4, 1, 10, 4, L"a\nb\nc\nd", nullptr},
        {"divided", 3, 1, 10, 3, L"a\nb\nc", L"d"},
        {"empty lines count", 7, 2, 20, 3, L"a\nb\nc", L"d"},
        {"no single line stays behind", 1, 1, 4, 0, L"a\nb\nc\nd", nullptr},
        {"unless the next page is too small", 1, 1, 3, 1, L"a", L"b\nc\nd"},
        {"full page", 0, 1, 10, 0, L"a\nb\nc\nd", nullptr},
        {"senseless numbers", -5, -5, -5, 0, L"a\nb\nc\nd", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CStList list;
        POSITION pos = list.AddTail(WithText(L"a\nb\nc\nd"));
        list.AddTail(WithText(L"next"));
        EXPECT_EQ(list.SplitArticle(pos, row.freeLines, row.lineHeight, row.nextPageLines), row.stay);
        EXPECT_EQ(list.GetHead().text, row.first);
        ASSERT_EQ(list.GetCount(), row.second ? 3 : 2);
        EXPECT_EQ(list.GetAt(pos).text, row.second ? row.second : row.first);
        if (!row.second) continue;
        EXPECT_EQ(list.GetHead().quantity, 2.5);
        EXPECT_EQ(list.GetAt(pos).position, L"");
        EXPECT_EQ(list.GetAt(pos).quantity, -1.0);
    }
    POSITION none = nullptr;
    EXPECT_EQ(CStList().SplitArticle(none, 1, 1, 1), 0);
}

}  // namespace
