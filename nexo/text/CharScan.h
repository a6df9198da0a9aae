#ifndef NEXO_TEXT_CHARSCAN_H
#define NEXO_TEXT_CHARSCAN_H

#include <cstddef>
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
struct StopSet6 {
    wchar_t characters[6];
};

/// The first of the characters in [from, end), or `end`.
[[nodiscard]] NEXO_API const wchar_t* FindAnyOf(const wchar_t* from, const wchar_t* end,
                                                const StopSet3& stops);
[[nodiscard]] NEXO_API const wchar_t* FindAnyOf(const wchar_t* from, const wchar_t* end,
                                                const StopSet6& stops);

/// The two forms of one letter; equal where there is only one.
struct LetterForms {
    wchar_t one;
    wchar_t other;
};

/// The first p in [from, end) where p[0] is a form of `first` and p[distance] one of `last`, or `end`. Reads
/// up to end[distance - 1].
[[nodiscard]] NEXO_API const wchar_t* FindPair(const wchar_t* from, const wchar_t* end, std::size_t distance,
                                               LetterForms first, LetterForms last);

/// One set of these loops, for one instruction set.
struct ScanKernel {
    const char* name;
    const wchar_t* (*findAny3)(const wchar_t*, const wchar_t*, const StopSet3&);
    const wchar_t* (*findAny6)(const wchar_t*, const wchar_t*, const StopSet6&);
    const wchar_t* (*findPair)(const wchar_t*, const wchar_t*, std::size_t, LetterForms, LetterForms);
};

/// The sets that this processor can run, the fastest first; the last one is the plain form.
[[nodiscard]] NEXO_API std::span<const ScanKernel> ScanKernels();

}  // namespace nexo

#endif
