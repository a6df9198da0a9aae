// nexo unit: conversion of values and the catalogue of units.

#include <charconv>
#include <string>

#include "Area.h"
#include "Json.h"
#include "Output.h"
#include "Table.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/platform/CodePage.h"
#include "nexo/units/UnitRows.h"
#include "nexo/units/UnitValueText.h"
#include "nexo/units/Units.h"

namespace nexo::tool {
namespace {

// What to know about units whose factors are not those of physics.
struct Note {
    enUnit unit;
    const char* text;
};

constexpr Note kNotes[] = {
    {eUnitMillisecond, "1 ms counts as 3600000 s: programs rely on this factor"},
    {eUnitWh, "1 Wh counts as 1/3600 J: programs rely on this factor"},
    {eUnitkWh, "1 kWh counts as 1000/3600 J: programs rely on this factor"},
    {eUnitGalUS, "1 US gallon counts as 3.785 l, rounded"},
    {eUnitGalImp, "1 imperial gallon counts as 4.546 l, rounded"},
    {eUnitBTUpFT2xS, "has no factor and counts as 0"},
    {eUnitLBpFT3, "has no factor and counts as 0"},
    {eUnitLBpYD3, "has no factor and counts as 0"},
};

const char* NoteOf(enUnit unit) {
    for (const Note& note : kNotes) {
        if (note.unit == unit) return note.text;
    }
    return "";
}

std::string Utf8(const CString& text) {
    return ToUtf8(text.View());
}

std::string ShortestText(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

enUnit GroupOf(enUnit unit) {
    return static_cast<enUnit>(unit / 1000 * 1000);
}

enUnit UnitNamed(const std::string& text) {
    const enUnit unit = moxUnits::getEnumValueByString(platform::WideFromUtf8(text));
    if (unit == eUnitUndefined) throw Failure(Exit::kNo, "no such unit: " + text);
    return unit;
}

// A label that several groups share means the unit of the other one's group: K, J.
void Reconcile(enUnit& unit, const std::string& text, enUnit other) {
    if (GroupOf(unit) == GroupOf(other)) return;
    const CString label = platform::WideFromUtf8(text);
    for (const UnitRow& row : kUnitRows) {
        if (!row.label || GroupOf(row.unit) != GroupOf(other)) continue;
        if (moxUnits::getUnitLabel(row.unit).CompareNoCase(label) == 0 ||
            moxUnits::getUnitLabel(row.unit, false).CompareNoCase(label) == 0)
            unit = row.unit;
    }
}

// convert

struct ConvertOptions : CommonOptions {
    std::string value, from, to;
};

Exit Convert(const ConvertOptions& options) {
    enUnit from = UnitNamed(options.from);
    enUnit to = UnitNamed(options.to);
    Reconcile(to, options.to, from);
    Reconcile(from, options.from, to);
    double value = 0;
    if (!ParseUnitValue(platform::WideFromUtf8(options.value).View(), from, value))
        throw Failure(Exit::kBroken, "value:1:1: not a number: " + options.value);
    if (from == GroupOf(from) || to == GroupOf(to) || GroupOf(from) != GroupOf(to))
        throw Failure(Exit::kNo, options.from + " and " + options.to + " are no units of one group");
    const double result = moxUnits::unitTrans(value, from, to);
    if (options.json) {
        Json json(Out());
        json.Object().Member("value", value).Member("from", moxUnits::getUnitEnumName(from).View());
        json.Member("to", moxUnits::getUnitEnumName(to).View()).Member("result", result).Key("notes").Array();
        for (const enUnit unit : {from, to}) {
            if (*NoteOf(unit)) json.Value(NoteOf(unit));
        }
        json.End().End();
        return Exit::kYes;
    }
    Out() << ShortestText(result) << ' ' << moxUnits::getUnitLabel(to).View() << '\n';
    for (const enUnit unit : {from, to}) {
        if (*NoteOf(unit))
            Out() << "note: " << moxUnits::getUnitLabel(unit).View() << ": " << NoteOf(unit) << '\n';
    }
    return Exit::kYes;
}

// list

struct ListOptions : CommonOptions {
    std::string group;
};

std::string FactorText(const UnitRow& row) {
    const double factor = moxUnits::convertToBaseUnit(1.0, row.unit);
    return GroupOf(row.unit) == eUnitGroupTemperatur ? "offset" : ShortestText(factor);
}

Exit List(const ListOptions& options) {
    const enUnit group = options.group.empty() ? eUnitUndefined : GroupOf(UnitNamed(options.group));
    Table table(
        {{"Number", Table::Align::kRight}, {"Unit"}, {"Label"}, {"Name"}, {"In base unit"}, {"Note"}});
    Json json(Out());
    if (options.json) json.Array();
    for (const UnitRow& row : kUnitRows) {
        if (!row.name || (!options.group.empty() && GroupOf(row.unit) != group)) continue;
        const CString label = moxUnits::getUnitLabel(row.unit), name = moxUnits::getUnitName(row.unit);
        if (options.json)
            json.Object()
                .Member("number", static_cast<int>(row.unit))
                .Member("unit", row.enumName)
                .Member("label", label.View())
                .Member("name", name.View())
                .Member("factor", moxUnits::convertToBaseUnit(1.0, row.unit))
                .Member("note", NoteOf(row.unit))
                .End();
        else
            table.AddRow({std::to_string(row.unit), Utf8(row.enumName), Utf8(label), Utf8(name),
                          FactorText(row), NoteOf(row.unit)});
    }
    if (options.json)
        json.End();
    else
        table.Print(Out());
    return Exit::kYes;
}

// the command line

void DeclareConvert(CLI::App& command, ConvertOptions& options) {
    command.add_option("VALUE", options.value, "Decimals, a fraction, or feet and inches")->required();
    command.add_option("FROM", options.from, "Unit: label, name in the enumeration, or number")->required();
    command.add_option("TO", options.to, "The unit wanted, of the same group")->required();
}

void DeclareList(CLI::App& command, ListOptions& options) {
    command.add_option("GROUP", options.group, "Only this group, or the group of this unit");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<ConvertOptions>({"convert", "Convert a value between two units of one group", DeclareConvert,
                               Convert,
                               "  nexo unit convert 25,4 mm in\n"
                               "  nexo unit convert \"5'-3 1/2\\\"\" ft m\n"
                               "  nexo unit convert --json -- -40 °C °F"});
    verbs.Add<ListOptions>({"list", "List units with their factors", DeclareList, List,
                            "  nexo unit list\n"
                            "  nexo unit list eUnitGroupDruck\n"
                            "  nexo unit list --json bar"});
}

const AreaEntry kEntry({"unit", "Units and conversion between them", AddVerbs});

}  // namespace
}  // namespace nexo::tool
