#include "nexo/units/UnitSetting.h"

#include "nexo/units/Units.h"

namespace {

// Lives as long as the process, for settings that are static objects themselves.
CArray<moxUnitSetting*>& Settings() {
    static auto& settings = *new CArray<moxUnitSetting*>;
    return settings;
}

}  // namespace

moxUnitSetting::moxUnitSetting(const wchar_t* name, const wchar_t* secondText, enUnit base, enUnit target,
                               enUnitFormat format, enUnitPrec precision, bool (*textCheck)(CString&),
                               double (*textEval)(const wchar_t*), bool registerIt)
    : m_name(name),
      m_secondText(secondText),
      m_baseUnit(base),
      m_targetUnit(target),
      m_format(format),
      m_precision(precision),
      m_defaultTargetUnit(target),
      m_defaultFormat(format),
      m_defaultPrecision(precision),
      m_textCheck(textCheck),
      m_textEvaluation(textEval) {
    if (registerIt) moxUnits::addUnitSetting(this);
}

void moxUnitSetting::resetTargetSettings() {
    m_targetUnit = m_defaultTargetUnit;
    m_format = m_defaultFormat;
    m_precision = m_defaultPrecision;
}

void moxUnits::addUnitSetting(moxUnitSetting* setting) {
    if (setting) Settings().Add(setting);
}

moxUnitSetting* moxUnits::findUnitSetting(const wchar_t* name) {
    if (!name) return nullptr;
    const std::wstring_view wanted(name);
    for (moxUnitSetting* setting : Settings()) {
        if (setting->getName().View() == wanted) return setting;
    }
    return nullptr;
}

void moxUnits::getUnitSettingsArray(CArray<moxUnitSetting*>& settings) {
    settings.Copy(Settings());
}
