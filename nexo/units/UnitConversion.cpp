#include <algorithm>
#include <array>

#include "nexo/units/UnitRows.h"
#include "nexo/units/UnitSetting.h"
#include "nexo/units/Units.h"

// Conversion by tables that the compiler makes of the catalogue, indexed by group and position.

namespace {

using nexo::UnitFactor;

constexpr unsigned kGroupStep = 1000;
constexpr unsigned kGroups = 29;  // those that convert have the lowest numbers, without gaps but 0
constexpr unsigned kEnd = kGroups * kGroupStep;
constexpr unsigned kUnknown = 16;  // stands for all positions behind a group's last unit
constexpr unsigned kTemperatures = eUnitGroupTemperatur / kGroupStep;

constexpr unsigned GroupOf(unsigned code) {
    return code / kGroupStep;
}

constexpr unsigned PositionOf(unsigned code) {
    return std::min(code % kGroupStep, kUnknown);
}

constexpr bool Converts(unsigned group) {
    return group != 0 && group != GroupOf(eUnitGroupSchall) && group != GroupOf(eUnitGroupElektro);
}

// Each step is rounded by itself.
constexpr double ToBase(double value, const UnitFactor& factor) {
    switch (factor.kind) {
        case UnitFactor::Kind::kSame:
            return value;
        case UnitFactor::Kind::kTimes:
            return value * factor.times1;
        case UnitFactor::Kind::kOver:
            return value / factor.over1;
        case UnitFactor::Kind::kSteps:
            return value * factor.times1 / factor.over1 * factor.times2 / factor.over2;
        case UnitFactor::Kind::kNone:
            break;
    }
    return 0.0;
}

struct Entry {
    UnitFactor factor;
    double one = 0;  // what 1 in this unit is in the base unit
};

using Table = std::array<std::array<Entry, kUnknown + 1>, kGroups>;

constexpr Table kTable = [] {
    Table table{};
    for (unsigned group = 0; group < kGroups; ++group) {
        for (Entry& entry : table[group]) {
            if (!Converts(group)) entry.factor.kind = UnitFactor::Kind::kSame;
        }
        table[group][0].factor.kind = UnitFactor::Kind::kSame;
    }
    for (const nexo::UnitRow& row : nexo::kUnitRows) {
        const auto code = static_cast<unsigned>(row.unit);
        if (code < kEnd) table[GroupOf(code)][PositionOf(code)].factor = row.factor;
    }
    for (auto& group : table) {
        for (Entry& entry : group) entry.one = ToBase(1.0, entry.factor);
    }
    return table;
}();

const Entry& EntryOf(unsigned code) {
    return kTable[GroupOf(code)][PositionOf(code)];
}

// A scale of absolute temperatures: its zero, and whether its degrees are those of Rankine.
struct Scale {
    double offset;
    bool isRankine;
};

constexpr Scale kScales[] = {{0, false}, {273.15, false}, {459.67, true}, {0, true}};  // from kelvin on

double TemperatureTo(double value, const Scale& from, const Scale& to) {
    double absolute = value + from.offset;
    if (from.isRankine && !to.isRankine) absolute /= 1.8;
    if (!from.isRankine && to.isRankine) absolute *= 1.8;
    return absolute - to.offset;
}

bool IsScale(unsigned position) {
    return position - 1 < std::size(kScales);
}

}  // namespace

double moxUnits::convertToBaseUnit(const double& value, enUnit unit) {
    const auto code = static_cast<unsigned>(unit);
    if (code < kEnd) return ToBase(value, EntryOf(code).factor);
    return unit == eUnitUSgpmAt1psi ? value * nexo::rows::kKvPerCv : value;
}

double moxUnits::unitTrans(const double& value, enUnit from, enUnit to) {
    const auto source = static_cast<unsigned>(from);
    const auto target = static_cast<unsigned>(to);
    if (source == target || GroupOf(source) != GroupOf(target)) return value;
    const unsigned first = PositionOf(source);
    const unsigned second = PositionOf(target);
    if (first == 0 || second == 0) return value;
    const unsigned group = GroupOf(source);
    if (group >= kGroups) {
        const bool converts = from < eUnitGroupDimensionslos;
        return converts ? convertToBaseUnit(value, from) / convertToBaseUnit(1.0, to) : value;
    }
    if (group == kTemperatures && IsScale(first) && IsScale(second)) [[unlikely]]
        return TemperatureTo(value, kScales[first - 1], kScales[second - 1]);
    return ToBase(value, kTable[group][first].factor) / kTable[group][second].one;
}

double moxUnits::unitTransB2T(const double& value, const moxUnitSetting* setting) {
    return setting ? unitTrans(value, setting->getBaseUnit(), setting->getTargetUnit()) : value;
}
