#include "nexo/units/UnitValueText.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>

#include "nexo/base/CharClass.h"
#include "nexo/base/Number.h"
#include "nexo/base/NumberWriter.h"
#include "nexo/units/UnitSetting.h"
#include "nexo/units/Units.h"

namespace nexo {
namespace {

constexpr double kInchesPerFoot = 12;
constexpr double kManyInches = 1e15;        // up to here an integer and its multiples by 12 are exact
constexpr double kNoFractions = 1LL << 53;  // from here on doubles are integers

// 0 for a unit that is not shown in feet and inches.
double InchesPer(enUnit unit) {
    switch (unit) {
        case eUnitInch:
            return 1;
        case eUnitFeet:
            return kInchesPerFoot;
        case eUnitYard:
            return 3 * kInchesPerFoot;
        default:
            return 0;
    }
}

// Writing. All of it takes magnitudes; the sign comes last.

std::wstring FixedText(double magnitude, int decimals) {
    std::wstring text(FixedRoom(magnitude, decimals), L'\0');
    text.resize(static_cast<std::size_t>(WriteFixed(text.data(), magnitude, decimals) - text.data()));
    return text;
}

std::wstring ReducedText(double magnitude, int decimals) {
    std::wstring text = FixedText(magnitude, decimals);
    if (text.find(L'.') == std::wstring::npos) return text;
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.') text.pop_back();
    return text;
}

struct Mixed {
    double whole;
    int numerator;
    int denominator;
};

Mixed MixedOf(double magnitude, int precision) {
    if (magnitude >= kNoFractions) return {magnitude, 0, 1};
    const int denominator = 1 << precision;
    const double parts = std::round(magnitude * denominator);
    const double whole = std::floor(parts / denominator);
    const int numerator = static_cast<int>(parts - whole * denominator);
    const int common = std::gcd(numerator, denominator);
    return {whole, numerator / common, denominator / common};
}

std::wstring FractionText(const Mixed& mixed) {
    std::wstring text = FixedText(mixed.whole, 0);
    if (mixed.numerator != 0)
        text += L' ' + std::to_wstring(mixed.numerator) + L'/' + std::to_wstring(mixed.denominator);
    return text;
}

// Feet, then the inches as `write(inches)` writes what is left of the whole ones.
template <class Write>
std::wstring FeetText(double wholeInches, Write write) {
    const double feet = std::floor(wholeInches / kInchesPerFoot);
    return FixedText(feet, 0) + L"'-" + write(wholeInches - feet * kInchesPerFoot) + L'"';
}

std::wstring EngineeringText(double inches, int decimals) {
    const std::wstring rounded = FixedText(inches, decimals);
    const std::size_t point = std::min(rounded.find(L'.'), rounded.size());
    return FeetText(ParseDouble(std::wstring_view(rounded).substr(0, point)),
                    [&](double rest) { return FixedText(rest, 0) + rounded.substr(point); });
}

std::wstring ArchitecturalText(double inches, int precision) {
    const Mixed mixed = MixedOf(inches, precision);
    return FeetText(mixed.whole, [&](double rest) {
        return FractionText({rest, mixed.numerator, mixed.denominator});
    });
}

std::wstring MagnitudeText(double magnitude, enUnit unit, enUnitFormat format, int precision) {
    const double inches = magnitude * InchesPer(unit);
    const bool hasFeet = InchesPer(unit) != 0 && inches < kManyInches;
    if (format == eUnitFormatEngineering && hasFeet) return EngineeringText(inches, precision);
    if (format == eUnitFormatArchitectural && hasFeet) return ArchitecturalText(inches, precision);
    if (format == eUnitFormatFraction) return FractionText(MixedOf(magnitude, precision));
    if (format == eUnitFormatDecimalReduced) return ReducedText(magnitude, precision);
    return FixedText(magnitude, precision);
}

bool ShowsMoreThanZero(std::wstring_view text) {
    return text.find_first_not_of(L"0.'\"- ") != std::wstring_view::npos;
}

// Reading

class ValueReader {
public:
    ValueReader(std::wstring_view text, enUnit unit) : m_rest(text), m_inchesPerUnit(InchesPer(unit)) {}

    bool Read(double& value) {
        SkipBlanks();
        const bool isNegative = Take(L'-');
        if (!isNegative) Take(L'+');
        SkipBlanks();
        double magnitude = 0;
        if (!ReadMagnitude(magnitude)) return false;
        SkipBlanks();
        if (!m_rest.empty() || !std::isfinite(magnitude)) return false;
        value = isNegative ? -magnitude : magnitude;
        return true;
    }

private:
    bool ReadMagnitude(double& value) {
        if (!ReadMixed(value)) return false;
        if (Take(L'\'')) return ReadInchesBehind(value);
        return !Take(L'"') || ToUnit(value);
    }

