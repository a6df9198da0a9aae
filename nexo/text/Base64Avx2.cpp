#include "nexo/text/Base64Kernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <cstdint>

#define NEXO_AVX2 __attribute__((target("avx2")))

namespace nexo {
namespace {

NEXO_AVX2 inline __m256i Load(const void* from) {
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

NEXO_AVX2 inline __m256i LoadHalves(const void* low, const void* high) {
    const __m128i first = _mm_loadu_si128(static_cast<const __m128i*>(low));
    return _mm256_inserti128_si256(_mm256_castsi128_si256(first),
                                   _mm_loadu_si128(static_cast<const __m128i*>(high)), 1);
}

NEXO_AVX2 inline void Store(void* to, __m256i value) {
    _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

NEXO_AVX2 inline __m256i SameHalves(__m128i half) {
    return _mm256_broadcastsi128_si256(half);
}

/// The 32 characters of the 24 bytes that are the first twelve of each half of `bytes`.
NEXO_AVX2 inline __m256i EncodeBlock(__m256i bytes) {
    // Bytes a b c become b a c b, so that each 6-bit group can be shifted to its place by one 16-bit
    // multiply.
    const __m256i spread = _mm256_shuffle_epi8(
        bytes, SameHalves(_mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10)));
    const __m256i even = _mm256_mulhi_epu16(_mm256_and_si256(spread, _mm256_set1_epi32(0x0FC0FC00)),
                                            _mm256_set1_epi32(0x04000040));
    const __m256i odd = _mm256_mullo_epi16(_mm256_and_si256(spread, _mm256_set1_epi32(0x003F03F0)),
                                           _mm256_set1_epi32(0x01000010));
    const __m256i values = _mm256_or_si256(even, odd);

    // What to add to a value depends on its range: 0 for A..Z, 1 for a..z, 2 to 11 for 0..9, 12 "+", 13 "/".
    const __m256i aboveUpper = _mm256_cmpgt_epi8(values, _mm256_set1_epi8(25));
    const __m256i range = _mm256_sub_epi8(_mm256_subs_epu8(values, _mm256_set1_epi8(51)), aboveUpper);
    const __m256i distance =
        SameHalves(_mm_setr_epi8('A', 'a' - 26, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52,
                                 '0' - 52, '0' - 52, '0' - 52, '0' - 52, '+' - 62, '/' - 63, 0, 0));
    return _mm256_add_epi8(values, _mm256_shuffle_epi8(distance, range));
}

/// Not zero at every character that is not of the alphabet: where the bit of its high half is among the bits
/// of its low half. The bits stand for the high halves with the same set of allowed low halves.
NEXO_AVX2 inline __m256i Faults(__m256i text) {
    const __m256i ofLow = SameHalves(_mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                                   0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A));
    const __m256i ofHigh = SameHalves(_mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10,
                                                    0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10));
    const __m256i nibble = _mm256_set1_epi8(0x0F);
    return _mm256_and_si256(
        _mm256_shuffle_epi8(ofLow, _mm256_and_si256(text, nibble)),
        _mm256_shuffle_epi8(ofHigh, _mm256_and_si256(_mm256_srli_epi32(text, 4), nibble)));
}

NEXO_AVX2 inline bool NoFault(__m256i faults) {
    return _mm256_testz_si256(faults, faults) != 0;
}

/// The 24 bytes that 32 characters of the alphabet stand for, in the first twelve of each half.
NEXO_AVX2 inline __m256i DecodeBlock(__m256i text) {
    const __m256i high = _mm256_and_si256(_mm256_srli_epi32(text, 4), _mm256_set1_epi8(0x0F));
    const __m256i slash = _mm256_cmpeq_epi8(text, _mm256_set1_epi8('/'));
    // What to add depends on the high half alone, but for "+" and "/", which share theirs.
    const __m256i distance = SameHalves(_mm_setr_epi8(0, 63 - '/', 62 - '+', 52 - '0', -'A', -'A', 26 - 'a',
                                                      26 - 'a', 0, 0, 0, 0, 0, 0, 0, 0));
    const __m256i values = _mm256_add_epi8(text, _mm256_shuffle_epi8(distance, _mm256_add_epi8(slash, high)));

    const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi32(0x01400140));
    const __m256i groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
    return _mm256_shuffle_epi8(
        groups, SameHalves(_mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1)));
}

