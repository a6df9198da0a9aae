#include "nexo/units/UnitSetting.h"

#include <gtest/gtest.h>

#include <fstream>

#include "nexo/tree/Node.h"
#include "nexo/units/Units.h"
#include "support/TemporaryFolder.h"

namespace {

// Runs first: nothing is registered yet.
TEST(UnitSettings, NoneRegistered) {
    CNode node(L"else");
    EXPECT_TRUE(moxUnits::saveSettings(&node));
    EXPECT_EQ(node.GetName(), L"UNIT_SETTINGS");
    ASSERT_EQ(node.NrOfLeaves(), 1);
    EXPECT_EQ(node.GetIntValue(L"VERSION", 0), 1);
    EXPECT_EQ(moxUnits::findUnitSetting(L"Length"), nullptr);
    EXPECT_FALSE(moxUnits::saveSettings(static_cast<CNode*>(nullptr)));
}

moxUnitSetting Make(const wchar_t* name, bool registerIt) {
    return {name,       L"second", eUnitMeter, eUnitMillimeter, eUnitFormatDecimal,
            eUnitPrec1, nullptr,   nullptr,    registerIt};
}

struct Registered {
    moxUnitSetting length{Make(L"Länge: α", true)};
    moxUnitSetting twin{Make(L"Twin", true)};
    moxUnitSetting second{Make(L"Twin", true)};

    void Reset() {
        for (moxUnitSetting* setting : {&length, &twin, &second}) setting->resetTargetSettings();
    }
    void Choose() {
        length.setTargetUnit(eUnitFeet);
        length.setFormat(eUnitFormatArchitectural);
        length.setPrecision(eUnitPrec4);
    }
    [[nodiscard]] bool IsChosen() const {
        return length.getTargetUnit() == eUnitFeet && length.getFormat() == eUnitFormatArchitectural &&
               length.getPrecision() == eUnitPrec4;
    }
};

Registered& Settings() {
    static Registered& settings = *new Registered;
    settings.Reset();
    return settings;
}

TEST(UnitSettings, KeepsItsFields) {
    const moxUnitSetting& setting = Settings().length;
    EXPECT_EQ(setting.getSecondText(), L"second");
    EXPECT_EQ(setting.getBaseUnit(), eUnitMeter);
    EXPECT_EQ(setting.getDefaultTargetUnit(), eUnitMillimeter);
    EXPECT_EQ(setting.getLowestPrecision(), 0);
    EXPECT_EQ(setting.getHighestPrecision(), 8);
    EXPECT_EQ(moxUnits::unitTransB2T(1.5, &setting), 1500);
    EXPECT_EQ(moxUnits::getUnitLabel(&setting), L"mm");
    CArray<moxUnitSetting*> all;
    moxUnits::getUnitSettingsArray(all);
    ASSERT_EQ(all.GetSize(), 3);
    EXPECT_EQ(all[2], &Settings().second);
    EXPECT_EQ(moxUnits::findUnitSetting(L"Twin"), &Settings().twin);
    EXPECT_EQ(moxUnits::findUnitSetting(L"twin"), nullptr);
}

TEST(UnitSettings, TreeForm) {
    Registered& settings = Settings();
    settings.Choose();
    CNode node;
    moxUnits::saveSettings(&node);
    ASSERT_EQ(node.NrOfLeaves(), 4);
    EXPECT_EQ(node.GetLeaf(1u)->GetName(), L"Setting");
    EXPECT_EQ(node.GetLeaf(2u)->GetRawData(), L"Twin:1004:0:1");
    EXPECT_EQ(node.GetLeaf(1u)->GetStrLeafValue(2, L':', L""), L"1006");
    settings.Reset();
    moxUnits::loadSettings(&node);
    EXPECT_TRUE(settings.IsChosen());
    settings.Reset();
    node.DeleteAllLeaves();
    moxUnits::saveSettings(&node);
    EXPECT_EQ(node.GetLeaf(1u)->GetStrLeafValue(2, L':', L""), L"1004");
}

TEST(UnitSettings, LoadingTakesWhatIsThere) {
    Registered& settings = Settings();
    CNode node(L"any name");
    node.AddLeaf(L"any", L"Twin:1007", true);
    node.AddLeaf(L"VERSION", L"Twin::4", true);
    node.AddLeaf(L"Setting", L"Unknown:1:2:3", true);
    node.AddLeaf(L"Setting", L"", true);
    moxUnits::loadSettings(&node);
    EXPECT_EQ(settings.twin.getTargetUnit(), eUnitInch);
    EXPECT_EQ(settings.twin.getFormat(), eUnitFormatArchitectural);
    EXPECT_EQ(settings.second.getTargetUnit(), eUnitMillimeter);
    EXPECT_EQ(settings.length.getTargetUnit(), eUnitMillimeter);
    moxUnits::loadSettings(static_cast<CNode*>(nullptr));
}

TEST(UnitSettings, StringForm) {
    Registered& settings = Settings();
    settings.Choose();
    CString text = moxUnits::saveSettingsString();
    settings.Reset();
    moxUnits::loadSettingsString(text);
    EXPECT_TRUE(settings.IsChosen());
    settings.Reset();
    text.Replace(L"UNIT_SETTINGS", L"Unit_Settings");
    moxUnits::loadSettingsString(text);
    EXPECT_FALSE(settings.IsChosen());
    for (const wchar_t* broken : {L"", L"<", L"<UNIT_SETTINGS", L"no tree"})
        moxUnits::loadSettingsString(broken);
    EXPECT_FALSE(settings.IsChosen());
}

TEST(UnitSettings, FileForm) {
    const TemporaryFolder folder;
    const CString file = folder.Path("units.x");
    Registered& settings = Settings();
    settings.Choose();
    ASSERT_TRUE(moxUnits::saveSettings(file));
    settings.Reset();
    EXPECT_TRUE(moxUnits::loadSettings(file));
    EXPECT_TRUE(settings.IsChosen());
    EXPECT_FALSE(moxUnits::loadSettings(folder.Path("missing")));
    EXPECT_FALSE(moxUnits::loadSettings(static_cast<const wchar_t*>(nullptr)));
    EXPECT_FALSE(moxUnits::saveSettings(folder.Path("no/folder")));
    EXPECT_FALSE(moxUnits::saveSettings(L"/dev/full"));
    for (const char* content : {"", "<Unit_Settings>\r\n</Unit_Settings>\r\n", "<UNIT_SETTINGS"}) {
        std::ofstream(folder.Native("units.x")) << content;
        EXPECT_FALSE(moxUnits::loadSettings(file)) << content;
    }
}

}  // namespace
