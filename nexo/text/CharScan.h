#ifndef NEXO_TEXT_CHARSCAN_H
#define NEXO_TEXT_CHARSCAN_H

// Private to the library.

#include <cstddef>
#include <cstdint>
#include <span>

#include "nexo/base/Export.h"

// The inner loops that all scanners of wide text share: finding the next of a few characters, and finding
// pairs of characters at a fixed distance. Nothing outside of the range given is read. Safe from any thread;
// linear.

namespace nexo {

/// Characters that end a scan; one may stand twice.
struct StopSet3 {
    wchar_t characters[3];
};
struct StopSet4 {
    wchar_t characters[4];
};
struct StopSet6 {
    wchar_t characters[6];
};

/// The two forms of one letter; equal where there is only one.
struct LetterForms {
    wchar_t one;
    wchar_t other;
};

/// One set of the loops, for one instruction set; what each does is told at the function of its name below.
struct ScanKernel {
    const char* name;
    const wchar_t* (*findAny)(const wchar_t*, const wchar_t*, const StopSet3&);
    std::uint64_t (*stopMask)(const wchar_t*, std::size_t, const StopSet6&);
    const wchar_t* (*copyUntilAny)(wchar_t*, const wchar_t*, const wchar_t*, const StopSet4&);
    const wchar_t* (*findPair)(const wchar_t*, const wchar_t*, std::size_t, LetterForms, LetterForms);
};

/// The sets that this processor can run, the fastest first; the last one is the plain form.
[[nodiscard]] NEXO_API std::span<const ScanKernel> ScanKernels();

/// The set in use: the fastest, once the library is loaded.
extern NEXO_API const ScanKernel* bestScan;

/// The first of the characters in [from, end), or `end`.
[[nodiscard]] inline const wchar_t* FindAnyOf(const wchar_t* from, const wchar_t* end,
                                              const StopSet3& stops) {
    return bestScan->findAny(from, end, stops);
}

/// A bit for each of the `count` characters, at most 64, that is one of the stops or no code unit (above
/// U+FFFF).
[[nodiscard]] inline std::uint64_t StopMask(const wchar_t* from, std::size_t count, const StopSet6& stops) {
    return bestScan->stopMask(from, count, stops);
}

/// Copies characters until one of the stops or the end, and returns where it stood. There must be room for
/// kCopySlack characters more than [from, end) holds; what is written behind the copied ones is undefined.
inline const wchar_t* CopyUntilAnyOf(wchar_t* out, const wchar_t* from, const wchar_t* end,
                                     const StopSet4& stops) {
    return bestScan->copyUntilAny(out, from, end, stops);
}
inline constexpr std::size_t kCopySlack = 16;

/// The first p in [from, end) where p[0] is a form of `first` and p[distance] one of `last`, or `end`. Reads
/// up to end[distance - 1].
[[nodiscard]] inline const wchar_t* FindPair(const wchar_t* from, const wchar_t* end, std::size_t distance,
                                             LetterForms first, LetterForms last) {
    return bestScan->findPair(from, end, distance, first, last);
}

}  // namespace nexo

#endif
