#ifndef NEXO_UNITS_UNIT_H
#define NEXO_UNITS_UNIT_H

// The numbers of units, display formats and precisions. What belongs to them is in nexo/units/Units.h.

/// A unit, a group of units, or no unit.
///
/// A group's value is a multiple of 1000; its units follow, the first being its base unit. Files hold both
/// the numbers and the names, so neither may change, not even the name eUnitGroupeEnergy.
enum enUnit : int {
    eUnitUndefined = 0,

    eUnitGroupLaenge = 1000,  // length
    eUnitMeter,
    eUnitDecimeter,
    eUnitCentimeter,
    eUnitMillimeter,
    eUnitYard,
    eUnitFeet,
    eUnitInch,

    eUnitGroupFlaeche = 2000,  // area
    eUnitMeter2,
    eUnitDecimeter2,
    eUnitCentimeter2,
    eUnitMillimeter2,
    eUnitYard2,
    eUnitFeet2,
    eUnitInch2,

    eUnitGroupVolumen = 3000,  // volume
    eUnitMeter3,
    eUnitDecimeter3,
    eUnitLiter,
    eUnitCentimeter3,
    eUnitMillimeter3,
    eUnitYard3,
    eUnitFeet3,
    eUnitInch3,
    eUnitGalUS,
    eUnitGalImp,

    eUnitGroupGewicht = 4000,  // mass
    eUnitKilogramm,
    eUnitGramm,
    eUnitTonne,
    eUnitPound,
    eUnitOunce,

    eUnitGroupTemperatur = 5000,  // absolute temperature
    eUnitAbsKelvin,
    eUnitAbsGradCelsius,
    eUnitAbsFahrenheit,
    eUnitAbsGradRankine,

    eUnitGroupTemperaturDifferenz = 6000,  // temperature difference
    eUnitDiffKelvin,
    eUnitDiffGradCelsius,
    eUnitDiffFahrenheit,
    eUnitDiffGradRankine,

    eUnitGroupLeistung = 7000,  // power
    eUnitW,
    eUnitKW,
    eUnitMW,
    eUnitKCALpH,
    eUnitCALpS,
    eUnitBTUpH,
    eUnitBTUpS,

    eUnitGroupWaermeStromDichte = 8000,  // heat flux
    eUnitWpM2,
    eUnitKWpM2,
    eUnitWpCM2,
    eUnitKCALpM2xH,
    eUnitKCALpFT2xH,
    eUnitBTUpFT2xH,
    eUnitBTUpFT2xS,

    eUnitGroupWaermeLeitFaehigkeit = 9000,  // thermal conductivity
    eUnitWpMxK,
    eUnitCALpCMxSxC,
    eUnitKCALpMxHxC,
    eUnitKCALpFTxHxC,
    eUnitBTUpFTxHxF,
    eUnitBTUpFTxSxF,

    eUnitGroupWaermeDurchgangsKoeffizient = 10000,  // heat transfer coefficient
    eUnitWpM2xK,
    eUnitKCALpM2xHxC,
    eUnitKCALpFT2xHxC,
    eUnitBTUpFT2xHxF,
    eUnitBTUpFT2xSxF,

    eUnitGroupWaermeWiderstandsKoeffizient = 11000,  // thermal resistance
    eUnitM2xKpW,
    eUnitM2xHxCpKCAL,
    eUnitFT2xHxCpKCAL,
    eUnitFT2xHxFpBTU,
    eUnitFT2xSxFpBTU,

    eUnitGroupZeit = 12000,  // time
    eUnitSecond,
    eUnitMinute,
    eUnitHour,
    eUnitMillisecond,

    eUnitGroupKapazitaet = 13000,  // specific heat capacity
    eUnitKJpKGxK,
    eUnitKJpKGxC,
    eUnitWHpKGxK,
    eUnitWHpKGxC,
    eUnitBTUpLBxF,
    eUnitBTUpLBxR,

    eUnitGroupVolumenSpezifischeLeistung = 14000,  // power per volume
    eUnitWpM3,
    eUnitWpFT3,
    eUnitKJpM3xS,
    eUnitKJpFT3xS,
    eUnitBTUpM3xH,
    eUnitBTUpFT3xH,

    eUnitGroupVolumenStrom = 15000,  // volume flow
    eUnitM3pH,
    eUnitM3pS,
    eUnitLpS,
    eUnitLpMin,
    eUnitLpH,
    eUnitFT3pH,
    eUnitFT3pS,
    eUnitYD3pH,
    eUnitYD3pS,
    eUnitGALUSpH,
    eUnitGALUSpMIN,
    eUnitGALUSpS,
    eUnitGALUKpH,
    eUnitGALUKpMIN,
    eUnitGALUKpS,

