#include "nexo/text/Crc32Kernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

// Bodies are inlined into the entries below, whose instruction sets contain theirs.
#define NEXO_CLMUL __attribute__((target("pclmul,sse4.1"), always_inline)) inline
#define NEXO_WIDE_CLMUL __attribute__((target("vpclmulqdq,pclmul,avx2"), always_inline)) inline

namespace nexo {
namespace {

/// x^n modulo the polynomial, in the bit order of the checksum (x^0 is bit 31), times x: the factor that
/// moves 64 bits of a lane n bits ahead. The extra x makes up for the bit that a product of reflected factors
/// lacks.
constexpr long long ShiftBy(int n) {
    std::uint32_t power = 0x80000000u;
    for (int i = 0; i < n; ++i) power = (power >> 1) ^ (power & 1 ? 0xEDB88320u : 0u);
    return static_cast<long long>(power) << 1;
}

/// The factors that move the low half of a lane, which lies 32 bits further, and its high half by `bits`.
template <int bits>
struct Factors {
    static constexpr long long forLow = ShiftBy(bits + 32), forHigh = ShiftBy(bits - 32);
};

NEXO_CLMUL __m128i Load(const unsigned char* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

/// `lane` moved ahead by `bits`, onto `data`.
template <int bits>
NEXO_CLMUL __m128i Fold(__m128i lane, __m128i data) {
    const __m128i factors = _mm_set_epi64x(Factors<bits>::forHigh, Factors<bits>::forLow);
    const __m128i low = _mm_clmulepi64_si128(lane, factors, 0x00);
    const __m128i high = _mm_clmulepi64_si128(lane, factors, 0x11);
    return _mm_xor_si128(_mm_xor_si128(low, high), data);
}

/// Goes on with one lane to the end of the data.
NEXO_CLMUL std::uint32_t Finish(__m128i lane, const unsigned char* data, std::size_t n) {
    for (; n >= 16; data += 16, n -= 16) lane = Fold<128>(lane, Load(data));
    // What came so far is congruent to these sixteen bytes, followed by the rest.
    unsigned char folded[16];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(folded), lane);
    return UpdateCrc32ByTables(UpdateCrc32ByTables(0, folded, sizeof folded), data, n);
}

/// Four lanes of 16 bytes; at least 64 bytes.
NEXO_CLMUL std::uint32_t FourLanes(std::uint32_t state, const unsigned char* data, std::size_t n) {
    __m128i lane0 = _mm_xor_si128(Load(data), _mm_cvtsi32_si128(static_cast<int>(state)));
    __m128i lane1 = Load(data + 16), lane2 = Load(data + 32), lane3 = Load(data + 48);
    data += 64, n -= 64;
    for (; n >= 64; data += 64, n -= 64) {
        lane0 = Fold<512>(lane0, Load(data));
        lane1 = Fold<512>(lane1, Load(data + 16));
        lane2 = Fold<512>(lane2, Load(data + 32));
        lane3 = Fold<512>(lane3, Load(data + 48));
    }
    return Finish(Fold<256>(Fold<128>(lane0, lane1), Fold<128>(lane2, lane3)), data, n);
}

NEXO_WIDE_CLMUL __m256i WideLoad(const unsigned char* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

template <int bits>
NEXO_WIDE_CLMUL __m256i WideFold(__m256i lane, __m256i data) {
    const __m256i factors = _mm256_setr_epi64x(Factors<bits>::forLow, Factors<bits>::forHigh,
                                               Factors<bits>::forLow, Factors<bits>::forHigh);
    const __m256i low = _mm256_clmulepi64_epi128(lane, factors, 0x00);
    const __m256i high = _mm256_clmulepi64_epi128(lane, factors, 0x11);
    return _mm256_xor_si256(_mm256_xor_si256(low, high), data);
}

/// Four lanes of 32 bytes; at least 128 bytes.
NEXO_WIDE_CLMUL std::uint32_t FourWideLanes(std::uint32_t state, const unsigned char* data, std::size_t n) {
    const __m128i start = _mm_cvtsi32_si128(static_cast<int>(state));
    __m256i lane0 = _mm256_xor_si256(WideLoad(data), _mm256_zextsi128_si256(start));
    __m256i lane1 = WideLoad(data + 32), lane2 = WideLoad(data + 64), lane3 = WideLoad(data + 96);
    data += 128, n -= 128;
    for (; n >= 128; data += 128, n -= 128) {
        lane0 = WideFold<1024>(lane0, WideLoad(data));
        lane1 = WideFold<1024>(lane1, WideLoad(data + 32));
        lane2 = WideFold<1024>(lane2, WideLoad(data + 64));
        lane3 = WideFold<1024>(lane3, WideLoad(data + 96));
    }
    const __m256i lane = WideFold<512>(WideFold<256>(lane0, lane1), WideFold<256>(lane2, lane3));
    return Finish(Fold<128>(_mm256_castsi256_si128(lane), _mm256_extracti128_si256(lane, 1)), data, n);
}

__attribute__((target("pclmul,sse4.1"))) std::uint32_t UpdateSse(std::uint32_t state,
                                                                 const unsigned char* data, std::size_t n) {
    return n < 64 ? UpdateCrc32ByTables(state, data, n) : FourLanes(state, data, n);
}

/// The same loop without the register copies that instructions of two operands need.
__attribute__((target("pclmul,avx"))) std::uint32_t UpdateAvx(std::uint32_t state, const unsigned char* data,
                                                              std::size_t n) {
    return n < 64 ? UpdateCrc32ByTables(state, data, n) : FourLanes(state, data, n);
}

__attribute__((target("vpclmulqdq,pclmul,avx2"))) std::uint32_t UpdateWide(std::uint32_t state,
                                                                           const unsigned char* data,
                                                                           std::size_t n) {
    return n < 256 ? UpdateAvx(state, data, n) : FourWideLanes(state, data, n);
}

}  // namespace

void AddCrc32Clmul(std::vector<Crc32Kernel>& kernels) {
    if (!__builtin_cpu_supports("pclmul") || !__builtin_cpu_supports("sse4.1")) return;
    const bool avx = __builtin_cpu_supports("avx") != 0;
    if (avx && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("vpclmulqdq"))
        kernels.push_back({"vpclmul", UpdateWide});
    if (avx) kernels.push_back({"clmul, avx", UpdateAvx});
    kernels.push_back({"clmul", UpdateSse});
}

}  // namespace nexo

#else

void nexo::AddCrc32Clmul(std::vector<Crc32Kernel>&) {}

#endif
