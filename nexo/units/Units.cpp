#include "nexo/units/Units.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "nexo/base/CharClass.h"
#include "nexo/base/Number.h"
#include "nexo/text/LibraryText.h"
#include "nexo/units/UnitRows.h"
#include "nexo/units/UnitSetting.h"

// Names, labels, formats and the search for units.

namespace {

using nexo::kUnitRows;
using nexo::UnitFormats;
using nexo::UnitRow;

const UnitRow* FindRow(enUnit unit) {
    const auto row = std::ranges::lower_bound(kUnitRows, unit, {}, &UnitRow::unit);
    return row != kUnitRows.end() && row->unit == unit ? &*row : nullptr;
}

static_assert(std::ranges::is_sorted(kUnitRows, {}, &UnitRow::unit));

// The row of a unit; null for a group.
const UnitRow* FindUnit(enUnit unit) {
    const UnitRow* const row = FindRow(unit);
    return row && row->name ? row : nullptr;
}

std::wstring_view WithoutSection(std::wstring_view key) {
    return key.substr(key.rfind(L'@') + 1);  // none of the catalogue's texts holds the sign itself
}

CString Shown(const wchar_t* key, bool translated) {
    if (*key == L'\0') return CString();
    return translated ? nexo::TranslateLibraryText(key) : CString(WithoutSection(key));
}

// Finds rows by one of their texts, without regard to case, with one look into a hash table.
class RowIndex {
public:
    template <class TextOf>
    explicit RowIndex(TextOf textOf) {
        for (const UnitRow& row : kUnitRows) {
            const std::wstring_view text = textOf(row);
            if (!text.empty()) Add(text, row);
        }
    }

    // A text written exactly so wins over the same in another case; among equals the first row.
    [[nodiscard]] enUnit Find(std::wstring_view text) const {
        enUnit found = eUnitUndefined;
        for (std::size_t at = SlotOf(text); m_slots[at].row; at = (at + 1) % kSlots) {
            if (m_slots[at].text == text) return m_slots[at].row->unit;
            if (found == eUnitUndefined && nexo::EqualNoCase(m_slots[at].text, text))
                found = m_slots[at].row->unit;
        }
        return found;
    }

private:
    static constexpr std::size_t kSlots = 1024;  // several times the number of rows
    static_assert(kUnitRows.size() * 4 < kSlots);

    struct Slot {
        std::wstring_view text;
        const UnitRow* row = nullptr;
    };

    static std::size_t SlotOf(std::wstring_view text) {
        std::uint32_t hash = 0;
        for (const wchar_t unit : text) hash = hash * 31 + static_cast<std::uint32_t>(nexo::ToLower(unit));
        return (hash * 0x9E3779B1u) >> 22;
    }

    void Add(std::wstring_view text, const UnitRow& row) {
        std::size_t at = SlotOf(text);
        for (; m_slots[at].row; at = (at + 1) % kSlots) {
            if (m_slots[at].text == text) return;
        }
        m_slots[at] = {text, &row};
    }

    std::array<Slot, kSlots> m_slots;
};

enUnit FindByShownLabel(std::wstring_view label) {
    for (const UnitRow& row : kUnitRows) {
        if (row.label && nexo::EqualNoCase(Shown(row.label, true).View(), label)) return row.unit;
    }
    return eUnitUndefined;
}

bool IsNumber(std::wstring_view text) {
    return !text.empty() && std::ranges::all_of(text, nexo::IsDigit);
}

constexpr enUnitFormat kFormatsOfLengths[] = {eUnitFormatDecimal, eUnitFormatDecimalReduced,
                                              eUnitFormatFraction, eUnitFormatEngineering,
                                              eUnitFormatArchitectural};
constexpr enUnitFormat kFormatsOfPipeSizes[] = {eUnitFormatFraction, eUnitFormatDecimal,
                                                eUnitFormatDecimalReduced};

std::span<const enUnitFormat> FormatsOf(enUnit unit) {
    const UnitRow* const row = FindUnit(unit);
    if (!row) return {};
    switch (row->formats) {
        case UnitFormats::kDecimal:
            return std::span(kFormatsOfLengths).first(2);
        case UnitFormats::kLength:
            return kFormatsOfLengths;
        case UnitFormats::kPipeSize:
            return kFormatsOfPipeSizes;
        case UnitFormats::kNoFormat:
            break;
    }
    return {};
}

bool Offers(enUnit unit, enUnitFormat format) {
    return std::ranges::count(FormatsOf(unit), format) != 0;
}

CString DecimalSample(int precision) {
    CString sample = L"0";
    if (precision > 0) sample += L'.' + CString(L'0', precision);
    return sample;
}

CString FractionSample(int precision) {
    CString sample = L"0";
    if (precision > 0) sample.AppendFormat(L" 1/%d", 1 << precision);
    return sample;
}

}  // namespace

