#include "nexo/units/UnitValueText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "nexo/units/UnitSetting.h"
#include "nexo/units/Units.h"
#include "support/LocaleScope.h"

namespace {

using nexo::FormatUnitValue;
using nexo::ParseUnitValue;

constexpr enUnitFormat kFormats[] = {eUnitFormatDecimal, eUnitFormatDecimalReduced, eUnitFormatFraction,
                                     eUnitFormatEngineering, eUnitFormatArchitectural};

TEST(UnitValueText, Writes) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        enUnit unit;
        enUnitFormat format;
        int precision;
        const wchar_t* want;
    } rows[] = {
        {3.5, eUnitMeter, eUnitFormatDecimal, 2, L"3.50"},
        {-0.004, eUnitMeter, eUnitFormatDecimal, 2, L"0.00"},
        {99.999, eUnitMeter, eUnitFormatDecimalReduced, 2, L"100"},
        {3.5, eUnitMeter, eUnitFormatDecimalReduced, 3, L"3.5"},
        {-120, eUnitMeter, eUnitFormatDecimalReduced, 0, L"-120"},
        {-3.5, eUnitInch, eUnitFormatFraction, 4, L"-3 1/2"},
        {0.999, eUnitInch, eUnitFormatFraction, 4, L"1"},
        {-0.5, eUnitInch, eUnitFormatFraction, 1, L"-0 1/2"},
        {-0.2, eUnitInch, eUnitFormatFraction, 1, L"0"},
        {1e300, eUnitInch, eUnitFormatDecimalReduced, 0, nullptr},
        {5.25, eUnitFeet, eUnitFormatEngineering, 2, L"5'-3.00\""},
        {11.999, eUnitInch, eUnitFormatEngineering, 2, L"1'-0.00\""},
        {-1.5, eUnitYard, eUnitFormatEngineering, 0, L"-4'-6\""},
        {5.296875, eUnitFeet, eUnitFormatArchitectural, 4, L"5'-3 9/16\""},
        {11.99, eUnitInch, eUnitFormatArchitectural, 3, L"1'-0\""},
        {2.5, eUnitMeter, eUnitFormatArchitectural, 1, L"2.5"},
        {2.5, eUnitMeter, eUnitFormatDecimal, -7, L"2"},
        {0.1, eUnitMeter, eUnitFormatDecimal, 99, L"0.10000000"},
        {-infinity, eUnitFeet, eUnitFormatArchitectural, 2, L"-inf"},
        {std::nan(""), eUnitFeet, eUnitFormatFraction, 2, L"nan"},
    };
    for (const auto& row : rows) {
        const CString text =
            FormatUnitValue(row.value, row.unit, row.format, static_cast<enUnitPrec>(row.precision));
        if (row.want) {
            EXPECT_EQ(text, row.want);
        } else {
            EXPECT_EQ(text.GetLength(), 301);
        }
    }
    EXPECT_EQ(FormatUnitValue(1.25, eUnitFeet, eUnitFormatEngineering, eUnitPrec1, true), L"1'-3,0\"");
}

TEST(UnitValueText, Reads) {
    const struct {
        const wchar_t* text;
        enUnit unit;
        double want;
    } rows[] = {
        {L" 3,5 ", eUnitMeter, 3.5},      {L"+.5", eUnitMeter, 0.5},
        {L"- 2.5e-1", eUnitMeter, -0.25}, {L"7/8", eUnitInch, 0.875},
        {L"-3  1/2", eUnitInch, -3.5},    {L"-0 1/2", eUnitInch, -0.5},
        {L"5'-3 1/2\"", eUnitInch, 63.5}, {L"5' 3\"", eUnitFeet, 5.25},
        {L"-5'3", eUnitFeet, -5.25},      {L"6'", eUnitYard, 2},
        {L"18\"", eUnitYard, 0.5},        {L"5.5'", eUnitInch, 66},
        {L"5'-0,25\"", eUnitInch, 60.25}, {L"12\u00A0", eUnitKilogramm, 12},
    };
    const LocaleScope german("de_DE.UTF-8");
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.text, row.text + std::wcslen(row.text)));
        double value = 0;
        EXPECT_TRUE(ParseUnitValue(row.text, row.unit, value));
        EXPECT_EQ(value, row.want);
    }
}

TEST(UnitValueText, Refuses) {
    for (const wchar_t* text :
         {L"",     L" ",     L"-",    L".",     L",",    L"--1",  L"1 2",     L"1/0", L"1/",
          L"/2",   L"1 1/0", L"1 1/", L"1'-",   L"1'-x", L"1'2'", L"1\"2",    L"1''", L"1,000,5",
          L"0x10", L"inf",   L"nan",  L"1e999", L"1e",   L"3 m",  L"1'-1\"\""}) {
        SCOPED_TRACE(std::string(text, text + std::wcslen(text)));
        double value = 42;
        EXPECT_FALSE(ParseUnitValue(text, eUnitFeet, value));
        EXPECT_EQ(value, 42);
    }
    double value = 42;
    EXPECT_FALSE(ParseUnitValue(L"3'", eUnitMeter, value));
    EXPECT_FALSE(ParseUnitValue(L"3\"", eUnitMeter, value));
}

TEST(UnitValueText, ThereAndBackKeepsTheText) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> digits(0, 13);
    for (int i = 0; i < 3000; ++i) {
        const auto precision = static_cast<enUnitPrec>(i % 9);
        const double value = std::pow(10, digits(random) - i % 9) * (i % 2 ? 1 : -1);
        for (const enUnit unit : {eUnitInch, eUnitFeet, eUnitYard, eUnitMillimeter}) {
            for (const enUnitFormat format : kFormats) {
                const CString text = FormatUnitValue(value, unit, format, precision, i % 3 == 0);
                double read = 0;
                ASSERT_TRUE(ParseUnitValue(text.View(), unit, read)) << value;
                ASSERT_EQ(FormatUnitValue(read, unit, format, precision, i % 3 == 0), text) << value;
            }
        }
    }
}

bool DropLetters(CString& text) {
    text.Remove(L'm');
    return text != L"no";
}

double Twice(const wchar_t* text) {
    return 2 * std::wcstod(text, nullptr);
}

TEST(UnitValueText, ThroughSettings) {
    moxUnitSetting length(L"tmpSetting", L"", eUnitMeter, eUnitFeet, eUnitFormatArchitectural, eUnitPrec4,
                          nullptr, nullptr, false);
    EXPECT_EQ(FormatUnitValue(1.6002, length), L"5'-3\"");
    double meters = 0;
    ASSERT_TRUE(ParseUnitValue(L"5'-3\"", length, meters));
    EXPECT_NEAR(meters, 1.6002, 1e-9);
    const moxUnitSetting entered(L"", L"", eUnitMeter, eUnitMillimeter, eUnitFormatDecimal, eUnitPrec0,
                                 DropLetters, Twice, false);
    ASSERT_TRUE(ParseUnitValue(L"50mm", entered, meters));
    EXPECT_EQ(meters, 0.1);
    EXPECT_FALSE(ParseUnitValue(L"no", entered, meters));
    EXPECT_FALSE(ParseUnitValue(L"1e400", entered, meters));
    EXPECT_EQ(meters, 0.1);
}

}  // namespace
