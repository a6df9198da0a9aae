#ifndef NEXO_UNITS_UNITS_H
#define NEXO_UNITS_UNITS_H

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"
#include "nexo/units/Unit.h"

class CNode;
class moxUnitSetting;

/// The closed catalogue of units: their names, the search for a unit by text, conversion within a group, and
/// the list of unit settings. How a value is written and read is in nexo/units/UnitValueText.h; the factors
/// are listed in docs/units.md.
///
/// Nothing here fails loudly: an unknown unit has the name "" and a conversion without a rule gives 0 or the
/// value itself. The catalogue may be used from any thread; the settings list from one.
class NEXO_API moxUnits {
public:
    moxUnits() = delete;

    // Names

    /// The name of a unit or group in the enumeration, "eUnitMeter"; "" for any other number.
    [[nodiscard]] static CString getUnitEnumName(enUnit unit);

    /// The unit or group that a text names: its number in digits, its name in the enumeration, or its label.
    /// Blanks around the text and case do not matter. eUnitUndefined when nothing is found.
    [[nodiscard]] static enUnit getEnumValueByString(const CString& text);

    /// The unit or group with this name in the enumeration, eUnitUndefined when there is none.
    [[nodiscard]] static enUnit getEnumValueByNameCaseInsensitive(const CString& name);

    /// The unit with this label, the German one or, failing that, the one shown to the user; eUnitUndefined
    /// when there is none. Of several units with one label ("K", "J") the first one of the catalogue, and of
    /// labels that differ only in case the one written like the text.
    [[nodiscard]] static enUnit getEnumValueByUnitLabelCaseInsensitive(const CString& label);

    /// What the unit is called, in the user's language or with `translated` false in German; "" for a group
    /// or an unknown unit.
    [[nodiscard]] static CString getUnitName(enUnit unit, bool translated = true);

    /// The unit's symbol, in the user's language or with `translated` false in German, with `inBrackets` as
    /// "[m]" for heads of columns. "" for a group or a unit without symbol.
    [[nodiscard]] static CString getUnitLabel(enUnit unit, bool translated = true, bool inBrackets = false);
    /// The same for the setting's target unit; "" for null.
    [[nodiscard]] static CString getUnitLabel(const moxUnitSetting* setting, bool translated = true);

    /// Fills `units` with the units of the group that the setting's base unit lies in, in catalogue order. Of
    /// a null setting and of an unknown unit there are none.
    static void getUnitGroupArray(CArray<enUnit>& units, moxUnitSetting* setting);

    // Display

    /// Fills `formats` with those that the unit offers, its standard first; none for a group or eUnitText.
    static void getUnitFormatArray(CArray<enUnitFormat>& formats, enUnit unit);

    /// The format's name in the user's language; "" for an unknown number.
    [[nodiscard]] static CString getUnitFormatName(enUnitFormat format);

    /// A sample of the precision, such as "0.00", "0 1/4" or 0'-0 1/4"; "" where the unit does not offer the
    /// format.
    [[nodiscard]] static CString getUnitPrecName(enUnitFormat format, enUnit unit, enUnitPrec precision);

    /// The format and precision that the unit is shown with unless the user chose others. False, with both
    /// unchanged, for a number that is no unit and for eUnitText.
    static bool getUnitStandardFormat(enUnitFormat& format, enUnitPrec& precision, enUnit unit);

    // Conversion

    /// The value in the base unit of the unit's group. Groups and units outside the converted groups keep the
    /// value; a unit without a rule in a converted group, absolute temperatures among them, gives 0.0, so
    /// that a wrong unit shows up.
    [[nodiscard]] static double convertToBaseUnit(const double& value, enUnit unit);

    /// The value converted between two units of one group: convertToBaseUnit(value, from) divided by
    /// convertToBaseUnit(1.0, to), absolute temperatures by their offsets. Across groups, and from or to a
    /// group, the value itself. A target without a rule gives an infinity or NaN.
    ///
    /// unitTrans(100, eUnitAbsGradCelsius, eUnitAbsFahrenheit) == 212, unitTrans(5, eUnitMeter, eUnitLiter)
    /// == 5
    [[nodiscard]] static double unitTrans(const double& value, enUnit from, enUnit to);

    /// The value converted from the setting's base unit to its target unit; itself for a null setting.
    [[nodiscard]] static double unitTransB2T(const double& value, const moxUnitSetting* setting);

    // The list of settings: process-wide, unguarded, in the order of registration. It does not own them.

    /// Appends a setting, which must outlive its use through the list. Duplicates are not looked for.
    static void addUnitSetting(moxUnitSetting* setting);

    /// The first registered setting of exactly this name, else null.
    [[nodiscard]] static moxUnitSetting* findUnitSetting(const wchar_t* name);

    static void getUnitSettingsArray(CArray<moxUnitSetting*>& settings);

    // The user's choices of target unit, format and precision as a tree; docs/units.md describes it

    /// Names the node "UNIT_SETTINGS" and adds the version and one leaf per setting. False for null.
    static bool saveSettings(CNode* node);

    /// Takes over what the leaves say of registered settings, whatever numbers they hold. Unknown names are
    /// skipped; a missing number keeps the current one.
    static void loadSettings(CNode* node);

    [[nodiscard]] static CString saveSettingsString();

    /// Does nothing unless the text is a tree whose root is named exactly "UNIT_SETTINGS".
    static void loadSettingsString(const CString& text);

    /// Writes the tree to a file; false when that fails.
    static bool saveSettings(const wchar_t* file);

    /// False, with all settings unchanged, when the file cannot be read or is no tree of unit settings.
    static bool loadSettings(const wchar_t* file);
};

#endif
