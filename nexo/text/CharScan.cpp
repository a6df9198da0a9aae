#include "nexo/text/CharScan.h"

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

const wchar_t* FindAnyPlain(const wchar_t* p, const wchar_t* end, const StopSet3& stops) {
    while (p != end && !IsStop(*p, stops.characters)) ++p;
    return p;
}

std::uint64_t StopMaskPlain(const wchar_t* p, std::size_t count, const StopSet6& stops) {
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < count; ++i)
        mask |= std::uint64_t{IsStop(p[i], stops.characters) || static_cast<std::uint32_t>(p[i]) > 0xFFFF}
                << i;
    return mask;
}

const wchar_t* CopyUntilAnyPlain(wchar_t* out, const wchar_t* p, const wchar_t* end, const StopSet4& stops) {
    while (p != end && !IsStop(*p, stops.characters)) *out++ = *p++;
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

constexpr ScanKernel kPlain = {"plain", FindAnyPlain, StopMaskPlain, CopyUntilAnyPlain, FindPairPlain};

#if defined(__x86_64__)

static_assert(sizeof(wchar_t) == sizeof(int));

__m128i Load128(const wchar_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

unsigned MaskOf(__m128i hits) {
    return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(hits)));
}

template <class Stops>
unsigned StopHits(__m128i block, const Stops& stops) {
    __m128i hits = _mm_setzero_si128();
    for (const wchar_t stop : stops.characters)
        hits = _mm_or_si128(hits, _mm_cmpeq_epi32(block, _mm_set1_epi32(stop)));
    return MaskOf(hits);
}

const wchar_t* FindAnySse2(const wchar_t* p, const wchar_t* end, const StopSet3& stops) {
    for (; end - p >= 4; p += 4) {
        if (const unsigned mask = StopHits(Load128(p), stops)) return p + __builtin_ctz(mask);
    }
    return FindAnyPlain(p, end, stops);
}

unsigned ForeignHits(__m128i block) {
    return MaskOf(_mm_cmpgt_epi32(_mm_srli_epi32(block, 16), _mm_setzero_si128()));
}

std::uint64_t StopMaskSse2(const wchar_t* p, std::size_t count, const StopSet6& stops) {
    std::uint64_t mask = 0;
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i block = Load128(p + i);
        mask |= std::uint64_t{StopHits(block, stops) | ForeignHits(block)} << i;
    }
    return i < count ? mask | StopMaskPlain(p + i, count - i, stops) << i : mask;
}

const wchar_t* CopyUntilAnySse2(wchar_t* out, const wchar_t* p, const wchar_t* end, const StopSet4& stops) {
    for (; end - p >= 4; p += 4, out += 4) {
        const __m128i block = Load128(p);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), block);
        if (const unsigned mask = StopHits(block, stops)) return p + __builtin_ctz(mask);
    }
    return CopyUntilAnyPlain(out, p, end, stops);
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

constexpr ScanKernel kSse2 = {"sse2", FindAnySse2, StopMaskSse2, CopyUntilAnySse2, FindPairSse2};

#define NEXO_AVX2 __attribute__((target("avx2")))

NEXO_AVX2 inline __m256i Load256(const wchar_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

NEXO_AVX2 inline unsigned MaskOf(__m256i hits) {
    return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(hits)));
}

/// The first `count` of eight characters, zeros behind them; reads no more. Slow where `p` points nowhere,
/// as it does in empty texts.
NEXO_AVX2 inline __m256i LoadFirst(const wchar_t* p, std::size_t count) {
    alignas(32) static constexpr int lanes[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
    const __m256i wanted = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(lanes + 8 - count));
    return _mm256_maskload_epi32(reinterpret_cast<const int*>(p), wanted);
}

template <class Stops>
NEXO_AVX2 inline unsigned StopHits(__m256i block, const Stops& stops) {
    __m256i hits = _mm256_setzero_si256();
    for (const wchar_t stop : stops.characters)
        hits = _mm256_or_si256(hits, _mm256_cmpeq_epi32(block, _mm256_set1_epi32(stop)));
    return MaskOf(hits);
}

NEXO_AVX2 const wchar_t* FindAnyAvx2(const wchar_t* p, const wchar_t* end, const StopSet3& stops) {
    for (; end - p >= 8; p += 8) {
        if (const unsigned mask = StopHits(Load256(p), stops)) return p + __builtin_ctz(mask);
    }
    if (p == end) return end;
    const auto rest = static_cast<std::size_t>(end - p);
    const unsigned mask = StopHits(LoadFirst(p, rest), stops) | 1u << rest;
    return p + __builtin_ctz(mask);
}

NEXO_AVX2 inline unsigned StopOrForeignHits(__m256i block, const StopSet6& stops) {
    const __m256i foreign = _mm256_cmpgt_epi32(_mm256_srli_epi32(block, 16), _mm256_setzero_si256());
    return StopHits(block, stops) | MaskOf(foreign);
}

NEXO_AVX2 std::uint64_t StopMaskAvx2(const wchar_t* p, std::size_t count, const StopSet6& stops) {
    std::uint64_t mask = 0;
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) mask |= std::uint64_t{StopOrForeignHits(Load256(p + i), stops)} << i;
    if (i == count) return mask;
    const unsigned rest = StopOrForeignHits(LoadFirst(p + i, count - i), stops);
    return mask | std::uint64_t{rest & ((1u << (count - i)) - 1)} << i;
}

NEXO_AVX2 inline void Store256(wchar_t* out, __m256i block) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), block);
}

/// Up to 16 characters are copied without a branch on how many there are: most fields are as short.
NEXO_AVX2 const wchar_t* CopyUntilAnyAvx2(wchar_t* out, const wchar_t* p, const wchar_t* end,
                                          const StopSet4& wanted) {
    const StopSet4 stops = wanted;  // which no store to `out` can change, so that they stay in registers
    for (; end - p > 16; p += 8, out += 8) {
        const __m256i block = Load256(p);
        Store256(out, block);
        if (const unsigned mask = StopHits(block, stops)) return p + __builtin_ctz(mask);
    }
    if (p == end) return end;
    const auto count = static_cast<std::size_t>(end - p);
    const std::size_t first = count < 8 ? count : 8;
    const __m256i low = LoadFirst(p, first), high = LoadFirst(p + first, count - first);
    Store256(out, low);
    Store256(out + first, high);
    const unsigned mask = (StopHits(low, stops) | StopHits(high, stops) << first) & ((1u << count) - 1);
    return mask == 0 ? end : p + __builtin_ctz(mask);
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

constexpr ScanKernel kAvx2 = {"avx2", FindAnyAvx2, StopMaskAvx2, CopyUntilAnyAvx2, FindPairAvx2};

constexpr ScanKernel kKernels[] = {kAvx2, kSse2, kPlain};

std::size_t FirstAvailable() {
    return __builtin_cpu_supports("avx2") ? 0 : 1;
}

#else

constexpr ScanKernel kKernels[] = {kPlain};

std::size_t FirstAvailable() {
    return 0;
}

#endif

}  // namespace

constinit const ScanKernel* bestScan = &kPlain;
static const bool bestScanIsSet = (bestScan = &kKernels[FirstAvailable()]) != nullptr;

std::span<const ScanKernel> ScanKernels() {
    return std::span(kKernels).subspan(FirstAvailable());
}

}  // namespace nexo
