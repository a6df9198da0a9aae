#include "nexo/units/Units.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "nexo/base/CharClass.h"
#include "nexo/text/LibraryText.h"
#include "nexo/units/UnitRows.h"
#include "nexo/units/UnitSetting.h"
#include "support/LocaleScope.h"

namespace {

TEST(Units, EveryRowIsFoundByNameAndNumber) {
    std::set<std::wstring_view> labels;
    for (const nexo::UnitRow& row : nexo::kUnitRows) {
        const CString name = moxUnits::getUnitEnumName(row.unit);
        SCOPED_TRACE(std::string(name.View().begin(), name.View().end()));
        CString upper = name, number;
        upper.MakeUpper();
        number.Format(L"\t%d ", static_cast<int>(row.unit));
        EXPECT_EQ(moxUnits::getEnumValueByString(name), row.unit);
        EXPECT_EQ(moxUnits::getEnumValueByString(L"  " + upper), row.unit);
        EXPECT_EQ(moxUnits::getEnumValueByString(number), row.unit);
        const CString label = moxUnits::getUnitLabel(row.unit);
        EXPECT_EQ(label.Find(L'@'), -1);
        EXPECT_EQ(row.unit % 1000 != 0, !moxUnits::getUnitName(row.unit).IsEmpty());
        if (!label.IsEmpty() &&
            labels.insert(row.label + std::wstring_view(row.label).rfind(L'@') + 1).second) {
            EXPECT_EQ(moxUnits::getEnumValueByString(label), row.unit);
        }
    }
}

TEST(Units, ValueOfText) {
    const struct {
        const wchar_t* text;
        enUnit want;
    } rows[] = {
        {L" 1001 ", eUnitMeter},
        {L"EUNITMETER", eUnitMeter},
        {L"99", eUnitUndefined},
        {L"99999999999999999999", eUnitUndefined},
        {L"1", eUnitEins},  // no number of a unit, but a label
        {L"-1001", eUnitUndefined},
        {L"", eUnitUndefined},
        {L"eUnitMeter x", eUnitUndefined},
        {L"eunitgroupeenergy", eUnitGroupeEnergy},
        {L"MM", eUnitMillimeter},
        {L"M²", eUnitMeter2},
        {L"pfd", eUnitPound},
        {L"us.LIQ.gal.", eUnitGalUS},
        {L"K", eUnitAbsKelvin},
        {L"kg/m", eUnitKGpM},
        {L"m3/h", eUnitM3pHAt1bar},
        {L"GPM (us)", eUnitUSgpmAt1psi},
        {L"Meter", eUnitUndefined},
    };
    const LocaleScope turkish("tr_TR.UTF-8");
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.text, row.text + std::wcslen(row.text)));
        EXPECT_EQ(moxUnits::getEnumValueByString(row.text), row.want);
    }
}

TEST(Units, NumbersAndNames) {
    EXPECT_EQ(eUnitGALUKpS, 15015);
    EXPECT_EQ(eUnitftlb, 27011);
    EXPECT_EQ(eUnitFloat, 1000003);
    EXPECT_EQ(moxUnits::getUnitEnumName(eUnitUndefined), L"eUnitUndefined");
    EXPECT_EQ(moxUnits::getUnitEnumName(static_cast<enUnit>(81000)), L"");
    EXPECT_EQ(moxUnits::getUnitEnumName(static_cast<enUnit>(-1)), L"");
    EXPECT_EQ(moxUnits::getUnitName(eUnitPsi), L"Pound-force per sqr inch");
    EXPECT_EQ(moxUnits::getUnitLabel(eUnitWpMxK, true, true), L"[W/(mK)]");
    EXPECT_EQ(moxUnits::getUnitLabel(eUnitText, true, true), L"");
    EXPECT_EQ(moxUnits::getUnitLabel(nullptr), L"");
}

TEST(Units, TextsAreTranslated) {
    const auto former = nexo::SetLibraryTranslator([](const wchar_t* german) {
        return CString(german) == L"@Einheit Fuß@ft" ? CString(L"pied") : CString(german);
    });
    EXPECT_EQ(moxUnits::getUnitLabel(eUnitFeet), L"pied");
    EXPECT_EQ(moxUnits::getUnitLabel(eUnitFeet, false), L"ft");
    EXPECT_EQ(moxUnits::getUnitName(eUnitFeet), L"@Einheit@Fuß");
    EXPECT_EQ(moxUnits::getUnitName(eUnitFeet, false), L"Fuß");
    EXPECT_EQ(moxUnits::getEnumValueByString(L"PIED"), eUnitFeet);
    EXPECT_EQ(moxUnits::getEnumValueByString(L"ft"), eUnitFeet);
    nexo::SetLibraryTranslator(former);
}

TEST(Units, GroupsInOrder) {
    CArray<enUnit> units{eUnitBar};
    moxUnitSetting slope(L"", L"", eUnitCMpM, eUnitMpM, eUnitFormatDecimal, eUnitPrec2, nullptr, nullptr,
                         false);
    moxUnits::getUnitGroupArray(units, &slope);
    ASSERT_EQ(units.GetSize(), 3);
    EXPECT_EQ(units[0], eUnitMMpM);
    EXPECT_EQ(units[2], eUnitMpM);
    moxUnitSetting unknown(L"", L"", static_cast<enUnit>(1999), eUnitMeter, eUnitFormatDecimal, eUnitPrec2,
                           nullptr, nullptr, false);
    moxUnits::getUnitGroupArray(units, &unknown);
    EXPECT_TRUE(units.IsEmpty());
}

TEST(Units, FormatsAndPrecisions) {
    const struct {
        enUnitFormat format;
        enUnit unit;
        int precision;
        const wchar_t* want;
    } rows[] = {
        {eUnitFormatDecimal, eUnitMeter, 2, L"0.00"},
        {eUnitFormatDecimalReduced, eUnitMeter, 8, L"0.00000000"},
        {eUnitFormatFraction, eUnitInch, 1, L"0 1/2"},
        {eUnitFormatFraction, eUnitInch, 8, L"0 1/256"},
        {eUnitFormatEngineering, eUnitFeet, 0, L"0'-0\""},
        {eUnitFormatEngineering, eUnitFeet, 1, L"0'-0.0\""},
        {eUnitFormatArchitectural, eUnitFeet, 8, L"0'-0 1/256\""},
        {eUnitFormatArchitectural, eUnitMeter, 1, L""},
        {eUnitFormatDecimal, eUnitText, 1, L""},
        {eUnitFormatDecimal, eUnitMeter, 9, L""},
        {static_cast<enUnitFormat>(-1), eUnitMeter, 1, L""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(moxUnits::getUnitPrecName(row.format, row.unit, static_cast<enUnitPrec>(row.precision)),
                  row.want);
    EXPECT_EQ(moxUnits::getUnitFormatName(eUnitFormatDecimalReduced),
              L"Dezimal (reduzierte Nachkommastellen)");
    EXPECT_EQ(moxUnits::getUnitFormatName(static_cast<enUnitFormat>(5)), L"");
    CArray<enUnitFormat> formats;
    for (const nexo::UnitRow& row : nexo::kUnitRows) {
        enUnitFormat format{};
        enUnitPrec precision{};
        moxUnits::getUnitFormatArray(formats, row.unit);
        EXPECT_EQ(moxUnits::getUnitStandardFormat(format, precision, row.unit), !formats.IsEmpty());
        if (!formats.IsEmpty()) {
            EXPECT_EQ(formats[0], format);
        }
    }
}

}  // namespace
