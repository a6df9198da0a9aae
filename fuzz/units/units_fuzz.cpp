// Texts of units and of values, and any number in every display format: what was written is read again, and
// writing that gives the same text.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "nexo/units/UnitValueText.h"
#include "nexo/units/Units.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

constexpr enUnit kUnits[] = {eUnitInch, eUnitFeet, eUnitYard, eUnitMillimeter};

void CheckNumber(double value) {
    if (!std::isfinite(value)) return;
    for (const enUnit unit : kUnits) {
        for (int format = eUnitFormatDecimal; format <= eUnitFormatArchitectural; ++format) {
            for (int precision = eUnitPrec0; precision <= eUnitPrec8; ++precision) {
                const auto write = [&](double number) {
                    return nexo::FormatUnitValue(number, unit, static_cast<enUnitFormat>(format),
                                                 static_cast<enUnitPrec>(precision));
                };
                // Doubles hold no more digits of feet and inches.
                const bool isFeet = format >= eUnitFormatEngineering;
                if (isFeet && std::fabs(value) * std::pow(10, precision) > 1e13) continue;
                const CString text = write(value);
                double read = 0;
                Require(nexo::ParseUnitValue(text.View(), unit, read));
                Require(write(read) == text);
            }
        }
    }
}

void CheckText(const CString& text) {
    const enUnit unit = moxUnits::getEnumValueByString(text);
    if (unit != eUnitUndefined) Require(!moxUnits::getUnitEnumName(unit).IsEmpty());
    for (const enUnit target : kUnits) {
        double value = 42;
        const bool isRead = nexo::ParseUnitValue(text.View(), target, value);
        Require(isRead ? std::isfinite(value) : value == 42);
        if (isRead) CheckNumber(value);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    double number = 0;
    if (size >= sizeof number) {
        std::memcpy(&number, data, sizeof number);
        CheckNumber(number);
    }
    const std::wstring text(data, data + size);
    CheckText(CString(std::wstring_view(text)));
    return 0;
}
