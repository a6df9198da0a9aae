#ifndef NEXO_UNITS_UNITVALUETEXT_H
#define NEXO_UNITS_UNITVALUETEXT_H

#include <string_view>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/units/Unit.h"

class moxUnitSetting;

// Values as the user sees and enters them: in the display format of a unit or of a unit setting. Labels are
// not part of the text, see moxUnits::getUnitLabel. Safe from any thread.

namespace nexo {

/// Writes a value in `unit` as the format says, rounded to the precision (clamped to eUnitPrec0 ...
/// eUnitPrec8). "-" stands in front only where a digit other than 0 is shown.
///
/// Fractions are rounded half away from zero and reduced. Feet and inches suit feet, inches and yards; other
/// units, and from 10^15 inches on all, are shown as decimals. "inf" and "nan" are shown as such. With
/// `decimalComma` "," is written for ".".
///
/// 3.5 inches: "3.50", "3.5", "3 1/2", 0'-3.50", 0'-3 1/2"
[[nodiscard]] NEXO_API CString FormatUnitValue(double value, enUnit unit, enUnitFormat format,
                                               enUnitPrec precision, bool decimalComma = false);

/// Reads a value in `unit`, written in any of the formats: "3,5", "3.5e2", "-3 1/2", "7/8", 5'-3 1/2", 5'3",
/// 5', 3.5". A point and a comma both stand before the decimals, so there are no separators of thousands.
/// What is marked as feet or inches becomes `unit`, which has to be feet, inches or yards then.
///
/// False, with `value` unchanged, for anything else, for a zero below a fraction and for a number too large.
/// Writing what was read from a written text gives the same text again; with feet and inches as long as it
/// shows no more than 15 digits.
[[nodiscard]] NEXO_API bool ParseUnitValue(std::wstring_view text, enUnit unit, double& value);

/// The same for a value in the setting's base unit, shown and entered in its target unit.
///
/// A text entered first goes to the setting's text check, which may refuse it, and its number comes from the
/// setting's text evaluation where there is one. False also when the number can not be converted.
[[nodiscard]] NEXO_API CString FormatUnitValue(double baseValue, const moxUnitSetting& setting,
                                               bool decimalComma = false);
[[nodiscard]] NEXO_API bool ParseUnitValue(const CString& text, const moxUnitSetting& setting,
                                           double& baseValue);

}  // namespace nexo

#endif
