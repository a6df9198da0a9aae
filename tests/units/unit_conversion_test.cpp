#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include "nexo/units/UnitRows.h"
#include "nexo/units/Units.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Known {
    std::string name;
    enUnit from, to;
    double value, result;
};

// Every pair of units that converts, from exact fractions: scripts/make-unit-conversions.
std::vector<Known> KnownConversions() {
    std::vector<Known> all;
    std::ifstream file(NEXO_SOURCE_DIR "/tests/units/conversions.csv");
    const auto unit = [](const std::string& name) {
        return moxUnits::getEnumValueByNameCaseInsensitive(CString(name.c_str()));
    };
    for (std::string from, to, value, result; std::getline(file, from, ';');) {
        std::getline(file, to, ';');
        std::getline(file, value, ';');
        std::getline(file, result);
        all.push_back({from + " to " + to, unit(from), unit(to), std::stod(value), std::stod(result)});
    }
    return all;
}

bool IsTemperature(enUnit unit) {
    return unit / 1000 * 1000 == eUnitGroupTemperatur;
}

void ExpectNear(double value, double wanted, enUnit unit) {
    const double error = IsTemperature(unit) ? 1e-11 : std::fabs(wanted) * 1e-14;
    EXPECT_NEAR(value, wanted, error);
}

TEST(UnitConversion, EveryPairAgreesWithExactFractions) {
    const std::vector<Known> all = KnownConversions();
    ASSERT_EQ(all.size(), 1064u);
    for (const Known& known : all) {
        SCOPED_TRACE(known.name);
        ExpectNear(moxUnits::unitTrans(known.value, known.from, known.to), known.result, known.from);
        ExpectNear(moxUnits::unitTrans(known.result, known.to, known.from), known.value, known.from);
        EXPECT_EQ(moxUnits::unitTrans(kInfinity, known.from, known.to), kInfinity);
        EXPECT_EQ(moxUnits::unitTrans(-kInfinity, known.from, known.to), -kInfinity);
        EXPECT_TRUE(std::isnan(moxUnits::unitTrans(kNaN, known.from, known.to)));
        if (IsTemperature(known.from)) continue;
        for (const double value : {0.0, -1.0, 1e-280, -1e280}) {
            ExpectNear(moxUnits::unitTrans(value, known.from, known.to), value * known.result, known.from);
        }
        EXPECT_EQ(moxUnits::unitTrans(1.7, known.from, known.to),
                  moxUnits::convertToBaseUnit(1.7, known.from) / moxUnits::convertToBaseUnit(1.0, known.to));
    }
}

// The result of each step is rounded: these differ in the last digit when steps are merged or exchanged.
TEST(UnitConversion, StepsKeepTheirOrder) {
    for (const double v : {1.0, 3.7, 0.1, 12345.678}) {
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitKCALpH), v * 1000 / 0.23884589662749595 / 3600);
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitCentimeter2), v / 100 / 100);
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitGalImp), v / 1000 * 4.546);
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitFeet3), v / (3.280839895 * 3.280839895 * 3.280839895));
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitInch2), v * (0.0254 * 0.0254));
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitBTUpFT2xH),
                  v * 1000 / 3412.141633128 * (3.280839895 * 3.280839895));
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitGALUSpS), v / 264.172052358 * 3600);
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitOunce), v * 28.349523 / 1000);
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitkWh), v / 3600 * 1000);
        EXPECT_EQ(moxUnits::convertToBaseUnit(v, eUnitTpS), v * 1000 * 3600);
        EXPECT_EQ(moxUnits::unitTrans(v, eUnitAbsGradCelsius, eUnitAbsFahrenheit),
                  (v + 273.15) * 1.8 - 459.67);
        EXPECT_EQ(moxUnits::unitTrans(v, eUnitAbsFahrenheit, eUnitAbsGradRankine), v + 459.67);
    }
}

TEST(UnitConversion, ToBase) {
    const struct {
        const char* name;
        int unit;
        double value, want;
    } rows[] = {
        {"milliseconds multiply", eUnitMillisecond, 1, 3600000},
        {"watt hours divide", eUnitWh, 3600, 1},
        {"the rounded gallon", eUnitGalUS, 1, 0.003785},
        {"base unit", eUnitMeter, 7, 7},
        {"group", eUnitGroupLaenge, 7, 7},
        {"no unit", eUnitUndefined, 7, 7},
        {"no rule for a flux", eUnitBTUpFT2xS, 7, 0},
        {"no rule for a density", eUnitLBpYD3, 7, 0},
        {"kelvin", eUnitAbsKelvin, 7, 7},
        {"no factor for degrees", eUnitAbsGradCelsius, 7, 0},
        {"behind a group's last unit", eUnitInch + 1, 7, 0},
        {"far behind it", eUnitGroupLaenge + 999, 7, 0},
        {"behind the largest group's last unit", eUnitGALUKpS + 1, 7, 0},
        {"sound", eUnitDbA, 7, 7},
        {"behind electricity", eUnitFarad + 9, 7, 7},
        {"no such group", 29001, 7, 7},
        {"pipes", eUnitKGpM, 7, 7},
        {"nominal size", eUnitNPS, 7, 7},
        {"dimensionless", eUnitFloat, 7, 7},
        {"negative", -1003, 7, 7},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(moxUnits::convertToBaseUnit(row.value, static_cast<enUnit>(row.unit)), row.want);
    }
}

TEST(UnitConversion, LeavesAloneWhatIsNoPair) {
    const struct {
        const char* name;
        int from, to;
    } rows[] = {
        {"two groups", eUnitMeter, eUnitLiter},
        {"from a group", eUnitGroupLaenge, eUnitMillimeter},
        {"to a group", eUnitMillimeter, eUnitGroupLaenge},
        {"temperature and difference", eUnitAbsFahrenheit, eUnitDiffKelvin},
        {"one unit without a rule", eUnitLBpFT3, eUnitLBpFT3},
        {"nominal sizes", eUnitDN, eUnitNPS},
        {"sound", eUnitDb, eUnitDbA},
        {"dimensionless", eUnitInteger, eUnitFloat},
        {"into dimensionless", eUnitMillimeter, eUnitFloat},
        {"no units", -2, -1},
        {"largest numbers", std::numeric_limits<int>::max(), std::numeric_limits<int>::min()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(moxUnits::unitTrans(5, static_cast<enUnit>(row.from), static_cast<enUnit>(row.to)), 5);
    }
    EXPECT_EQ(moxUnits::unitTrans(5, eUnitKGpM3, eUnitLBpFT3), kInfinity);
    EXPECT_TRUE(std::isnan(moxUnits::unitTrans(0, eUnitLBpYD3, eUnitLBpFT3)));
}

}  // namespace