    eUnitGroupMassenStrom = 16000,  // mass flow
    eUnitKGpH,
    eUnitKGpMIN,
    eUnitKGpS,
    eUnitLBpH,
    eUnitLBpMIN,
    eUnitLBpS,
    eUnitTpH,
    eUnitTpMIN,
    eUnitTpS,

    eUnitGroupVolumenStromSpezifisch = 17000,  // volume flow per area
    eUnitLpSHa,

    eUnitGroupRWert = 18000,  // pressure drop per length
    eUnitPaM,
    eUnitHPapM,
    eUnitMbarpM,

    eUnitGroupDruck = 19000,  // pressure
    eUnitPascal,
    eUnitHPascal,
    eUnitMBar,
    eUnitKPascal,
    eUnitNpM2,
    eUnitBar,
    eUnitTorr,
    eUnitPsi,
    eUnitMPascal,
    eUnitMmWassersaeule,
    eUnitMWassersaeule,

    eUnitGroupDichte = 20000,  // density
    eUnitKGpM3,
    eUnitKGpCM3,
    eUnitKGpL,
    eUnitLBpFT3,
    eUnitLBpYD3,

    eUnitGroupGeschwindigkeit = 21000,  // velocity
    eUnitMpS,
    eUnitMpH,
    eUnitFTpS,
    eUnitYDpS,

    eUnitGroupProzent = 22000,  // share
    eUnitProzent,
    eUnitPromille,
    eUnitEins,

    eUnitGroupWinkel = 23000,  // angle
    eUnitAltGrad,
    eUnitNeuGrad,
    eUnitBogenmass,

    eUnitGroupGefaelle = 24000,  // slope
    eUnitMMpM,
    eUnitCMpM,
    eUnitMpM,

    eUnitGroupSchall = 25000,  // sound level
    eUnitDb,
    eUnitDbA,

    eUnitGroupElektro = 26000,  // electricity
    eUnitAmpere,
    eUnitVolt,
    eUnitOhm,
    eUnitCoulomb,
    eUnitHenry,
    eUnitSiemens,
    eUnitApM,
    eUnitHertz,
    eUnitTesla,
    eUnitJoule,
    eUnitFarad,

    eUnitGroupeEnergy = 27000,  // energy
    eUnitJ,
    eUnitkJ,
    eUnitMJ,
    eUnitNm,
    eUnitWs,
    eUnitWh,
    eUnitkWh,
    eUnitCal,
    eUnitkCal,
    eUnitBTU,
    eUnitftlb,

    eUnitGroupWaermeverlust = 28000,  // heat loss per length
    eUnitWpM,
    eUnitkWpM,

    eUnitGroupPipeSpecific = 80000,  // pipes
    eUnitMMpMpK,
    eUnitKGpM,
    eUnitKNpM2,
    eUnitLpM,

    // nominal pipe sizes; a range without a group value
    eUnitDN = 81001,
    eUnitNPS,

    eUnitGroupOther = 90000,  // other
    eUnitKWHpD,

    // flow coefficients; a range without a group value
    eUnitM3pHAt1bar = 100001,
    eUnitUSgpmAt1psi,

    eUnitGroupDimensionslos = 1000000,  // without dimension
    eUnitText,
    eUnitInteger,
    eUnitFloat,
};

/// How a value is shown. Settings are saved with these numbers.
enum enUnitFormat : int {
    eUnitFormatDecimal = 0,         ///< "3.50"
    eUnitFormatDecimalReduced = 1,  ///< "3.5": without the zeros at the end
    eUnitFormatFraction = 2,        ///< "3 1/2"
    eUnitFormatEngineering = 3,     ///< feet and decimal inches: 4'-3.50"
    eUnitFormatArchitectural = 4    ///< feet and fractional inches: 4'-3 1/2"
};

/// How exactly a value is shown: eUnitPrecN means N decimals, or fractions down to the 2^N-th part. Settings
/// are saved with these numbers.
enum enUnitPrec : int {
    eUnitPrec0 = 0,  ///< "0"
    eUnitPrec1 = 1,  ///< "0.0", "0 1/2"
    eUnitPrec2 = 2,  ///< "0.00", "0 1/4"
    eUnitPrec3 = 3,
    eUnitPrec4 = 4,
    eUnitPrec5 = 5,
    eUnitPrec6 = 6,
    eUnitPrec7 = 7,
    eUnitPrec8 = 8  ///< "0.00000000", "0 1/256"
};

#endif
