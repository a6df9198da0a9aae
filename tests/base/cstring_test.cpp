#include "nexo/base/CString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <ranges>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "nexo/base/TextSearch.h"

namespace {

TEST(CString, BuildsFromEverySource) {
    EXPECT_EQ(CString(), L"");
    EXPECT_EQ(CString(nullptr), L"");
    EXPECT_EQ(CString(static_cast<const wchar_t*>(nullptr), 5), L"");
    EXPECT_EQ(CString(L"abc", 2), L"ab");
    EXPECT_EQ(CString(L"abc", -1), L"");
    EXPECT_EQ(CString(L"a\0b", 3).GetLength(), 3);
    EXPECT_EQ(CString(L'x', 3), L"xxx");
    EXPECT_EQ(CString(L'x', -3), L"");
    EXPECT_EQ(CString(std::wstring_view(L"view")), L"view");
    CString text = L"some text";
    text = nullptr;
    EXPECT_TRUE(text.IsEmpty());
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, ConvertsThroughCodePage1252) {
    EXPECT_EQ(CString("\x80\x81\xE4"), L"€\x81ä");
    EXPECT_EQ(CStringA(L"€\x81ä\x3B1"), "\x80\x81\xE4?");
    EXPECT_EQ(CStringA(L"\U0001F600"), "??") << "one mark for each code unit";
    for (int byte = 1; byte < 256; ++byte) {
        const char text[] = {static_cast<char>(byte), 0};
        EXPECT_EQ(CStringA(CString(text)), text);
    }
    CString wide = L"a";
    wide += "\x80";
    wide += 'b';
    EXPECT_EQ(wide + "\xE4", L"a€bä");
    EXPECT_TRUE(wide.Mid(1, 1) == '\x80');
    CStringA narrow = "a";
    narrow += L'€';
    EXPECT_EQ(narrow, "a\x80");
}

TEST(CString, HoldsForeignCodePointsAsTwoUnits) {
    const CString smile = L"\U0001F600";
    ASSERT_EQ(smile.GetLength(), 2);
    EXPECT_EQ(smile[0], 0xD83D);
    EXPECT_EQ(smile[1], 0xDE00);
    EXPECT_EQ(smile, L"\U0001F600");
    EXPECT_LT(smile, L"\xE000") << "compared by units, not by code points";
    EXPECT_EQ(smile.CompareNoCase(L"\U0001F600"), 0);
    CString text = L"a";
    text += L'\U0001F600';
    text.Insert(0, L"\U0001F600");
    EXPECT_EQ(text.GetLength(), 5);
    EXPECT_EQ(text.Find(L"\U0001F600", 1), 3);
    EXPECT_EQ(text.Find(L'\U0001F600'), 0);
    EXPECT_EQ(text.Replace(L"\U0001F600", L"-"), 2);
    EXPECT_EQ(text, L"-a-");
    text.SetAt(1, L'\U0001F600');
    EXPECT_EQ(text, L"-\U0001F600-");
    EXPECT_EQ(text.ReverseFind(L'\U0001F600'), 1);
    EXPECT_EQ(text.Remove(L'\U0001F600'), 1);
    text.GetBuffer()[0] = L'\U0001F600';
    text += text.GetString();
    EXPECT_EQ(text.GetLength(), 5) << "what enters is split even out of the own buffer";
    EXPECT_EQ(CString(L"\x7FFFFFFF"), L"\xFFFD");
    EXPECT_EQ(CString(L'\U0001F600', 3).GetLength(), 6);
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
    text.Format(L"%s|%s", text, text.GetString() + 9);
    EXPECT_EQ(text, L"aabcbcabcbc|bc");
    text.AppendFormat(L"|%s", text);
    EXPECT_EQ(text, L"aabcbcabcbc|bc|aabcbcabcbc|bc");
}

TEST(CString, FindsAndClamps) {
    const CString text = L"one two two";
    const struct {
        const char* name;
        int got;
        int want;
    } rows[] = {
        {"text", text.Find(L"two"), 4},
        {"text behind a start", text.Find(L"two", 5), 8},
        {"start at the match", text.Find(L"two", 8), 8},
        {"missing", text.Find(L"three"), -1},
        {"longer than the rest", text.Find(L"twofold", 8), -1},
        {"null", text.Find(static_cast<const wchar_t*>(nullptr)), -1},
        {"empty text", text.Find(L"", 3), 3},
        {"empty text at the end", text.Find(L"", 11), 11},
        {"start behind the end", text.Find(L"", 12), -1},
        {"negative start", text.Find(L"one", -1), -1},
        {"character", text.Find(L't', 5), 8},
        {"character behind the end", text.Find(L't', 11), -1},
        {"last character", text.ReverseFind(L'w'), 9},
        {"no last character", text.ReverseFind(L'x'), -1},
        {"one of a set", text.FindOneOf(L"xtw"), 4},
        {"one of no set", text.FindOneOf(nullptr), -1},
        {"one of large units", CString(L"abcΩ").FindOneOf(L"ΩΨ"), 3},
    };
    for (const auto& row : rows) EXPECT_EQ(row.got, row.want) << row.name;
}

TEST(CString, CutsPieces) {
    const CString text = L"radiator";
    const struct {
        const char* name;
        CString got;
        const wchar_t* want;
    } rows[] = {
        {"left", text.Left(3), L"rad"},
        {"left of nothing", text.Left(-1), L""},
        {"left of all", text.Left(99), L"radiator"},
        {"right", text.Right(3), L"tor"},
        {"right of nothing", text.Right(-1), L""},
        {"right of all", text.Right(99), L"radiator"},
        {"middle", text.Mid(2, 3), L"dia"},
        {"middle to the end", text.Mid(5), L"tor"},
        {"middle beyond the end", text.Mid(6, 2147483647), L"or"},
        {"middle behind the end", text.Mid(9, 1), L""},
        {"middle before the start", text.Mid(-2, 3), L"rad"},
        {"middle of nothing", text.Mid(2, -1), L""},
        {"span of members", text.SpanIncluding(L"dar"), L"rad"},
        {"span of others", text.SpanExcluding(L"xto"), L"radia"},
        {"span without a member", text.SpanExcluding(L"xyz"), L"radiator"},
        {"span of no set", text.SpanIncluding(nullptr), L""},
    };
    for (const auto& row : rows) EXPECT_EQ(row.got, row.want) << row.name;
}

struct Edit {
    const char* name;
    const wchar_t* text;
    int result;
    const wchar_t* want;
    std::function<int(CString&)> edit;
};

const std::vector<Edit>& Edits() {
    static const std::vector<Edit> edits = {
        {"insert", L"ac", 3, L"abc", [](CString& s) { return s.Insert(1, L'b'); }},
        {"insert before the start", L"bc", 3, L"abc", [](CString& s) { return s.Insert(-5, L"a"); }},
        {"insert behind the end", L"ab", 3, L"abc", [](CString& s) { return s.Insert(99, L"c"); }},
        {"insert null", L"ab", 2, L"ab",
         [](CString& s) { return s.Insert(0, static_cast<wchar_t*>(nullptr)); }},
        {"delete", L"abcd", 2, L"ad", [](CString& s) { return s.Delete(1, 2); }},
        {"delete beyond the end", L"abcd", 1, L"a", [](CString& s) { return s.Delete(1, 2147483647); }},
        {"delete behind the end", L"abcd", 4, L"abcd", [](CString& s) { return s.Delete(4); }},
        {"delete a negative number", L"abcd", 4, L"abcd", [](CString& s) { return s.Delete(1, -1); }},
        {"replace characters", L"a.b.c", 2, L"a,b,c", [](CString& s) { return s.Replace(L'.', L','); }},
        {"replace by itself", L"a.b", 0, L"a.b", [](CString& s) { return s.Replace(L'.', L'.'); }},
        {"replace by longer", L"aaa", 1, L"xyza", [](CString& s) { return s.Replace(L"aa", L"xyz"); }},
        {"replace by nothing", L"a-b-", 2, L"ab", [](CString& s) { return s.Replace(L"-", nullptr); }},
        {"replaced text is not searched", L"ab", 1, L"aab",
         [](CString& s) { return s.Replace(L"a", L"aa"); }},
        {"replace nothing", L"ab", 0, L"ab", [](CString& s) { return s.Replace(L"", L"x"); }},
        {"remove", L"abcabc", 2, L"acac", [](CString& s) { return s.Remove(L'b'); }},
        {"remove all", L"bb", 2, L"", [](CString& s) { return s.Remove(L'b'); }},
        {"truncate", L"abc", 0, L"ab", [](CString& s) { return s.Truncate(2), 0; }},
        {"truncate behind the end", L"abc", 0, L"abc", [](CString& s) { return s.Truncate(9), 0; }},
        {"set", L"abc", 0, L"axc", [](CString& s) { return s.SetAt(1, L'x'), 0; }},
        {"trim blanks", L"\t a b\r\n\xA0\x3000", 3, L"a b", [](CString& s) { return s.Trim().GetLength(); }},
        {"trim nothing but blanks", L"  ", 0, L"", [](CString& s) { return s.Trim().GetLength(); }},
        {"trim a set on the left", L"xyxa", 1, L"a",
         [](CString& s) { return s.TrimLeft(L"yx").GetLength(); }},
        {"trim a character", L"..a..", 1, L"a", [](CString& s) { return s.Trim(L'.').GetLength(); }},
        {"trim on the right", L" a ", 2, L" a", [](CString& s) { return s.TrimRight().GetLength(); }},
        {"trim no set", L" a ", 3, L" a ", [](CString& s) { return s.TrimRight(nullptr).GetLength(); }},
        {"upper", L"straße Äé", 0, L"STRAßE ÄÉ", [](CString& s) { return s.MakeUpper(), 0; }},
        {"lower", L"ÄÖÜ ŒΣЖ", 0, L"äöü œσж", [](CString& s) { return s.MakeLower(), 0; }},
        {"reverse", L"abc", 0, L"cba", [](CString& s) { return s.MakeReverse(), 0; }},
        {"append a character", L"ab", 0, L"abc", [](CString& s) { return s.AppendChar(L'c'), 0; }},
        {"write to the buffer", L"abc", 0, L"xbc",
         [](CString& s) { return s.GetBuffer()[0] = L'x', s.ReleaseBuffer(), 0; }},
        {"empty", L"abc", 0, L"", [](CString& s) { return s.Empty(), 0; }},
    };
    return edits;
}

TEST(CString, Edits) {
    for (const Edit& row : Edits()) {
        SCOPED_TRACE(row.name);
        CString text = row.text;
        EXPECT_EQ(row.edit(text), row.result);
        EXPECT_EQ(text, row.want);
        EXPECT_EQ(text.GetString()[text.GetLength()], 0);
    }
}

TEST(CString, CopiesDoNotSeeEachOthersChanges) {
    for (const Edit& row : Edits()) {
        SCOPED_TRACE(row.name);
        const CString original = row.text;
        CString copy = original;
        EXPECT_EQ(copy.GetString(), original.GetString()) << "copying shares the block";
        row.edit(copy);
        EXPECT_EQ(copy, row.want);
        EXPECT_EQ(original, row.text);
    }
}

TEST(CString, EditsOfNarrowTextFoldAndTrimAsciiOnly) {
    CStringA text =
        "\xA0 \xC4"
        "aZ\n";
    text.Trim();
    EXPECT_EQ(text,
              "\xA0 \xC4"
              "aZ")
        << "0xA0 may be half of a UTF-8 character";
    EXPECT_EQ(text.MakeLower(),
              "\xA0 \xC4"
              "az");
    EXPECT_EQ(CStringA("ab\xC4").CompareNoCase("AB\xE4"), -1);
    EXPECT_GT(CStringA("\xC4"), "z") << "bytes compare as unsigned";
}

std::vector<CString> Tokens(const CString& text, const wchar_t* set) {
    std::vector<CString> tokens;
    for (int start = 0; start >= 0;) {
        const CString token = text.Tokenize(set, start);
        if (start >= 0) tokens.push_back(token);
    }
    return tokens;
}

TEST(CString, Tokenizes) {
    EXPECT_EQ(Tokens(L"%First Second#Third%", L"%# "), (std::vector<CString>{L"First", L"Second", L"Third"}));
    EXPECT_EQ(Tokens(L"--", L"-"), std::vector<CString>());
    EXPECT_EQ(Tokens(L"", L"-"), std::vector<CString>());
    EXPECT_EQ(Tokens(L"a b", L""), (std::vector<CString>{L"a b"})) << "and the loop ends";
    EXPECT_EQ(Tokens(L"a b", nullptr), (std::vector<CString>{L"a b"}));
    int start = -7;
    EXPECT_EQ(CString(L"abc").Tokenize(L"b", start), L"");
    EXPECT_EQ(start, -1);
}

TEST(CString, ComparesByCodeUnits) {
    EXPECT_LT(CString(L"Z"), L"a");
    EXPECT_LT(CString(L"a"), CString(L"ab"));
    EXPECT_EQ(CString(L"a\0b", 3).Compare(CString(L"a\0c", 3)), -1);
    EXPECT_NE(CString(L"a\0b", 3), L"a");
    EXPECT_EQ(CString(L"x"), L'x');
    EXPECT_EQ(CString(L"x"), "x");
    EXPECT_EQ(CString(L"ÄÖ_").CompareNoCase(L"äö_"), 0);
    EXPECT_EQ(CString(L"_").CompareNoCase(L"A"), -1) << "case folds to small letters";
    EXPECT_EQ(CString(L"straße").CompareNoCase(L"STRASSE"), 1);
    std::vector<CString> texts = {L"b", L"c", L"a"};
    std::ranges::sort(texts);
    EXPECT_EQ(texts, (std::vector<CString>{L"a", L"b", L"c"})) << "texts, not addresses";
}

TEST(CString, RefusesIndicesOutsideTheText) {
    CString text = L"abc";
    EXPECT_EQ(text[3], 0) << "the terminator can be read";
    EXPECT_THROW((void)text.GetAt(4), std::invalid_argument);
    EXPECT_THROW((void)text[-1], std::invalid_argument);
    EXPECT_THROW((void)text[std::size_t{1} << 32], std::invalid_argument);
    EXPECT_THROW(text.SetAt(3, L'x'), std::invalid_argument);
    EXPECT_THROW(text.ReleaseBuffer(text.GetAllocLength() + 1), std::invalid_argument);
    EXPECT_EQ(text, L"abc");
}

TEST(CString, RefusesTextsBeyondTheLimitBeforeItAllocates) {
    CString text(L'a', 1 << 16);
    const CString longer(L'b', 1 << 16);
    EXPECT_THROW(text.Replace(L"a", longer), std::bad_alloc);
    EXPECT_EQ(text, CString(L'a', 1 << 16));
}

TEST(CString, LendsItsBuffer) {
    CString text = L"abc";
    wchar_t* buffer = text.GetBuffer(100);
    EXPECT_STREQ(buffer, L"abc");
    std::fill_n(buffer, 100, L'x');
    text.ReleaseBuffer(100);
    EXPECT_EQ(text, CString(L'x', 100));
    text.GetBuffer(5)[2] = 0;
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"xx");
    text.FreeExtra();
    EXPECT_LT(text.GetAllocLength(), 100);
    std::fill_n(text.GetBufferSetLength(3), 3, L'y');
    EXPECT_EQ(text, L"yyy");
    CString empty;
    empty.GetBuffer()[0] = 0;
    empty.ReleaseBuffer();
    EXPECT_EQ(empty, L"");
}

