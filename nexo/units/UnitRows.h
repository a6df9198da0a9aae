#ifndef NEXO_UNITS_UNITROWS_H
#define NEXO_UNITS_UNITROWS_H

// Private to the library.

#include <array>
#include <stdexcept>

#include "nexo/units/Unit.h"

/// The catalogue: one row for each unit and group, in the order of their numbers.
///
/// Names and labels are keys of the dictionaries ("@section@German text"); a group has neither, and units
/// without a symbol have an empty label.
namespace nexo {

/// How a value in a unit becomes one in its group's base unit: products and quotients by constants, one after
/// the other, each of them rounded. The order is part of the result.
struct UnitFactor {
    enum class Kind : unsigned char {
        kNone,   ///< no rule: the result is 0
        kSame,   ///< the value itself
        kTimes,  ///< value * times1
        kOver,   ///< value / over1
        kSteps   ///< value * times1 / over1 * times2 / over2; a step that is not needed has 1, which is exact
    };

    Kind kind = Kind::kNone;
    double times1 = 1, over1 = 1, times2 = 1, over2 = 1;

    [[nodiscard]] constexpr UnitFactor Times(double constant) const {
        UnitFactor next = *this;
        next.kind = kind == Kind::kSame ? Kind::kTimes : Kind::kSteps;
        const bool isFree = times1 == 1 && over1 == 1;
        (isFree ? next.times1 : next.times2) = constant;
        if (!isFree && (times2 != 1 || over2 != 1)) throw std::logic_error("too many steps");
        return next;
    }
    [[nodiscard]] constexpr UnitFactor Over(double constant) const {
        UnitFactor next = *this;
        next.kind = kind == Kind::kSame ? Kind::kOver : Kind::kSteps;
        const bool isFree = over1 == 1 && times2 == 1;
        (isFree ? next.over1 : next.over2) = constant;
        if (!isFree && over2 != 1) throw std::logic_error("too many steps");
        return next;
    }
};

/// What a unit offers; the first format is its standard.
enum class UnitFormats : unsigned char {
    kNoFormat,  ///< texts
    kDecimal,   ///< decimal, reduced decimal
    kLength,    ///< these, fraction, engineering, architectural
    kPipeSize   ///< fraction, decimal, reduced decimal
};

struct UnitRow {
    enUnit unit;
    const wchar_t* enumName;
    const wchar_t* name;   ///< null for a group
    const wchar_t* label;  ///< null for a group
    UnitFactor factor;
    UnitFormats formats;
    int precision;  ///< the standard one
};

namespace rows {

using enum UnitFormats;

constexpr UnitFactor None() {
    return {};
}
constexpr UnitFactor Same() {
    return {UnitFactor::Kind::kSame};
}
constexpr UnitFactor Times(double constant) {
    return Same().Times(constant);
}
constexpr UnitFactor Over(double constant) {
    return Same().Over(constant);
}
constexpr double Square(double x) {
    return x * x;
}
constexpr double Cube(double x) {
    return x * x * x;
}

// How many of a unit make one of the base unit, or the other way round. The figures are those that stored
// projects were calculated with, so that neither missing digits nor rounded gallons are to be mended.
inline constexpr double kYards = 1.093613298;        // in a metre
inline constexpr double kFeet = 3.280839895;         // in a metre
inline constexpr double kInch = 0.0254;              // metres
inline constexpr double kPoundInGrams = 453.59237;   //
inline constexpr double kPounds = 2.204622622;       // in a kilogram
inline constexpr double kUsGallons = 264.172052358;  // in a cubic metre
inline constexpr double kUkGallons = 219.969248299;  // in a cubic metre
inline constexpr double kCaloriesPerJoule = 0.23884589662749595;
inline constexpr double kEnergyCalories = 0.238845897;  // in a joule, among the energies
inline constexpr double kBtuPerJoule = 0.0009478171203133172;
inline constexpr double kKilocaloriesPerKwh = 859.8452279;
inline constexpr double kBtuPerKwh = 3412.141633128;
inline constexpr double kPsiPerPascal = 0.00014503773773;
inline constexpr double kPi = 3.141592653589793;
// 1 gal/min is 0.22712470704 m3/h, 1 psi is 0.06894757293168361 bar; a flow grows with the root of the
// pressure: 0.22712470704 / sqrt(0.06894757293168361).
inline constexpr double kKvPerCv = 0.8649776554423244;

constexpr UnitRow Group(enUnit unit, const wchar_t* enumName) {
    return {unit, enumName, nullptr, nullptr, Same(), kNoFormat, 0};
}

}  // namespace rows

#define NEXO_UNIT(unit) unit, L"" #unit

inline constexpr auto kUnitRows = [] {
    using namespace rows;
    constexpr UnitRow all[] = {
        Group(NEXO_UNIT(eUnitUndefined)),
        Group(NEXO_UNIT(eUnitGroupLaenge)),
        {NEXO_UNIT(eUnitMeter), L"@Einheit@Meter", L"@Einheit Meter@m", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitDecimeter), L"@Einheit@Dezimeter", L"@Einheit Dezimeter@dm", Times(0.1), kDecimal, 2},
        {NEXO_UNIT(eUnitCentimeter), L"@Einheit@Zentimeter", L"@Einheit Zentimeter@cm", Over(100), kDecimal,
         2},
        {NEXO_UNIT(eUnitMillimeter), L"@Einheit@Millimeter", L"@Einheit Millimeter@mm", Over(1000), kDecimal,
         2},
        {NEXO_UNIT(eUnitYard), L"@Einheit@Yard", L"@Einheit Yard@yd", Over(kYards), kLength, 2},
        {NEXO_UNIT(eUnitFeet), L"@Einheit@Fuß", L"@Einheit Fuß@ft", Over(kFeet), kLength, 2},
        {NEXO_UNIT(eUnitInch), L"@Einheit@Zoll", L"@Einheit Zoll@in", Times(kInch), kLength, 2},
        Group(NEXO_UNIT(eUnitGroupFlaeche)),
        {NEXO_UNIT(eUnitMeter2), L"@Einheit@Quadratmeter", L"@Einheit Quadratmeter@m²", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitDecimeter2), L"@Einheit@Quadratdezimeter", L"@Einheit Quadratdezimeter@dm²",
         Over(100), kDecimal, 2},
        {NEXO_UNIT(eUnitCentimeter2), L"@Einheit@Quadratzentimeter", L"@Einheit Quadratzentimeter@cm²",
         Over(100).Over(100), kDecimal, 2},
        {NEXO_UNIT(eUnitMillimeter2), L"@Einheit@Quadratmillimeter", L"@Einheit Quadratmillimeter@mm²",
         Over(1e6), kDecimal, 2},
        {NEXO_UNIT(eUnitYard2), L"@Einheit@Quadratyard", L"@Einheit Quadratyard@yd²", Over(Square(kYards)),
         kDecimal, 2},
        {NEXO_UNIT(eUnitFeet2), L"@Einheit@Quadratfuß", L"@Einheit Quadratfuß@ft²", Over(Square(kFeet)),
         kDecimal, 2},
        {NEXO_UNIT(eUnitInch2), L"@Einheit@Quadratzoll", L"@Einheit Quadratzoll@in²", Times(Square(kInch)),
         kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupVolumen)),
        {NEXO_UNIT(eUnitMeter3), L"@Einheit@Kubikmeter", L"@Einheit Kubikmeter@m³", Same(), kDecimal, 3},
        {NEXO_UNIT(eUnitDecimeter3), L"@Einheit@Kubikdezimeter", L"@Einheit Kubikdezimeter@dm³", Over(1000),
         kDecimal, 2},
        {NEXO_UNIT(eUnitLiter), L"@Einheit@Liter", L"@Einheit Liter@l", Over(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitCentimeter3), L"@Einheit@Kubikzentimeter", L"@Einheit Kubikzentimeter@cm³", Over(1e6),
         kDecimal, 2},
        {NEXO_UNIT(eUnitMillimeter3), L"@Einheit@Kubikmillimeter", L"@Einheit Kubikmillimeter@mm³",
         Over(Cube(1000)), kDecimal, 2},
        {NEXO_UNIT(eUnitYard3), L"@Einheit@Kubikyard", L"@Einheit Kubikyard@yd³", Over(Cube(kYards)),
         kDecimal, 2},
        {NEXO_UNIT(eUnitFeet3), L"@Einheit@Kubikfuß", L"@Einheit Kubikfuß@ft³", Over(Cube(kFeet)), kDecimal,
         2},
        {NEXO_UNIT(eUnitInch3), L"@Einheit@Kubikzoll", L"@Einheit Kubikzoll@in³", Times(Cube(kInch)),
         kDecimal, 2},
        {NEXO_UNIT(eUnitGalUS), L"@Einheit Gallonen@US Gallone", L"@Einheit Gallonen@US.liq.gal.",
         Over(1000).Times(3.785), kDecimal, 2},
        {NEXO_UNIT(eUnitGalImp), L"@Einheit Gallonen@Imp. Gallone", L"@Einheit Gallonen@Imp.gal.",
         Over(1000).Times(4.546), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupGewicht)),
        {NEXO_UNIT(eUnitKilogramm), L"@Einheit@Kilogramm", L"@Einheit Kilogramm@kg", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitGramm), L"@Einheit@Gramm", L"@Einheit Gramm@g", Over(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitTonne), L"@Einheit@Tonne", L"@Einheit Tonne@t", Times(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitPound), L"@Einheit@Pfund (lbs)", L"@Einheit Pfund (lbs)@Pfd",
         Times(kPoundInGrams).Over(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitOunce), L"@Einheit@Unze", L"@Einheit Unze@oz", Times(28.349523).Over(1000), kDecimal,
         2},
        Group(NEXO_UNIT(eUnitGroupTemperatur)),
        {NEXO_UNIT(eUnitAbsKelvin), L"@Einheit@Kelvin", L"@Einheit Kelvin@K", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitAbsGradCelsius), L"@Einheit@Grad Celsius", L"@Einheit Grad Celsius@°C", None(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitAbsFahrenheit), L"@Einheit@Grad Fahrenheit", L"@Einheit Grad Fahrenheit@°F", None(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitAbsGradRankine), L"@Einheit@Grad Rankine", L"@Einheit Grad Rankine@°R", None(),
         kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupTemperaturDifferenz)),
        {NEXO_UNIT(eUnitDiffKelvin), L"@Einheit@Kelvin", L"@Einheit Kelvin@K", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitDiffGradCelsius), L"@Einheit@Grad Celsius", L"@Einheit Grad Celsius@°C", Same(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitDiffFahrenheit), L"@Einheit@Grad Fahrenheit", L"@Einheit Grad Fahrenheit@°F",
         Over(1.8), kDecimal, 2},
        {NEXO_UNIT(eUnitDiffGradRankine), L"@Einheit@Grad Rankine", L"@Einheit Grad Rankine@°R", Over(1.8),
         kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupLeistung)),
        {NEXO_UNIT(eUnitW), L"@Einheit@Watt", L"@Einheit Watt@W", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitKW), L"@Einheit@Kilowatt", L"@Einheit Kilowatt@kW", Times(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitMW), L"@Einheit@Megawatt", L"@Einheit Megawatt@MW", Times(1e6), kDecimal, 3},
        {NEXO_UNIT(eUnitKCALpH), L"@Einheit@Kilokalorien pro Stunde",
         L"@Einheit Kilokalorien pro Stunde@kcal/h", Times(1000).Over(kCaloriesPerJoule).Over(3600), kDecimal,
         2},
        {NEXO_UNIT(eUnitCALpS), L"@Einheit@Kalorien pro Sekunde", L"@Einheit Kalorien pro Sekunde@cal/s",
         Over(kCaloriesPerJoule), kDecimal, 2},
        {NEXO_UNIT(eUnitBTUpH), L"@Einheit@Btu pro Stunde", L"@Einheit Btu pro Stunde@Btu/h",
         Over(kBtuPerJoule).Over(3600), kDecimal, 2},
        {NEXO_UNIT(eUnitBTUpS), L"@Einheit@Btu pro Sekunde", L"@Einheit Btu pro Sekunde@Btu/s",
         Over(kBtuPerJoule), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupWaermeStromDichte)),
        {NEXO_UNIT(eUnitWpM2), L"@Einheit@Watt pro m²", L"@Einheit Watt pro m²@W/m²", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitKWpM2), L"@Einheit@Kilowatt pro m²", L"@Einheit Kilowatt pro m²@kW/m²", Times(1000),
         kDecimal, 2},
        {NEXO_UNIT(eUnitWpCM2), L"@Einheit@Watt pro cm²", L"@Einheit Watt pro cm²@W/cm²",
         Times(100).Times(100), kDecimal, 2},
        {NEXO_UNIT(eUnitKCALpM2xH), L"@Einheit@Kilokalorien pro m²h",
         L"@Einheit Kilokalorien pro m²h@kcal/(m²h)", Times(1000).Over(kKilocaloriesPerKwh), kDecimal, 2},
        {NEXO_UNIT(eUnitKCALpFT2xH), L"@Einheit@Kilokalorien pro ft²h",
         L"@Einheit Kilokalorien pro ft²h@kcal/(ft²h)",
         Times(1000).Over(kKilocaloriesPerKwh).Times(Square(kFeet)), kDecimal, 2},
        {NEXO_UNIT(eUnitBTUpFT2xH), L"@Einheit@Btu pro ft²h", L"@Einheit Btu pro ft²h@Btu/(ft²h)",
         Times(1000).Over(kBtuPerKwh).Times(Square(kFeet)), kDecimal, 2},
        {NEXO_UNIT(eUnitBTUpFT2xS), L"@Einheit@Btu pro ft²s", L"@Einheit Btu pro ft²s@Btu/(ft²s)", None(),
         kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupWaermeLeitFaehigkeit)),
        {NEXO_UNIT(eUnitWpMxK), L"@Einheit@Watt pro mK", L"@Einheit Watt pro mK@W/(mK)", Same(), kDecimal, 3},
        {NEXO_UNIT(eUnitCALpCMxSxC), L"@Einheit@Kalorien pro cm s °C",
         L"@Einheit Kalorien pro cm s °C@cal/(cm s °C)", Times(100).Over(kCaloriesPerJoule), kDecimal, 6},
        {NEXO_UNIT(eUnitKCALpMxHxC), L"@Einheit@Kilokalorien pro m h °C",
         L"@Einheit Kilokalorien pro m h °C@kcal/(m h °C)", Times(1000).Over(kCaloriesPerJoule).Over(3600),
         kDecimal, 3},
        {NEXO_UNIT(eUnitKCALpFTxHxC), L"@Einheit@Kilokalorien pro ft h °C",
         L"@Einheit Kilokalorien pro ft h °C@kcal/(ft h °C)",
         Times(1000).Over(kCaloriesPerJoule).Times(kFeet).Over(3600), kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpFTxHxF), L"@Einheit@Btu pro ft h °F", L"@Einheit Btu pro ft h °F@Btu/(ft h °F)",
         Times(1.8).Over(kBtuPerJoule).Times(kFeet).Over(3600), kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpFTxSxF), L"@Einheit@Btu pro ft s °F", L"@Einheit Btu pro ft s °F@Btu/(ft s °F)",
         Times(1.8).Over(kBtuPerJoule).Times(kFeet), kDecimal, 6},
        Group(NEXO_UNIT(eUnitGroupWaermeDurchgangsKoeffizient)),
        {NEXO_UNIT(eUnitWpM2xK), L"@Einheit@Watt pro m²K", L"@Einheit Watt pro m²K@W/(m²K)", Same(), kDecimal,
         2},
        {NEXO_UNIT(eUnitKCALpM2xHxC), L"@Einheit@Kilokalorien pro m² h °C",
         L"@Einheit Kilokalorien pro m² h °C@kcal/(m² h °C)", Times(1000).Over(kKilocaloriesPerKwh), kDecimal,
         2},
        {NEXO_UNIT(eUnitKCALpFT2xHxC), L"@Einheit@Kilokalorien pro ft² h °C",
         L"@Einheit Kilokalorien pro ft² h °C@kcal/(ft² h °C)",
         Times(1000).Over(kKilocaloriesPerKwh).Times(Square(kFeet)), kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpFT2xHxF), L"@Einheit@Btu pro ft² h °F",
         L"@Einheit Btu pro ft² h °F@Btu/(ft² h °F)", Times(1800).Over(kBtuPerKwh).Times(Square(kFeet)),
         kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpFT2xSxF), L"@Einheit@Btu pro ft² s °F",
         L"@Einheit Btu pro ft² s °F@Btu/(ft² s °F)", Times(6480000).Over(kBtuPerKwh).Times(Square(kFeet)),
         kDecimal, 6},
        Group(NEXO_UNIT(eUnitGroupWaermeWiderstandsKoeffizient)),
        {NEXO_UNIT(eUnitM2xKpW), L"@Einheit@m²K pro Watt", L"@Einheit m²K pro Watt@m²K/W", Same(), kDecimal,
         3},
        {NEXO_UNIT(eUnitM2xHxCpKCAL), L"@Einheit@m² h °C pro Kilokalorie",
         L"@Einheit m² h °C pro Kilokalorie@m² h °C/kcal", Times(kKilocaloriesPerKwh).Over(1000), kDecimal,
         3},
        {NEXO_UNIT(eUnitFT2xHxCpKCAL), L"@Einheit@ft² h °C pro Kilokalorie",
         L"@Einheit ft² h °C pro Kilokalorie@ft² h °C/kcal",
         Times(kKilocaloriesPerKwh).Over(1000).Over(Square(kFeet)), kDecimal, 3},
        {NEXO_UNIT(eUnitFT2xHxFpBTU), L"@Einheit@ft² h °F pro Btu", L"@Einheit ft² h °F pro Btu@ft² h °F/Btu",
         Times(kBtuPerKwh).Over(1800).Over(Square(kFeet)), kDecimal, 3},
        {NEXO_UNIT(eUnitFT2xSxFpBTU), L"@Einheit@ft² s °F pro Btu", L"@Einheit ft² s °F pro Btu@ft² s °F/Btu",
         Times(kBtuPerKwh).Over(6480000).Over(Square(kFeet)), kDecimal, 0},
        Group(NEXO_UNIT(eUnitGroupZeit)),
        {NEXO_UNIT(eUnitSecond), L"@Einheit@Sekunde", L"@Einheit Sekunde@s", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitMinute), L"@Einheit@Minute", L"@Einheit Minute@min", Times(60), kDecimal, 2},
        {NEXO_UNIT(eUnitHour), L"@Einheit@Stunde", L"@Einheit Stunde@h", Times(3600), kDecimal, 2},
        {NEXO_UNIT(eUnitMillisecond), L"@Einheit@Millisekunde", L"@Einheit Millisekunde@ms", Times(3600000),
         kDecimal, 0},
        Group(NEXO_UNIT(eUnitGroupKapazitaet)),
        {NEXO_UNIT(eUnitKJpKGxK), L"@Einheit@Kilojoule pro kgK", L"@Einheit Kilojoule pro kgK@kJ/(kgK)",
         Same(), kDecimal, 3},
        {NEXO_UNIT(eUnitKJpKGxC), L"@Einheit@Kilojoule pro kg°C", L"@Einheit Kilojoule pro kg°C@kJ/(kg°C)",
         Same(), kDecimal, 3},
        {NEXO_UNIT(eUnitWHpKGxK), L"@Einheit@Wattstunden pro kgK", L"@Einheit Wattstunden pro kgK@Wh/(kgK)",
         Times(3.6), kDecimal, 3},
        {NEXO_UNIT(eUnitWHpKGxC), L"@Einheit@Wattstunden pro kg°C",
         L"@Einheit Wattstunden pro kg°C@Wh/(kg°C)", Times(3.6), kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpLBxF), L"@Einheit@Btu pro lb°F", L"@Einheit Btu pro lb°F@Btu/(lb°F)",
         Times(1.8).Over(kBtuPerJoule).Over(kPoundInGrams), kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpLBxR), L"@Einheit@Btu pro lb°R", L"@Einheit Btu pro lb°R@Btu/(lb°R)",
         Times(1.8).Over(kBtuPerJoule).Over(kPoundInGrams), kDecimal, 3},
        Group(NEXO_UNIT(eUnitGroupVolumenSpezifischeLeistung)),
        {NEXO_UNIT(eUnitWpM3), L"@Einheit@Watt pro m³", L"@Einheit Watt pro m³@W/m³", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitWpFT3), L"@Einheit@Watt pro ft³", L"@Einheit Watt pro ft³@W/ft³", Times(Cube(kFeet)),
         kDecimal, 2},
        {NEXO_UNIT(eUnitKJpM3xS), L"@Einheit@Kilojoule pro m³s", L"@Einheit Kilojoule pro m³s@kJ/(m³s)",
         Times(1000), kDecimal, 3},
        {NEXO_UNIT(eUnitKJpFT3xS), L"@Einheit@Kilojoule pro ft³s", L"@Einheit Kilojoule pro ft³s@kJ/(ft³s)",
         Times(1000).Times(Cube(kFeet)), kDecimal, 3},
        {NEXO_UNIT(eUnitBTUpM3xH), L"@Einheit@Btu pro m³h", L"@Einheit Btu pro m³h@Btu/(m³h)",
         Over(kBtuPerJoule).Over(3600), kDecimal, 2},
        {NEXO_UNIT(eUnitBTUpFT3xH), L"@Einheit@Btu pro ft³h", L"@Einheit Btu pro ft³h@Btu/(ft³h)",
         Over(kBtuPerJoule).Times(Cube(kFeet)).Over(3600), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupVolumenStrom)),
        {NEXO_UNIT(eUnitM3pH), L"@Einheit@Kubikmeter pro Stunde", L"@Einheit Kubikmeter pro Stunde@m³/h",
         Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitM3pS), L"@Einheit@Kubikmeter pro Sekunde", L"@Einheit Kubikmeter pro Sekunde@m³/s",
         Times(3600), kDecimal, 4},
        {NEXO_UNIT(eUnitLpS), L"@Einheit@Liter pro Sekunde", L"@Einheit Liter pro Sekunde@l/s",
         Times(3600).Over(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitLpMin), L"@Einheit@Liter pro Minute", L"@Einheit Liter pro Minute@l/min",
         Times(60).Over(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitLpH), L"@Einheit@Liter pro Stunde", L"@Einheit Liter pro Stunde@l/h", Over(1000),
         kDecimal, 0},
        {NEXO_UNIT(eUnitFT3pH), L"@Einheit@Kubikfuß pro Stunde", L"@Einheit Kubikfuß pro Stunde@ft³/h",
         Over(Cube(kFeet)), kDecimal, 2},
        {NEXO_UNIT(eUnitFT3pS), L"@Einheit@Kubikfuß pro Sekunde", L"@Einheit Kubikfuß pro Sekunde@ft³/s",
         Over(Cube(kFeet)).Times(3600), kDecimal, 4},
        {NEXO_UNIT(eUnitYD3pH), L"@Einheit@Kubikyard pro Stunde", L"@Einheit Kubikyard pro Stunde@yd³/h",
         Over(Cube(kYards)), kDecimal, 2},
        {NEXO_UNIT(eUnitYD3pS), L"@Einheit@Kubikyard pro Sekunde", L"@Einheit Kubikyard pro Sekunde@yd³/s",
         Over(Cube(kYards)).Times(3600), kDecimal, 4},
        {NEXO_UNIT(eUnitGALUSpH), L"@Einheit Gallonen@US Gallonen pro Stunde",
         L"@Einheit Gallonen@US.liq.gal./h", Over(kUsGallons), kDecimal, 2},
        {NEXO_UNIT(eUnitGALUSpMIN), L"@Einheit Gallonen@US Gallonen pro Minute",
         L"@Einheit Gallonen@US.liq.gal./min", Over(kUsGallons).Times(60), kDecimal, 2},
        {NEXO_UNIT(eUnitGALUSpS), L"@Einheit Gallonen@US Gallonen pro Sekunde",
         L"@Einheit Gallonen@US.liq.gal./s", Over(kUsGallons).Times(3600), kDecimal, 2},
        {NEXO_UNIT(eUnitGALUKpH), L"@Einheit Gallonen@Imp. Gallonen pro Stunde",
         L"@Einheit Gallonen@Imp.gal./h", Over(kUkGallons), kDecimal, 2},
        {NEXO_UNIT(eUnitGALUKpMIN), L"@Einheit Gallonen@Imp. Gallonen pro Minute",
         L"@Einheit Gallonen@Imp.gal./min", Over(kUkGallons).Times(60), kDecimal, 2},
        {NEXO_UNIT(eUnitGALUKpS), L"@Einheit Gallonen@Imp. Gallonen pro Sekunde",
         L"@Einheit Gallonen@Imp.gal./s", Over(kUkGallons).Times(3600), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupMassenStrom)),
        {NEXO_UNIT(eUnitKGpH), L"@Einheit@Kilogramm pro Stunde", L"@Einheit Kilogramm pro Stunde@kg/h",
         Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitKGpMIN), L"@Einheit@Kilogramm pro Minute", L"@Einheit Kilogramm pro Minute@kg/min",
         Times(60), kDecimal, 2},
        {NEXO_UNIT(eUnitKGpS), L"@Einheit@Kilogramm pro Sekunde", L"@Einheit Kilogramm pro Sekunde@kg/s",
         Times(3600), kDecimal, 4},
        {NEXO_UNIT(eUnitLBpH), L"@Einheit@Pfund (lbs) pro Stunde", L"@Einheit Pfund (lbs) pro Stunde@Pfd/h",
         Over(kPounds), kDecimal, 2},
        {NEXO_UNIT(eUnitLBpMIN), L"@Einheit@Pfund (lbs) pro Minute",
         L"@Einheit Pfund (lbs) pro Minute@Pfd/min", Over(kPounds).Times(60), kDecimal, 2},
        {NEXO_UNIT(eUnitLBpS), L"@Einheit@Pfund (lbs) pro Sekunde", L"@Einheit Pfund (lbs) pro Sekunde@Pfd/s",
         Over(kPounds).Times(3600), kDecimal, 4},
        {NEXO_UNIT(eUnitTpH), L"@Einheit@Tonnen pro Stunde", L"@Einheit Tonnen pro Stunde@t/h", Times(1000),
         kDecimal, 3},
        {NEXO_UNIT(eUnitTpMIN), L"@Einheit@Tonnen pro Minute", L"@Einheit Tonnen pro Minute@t/min",
         Times(1000).Times(60), kDecimal, 4},
        {NEXO_UNIT(eUnitTpS), L"@Einheit@Tonnen pro Sekunde", L"@Einheit Tonnen pro Sekunde@t/s",
         Times(1000).Times(3600), kDecimal, 6},
        Group(NEXO_UNIT(eUnitGroupVolumenStromSpezifisch)),
        {NEXO_UNIT(eUnitLpSHa), L"@Einheit@Liter pro Sekunde und Hektar",
         L"@Einheit Liter pro Sekunde und Hektar@l/(s ha)", Same(), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupRWert)),
        {NEXO_UNIT(eUnitPaM), L"@Einheit@Pascal pro Meter", L"@Einheit Pascal pro Meter@Pa/m", Same(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitHPapM), L"@Einheit@Hektopascal pro Meter", L"@Einheit Hektopascal pro Meter@hPa/m",
         Times(100), kDecimal, 2},
        {NEXO_UNIT(eUnitMbarpM), L"@Einheit@Millibar pro Meter", L"@Einheit Millibar pro Meter@mbar/m",
         Times(100), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupDruck)),
        {NEXO_UNIT(eUnitPascal), L"@Einheit@Pascal", L"@Einheit Pascal@Pa", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitHPascal), L"@Einheit@Hektopascal", L"@Einheit Hektopascal@hPa", Times(100), kDecimal,
         2},
        {NEXO_UNIT(eUnitMBar), L"@Einheit@Millibar", L"@Einheit Millibar@mbar", Times(100), kDecimal, 2},
        {NEXO_UNIT(eUnitKPascal), L"@Einheit@Kilopascal", L"@Einheit Kilopascal@kPa", Times(1000), kDecimal,
         2},
        {NEXO_UNIT(eUnitNpM2), L"@Einheit@Newton pro m²", L"@Einheit Newton pro m²@N/m²", Same(), kDecimal,
         0},
        {NEXO_UNIT(eUnitBar), L"@Einheit@Bar", L"@Einheit Bar@bar", Times(1000).Times(100), kDecimal, 3},
        {NEXO_UNIT(eUnitTorr), L"@Einheit@Torr", L"@Einheit Torr@Torr", Over(0.0075006182704), kDecimal, 2},
        {NEXO_UNIT(eUnitPsi), L"@Einheit@Pound-force per sqr inch", L"@Einheit Pound-force per sqr inch@psi",
         Over(kPsiPerPascal), kDecimal, 3},
        {NEXO_UNIT(eUnitMPascal), L"@Einheit@Megapascal", L"@Einheit Megapascal@MPa", Times(1e6), kDecimal,
         3},
        {NEXO_UNIT(eUnitMmWassersaeule), L"@Einheit@Millimeter Wassersäule",
         L"@Einheit Millimeter Wassersäule@mmWS", Times(9.80665), kDecimal, 2},
        {NEXO_UNIT(eUnitMWassersaeule), L"@Einheit@Meter Wassersäule", L"@Einheit Meter Wassersäule@mWS",
         Times(9806.65), kDecimal, 3},
        Group(NEXO_UNIT(eUnitGroupDichte)),
        {NEXO_UNIT(eUnitKGpM3), L"@Einheit@Kilogramm pro m³", L"@Einheit Kilogramm pro m³@kg/m³", Same(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitKGpCM3), L"@Einheit@Kilogramm pro cm³", L"@Einheit Kilogramm pro cm³@kg/cm³",
         Times(1e6), kDecimal, 6},
        {NEXO_UNIT(eUnitKGpL), L"@Einheit@Kilogramm pro Liter", L"@Einheit Kilogramm pro Liter@kg/l",
         Times(1000), kDecimal, 4},
        {NEXO_UNIT(eUnitLBpFT3), L"@Einheit@Pfund (lbs) pro ft³", L"@Einheit Pfund (lbs) pro ft³@Pfd/ft³",
         None(), kDecimal, 2},
        {NEXO_UNIT(eUnitLBpYD3), L"@Einheit@Pfund (lbs) pro yd³", L"@Einheit Pfund (lbs) pro yd³@Pfd/yd³",
         None(), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupGeschwindigkeit)),
        {NEXO_UNIT(eUnitMpS), L"@Einheit@Meter pro Sekunde", L"@Einheit Meter pro Sekunde@m/s", Same(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitMpH), L"@Einheit@Meter pro Stunde", L"@Einheit Meter pro Stunde@m/h", Over(3600),
         kDecimal, 0},
        {NEXO_UNIT(eUnitFTpS), L"@Einheit@Fuß pro Sekunde", L"@Einheit Fuß pro Sekunde@ft/s", Over(kFeet),
         kDecimal, 2},
        {NEXO_UNIT(eUnitYDpS), L"@Einheit@Yard pro Sekunde", L"@Einheit Yard pro Sekunde@yd/s", Over(kYards),
         kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupProzent)),
        {NEXO_UNIT(eUnitProzent), L"@Einheit@Prozent", L"@Einheit Prozent@%", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitPromille), L"@Einheit@Promille", L"@Einheit Promille@‰", Over(10), kDecimal, 2},
        {NEXO_UNIT(eUnitEins), L"@Einheit@Eins", L"@Einheit Eins@1", Times(100), kDecimal, 4},
        Group(NEXO_UNIT(eUnitGroupWinkel)),
        {NEXO_UNIT(eUnitAltGrad), L"@Einheit@Altgrad", L"@Einheit Altgrad@°", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitNeuGrad), L"@Einheit@Neugrad", L"@Einheit Neugrad@gon", Times(0.9), kDecimal, 2},
        {NEXO_UNIT(eUnitBogenmass), L"@Einheit@Bogenmaß", L"@Einheit Bogenmaß@rad", Times(180).Over(kPi),
         kDecimal, 4},
        Group(NEXO_UNIT(eUnitGroupGefaelle)),
        {NEXO_UNIT(eUnitMMpM), L"@Einheit@Millimeter pro Meter", L"@Einheit Millimeter pro Meter@mm/m",
         Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitCMpM), L"@Einheit@Zentimeter pro Meter", L"@Einheit Zentimeter pro Meter@cm/m",
         Times(10), kDecimal, 2},
        {NEXO_UNIT(eUnitMpM), L"@Einheit@Meter pro Meter", L"@Einheit Meter pro Meter@m/m", Times(1000),
         kDecimal, 4},
        Group(NEXO_UNIT(eUnitGroupSchall)),
        {NEXO_UNIT(eUnitDb), L"@Einheit@Dezibel", L"@Einheit Dezibel@dB", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitDbA), L"@Einheit@Dezibel (A)", L"@Einheit Dezibel (A)@dB(A)", Same(), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupElektro)),
        {NEXO_UNIT(eUnitAmpere), L"@Einheit@Ampere", L"@Einheit Ampere@A", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitVolt), L"@Einheit@Volt", L"@Einheit Volt@V", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitOhm), L"@Einheit@Ohm", L"@Einheit Ohm@Ohm", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitCoulomb), L"@Einheit@Coulomb", L"@Einheit Coulomb@C", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitHenry), L"@Einheit@Henry", L"@Einheit Henry@H", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitSiemens), L"@Einheit@Siemens", L"@Einheit Siemens@S", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitApM), L"@Einheit@Ampere pro Meter", L"@Einheit Ampere pro Meter@A/m", Same(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitHertz), L"@Einheit@Hertz", L"@Einheit Hertz@Hz", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitTesla), L"@Einheit@Tesla", L"@Einheit Tesla@T", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitJoule), L"@Einheit@Joule", L"@Einheit Joule@J", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitFarad), L"@Einheit@Farad", L"@Einheit Farad@F", Same(), kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupeEnergy)),
        {NEXO_UNIT(eUnitJ), L"@Einheit@Joule", L"@Einheit Joule@J", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitkJ), L"@Einheit@Kilojoule", L"@Einheit Kilojoule@kJ", Times(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitMJ), L"@Einheit@Megajoule", L"@Einheit Megajoule@MJ", Times(1e6), kDecimal, 3},
        {NEXO_UNIT(eUnitNm), L"@Einheit@Newtonmeter", L"@Einheit Newtonmeter@Nm", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitWs), L"@Einheit@Wattsekunde", L"@Einheit Wattsekunde@Ws", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitWh), L"@Einheit@Wattstunde", L"@Einheit Wattstunde@Wh", Over(3600), kDecimal, 2},
        {NEXO_UNIT(eUnitkWh), L"@Einheit@Kilowattstunde", L"@Einheit Kilowattstunde@kWh",
         Over(3600).Times(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitCal), L"@Einheit@Kalorie", L"@Einheit Kalorie@cal", Over(kEnergyCalories), kDecimal,
         2},
        {NEXO_UNIT(eUnitkCal), L"@Einheit@Kilokalorie", L"@Einheit Kilokalorie@kcal",
         Over(kEnergyCalories).Times(1000), kDecimal, 2},
        {NEXO_UNIT(eUnitBTU), L"@Einheit@British thermal unit", L"@Einheit British thermal unit@Btu",
         Over(0.000947817), kDecimal, 2},
        {NEXO_UNIT(eUnitftlb), L"@Einheit@Foot-pound", L"@Einheit Foot-pound@ft·lb", Times(1.355817948),
         kDecimal, 2},
        Group(NEXO_UNIT(eUnitGroupWaermeverlust)),
        {NEXO_UNIT(eUnitWpM), L"@Einheit@Watt pro Meter", L"@Einheit Watt pro Meter@W/m", Same(), kDecimal,
         2},
        {NEXO_UNIT(eUnitkWpM), L"@Einheit@Kilowatt pro Meter", L"@Einheit Kilowatt pro Meter@kW/m",
         Times(1000), kDecimal, 4},
        Group(NEXO_UNIT(eUnitGroupPipeSpecific)),
        {NEXO_UNIT(eUnitMMpMpK), L"@Einheit@Millimeter pro Meter und Kelvin",
         L"@Einheit Millimeter pro Meter und Kelvin@mm/(mK)", Same(), kDecimal, 4},
        {NEXO_UNIT(eUnitKGpM), L"@Einheit@Kilogramm pro Meter", L"@Einheit Kilogramm pro Meter@kg/m", Same(),
         kDecimal, 3},
        {NEXO_UNIT(eUnitKNpM2), L"@Einheit@Kilonewton pro m²", L"@Einheit Kilonewton pro m²@kN/m²", Same(),
         kDecimal, 2},
        {NEXO_UNIT(eUnitLpM), L"@Einheit@Liter pro Meter", L"@Einheit Liter pro Meter@l/m", Same(), kDecimal,
         3},
        {NEXO_UNIT(eUnitDN), L"@Einheit @Nennweite", L"@Einheit @DN", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitNPS), L"@Einheit @Nominal Pipe Size", L"@Einheit @NPS", Same(), kPipeSize, 3},
        Group(NEXO_UNIT(eUnitGroupOther)),
        {NEXO_UNIT(eUnitKWHpD), L"@Einheit@Kilowattstunden pro Tag",
         L"@Einheit Kilowattstunden pro Tag@kWh/d", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitM3pHAt1bar), L"@Einheit @Kv-Wert", L"@Einheit @m3/h", Same(), kDecimal, 2},
        {NEXO_UNIT(eUnitUSgpmAt1psi), L"@Einheit @Cv-Wert", L"@Einheit @gpm (US)", Times(kKvPerCv), kDecimal,
         2},
        Group(NEXO_UNIT(eUnitGroupDimensionslos)),
        {NEXO_UNIT(eUnitText), L"@Einheit @Text", L"", Same(), kNoFormat, 0},
        {NEXO_UNIT(eUnitInteger), L"@Einheit @Ganzzahl", L"", Same(), kDecimal, 0},
        {NEXO_UNIT(eUnitFloat), L"@Einheit @Gleitkommazahl", L"", Same(), kDecimal, 2},
    };
    return std::to_array(all);
}();

#undef NEXO_UNIT

/// Names of the display formats, by their numbers.
inline constexpr std::array kUnitFormatKeys = {
    L"@Einheiten-Format@Dezimal",
    L"@Einheiten-Format (truncated decimal places)@Dezimal (reduzierte Nachkommastellen)",
    L"@Einheiten-Format@Bruch", L"@Einheiten-Format@Imperial-Maschinenbau",
    L"@Einheiten-Format@Imperial-Architektur"};

}  // namespace nexo

#endif
