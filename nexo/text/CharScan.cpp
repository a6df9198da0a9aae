#include "nexo/text/CharScan.h"

#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace nexo {
namespace {

template <std::size_t N>
bool IsStop(wchar_t c, const wchar_t (&stops)[N]) {
    bool found = false;
    for (const wchar_t stop : stops) found |= c == stop;
    return found;
}

template <class Stops>
const wchar_t* FindAnyPlain(const wchar_t* p, const wchar_t* end, const Stops& stops) {
    while (p != end && !IsStop(*p, stops.characters)) ++p;
    return p;
}

bool IsForm(wchar_t c, LetterForms letter) {
    return c == letter.one || c == letter.other;
}

const wchar_t* FindPairPlain(const wchar_t* p, const wchar_t* end, std::size_t distance, LetterForms first,
                             LetterForms last) {
    while (p < end && !(IsForm(p[0], first) && IsForm(p[distance], last))) ++p;
    return p;
}

constexpr ScanKernel kPlain = {"plain", FindAnyPlain<StopSet3>, FindAnyPlain<StopSet6>, FindPairPlain};

#if defined(__x86_64__)

static_assert(sizeof(wchar_t) == sizeof(int));

__m128i Load128(const wchar_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

unsigned MaskOf(__m128i hits) {
    return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(hits)));
}

template <class Stops>
const wchar_t* FindAnySse2(const wchar_t* p, const wchar_t* end, const Stops& stops) {
    for (; end - p >= 4; p += 4) {
        const __m128i block = Load128(p);
        __m128i hits = _mm_setzero_si128();
        for (const wchar_t stop : stops.characters)
            hits = _mm_or_si128(hits, _mm_cmpeq_epi32(block, _mm_set1_epi32(stop)));
        if (const unsigned mask = MaskOf(hits)) return p + __builtin_ctz(mask);
    }
    return FindAnyPlain(p, end, stops);
}

__m128i FormHits(__m128i block, LetterForms letter) {
    return _mm_or_si128(_mm_cmpeq_epi32(block, _mm_set1_epi32(letter.one)),
                        _mm_cmpeq_epi32(block, _mm_set1_epi32(letter.other)));
}

const wchar_t* FindPairSse2(const wchar_t* p, const wchar_t* end, std::size_t distance, LetterForms first,
                            LetterForms last) {
    for (; end - p >= 4; p += 4) {
        const __m128i hits =
            _mm_and_si128(FormHits(Load128(p), first), FormHits(Load128(p + distance), last));
        if (const unsigned mask = MaskOf(hits)) return p + __builtin_ctz(mask);
    }
    return FindPairPlain(p, end, distance, first, last);
}

constexpr ScanKernel kSse2 = {"sse2", FindAnySse2<StopSet3>, FindAnySse2<StopSet6>, FindPairSse2};

#define NEXO_AVX2 __attribute__((target("avx2")))

NEXO_AVX2 inline __m256i Load256(const wchar_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

NEXO_AVX2 inline unsigned MaskOf(__m256i hits) {
    return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(hits)));
}

template <class Stops>
NEXO_AVX2 const wchar_t* FindAnyAvx2(const wchar_t* p, const wchar_t* end, const Stops& stops) {
    for (; end - p >= 8; p += 8) {
        const __m256i block = Load256(p);
        __m256i hits = _mm256_setzero_si256();
        for (const wchar_t stop : stops.characters)
            hits = _mm256_or_si256(hits, _mm256_cmpeq_epi32(block, _mm256_set1_epi32(stop)));
        if (const unsigned mask = MaskOf(hits)) return p + __builtin_ctz(mask);
    }
    return FindAnySse2(p, end, stops);
}

NEXO_AVX2 inline __m256i FormHits(__m256i block, __m256i one, __m256i other) {
    return _mm256_or_si256(_mm256_cmpeq_epi32(block, one), _mm256_cmpeq_epi32(block, other));
}

NEXO_AVX2 const wchar_t* FindPairAvx2(const wchar_t* p, const wchar_t* end, std::size_t distance,
                                      LetterForms first, LetterForms last) {
    const __m256i first1 = _mm256_set1_epi32(first.one), first2 = _mm256_set1_epi32(first.other);
    const __m256i last1 = _mm256_set1_epi32(last.one), last2 = _mm256_set1_epi32(last.other);
    const auto hitsAt = [=](const wchar_t* at) NEXO_AVX2 {
        return _mm256_and_si256(FormHits(Load256(at), first1, first2),
                                FormHits(Load256(at + distance), last1, last2));
    };
    for (; end - p >= 16; p += 16) {
        const __m256i low = hitsAt(p), high = hitsAt(p + 8);
        if (_mm256_testz_si256(_mm256_or_si256(low, high), _mm256_or_si256(low, high))) continue;
        return p + __builtin_ctz(MaskOf(low) | MaskOf(high) << 8);
    }
    return FindPairSse2(p, end, distance, first, last);
}

#undef NEXO_AVX2

constexpr ScanKernel kAvx2 = {"avx2", FindAnyAvx2<StopSet3>, FindAnyAvx2<StopSet6>, FindPairAvx2};

std::vector<ScanKernel> Available() {
    if (__builtin_cpu_supports("avx2")) return {kAvx2, kSse2, kPlain};
    return {kSse2, kPlain};
}

#else

std::vector<ScanKernel> Available() {
    return {kPlain};
}

#endif

const ScanKernel& Best() {
    static const ScanKernel best = Available().front();
    return best;
}

}  // namespace

const wchar_t* FindAnyOf(const wchar_t* from, const wchar_t* end, const StopSet3& stops) {
    return Best().findAny3(from, end, stops);
}

const wchar_t* FindAnyOf(const wchar_t* from, const wchar_t* end, const StopSet6& stops) {
    return Best().findAny6(from, end, stops);
}

const wchar_t* FindPair(const wchar_t* from, const wchar_t* end, std::size_t distance, LetterForms first,
                        LetterForms last) {
    return Best().findPair(from, end, distance, first, last);
}

std::span<const ScanKernel> ScanKernels() {
    static const std::vector<ScanKernel> kernels = Available();
    return kernels;
}

}  // namespace nexo
