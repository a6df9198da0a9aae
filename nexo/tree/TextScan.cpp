#include "nexo/tree/TextScan.h"

#include "nexo/base/SlabStore.h"

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace nexo::tree {
namespace {

KnownText LookAheadPlain(const wchar_t* text, std::size_t limit) noexcept {
    std::uint32_t all = 0;
    std::size_t i = 0;
    for (; i < limit && text[i]; ++i) all |= static_cast<std::uint32_t>(text[i]);
    return {i, all > 0xFFFF};
}

#ifdef __x86_64__

/// Reads whole vectors at their own alignment, which cannot leave the page that the terminator is in.
__attribute__((target("avx2"), no_sanitize("address", "thread"))) KnownText LookAheadAvx2(
    const wchar_t* text, std::size_t limit) noexcept {
    constexpr std::size_t kUnits = sizeof(__m256i) / sizeof(wchar_t);
    const std::size_t misaligned = reinterpret_cast<std::uintptr_t>(text) / sizeof(wchar_t) % kUnits;
    const std::size_t head = misaligned == 0 ? 0 : kUnits - misaligned;
    if (limit < head + kUnits) return LookAheadPlain(text, limit);
    KnownText known = LookAheadPlain(text, head);
    if (known.length < head) return known;
    const __m256i zero = _mm256_setzero_si256();
    __m256i all = zero;
    std::size_t i = head;
    for (; i + kUnits <= limit; i += kUnits) {
        const __m256i units = _mm256_load_si256(reinterpret_cast<const __m256i*>(text + i));
        if (!_mm256_testz_si256(_mm256_cmpeq_epi32(units, zero), _mm256_set1_epi8(-1))) break;
        all = _mm256_or_si256(all, units);
    }
    const KnownText tail = LookAheadPlain(text + i, limit - i < kUnits ? limit - i : kUnits);
    const bool foreign = !_mm256_testz_si256(all, _mm256_set1_epi32(static_cast<int>(0xFFFF0000)));
    return {i + tail.length, known.foreign || foreign || tail.foreign};
}

const bool kHasAvx2 = kSlabsEnabled && __builtin_cpu_supports("avx2");

#endif

}  // namespace

KnownText LookAhead(const wchar_t* text, std::size_t limit) noexcept {
#ifdef __x86_64__
    if (kHasAvx2) return LookAheadAvx2(text, limit);
#endif
    return LookAheadPlain(text, limit);
}

}  // namespace nexo::tree