TEST(CString, CopiesOfALockedBufferAreCopies) {
    CString text = L"abc";
    wchar_t* const buffer = text.LockBuffer();
    const CString copy = text;
    buffer[0] = L'x';
    EXPECT_EQ(copy, L"abc");
    EXPECT_EQ(text, L"xbc");
    text += L" and more than the buffer held before";
    text.LockBuffer()[0] = L'y';
    text.UnlockBuffer();
    const CString shared = text;
    EXPECT_EQ(shared.GetString(), text.GetString());
}

TEST(CString, StreamsAndHashes) {
    std::ostringstream narrow;
    narrow << CString(L"ä€\U0001F600\xD800") << CStringA("\xE4");
    EXPECT_EQ(narrow.str(), "ä€\xF0\x9F\x98\x80\xEF\xBF\xBD\xE4");
    std::wostringstream wide;
    wide << CString(L"ä\U0001F600");
    EXPECT_EQ(wide.str(), L"ä\U0001F600");
    const std::unordered_set<CString> set = {L"a", L"b", L"a"};
    EXPECT_EQ(set.size(), 2u);
    EXPECT_TRUE(set.contains(CString(L"xa").Mid(1)));
}

/// Plays random edits on strings that share blocks and on standard strings, and compares after each.
TEST(CString, BehavesLikeIndependentStrings) {
    std::mt19937 random(7);
    const auto below = [&random](std::size_t limit) { return static_cast<int>(random() % limit); };
    CString texts[4];
    std::wstring models[4];
    for (int step = 0; step < 20000; ++step) {
        const int to = below(4), from = below(4);
        CString& text = texts[to];
        std::wstring& model = models[to];
        const std::size_t at = random() % (model.size() + 1);
        switch (below(8)) {
            case 0:
                text = texts[from];
                model = models[from];
                break;
            case 1:
                text += texts[from];
                model += std::wstring(models[from]);
                break;
            case 2:
                text.Insert(static_cast<int>(at), texts[from]);
                model.insert(at, std::wstring(models[from]));
                break;
            case 3:
                text.Delete(static_cast<int>(at), 5);
                model.erase(at, 5);
                break;
            case 4:
                text = texts[from].Mid(static_cast<int>(at), 9);
                model = models[from].substr(std::min(at, models[from].size()), 9);
                break;
            case 5:
                text.AppendChar(static_cast<wchar_t>(L'a' + step % 3));
                model += static_cast<wchar_t>(L'a' + step % 3);
                break;
            case 6:
                text.Replace(L'a', L'b');
                std::ranges::replace(model, L'a', L'b');
                break;
            default:
                text = std::move(texts[from]);
                texts[from] = text;
                model = models[from];
                break;
        }
        if (model.size() > 300) text.Truncate(20), model.resize(20);
        ASSERT_EQ(text, std::wstring_view(model)) << "step " << step;
    }
}

