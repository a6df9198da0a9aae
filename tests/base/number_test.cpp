#include "nexo/base/Number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <iterator>
#include <limits>
#include <random>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/base/NumberWriter.h"
#include "support/LocaleScope.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Number, ReadsIntegers) {
    const struct {
        const char* name;
        const wchar_t* text;
        int want;
        std::size_t used;
    } rows[] = {
        {"plain", L"42", 42, 2},
        {"signs", L"-42", -42, 3},
        {"plus", L"+7", 7, 2},
        {"leading blanks of all kinds",
         L" \t\r\n\xA0\x3000\x2003"
         L"5",
         5, 8},
        {"no mark is a blank",
         L"\xFEFF"
         L"5",
         0, 0},
        {"two signs", L"+-5", 0, 0},
        {"blank behind the sign", L"- 5", 0, 0},
        {"trailing text", L"12abc", 12, 2},
        {"decimal only", L"0x10", 0, 1},
        {"never octal", L"010", 10, 3},
        {"largest", L"2147483647", 2147483647, 10},
        {"smallest", L"-2147483648", std::numeric_limits<int>::min(), 11},
        {"saturates", L"2147483648", 2147483647, 10},
        {"saturates below", L"-2147483649", std::numeric_limits<int>::min(), 11},
        {"saturates far out", L"99999999999999999999999999", 2147483647, 26},
        {"zeros do not count", L"0000000000000000000000012", 12, 25},
        {"other digits", L"\x0661", 0, 0},
        {"nothing", L"", 0, 0},
    };
    for (const auto& row : rows) {
        std::size_t used = 99;
        EXPECT_EQ(nexo::ParseInt(row.text), row.want) << row.name;
        EXPECT_EQ(nexo::ParseInt(std::wstring_view(row.text), &used), row.want) << row.name;
        EXPECT_EQ(used, row.used) << row.name;
    }
    EXPECT_EQ(nexo::ParseInt(nullptr), 0);
    EXPECT_EQ(nexo::ParseInt(CString(L"17")), 17);
    EXPECT_EQ(nexo::ParseInt(std::wstring_view(L"123", 2)), 12) << "a view ends where it ends";
    EXPECT_EQ(nexo::ParseInt64(L"-9223372036854775809"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(nexo::ParseInt64(L"9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(nexo::ParseUnsigned(L"4294967295"), 4294967295u);
    EXPECT_EQ(nexo::ParseUnsigned(L"4294967296"), 4294967295u);
    EXPECT_EQ(nexo::ParseUnsigned(L"-1"), 4294967295u);
}

TEST(Number, ReadsDoubles) {
    const struct {
        const char* name;
        const wchar_t* text;
        double want;
        std::size_t used;
    } rows[] = {
        {"fraction", L"1.5", 1.5, 3},
        {"point at the end", L"5.", 5, 2},
        {"point at the start", L".5", 0.5, 2},
        {"point alone", L".", 0, 0},
        {"comma ends it", L"1,5", 1, 1},
        {"exponent", L"1e3x", 1000, 3},
        {"signed exponent", L"25E-1", 2.5, 5},
        {"exponent without digits", L"1e+", 1, 1},
        {"overflow", L"1e999999999999999999999", kInfinity, 23},
        {"negative overflow", L"-1e400", -kInfinity, 6},
        {"underflow", L"1e-999999999999999999999", 0, 24},
        {"smallest", L"5e-324", 5e-324, 6},
        {"half of the smallest", L"2.4703282292062327e-324", 0, 23},
        {"zero with a huge exponent", L"0e99999999999999999999", 0, 22},
        {"infinity", L"INFinity!", kInfinity, 8},
        {"short infinity", L"-infinit", -kInfinity, 4},
        {"hexadecimal", L"0x1.8p1", 3, 7},
        {"hexadecimal without digits", L"0x", 0, 1},
        {"hexadecimal point", L"0x.8", 0.5, 4},
        {"no Fortran exponent", L"1d3", 1, 1},
    };
    for (const auto& row : rows) {
        std::size_t used = 99;
        EXPECT_EQ(nexo::ParseDouble(row.text), row.want) << row.name;
        EXPECT_EQ(nexo::ParseDouble(std::wstring_view(row.text), &used), row.want) << row.name;
        EXPECT_EQ(used, row.used) << row.name;
    }
    EXPECT_TRUE(std::signbit(nexo::ParseDouble(L"-0")));
    EXPECT_TRUE(std::isnan(nexo::ParseDouble(L"nan(abc_1)")));
    EXPECT_EQ(nexo::ParseDouble(static_cast<const wchar_t*>(nullptr)), 0);
}

/// A text with the value of a random double, a random tail of digits or just plausible characters.
std::wstring RandomNumberText(std::mt19937_64& random) {
    char text[1600];
    const auto bits = random();
    const int digits = static_cast<int>(random() % (random() % 20 == 0 ? 900 : 25));
    switch (random() % 4) {
        case 0:
            std::snprintf(text, sizeof text, "%.*g", digits, std::bit_cast<double>(bits));
            break;
        case 1:
            std::snprintf(text, sizeof text, "%.*f", digits, static_cast<double>(bits % 1000000) / 1e3);
            break;
        case 2:
            std::snprintf(
                text, sizeof text, "%llu.%llue%d", static_cast<unsigned long long>(bits >> bits % 64),
                static_cast<unsigned long long>(random() >> bits % 61), static_cast<int>(bits % 60) - 40);
            break;
        default: {
            std::wstring any;
            for (auto rest = bits; rest; rest /= 24) any += L"0123456789..eE+-xXpaiInN"[rest % 24];
            return any;
        }
    }
    return std::wstring(text, text + std::char_traits<char>::length(text));
}

TEST(Number, ReadsWhatTheStandardReads) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 200000; ++i) {
        const std::wstring text = RandomNumberText(random);
        wchar_t* end = nullptr;
        const double want = std::wcstod(text.c_str(), &end);
        std::size_t used = 0;
        const double got = nexo::ParseDouble(text, &used);
        ASSERT_TRUE(std::isnan(want)
                        ? std::isnan(got)
                        : std::bit_cast<std::uint64_t>(want) == std::bit_cast<std::uint64_t>(got))
            << std::string(text.begin(), text.end());
        ASSERT_EQ(used, static_cast<std::size_t>(end - text.c_str()))
            << std::string(text.begin(), text.end());
    }
}

TEST(Number, RoundsLongTextsByTheirLastDigit) {
    // 1 + 2^-53 lies halfway between two doubles: what follows decides, however far behind.
    const std::wstring half = L"1.00000000000000011102230246251565404236316680908203125";
    EXPECT_EQ(nexo::ParseDouble(half), 1.0);
    EXPECT_EQ(nexo::ParseDouble(half + std::wstring(100000, L'0') + L"1"), 1.0000000000000002);
    EXPECT_EQ(nexo::ParseDouble(L"0." + std::wstring(100000, L'0') + L"1e100001"), 1.0);
    EXPECT_EQ(nexo::ParseDouble(std::wstring(1000000, L'9')), kInfinity);
}

/// A double from all exponents, or one that people would type.
double RandomDouble(std::mt19937_64& random) {
    const auto bits = random();
    switch (random() % 4) {
        case 0:
            return std::bit_cast<double>(bits);
        case 1:
            return static_cast<double>(static_cast<std::int64_t>(bits) % 100000000) / 1000;
        case 2:
            return static_cast<double>(bits % 100000) / static_cast<double>(1 << random() % 20);
        default:
            return static_cast<double>(bits % 1000000) * std::pow(10.0, static_cast<int>(random() % 44) - 22);
    }
}

TEST(Number, WritesWhatTheStandardWrites) {
    std::mt19937_64 random(5);
    char want[2000];
    char got[2000];
    for (int i = 0; i < 200000; ++i) {
        const double value = RandomDouble(random);
        if (!std::isfinite(value)) continue;
        const nexo::FloatStyle style{"efg"[random() % 3],
                                     static_cast<int>(random() % (random() % 50 ? 19 : 1200))};
        const char format[] = {'%', '.', '*', style.letter, 0};
        std::snprintf(want, sizeof want, format, style.precision, std::fabs(value));
        *nexo::WriteFloat(got, value, style) = 0;
        ASSERT_STREQ(got, want) << format << " with " << style.precision;
        std::snprintf(want, sizeof want, "%g", value);
        *nexo::WriteGeneral(got, value) = 0;
        ASSERT_STREQ(got, want);
        std::snprintf(want, sizeof want, "%.3f", value);
        *nexo::WriteFixed(got, value, 3) = 0;
        ASSERT_STREQ(got, want);
    }
}

TEST(Number, WritesIntegersOfEveryLength) {
    for (std::uint64_t power = 1, digits = 1; digits <= 20; ++digits, power *= 10) {
        for (const std::uint64_t value : {power - 1, power, power + 1, power * 9}) {
            wchar_t text[nexo::kIntegerRoom + 1];
            *nexo::WriteUnsigned(text, value) = 0;
            EXPECT_EQ(std::wstring(text), std::to_wstring(value));
            *nexo::WriteSigned(text, static_cast<std::int64_t>(value)) = 0;
            EXPECT_EQ(std::wstring(text), std::to_wstring(static_cast<std::int64_t>(value)));
        }
    }
}

TEST(Number, IgnoresTheLocale) {
    const LocaleScope german("de_DE.UTF-8");
    EXPECT_EQ(nexo::ParseDouble(L"1.5"), 1.5);
    EXPECT_EQ(nexo::ParseDouble(L"1,5"), 1.0);
    wchar_t text[nexo::kGeneralRoom + 1];
    *nexo::WriteGeneral(text, 1e-300) = 0;
    EXPECT_STREQ(text, L"1e-300");
    *nexo::WriteGeneral(text, 1.5) = 0;
    EXPECT_STREQ(text, L"1.5");
}

}  // namespace