    // The value so far are feet; inches may follow, with or without their mark.
    bool ReadInchesBehind(double& value) {
        value *= kInchesPerFoot;
        SkipBlanks();
        const bool mustFollow = Take(L'-');
        SkipBlanks();
        if (mustFollow || !m_rest.empty()) {
            double inches = 0;
            if (!ReadMixed(inches)) return false;
            Take(L'"');
            value += inches;
        }
        return ToUnit(value);
    }

    bool ToUnit(double& inches) const {
        if (m_inchesPerUnit == 0) return false;
        inches /= m_inchesPerUnit;
        return true;
    }

    // "3", "3.5", "7/8", "3 7/8"
    bool ReadMixed(double& value) {
        if (!ReadNumber(value)) return false;
        if (Take(L'/')) return ReadDenominator(value);
        const std::wstring_view behind = m_rest;
        SkipBlanks();
        double fraction = 0;
        if (m_rest.size() == behind.size() || !ReadNumber(fraction)) return true;
        if (!Take(L'/') || !ReadDenominator(fraction)) return false;
        value += fraction;
        return true;
    }

    bool ReadDenominator(double& numerator) {
        double denominator = 0;
        if (!ReadNumber(denominator) || denominator == 0) return false;
        numerator /= denominator;
        return true;
    }

    // Digits with a point or comma in, before or behind them, and an exponent.
    bool ReadNumber(double& value) {
        std::size_t length = DigitsFrom(0);
        std::size_t digits = length;
        if (length < m_rest.size() && (m_rest[length] == L'.' || m_rest[length] == L',')) {
            const std::size_t decimals = DigitsFrom(length + 1);
            digits += decimals;
            length += 1 + decimals;
        }
        if (digits == 0) return false;
        length += ExponentFrom(length);
        std::wstring number(m_rest.substr(0, length));
        std::ranges::replace(number, L',', L'.');
        value = ParseDouble(number);
        m_rest.remove_prefix(length);
        return true;
    }

    [[nodiscard]] std::size_t DigitsFrom(std::size_t at) const {
        const std::wstring_view digits = m_rest.substr(at);
        return static_cast<std::size_t>(std::ranges::find_if_not(digits, IsDigit) - digits.begin());
    }

    [[nodiscard]] std::size_t ExponentFrom(std::size_t at) const {
        if (at >= m_rest.size() || ToLower(m_rest[at]) != L'e') return 0;
        const bool hasSign = at + 1 < m_rest.size() && (m_rest[at + 1] == L'-' || m_rest[at + 1] == L'+');
        const std::size_t first = at + (hasSign ? 2 : 1);
        const std::size_t digits = DigitsFrom(first);
        return digits == 0 ? 0 : first + digits - at;
    }

    bool Take(wchar_t unit) {
        if (m_rest.empty() || m_rest.front() != unit) return false;
        m_rest.remove_prefix(1);
        return true;
    }

    void SkipBlanks() {
        while (!m_rest.empty() && IsSpace(m_rest.front())) m_rest.remove_prefix(1);
    }

    std::wstring_view m_rest;
    double m_inchesPerUnit;
};

}  // namespace

CString FormatUnitValue(double value, enUnit unit, enUnitFormat format, enUnitPrec precision,
                        bool decimalComma) {
    const int digits = std::clamp<int>(precision, eUnitPrec0, eUnitPrec8);
    const double magnitude = std::fabs(value);
    std::wstring text =
        std::isfinite(value) ? MagnitudeText(magnitude, unit, format, digits) : FixedText(magnitude, 0);
    if (value < 0 && ShowsMoreThanZero(text)) text.insert(0, 1, L'-');
    if (decimalComma) std::ranges::replace(text, L'.', L',');
    return CString(std::wstring_view(text));
}

bool ParseUnitValue(std::wstring_view text, enUnit unit, double& value) {
    return ValueReader(text, unit).Read(value);
}

CString FormatUnitValue(double baseValue, const moxUnitSetting& setting, bool decimalComma) {
    return FormatUnitValue(moxUnits::unitTransB2T(baseValue, &setting), setting.getTargetUnit(),
                           setting.getFormat(), setting.getPrecision(), decimalComma);
}

bool ParseUnitValue(const CString& text, const moxUnitSetting& setting, double& baseValue) {
    CString entered = text;
    if (setting.getTextCheck() && !setting.getTextCheck()(entered)) return false;
    double value = 0;
    if (setting.getTextEvaluation())
        value = setting.getTextEvaluation()(entered);
    else if (!ParseUnitValue(entered.View(), setting.getTargetUnit(), value))
        return false;
    value = moxUnits::unitTrans(value, setting.getTargetUnit(), setting.getBaseUnit());
    if (!std::isfinite(value)) return false;
    baseValue = value;
    return true;
}

}  // namespace nexo
