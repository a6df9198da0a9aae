#include "nexo/text/StrUtil.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <tuple>
#include <vector>

#include "nexo/text/NumberText.h"
#include "nexo/text/SubStr.h"

namespace {

TEST(StrUtil, PiecesAtACharacter) {
    struct Row {
        const wchar_t* text;
        const wchar_t *leftFirst, *leftLast, *rightFirst, *rightLast;
    };
    const Row rows[] = {
        {L"a/b/c", L"a", L"a/b", L"b/c", L"c"},
        {L"abc", L"", L"", L"abc", L"abc"},  // missing: Left gives nothing, Right gives all
        {L"/", L"", L"", L"", L""},
        {L"", L"", L"", L"", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(moxStrUtil::SubStrLeftFromFirstOccurence(row.text, L'/'), row.leftFirst);
        EXPECT_EQ(moxStrUtil::SubStrLeftFromLastOccurence(row.text, L'/'), row.leftLast);
        EXPECT_EQ(moxStrUtil::SubStrRightFromFirstOccurence(row.text, L'/'), row.rightFirst);
        EXPECT_EQ(moxStrUtil::SubStrRightFromLastOccurence(row.text, L'/'), row.rightLast);
    }
    EXPECT_EQ(moxStrUtil::GetLastChar(L"ab"), L'b');
    EXPECT_EQ(moxStrUtil::GetLastChar(L""), 0);
    EXPECT_EQ(moxStrUtil::IsEmpty(nullptr), 1);
    EXPECT_EQ(moxStrUtil::IsEmpty(L"a"), 0);
    EXPECT_EQ(moxStrUtil::removeAllNonNumeric(L"a-1,5 kg."), L"-1.5.");
    EXPECT_EQ(moxStrUtil::removeAllNumeric(L"a-1,5 kg."), L"a, kg");
}

TEST(StrUtil, SplitsIntoAnArray) {
    const auto split = [](const wchar_t* text, const wchar_t* separator) {
        CStringArray pieces;
        pieces.Add(L"kept");
        moxStrUtil::separatedStringToArray(text, separator, pieces);
        std::wstring joined;
        for (const CString& piece : pieces) joined.append(piece.View()).append(L"|");
        return joined;
    };
    EXPECT_EQ(split(L"a;;b;", L";"), L"kept|a||b|");
    EXPECT_EQ(split(L";", L";"), L"kept||");
    EXPECT_EQ(split(L"", L";"), L"kept|");
    EXPECT_EQ(split(L"a--b-c", L"--"), L"kept|a|b-c|");
    EXPECT_EQ(split(L"abc", L""), L"kept|abc|");
}

TEST(StrUtil, ComparesNaturally) {
    const std::tuple<const wchar_t*, const wchar_t*, int> rows[] = {
        {L"a9", L"a10", -1},   {L"x05", L"x5", 0}, {L"a10", L"a1x", -1}, {L"a", L"a", 0},
        {L"a", L"ab", -1},     {L"a1", L"a", 1},   {L"B", L"a", -1},     {L"a1b", L"a1a", 1},
        {L"x12y", L"x13", -1}, {L"", L"1", -1},    {L"x1", L"x12", -1},  {L"\xFFFF", L"a", 1},
    };
    for (const auto& [a, b, want] : rows) {
        EXPECT_EQ(moxStrUtil::CompareAlphaNumerical(a, b), want) << a << b;
        EXPECT_EQ(moxStrUtil::CompareAlphaNumerical(b, a), -want) << a << b;
    }
}

TEST(StrUtil, CutsInPlace) {
    wchar_t text[] =
        L"\r\n\t \x00A0\x0085"
        L"a b\x0001\x3000\n";
    EXPECT_STREQ(moxStrUtil::CutRightWhitespaces(moxStrUtil::CutLeftWhitespaces(text)), L"a b");
    wchar_t blanks[] = L" \n", path[] = L"a/b/c";
    EXPECT_STREQ(moxStrUtil::CutRightWhitespaces(blanks), L"");
    EXPECT_STREQ(moxStrUtil::CutLeftWhitespaces(blanks), L"");
    moxStrUtil::ReplaceChar(path, L'/', L'\\');
    moxStrUtil::ReplaceChar(nullptr, L'/', L'\\');
    EXPECT_STREQ(moxStrUtil::CutToLength(path, 9), L"a\\b\\c");
    EXPECT_STREQ(moxStrUtil::CutToLength(path, 3), L"a\\b");
    EXPECT_STREQ(moxStrUtil::CutToLength(path, -1), L"");
}

TEST(StrUtil, BreaksLines) {
    const std::tuple<const char*, const wchar_t*, int, std::vector<std::wstring>> rows[] = {
        {"at the last blank", L"one two three", 8, {L"one two", L"three"}},
        {"blank at the width", L"one two", 3, {L"one", L"two"}},
        {"hard", L"abcdef", 4, {L"abcd", L"ef"}},
        {"line breaks first", L"a b\nc\r\ndefgh", 6, {L"a b", L"c", L"defgh"}},
        {"break at the start", L"\r\nabcdef", 6, {L"", L"abcdef"}},
        {"break behind a hard width", L"abc\ndef", 3, {L"abc", L"def"}},
        {"blank at the start", L" abcdef", 4, {L"", L"abcd", L"ef"}},
        {"width below one", L"ab", -5, {L"a", L"b"}},
        {"short enough", L"a\nb", 3, {L"a\nb"}},
    };
    for (const auto& [name, whole, width, want] : rows) {
        SCOPED_TRACE(name);
        wchar_t* text = wcsdup(whole);
        std::vector<std::wstring> lines;
        while (text) {
            wchar_t* const rest = moxStrUtil::LineBreak(&text, width);
            lines.emplace_back(text);
            std::free(text);
            text = rest;
        }
        EXPECT_EQ(lines, want);
    }
    EXPECT_TRUE(moxStrUtil::NextIsBreak(L"\r\n"));
    EXPECT_FALSE(moxStrUtil::NextIsBreak(L"\r"));
}

TEST(StrUtil, TurnsDosLettersIntoWindowsLetters) {
    const std::string dos = "\x81\x84\x8E\x94\x99\x9A\x9B\x9D\xAB\xAC\xE1\xF1\xF8\xFD";
    const std::string ansi = "\xFC\xE4\xC4\xF6\xD6\xDC\xF8\xD8\xBD\xBC\xDF\xB1\xB0\xB2";
    for (int value = 1; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        char buffer[] = {byte, 0, '\x81'};
        moxStrUtil::KonvertUmlauteDosToAnsi(buffer, 3);
        const std::size_t place = dos.find(byte);
        EXPECT_EQ(buffer[0], place == dos.npos ? byte : ansi[place]) << value;
        EXPECT_EQ(buffer[2], '\x81') << "stops at a zero byte";
    }
    char buffer[] = "\x81\x81";
    moxStrUtil::KonvertUmlauteDosToAnsi(buffer, 1);
    EXPECT_STREQ(buffer, "\xFC\x81");
}

TEST(StrUtil, CopiesLowBytes) {
    unsigned char bytes[8] = {};
    moxStrUtil::bstrcpy(bytes, L"a\x1234");
    EXPECT_STREQ(reinterpret_cast<char*>(bytes), "a\x34");
    std::fill(std::begin(bytes), std::end(bytes), static_cast<unsigned char>('.'));
    moxStrUtil::bstrncpy(bytes, L"abc", 2);
    moxStrUtil::bstrncpy(bytes + 3, L"xyz", 0);  // 0 copies all
    EXPECT_EQ(std::string(bytes, bytes + 8), "ab.xyz..");
    EXPECT_EQ(moxStrUtil::translateDecoratedName(L"f@D$StrTraitMFC@PBDPADQBDPBD"),
              "f@_W$StrTraitMFC_DLL@PB_WPA_WQB_WPB_W");
}

TEST(StrUtil, WritesNumbersAndNames) {
    const std::tuple<double, int, bool, const wchar_t*> rows[] = {
        {2, 0, false, L"2"},          {2.5, 0, true, L"2,5"},
        {2, 2, true, L"2,00"},        {0, 0, false, L"0"},
        {100, -3, false, L"100"},     {1e-7, 0, false, L"0"},
        {-0.125, 2, false, L"-0.12"}, {1e15, 0, false, L"1000000000000000"},
    };
    for (const auto& [value, decimals, comma, want] : rows)
        EXPECT_EQ(StringUtils::DoubleToString(value, decimals, comma), want);
    EXPECT_EQ(StringUtils::DoubleToString(1, INT_MAX, false).GetLength(), 65537);
    const wchar_t* const names[][2] = {{L"", L"a"},   {L"b", L"c"},    {L"z", L"za"},
                                       {L"A", L"Aa"}, {L"x9", L"x9a"}, {L"ay", L"az"}};
    for (const auto& [name, next] : names) EXPECT_EQ(IncStr(name), next);
}

TEST(StrUtil, RemovesALineBreakThatIsAlone) {
    const auto removed = [](const wchar_t* text, int n, const wchar_t* find, const wchar_t* repl) {
        CString s(text);
        strUtils::RemoveUnnecessaryLineBreak(s, n, find, repl);
        return s;
    };
    EXPECT_EQ(removed(L"a|b", 1, L"|", L" "), L"a b");
    EXPECT_EQ(removed(L"a|b|c", 1, L"|", L" "), L"a|b|c");
    EXPECT_EQ(removed(L"a|b|", 2, L"|", L""), L"ab|") << "the empty last token counts";
    EXPECT_EQ(removed(L"a<>b", 1, L"<>", L"\r\n"), L"a\r\nb");
    EXPECT_EQ(removed(L"a", 0, L"|", L" "), L"a");
    EXPECT_EQ(removed(L"", -1, L"", L"x"), L"");
}

TEST(SubStr, FieldIntoABuffer) {
    wchar_t buffer[] = L"a\nb:c®&n\nd::e";
    wchar_t missing[] = L"x";
    EXPECT_EQ(substr(L"a:", 2000000000, L':', missing), 0);
    EXPECT_STREQ(missing, L"");
    EXPECT_EQ(substr(buffer, 2, L':', buffer), 1);
    EXPECT_STREQ(buffer, L"c®&n") << "a line feed ends the field, not the skipping";
    EXPECT_EQ(substr(buffer, 2, L':', buffer), 0);
    EXPECT_STREQ(buffer, L"");
    EXPECT_EQ(substr(static_cast<const wchar_t*>(nullptr), 1, L':', nullptr), 0);
}

TEST(SubStr, FieldByString) {
    struct Row {
        const wchar_t* text;
        int n;
        const wchar_t* separator;
        const wchar_t *inSequence, *cut, *whole;  // by CString; by buffer, with and without line ends
    };
    const Row rows[] = {
        {L"a--b--c", 2, L"--", L"b", L"b", L"b"},
        {L"aab1", 2, L"ab", L"", L"1", L"1"},         // the sequence resumes past a mismatch
        {L"a-b--c-d", 2, L"--", L"c-d", L"c", L"c"},  // the other cuts at any of the characters
        {L"a;b\r\nc\n", 2, L";", L"b\r\nc", L"b", L"b\r\nc\n"},
        {L"a\n;b", 1, L";", L"a\n", L"a", L"a\n"},
        {L"a;", 2, L";", L"", L"", L""},
        {L"a;b", 9, L";", L"", L"", L""},
        {L"a;b\n", 0, L";", L"a", L"a", L"a"},
        {L"a;b", 1, L"", L"a;b", L"a;b", L"a;b"},
        {L"a;b", 2000000000, L"", L"", L"a;b", L"a;b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.text << " " << row.n << " " << row.separator);
        std::wstring separator(row.separator);
        EXPECT_EQ(substr(row.text, row.n, CString(row.separator)), row.inSequence);
        EXPECT_EQ(substr(row.text, row.n, separator.data()), row.cut);
        EXPECT_EQ(substr(row.text, row.n, separator.data(), false), row.whole);
    }
}

}  // namespace
