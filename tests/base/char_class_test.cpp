#include "nexo/base/CharClass.h"

#include <gtest/gtest.h>

#include <string>

#include "support/LocaleScope.h"

namespace {

using nexo::CompareNoCase;
using nexo::CompareOrdinalNoCase;
using nexo::ToLower;
using nexo::ToUpper;

int Code(wchar_t unit) {
    return static_cast<int>(unit);
}

TEST(CharClass, CaseMapsOneToOneInBothDirections) {
    int pairs = 0;
    for (wchar_t unit = 0; unit <= 0xFFFF; ++unit) {
        const wchar_t lower = ToLower(unit);
        const wchar_t upper = ToUpper(unit);
        ASSERT_TRUE(lower == unit || upper == unit) << Code(unit);
        if (lower != unit) {
            ASSERT_EQ(ToUpper(lower), unit) << Code(unit);
            ++pairs;
        }
        ASSERT_TRUE(upper == unit || ToLower(upper) == unit) << Code(unit);
    }
    EXPECT_GT(pairs, 1000);
    EXPECT_EQ(ToLower(0x1F600), 0x1F600) << "no code unit, no case";
}

TEST(CharClass, FoldsAllScriptsButTheExceptions) {
    const struct {
        const char* name;
        wchar_t upper, lower;
    } pairs[] = {{"ASCII", L'A', L'a'},    {"umlaut", L'Ä', L'ä'},         {"y with diaeresis", L'Ÿ', L'ÿ'},
                 {"Greek", L'Σ', L'σ'},    {"accented Greek", L'Ά', L'ά'}, {"iota subscript", L'ᾈ', L'ᾀ'},
                 {"Cyrillic", L'Ж', L'ж'}, {"Armenian", L'Ա', L'ա'},       {"Turkish dotted", L'Ş', L'ş'},
                 {"digraph", L'Ǆ', L'ǆ'},  {"full width", L'Ａ', L'ａ'},   {"Roman numeral", L'Ⅳ', L'ⅳ'}};
    for (const auto& pair : pairs) {
        EXPECT_EQ(ToLower(pair.upper), pair.lower) << pair.name;
        EXPECT_EQ(ToUpper(pair.lower), pair.upper) << pair.name;
    }
    // Sharp s, both Turkish i, final sigma, long s, micro sign, multiplication and division signs, Kelvin, a
    // surrogate.
    for (const wchar_t unit : L"ßẞİıςſµ×÷\x212A\xD801") {
        EXPECT_EQ(ToLower(unit), unit) << Code(unit);
        EXPECT_EQ(ToUpper(unit), unit) << Code(unit);
    }
}

TEST(CharClass, KnowsExactlyTheBlanksAndControls) {
    const std::wstring blanks =
        L"\t\n\v\f\r "
        L"\x85\xA0\x1680\x2000\x2001\x2002\x2003\x2004\x2005\x2006\x2007\x2008\x2009\x200A\x2028\x2029"
        L"\x202F\x205F\x3000";
    for (wchar_t unit = 0; unit <= 0xFFFF; ++unit) {
        ASSERT_EQ(nexo::IsSpace(unit), unit != 0 && blanks.find(unit) != blanks.npos) << Code(unit);
        ASSERT_EQ(nexo::IsDigit(unit), unit >= L'0' && unit <= L'9') << Code(unit);
        if (unit < 0x100) {
            ASSERT_EQ(nexo::IsControl(unit), unit < 0x20 || (unit >= 0x7F && unit < 0xA0)) << Code(unit);
        }
    }
    for (const wchar_t unit : {0x200B, 0x200F, 0xFEFF, 0x2060})
        EXPECT_TRUE(nexo::IsControl(unit)) << Code(unit);
    for (const wchar_t unit : {0x2010, 0x3000, 0xD800, 0x1F600})
        EXPECT_FALSE(nexo::IsControl(unit)) << Code(unit);
    for (const wchar_t unit : L"aZäßΩж字") EXPECT_EQ(nexo::IsAlpha(unit), unit != 0) << Code(unit);
    for (const wchar_t unit : L"09_-²€") EXPECT_FALSE(nexo::IsAlpha(unit)) << Code(unit);
}

TEST(CharClass, ComparesByFoldedUnits) {
    EXPECT_EQ(CompareNoCase(L"Größe", L"gRÖßE"), 0);
    EXPECT_EQ(CompareNoCase(L"a", L"B"), -1);
    EXPECT_EQ(CompareNoCase(L"abc", L"AB"), 1);
    EXPECT_EQ(CompareNoCase(L"_", L"a"), -1) << "U+005F is below the small letters";
    EXPECT_EQ(CompareOrdinalNoCase(L"_", L"a"), 1) << "and above the capitals";
    EXPECT_TRUE(nexo::EqualNoCase(L"ÉCLAIR", L"éclair"));
    EXPECT_FALSE(nexo::EqualNoCase(L"a", L"aa"));
}

TEST(CharClass, IgnoresTheLocale) {
    const LocaleScope turkish("tr_TR.UTF-8");
    EXPECT_EQ(ToLower(L'I'), L'i');
    EXPECT_EQ(ToUpper(L'i'), L'I');
    EXPECT_EQ(CompareNoCase(L"TITEL", L"titel"), 0);
}

}  // namespace
