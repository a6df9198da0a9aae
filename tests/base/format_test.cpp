#include "nexo/base/Format.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "support/LocaleScope.h"

namespace {

using nexo::FormatArg;
using nexo::Formatted;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Row {
    const wchar_t* format;
    FormatArg argument;
    const wchar_t* want;
};

void Check(const Row& row) {
    CString text;
    nexo::FormatInto(text, row.format, std::span(&row.argument, 1));
    EXPECT_EQ(text, row.want) << CString(row.format);
}

TEST(Format, WritesIntegers) {
    const Row rows[] = {
        {L"%d", -5, L"-5"},
        {L"%i", INT_MIN, L"-2147483648"},
        {L"%d", 4294967295u, L"-1"},  // also for unsigned arguments: stored records rely on it
        {L"%u", -1, L"4294967295"},
        {L"%x", 255, L"ff"},
        {L"%#X", 255, L"0XFF"},
        {L"%#x", 0, L"0"},
        {L"%o", 8, L"10"},
        {L"%#o", 8, L"010"},
        {L"%#.0o", 0, L"0"},
        {L"%5d|", 42, L"   42|"},
        {L"%-5d|", 42, L"42   |"},
        {L"%05d", -42, L"-0042"},
        {L"%-05d|", 42, L"42   |"},
        {L"%+d", 42, L"+42"},
        {L"% d", 42, L" 42"},
        {L"%+ d", 42, L"+42"},
        {L"%+u", 42, L"42"},
        {L"%.3d", 7, L"007"},
        {L"%06.3d", 7, L"   007"},
        {L"%.0d|", 0, L"|"},
        {L"%#08x", 255, L"0x0000ff"},
        {L"%#6.4x", 255, L"0x00ff"},
        {L"%d", true, L"1"},
        {L"%d", L'A', L"65"},
    };
    for (const Row& row : rows) Check(row);
}

TEST(Format, CutsIntegersToTheSizeOfTheConversion) {
    constexpr long long wide = 0x1234567890ABCDEF;
    const Row rows[] = {
        {L"%lld", wide, L"1311768467294899695"},
        {L"%I64x", wide, L"1234567890abcdef"},
        {L"%jX", wide, L"1234567890ABCDEF"},
        {L"%zx", wide, L"1234567890abcdef"},
        {L"%Ix", wide, L"1234567890abcdef"},
        {L"%tx", wide, L"1234567890abcdef"},
        {L"%x", wide, L"90abcdef"},
        {L"%lx", wide, L"90abcdef"},  // a long has 32 bits in formats
        {L"%ld", 0xFFFFFFFFL, L"-1"},
        {L"%lu", -1L, L"4294967295"},
        {L"%I32d", wide, L"-1867788817"},
        {L"%hd", wide, L"-12817"},
        {L"%hu", wide, L"52719"},
        {L"%hhd", wide, L"-17"},
        {L"%lld", -1, L"-1"},
        {L"%lld", 4294967295u, L"4294967295"},
        {L"%llu", -1, L"18446744073709551615"},
        {L"%I3d", 5, L"%I3d"},
    };
    for (const Row& row : rows) Check(row);
}

TEST(Format, WritesFloatingPoint) {
    const Row rows[] = {
        {L"%f", 0.5, L"0.500000"},
        {L"%.0f", 0.5, L"0"},  // ties go to even
        {L"%.0f", 2.5, L"2"},
        {L"%.0f", 3.5, L"4"},
        {L"%.2f", 0.125, L"0.12"},
        {L"%.1f", 1.25, L"1.2"},
        {L"%.2f", 2.345, L"2.35"},
        {L"%.2f", 999.995, L"1000.00"},
        {L"%.1f", -0.04, L"-0.0"},
        {L"%#.0f", 3.0, L"3."},
        {L"%g", 0.0, L"0"},
        {L"%g", 100000.0, L"100000"},
        {L"%g", 999999.5, L"1e+06"},
        {L"%g", 0.0001, L"0.0001"},
        {L"%g", 0.00001, L"1e-05"},
        {L"%#g", 1.5, L"1.50000"},
        {L"%.3g", 1234.5, L"1.23e+03"},
        {L"%.0g", 0.05, L"0.05"},
        {L"%.17g", 0.1, L"0.10000000000000001"},
        {L"%G", 1e-10, L"1E-10"},
        {L"%e", 12345.678, L"1.234568e+04"},
        {L"%.0e", 1e100, L"1e+100"},
        {L"%E", 0.0, L"0.000000E+00"},
        {L"%8.3f|", 3.14159, L"   3.142|"},
        {L"%-8.3f|", 3.14159, L"3.142   |"},
        {L"%+08.2f", 3.14159, L"+0003.14"},
        {L"%08.2f", -3.14159, L"-0003.14"},
        {L"%.40f", 0.1, L"0.1000000000000000055511151231257827021182"},
        {L"%f", kInfinity, L"inf"},
        {L"%08f", -kInfinity, L"    -inf"},
        {L"%.1G", kInfinity, L"INF"},
        {L"%f", kNan, L"nan"},
        {L"%E", -kNan, L"-NAN"},
        {L"%g", 1.5f, L"1.5"},
        {L"%a", 1.0, L"0x1p+0"},
        {L"%.3A", 3.1, L"0X1.8CDP+1"},
        {L"%010a", -1.0, L"-0x0001p+0"},
    };
    for (const Row& row : rows) Check(row);
    EXPECT_EQ(Formatted(L"%f", 1e300).GetLength(), 301 + 7);
}

TEST(Format, WritesTextsAndCharacters) {
    const CString counted(L"a\0b", 3);
    const Row rows[] = {
        {L"%s", L"wide", L"wide"},
        {L"%S", "n\xE4rrow", L"närrow"},
        {L"%hs", "\x80", L"€"},
        {L"%ls", L"wide", L"wide"},
        {L"%ws", L"wide", L"wide"},
        {L"%s", "narrow", L"narrow"},  // the argument knows what it is
        {L"%8s|", L"text", L"    text|"},
        {L"%-8s|", L"text", L"text    |"},
        {L"%08s", L"text", L"0000text"},  // zeros pad texts too
        {L"%.2s", L"text", L"te"},
        {L"%.s|", L"text", L"|"},
        {L"%.1s", L"\U0001F600", L"\xD83D"},  // precision counts code units
        {L"%s", static_cast<const wchar_t*>(nullptr), L"(null)"},
        {L"%S", static_cast<const char*>(nullptr), L"(null)"},
        {L"%s", nullptr, L"(null)"},
        {L"%10.3s", static_cast<const wchar_t*>(nullptr), L"       (nu"},
        {L"%c", L'Ω', L"Ω"},
        {L"%c", '\x80', L"€"},
        {L"%C", 0x80, L"€"},
        {L"%hc", 0x80, L"€"},
        {L"%lc", 0x3A9, L"Ω"},
        {L"%.0c", L'x', L"x"},
        {L"%03c", L'x', L"00x"},
        {L"%c", L'\U0001F600', L"\U0001F600"},
        {L"\U0001F600%%", 0, L"\U0001F600%"},
        {L"%p", reinterpret_cast<const void*>(0xABC), L"0000000000000ABC"},
        {L"%20p|", static_cast<const void*>(nullptr), L"    0000000000000000|"},
    };
    for (const Row& row : rows) Check(row);
    EXPECT_EQ(Formatted(L"%s", counted), counted);
    EXPECT_EQ(Formatted(L"%c", 0).GetLength(), 1);
    const wchar_t unterminated[] = {L'a', L'b'};
    EXPECT_EQ(Formatted(L"%.2s", static_cast<const wchar_t*>(unterminated)), L"ab");
}

TEST(Format, PrintsTheTextOfWhatItCanNotCarryOut) {
    const Row rows[] = {
        {L"%d", 1.5, L"%d"},     {L"%5.1f", 3, L"%5.1f"},
        {L"%s", 3, L"%s"},       {L"%s", 1.5, L"%s"},
        {L"%d", L"text", L"%d"}, {L"%c", L"text", L"%c"},
        {L"%p", 3, L"%p"},       {L"%s", reinterpret_cast<const void*>(8), L"%s"},
        {L"%n", 3, L"%n"},       {L"%y %-5! %d", 3, L"%y %-5! 3"},
        {L"100%", 3, L"100%"},   {L"%-05.3", 3, L"%-05.3"},
        {L"%*d", 1.5, L""},  // the width takes the only argument
        {L"%2$d", 3, L"%2$d"},
    };
    for (const Row& row : rows) Check(row);
    EXPECT_EQ(Formatted(L"%d %d|", 1), L"1 |") << "a missing argument prints nothing";
    EXPECT_EQ(Formatted(L"%n%d", nullptr, 2), L"%n2");
    EXPECT_EQ(Formatted(L"%*d", L"x", 3), L"%*d");
    EXPECT_EQ(Formatted(L"%5%|"), L"%|");
    EXPECT_EQ(Formatted(nullptr, 3), L"");
}

TEST(Format, TakesWidthsFromArgumentsAndLimitsThem) {
    EXPECT_EQ(Formatted(L"%*d|%-*d|%*d", 4, 1, 4, 2, -4, 3), L"   1|2   |3   ");
    EXPECT_EQ(Formatted(L"%.*f %.*f", 1, 2.55, -1, 2.5), L"2.5 2.500000");
    EXPECT_EQ(Formatted(L"%99999999999d", 1).GetLength(), 65535);
    EXPECT_EQ(Formatted(L"%*d", INT_MIN, 1).GetLength(), 65535);
    EXPECT_EQ(Formatted(L"%.99999f", 0.1).GetLength(), 65537);
    EXPECT_EQ(Formatted(L"%.99999d", 1).GetLength(), 65535);
    EXPECT_EQ(Formatted(L"%.65535e", 1.0).Right(6), L"00e+00");
}

TEST(Format, FormatsNarrowText) {
    CStringA text;
    text.Format("%s %S %c %C %05d %.2f %ls", "narrow", L"wide €", 'c', L'€', 42, 2.5, L"\x3B1\U0001F600");
    EXPECT_EQ(text, "narrow wide \x80 c \x80 00042 2.50 ???");
    text.AppendFormat("%%%s", CStringA("!"));
    EXPECT_EQ(text.Right(2), "%!");
}

TEST(Format, BuildsLongTextsFromManyPieces) {
    CString text;
    std::wstring want;
    for (int i = 0; i < 300; ++i) {
        text.AppendFormat(L"%d:%s;", i, L"value");
        want += std::to_wstring(i) + L":value;";
    }
    EXPECT_EQ(text, std::wstring_view(want));
    const CString twice = Formatted(L"[%s][%s]", text, text);
    EXPECT_EQ(twice, std::wstring_view(L"[" + want + L"][" + want + L"]"));
}

/// All combinations of flags, widths, precisions and sizes beside the standard's function.
TEST(Format, AgreesWithTheStandardOnEveryModifier) {
    const std::string flags[] = {"", "-", "0", "+", " ", "#", "-0", "+0", "#0", "-#", "+-", " 0#"};
    const std::string widths[] = {"", "1", "4", "12", ".", ".0", ".1", ".5", "9.3", "3.9"};
    const int integers[] = {0, 1, -1, 8, 255, INT_MAX, INT_MIN};
    const double doubles[] = {0.0, -0.0, 1.0, -2.5, 0.1, 1e6, 123456789.0, 1e-7, kInfinity, -kInfinity};
    char want[200];
    for (const std::string& flag : flags) {
        for (const std::string& width : widths) {
            const std::string start = "%" + flag + width;
            const auto check = [&](char letter, auto value) {
                const std::string format = start + letter;
                std::snprintf(want, sizeof want, format.c_str(), value);
                CStringA got;
                got.Format(format.c_str(), value);
                EXPECT_EQ(got, want) << format << " of " << value;
            };
            for (const char letter : {'d', 'u', 'x', 'X', 'o'}) {
                for (const int value : integers) check(letter, value);
            }
            for (const char letter : {'e', 'f', 'g', 'G', 'a'}) {
                for (const double value : doubles) check(letter, value);
            }
        }
    }
}

TEST(Format, IgnoresTheLocale) {
    const LocaleScope german("de_DE.UTF-8");
    EXPECT_EQ(Formatted(L"%.1f %g %e %f", 1234.5, 0.5, 1.5, 1e22),
              L"1234.5 0.5 1.500000e+00 10000000000000000000000.000000");
    EXPECT_EQ(Formatted(L"%S", "\xE4"), L"ä");
}

}  // namespace