/// The low 16 bits of eight code units at `low` and eight at `high`, in the order a pack leaves them.
NEXO_AVX2 inline __m256i PackUnits(__m256i first, __m256i second) {
    const __m256i unit = _mm256_set1_epi32(0xFFFF);
    return _mm256_packus_epi32(_mm256_and_si256(first, unit), _mm256_and_si256(second, unit));
}

/// Thirty-two code units as bytes; one beyond 255 becomes a byte that is no character of the alphabet.
NEXO_AVX2 inline __m256i NarrowUnits(const wchar_t* in) {
    const __m256i low = _mm256_packus_epi32(Load(in), Load(in + 8));
    const __m256i high = _mm256_packus_epi32(Load(in + 16), Load(in + 24));
    return _mm256_permutevar8x32_epi32(_mm256_packus_epi16(low, high),
                                       _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

NEXO_AVX2 std::size_t Encode(const unsigned char* in, std::size_t n, char* out) {
    std::size_t done = 0;
    // The second load ends 28 bytes behind the position.
    for (; n - done >= 28; done += 24, out += 32)
        Store(out, EncodeBlock(LoadHalves(in + done, in + done + 12)));
    return done;
}

NEXO_AVX2 std::size_t EncodeWide(const wchar_t* in, std::size_t n, wchar_t* out) {
    std::size_t done = 0;
    for (; n - done >= 14; done += 12, out += 32) {
        const wchar_t* units = in + done;
        const __m256i text =
            EncodeBlock(PackUnits(LoadHalves(units, units + 6), LoadHalves(units + 4, units + 10)));
        const __m128i low = _mm256_castsi256_si128(text);
        const __m128i high = _mm256_extracti128_si256(text, 1);
        Store(out, _mm256_cvtepu8_epi32(low));
        Store(out + 8, _mm256_cvtepu8_epi32(_mm_srli_si128(low, 8)));
        Store(out + 16, _mm256_cvtepu8_epi32(high));
        Store(out + 24, _mm256_cvtepu8_epi32(_mm_srli_si128(high, 8)));
    }
    return done;
}

NEXO_AVX2 inline bool IsAlphabet(const char* block) {
    const __m256i first = _mm256_or_si256(Faults(Load(block)), Faults(Load(block + 32)));
    const __m256i second = _mm256_or_si256(Faults(Load(block + 64)), Faults(Load(block + 96)));
    return NoFault(_mm256_or_si256(first, second));
}

NEXO_AVX2 std::size_t Span(const char* in, std::size_t n) {
    if (n < 128 || !IsAlphabet(in)) return 0;
    // From the next cache line on, which the first block has covered, no load touches two lines.
    std::size_t done = 64 - reinterpret_cast<std::uintptr_t>(in) % 64;
    while (n - done >= 128 && IsAlphabet(in + done)) done += 128;
    return done;
}

NEXO_AVX2 std::size_t Decode(const char* in, std::size_t n, unsigned char* out) {
    std::size_t done = 0;
    // 24 of the 32 bytes stored count; 44 characters make sure that there is room for the others.
    for (; n - done >= 44; done += 32, out += 24) {
        const __m256i bytes = DecodeBlock(Load(in + done));
        Store(out, _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7)));
    }
    return done;
}

NEXO_AVX2 std::size_t DecodeWide(const wchar_t* in, std::size_t n, wchar_t* out) {
    std::size_t done = 0;
    for (; n - done >= 32; done += 32, out += 12) {
        const __m256i text = NarrowUnits(in + done);
        if (!NoFault(Faults(text))) break;
        const __m256i bytes =
            _mm256_permutevar8x32_epi32(DecodeBlock(text), _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7));
        Store(out, _mm256_cvtepu16_epi32(_mm256_castsi256_si128(bytes)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8),
                         _mm_cvtepu16_epi32(_mm256_extracti128_si256(bytes, 1)));
    }
    return done;
}

}  // namespace

void AddBase64Avx2(std::vector<Base64Kernel>& kernels) {
    if (__builtin_cpu_supports("avx2"))
        kernels.push_back({"avx2", Encode, EncodeWide, Span, Decode, DecodeWide});
}

}  // namespace nexo

#else

void nexo::AddBase64Avx2(std::vector<Base64Kernel>&) {}

#endif