CString moxUnits::getUnitEnumName(enUnit unit) {
    const UnitRow* const row = FindRow(unit);
    return row ? CString(row->enumName) : CString();
}

enUnit moxUnits::getEnumValueByString(const CString& text) {
    CString trimmed = text;
    trimmed.Trim();
    if (IsNumber(trimmed.View())) {
        const auto unit = static_cast<enUnit>(nexo::ParseInt(trimmed));
        if (FindRow(unit)) return unit;
    }
    const enUnit unit = getEnumValueByNameCaseInsensitive(trimmed);
    return unit != eUnitUndefined ? unit : getEnumValueByUnitLabelCaseInsensitive(trimmed);
}

enUnit moxUnits::getEnumValueByNameCaseInsensitive(const CString& name) {
    static const RowIndex index([](const UnitRow& row) { return std::wstring_view(row.enumName); });
    return index.Find(name.View());
}

enUnit moxUnits::getEnumValueByUnitLabelCaseInsensitive(const CString& label) {
    static const RowIndex index(
        [](const UnitRow& row) { return row.label ? WithoutSection(row.label) : std::wstring_view(); });
    if (label.IsEmpty()) return eUnitUndefined;
    const enUnit unit = index.Find(label.View());
    return unit != eUnitUndefined ? unit : FindByShownLabel(label.View());
}

CString moxUnits::getUnitName(enUnit unit, bool translated) {
    const UnitRow* const row = FindUnit(unit);
    return row ? Shown(row->name, translated) : CString();
}

CString moxUnits::getUnitLabel(enUnit unit, bool translated, bool inBrackets) {
    const UnitRow* const row = FindUnit(unit);
    CString label = row ? Shown(row->label, translated) : CString();
    if (inBrackets && !label.IsEmpty()) label = L'[' + label + L']';
    return label;
}

CString moxUnits::getUnitLabel(const moxUnitSetting* setting, bool translated) {
    return setting ? getUnitLabel(setting->getTargetUnit(), translated) : CString();
}

void moxUnits::getUnitGroupArray(CArray<enUnit>& units, moxUnitSetting* setting) {
    units.RemoveAll();
    if (!setting || !FindRow(setting->getBaseUnit())) return;
    const int group = setting->getBaseUnit() / 1000;
    for (const UnitRow& row : kUnitRows) {
        if (row.unit / 1000 == group && row.name) units.Add(row.unit);
    }
}

void moxUnits::getUnitFormatArray(CArray<enUnitFormat>& formats, enUnit unit) {
    formats.RemoveAll();
    for (const enUnitFormat format : FormatsOf(unit)) formats.Add(format);
}

CString moxUnits::getUnitFormatName(enUnitFormat format) {
    const auto index = static_cast<std::size_t>(format);
    return index < nexo::kUnitFormatKeys.size() ? nexo::TranslateLibraryText(nexo::kUnitFormatKeys[index])
                                                : CString();
}

CString moxUnits::getUnitPrecName(enUnitFormat format, enUnit unit, enUnitPrec precision) {
    if (precision < eUnitPrec0 || precision > eUnitPrec8 || !Offers(unit, format)) return CString();
    switch (format) {
        case eUnitFormatDecimal:
        case eUnitFormatDecimalReduced:
            return DecimalSample(precision);
        case eUnitFormatFraction:
            return FractionSample(precision);
        case eUnitFormatEngineering:
            return L"0'-" + DecimalSample(precision) + L'"';
        case eUnitFormatArchitectural:
            return L"0'-" + FractionSample(precision) + L'"';
    }
    return CString();
}

bool moxUnits::getUnitStandardFormat(enUnitFormat& format, enUnitPrec& precision, enUnit unit) {
    const std::span<const enUnitFormat> formats = FormatsOf(unit);
    if (formats.empty()) return false;
    format = formats.front();
    precision = static_cast<enUnitPrec>(FindUnit(unit)->precision);
    return true;
}
