#ifndef NEXO_UNITS_UNITSETTING_H
#define NEXO_UNITS_UNITSETTING_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/units/Unit.h"

/// One kind of quantity of an application (a pipe length, a heat load): the unit it is stored in, and the
/// unit, display format and precision the user wants to see it in.
///
/// Applications create theirs at start-up and keep them alive as long as they are registered (moxUnits holds
/// the list of pointers). A copy is not registered. To be changed by one thread at a time.
class NEXO_API moxUnitSetting {
public:
    /// Checks, and may change, a text that the user entered; false refuses it.
    using TextCheck = bool (*)(CString& text);
    /// The number that a text stands for, in the target unit.
    using TextEvaluation = double (*)(const wchar_t* text);

    /// `target`, `format` and `precision` are also the defaults. Null texts count as "", both callbacks may
    /// be null. `registerIt` appends the setting to the process-wide list.
    moxUnitSetting(const wchar_t* name, const wchar_t* secondText, enUnit base, enUnit target,
                   enUnitFormat format, enUnitPrec precision, bool (*textCheck)(CString&),
                   double (*textEval)(const wchar_t*), bool registerIt);

    [[nodiscard]] const CString& getName() const { return m_name; }
    /// A text kept for the application; the library does not use it.
    [[nodiscard]] const CString& getSecondText() const { return m_secondText; }
    [[nodiscard]] enUnit getBaseUnit() const { return m_baseUnit; }
    /// The least and the greatest precision that the user may choose, as numbers of enUnitPrec.
    [[nodiscard]] int getLowestPrecision() const { return m_lowestPrecision; }
    [[nodiscard]] int getHighestPrecision() const { return m_highestPrecision; }
    [[nodiscard]] enUnit getTargetUnit() const { return m_targetUnit; }
    [[nodiscard]] enUnitFormat getFormat() const { return m_format; }
    [[nodiscard]] enUnitPrec getPrecision() const { return m_precision; }
    [[nodiscard]] enUnit getDefaultTargetUnit() const { return m_defaultTargetUnit; }
    [[nodiscard]] enUnitFormat getDefaultFormat() const { return m_defaultFormat; }
    [[nodiscard]] enUnitPrec getDefaultPrecision() const { return m_defaultPrecision; }
    [[nodiscard]] TextCheck getTextCheck() const { return m_textCheck; }
    [[nodiscard]] TextEvaluation getTextEvaluation() const { return m_textEvaluation; }

    // The setters check nothing: a setting holds what a file or the application says, and whoever uses a
    // number that means nothing gets the answer for unknown units.
    void setTargetUnit(enUnit unit) { m_targetUnit = unit; }
    void setFormat(enUnitFormat format) { m_format = format; }
    void setPrecision(enUnitPrec precision) { m_precision = precision; }

    /// Target unit, format and precision as given to the constructor.
    void resetTargetSettings();

private:
    CString m_name;
    CString m_secondText;
    enUnit m_baseUnit;
    int m_lowestPrecision = eUnitPrec0;
    int m_highestPrecision = eUnitPrec8;
    enUnit m_targetUnit;
    enUnitFormat m_format;
    enUnitPrec m_precision;
    enUnit m_defaultTargetUnit;
    enUnitFormat m_defaultFormat;
    enUnitPrec m_defaultPrecision;
    TextCheck m_textCheck;
    TextEvaluation m_textEvaluation;
};

#endif