TEST(CString, SearchesLikeTheStandardAlsoInTextsThatMatchThemselves) {
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        std::wstring text(random() % 200, L'a'), part(random() % 8, L'a');
        for (wchar_t& unit : text) unit = static_cast<wchar_t>(L'a' + (random() % 8 == 0));
        for (wchar_t& unit : part) unit = static_cast<wchar_t>(L'a' + (random() % 8 == 0));
        const std::size_t from = random() % 10;
        ASSERT_EQ(nexo::FindText(text, part, from), text.find(part, from));
    }
    const CString text(L'a', 1000000);
    EXPECT_EQ(text.Find(CString(L'a', 300000) + L'b'), -1) << "in time proportional to the lengths";
    EXPECT_EQ((text + L'b').Find(CString(L'a', 300000) + L'b'), 700000);
}

TEST(CString, CopiesAreSafeAcrossThreads) {
    const CString shared = CString(L"shared text ") + L"on the heap";
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([copy = shared] {
            for (int round = 0; round < 20000; ++round) {
                CString mine = copy;
                CString other = mine;
                if (round % 16 == 0) other += L"!";
                ASSERT_EQ(mine.GetLength(), 23);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    CString last = shared;
    EXPECT_EQ(last, L"shared text on the heap");
}

}  // namespace
