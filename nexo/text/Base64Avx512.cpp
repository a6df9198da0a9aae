#include "nexo/text/Base64Kernels.h"

#if defined(__x86_64__)

#if defined(__GNUC__) && !defined(__clang__)
// The compiler's own header leaves the operands that a full mask replaces unset on purpose.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <immintrin.h>

#include <cstdint>

#define NEXO_AVX512 __attribute__((target("avx512vbmi,avx512bw")))

namespace nexo {
namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// A register full of byte positions or values.
struct alignas(64) Lanes {
    unsigned char at[64];
};

/// Bytes a b c of each group as b a c b, in which each group of 6 bits lies within 8 bits in a row.
constexpr Lanes MakeSpread() {
    constexpr unsigned order[4] = {1, 0, 2, 1};
    Lanes lanes{};
    for (unsigned i = 0; i < 64; ++i) lanes.at[i] = static_cast<unsigned char>(i / 4 * 3 + order[i % 4]);
    return lanes;
}
constexpr Lanes spread = MakeSpread();

/// Gathers the three bytes that DecodeBlock leaves in four, highest first.
constexpr Lanes MakeGather() {
    Lanes lanes{};
    for (unsigned i = 0; i < 48; ++i) lanes.at[i] = static_cast<unsigned char>(i / 3 * 4 + 2 - i % 3);
    return lanes;
}
constexpr Lanes gather = MakeGather();

/// The values of the 128 characters of ASCII, 0x80 where there is none.
struct alignas(64) Values {
    unsigned char of[128];
};
constexpr Values MakeValues() {
    Values values{};
    for (unsigned char& value : values.of) value = 0x80;
    for (unsigned char i = 0; i < 64; ++i) values.of[static_cast<unsigned char>(alphabet[i])] = i;
    return values;
}
constexpr Values values = MakeValues();

NEXO_AVX512 inline __m512i Load(const void* from) {
    return _mm512_loadu_si512(from);
}

/// The 64 characters of the first 48 bytes.
NEXO_AVX512 inline __m512i EncodeBlock(__m512i bytes) {
    const __m512i shifts = _mm512_set1_epi64(0x3036242A1016040A);
    const __m512i groups =
        _mm512_multishift_epi64_epi8(shifts, _mm512_permutexvar_epi8(Load(spread.at), bytes));
    return _mm512_permutexvar_epi8(groups, Load(alphabet));
}

/// The value of each character. One that is no character of the alphabet sets the highest bit of `faults`.
NEXO_AVX512 inline __m512i ValuesOf(__m512i text, __m512i& faults) {
    const __m512i found = _mm512_permutex2var_epi8(Load(values.of), text, Load(values.of + 64));
    faults = _mm512_ternarylogic_epi32(faults, found, text, 0xFE);  // or of all three
    return found;
}

NEXO_AVX512 inline bool NoFault(__m512i faults) {
    return _mm512_movepi8_mask(faults) == 0;
}

/// The 48 bytes that 64 values stand for, followed by 16 of any value.
NEXO_AVX512 inline __m512i DecodeBlock(__m512i found) {
    const __m512i pairs = _mm512_maddubs_epi16(found, _mm512_set1_epi32(0x01400140));
    const __m512i groups = _mm512_madd_epi16(pairs, _mm512_set1_epi32(0x00011000));
    return _mm512_permutexvar_epi8(Load(gather.at), groups);
}

NEXO_AVX512 std::size_t Encode(const unsigned char* in, std::size_t n, char* out) {
    std::size_t done = 0;
    for (; n - done >= 64; done += 48, out += 64) _mm512_storeu_si512(out, EncodeBlock(Load(in + done)));
    return done;
}

NEXO_AVX512 inline bool IsAlphabet(const char* block) {
    __m512i faults = _mm512_setzero_si512();
    ValuesOf(Load(block), faults);
    ValuesOf(Load(block + 64), faults);
    return NoFault(faults);
}

NEXO_AVX512 std::size_t Span(const char* in, std::size_t n) {
    if (n < 128 || !IsAlphabet(in)) return 0;
    // From the next cache line on, which the first block has covered, no load touches two lines.
    std::size_t done = 64 - reinterpret_cast<std::uintptr_t>(in) % 64;
    while (n - done >= 128 && IsAlphabet(in + done)) done += 128;
    return done;
}

NEXO_AVX512 std::size_t Decode(const char* in, std::size_t n, unsigned char* out) {
    std::size_t done = 0;
    for (__m512i faults = _mm512_setzero_si512(); n - done >= 64; done += 64, out += 48) {
        const __m512i bytes = DecodeBlock(ValuesOf(Load(in + done), faults));
        // One store of 64 bytes would nearly always touch two cache lines.
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm512_castsi512_si256(bytes));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 32), _mm512_extracti32x4_epi32(bytes, 2));
    }
    return done;
}

/// Sixty-four code units as bytes; one beyond 255 becomes 255, which is no character of the alphabet.
NEXO_AVX512 inline __m512i NarrowUnits(const wchar_t* in) {
    const __m256i low = _mm256_inserti128_si256(_mm256_castsi128_si256(_mm512_cvtusepi32_epi8(Load(in))),
                                                _mm512_cvtusepi32_epi8(Load(in + 16)), 1);
    const __m256i high =
        _mm256_inserti128_si256(_mm256_castsi128_si256(_mm512_cvtusepi32_epi8(Load(in + 32))),
                                _mm512_cvtusepi32_epi8(Load(in + 48)), 1);
    return _mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1);
}

NEXO_AVX512 std::size_t DecodeWide(const wchar_t* in, std::size_t n, wchar_t* out) {
    std::size_t done = 0;
    for (; n - done >= 64; done += 64, out += 24) {
        __m512i faults = _mm512_setzero_si512();
        const __m512i found = ValuesOf(NarrowUnits(in + done), faults);
        if (!NoFault(faults)) break;
        const __m512i bytes = DecodeBlock(found);
        _mm512_storeu_si512(out, _mm512_cvtepu16_epi32(_mm512_castsi512_si256(bytes)));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + 16),
                            _mm256_cvtepu16_epi32(_mm512_extracti32x4_epi32(bytes, 2)));
    }
    return done;
}

}  // namespace

void AddBase64Avx512(std::vector<Base64Kernel>& kernels) {
    if (!__builtin_cpu_supports("avx512vbmi") || !__builtin_cpu_supports("avx512bw")) return;
    // Code units are encoded by the set for 32-byte registers, which is faster: nearly all the time goes into
    // stores, and unaligned ones of 64 bytes touch two cache lines each.
    kernels.push_back({"avx512", Encode, kernels.back().encodeWide, Span, Decode, DecodeWide});
}

}  // namespace nexo

#else

void nexo::AddBase64Avx512(std::vector<Base64Kernel>&) {}

#endif
