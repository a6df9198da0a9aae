#ifndef NEXO_GEOM_RANDOM_H
#define NEXO_GEOM_RANDOM_H

// Uniformly distributed random numbers, singly and in arrays. Not for secrets.

#include "nexo/base/CArray.h"
#include "nexo/base/Export.h"

/// Static functions only; safe from any thread.
///
/// Each call builds its generator anew, so many numbers are cheaper by one array call than one by one. Whole
/// numbers lie in [min, max], doubles in [min, max); bounds in the wrong order are swapped, equal ones give
/// that number; doubles between bounds that are not finite are of no use, but defined.
class NEXO_API moxRandom {
public:
    enum enRandom : int {
        eMersenneTwister = 0,  // 32-bit MT19937, seeded by one value of the system's random device
        eRandomDevice = 1,     // the random device itself, like every other value
    };

    [[nodiscard]] static int generateRndNumber(int min, int max, enRandom source);
    [[nodiscard]] static double generateRndNumber(double min, double max, enRandom source);

    /// Writes `count` numbers to `out`. When `out` is null an array is allocated first, which the caller
    /// releases with delete[]; otherwise it must have room for them. Without a positive count nothing
    /// changes.
    static void generateRndNumbers(int*& out, int count, int min, int max, enRandom source);
    static void generateRndNumbers(double*& out, int count, double min, double max, enRandom source);

    /// Makes `out` hold exactly `count` numbers, none when `count` is negative.
    static void generateRndNumbers(CArray<int>& out, int count, int min, int max, enRandom source);
    static void generateRndNumbers(CArray<double>& out, int count, double min, double max, enRandom source);
};

#endif
