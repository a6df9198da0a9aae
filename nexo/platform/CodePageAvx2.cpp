#include "nexo/platform/CodePageKernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <bit>
#include <cstdint>
#include <cstring>

#define NEXO_KERNEL __attribute__((target("avx2,bmi")))

namespace nexo::platform {
namespace {

struct Block {
    static constexpr std::ptrdiff_t kUnits = 32;

    NEXO_KERNEL static __m256i Load(const void* from) {
        return _mm256_loadu_si256(static_cast<const __m256i*>(from));
    }
    NEXO_KERNEL static void Store(void* to, __m256i value) {
        _mm256_storeu_si256(static_cast<__m256i*>(to), value);
    }
    NEXO_KERNEL static __m128i LoadHalf(const void* from) {
        return _mm_loadu_si128(static_cast<const __m128i*>(from));
    }
    NEXO_KERNEL static void StoreHalf(void* to, __m128i value) {
        _mm_storeu_si128(static_cast<__m128i*>(to), value);
    }

    // Number of leading lanes whose bits are all set, in a mask of `bits` bits to the lane.
    NEXO_KERNEL static std::ptrdiff_t LeadingSet(std::uint32_t mask, int bits) {
        return std::countr_one(mask) / bits;
    }

    NEXO_KERNEL static void Widen(const unsigned char* in, wchar_t* out) {
        for (int i = 0; i < 4; ++i)
            Store(out + 8 * i,
                  _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(in + 8 * i))));
    }

    NEXO_KERNEL static std::ptrdiff_t WidenAscii(const unsigned char* in, wchar_t* out) {
        Widen(in, out);
        const auto high = static_cast<std::uint32_t>(_mm256_movemask_epi8(Load(in)));
        return high == 0 ? kUnits : std::countr_zero(high);
    }

    NEXO_KERNEL static void WidenPage(const SingleBytePage& page, const unsigned char* in, wchar_t* out) {
        const __m256i bytes = Load(in);
        if (page.latin) {
            const __m256i middle = _mm256_cmpeq_epi8(_mm256_and_si256(bytes, _mm256_set1_epi8(char(0xE0))),
                                                     _mm256_set1_epi8(char(0x80)));
            if (_mm256_testz_si256(middle, middle)) return Widen(in, out);
        } else if (_mm256_movemask_epi8(bytes) == 0) {
            return Widen(in, out);
        }
        for (std::ptrdiff_t i = 0; i < kUnits; ++i) out[i] = page.wide[in[i]];
    }

    // 32 units, each known to be below U+10000 or marked in the returned bits, to bytes.
    NEXO_KERNEL static __m256i Narrow(const wchar_t* in, __m256i& bits) {
        const __m256i a = Load(in), b = Load(in + 8), c = Load(in + 16), d = Load(in + 24);
        bits = _mm256_or_si256(_mm256_or_si256(a, b), _mm256_or_si256(c, d));
        const __m256i packed = _mm256_packus_epi16(_mm256_packus_epi32(a, b), _mm256_packus_epi32(c, d));
        return _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }

    NEXO_KERNEL static std::ptrdiff_t NarrowAscii(const wchar_t* in, char* out) {
        __m256i bits;
        Store(out, Narrow(in, bits));
        const __m256i beyond = _mm256_set1_epi32(~0x7F);
        if (_mm256_testz_si256(bits, beyond)) return kUnits;
        for (std::ptrdiff_t i = 0;; i += 8) {
            const __m256i ascii =
                _mm256_cmpeq_epi32(_mm256_and_si256(Load(in + i), beyond), _mm256_setzero_si256());
            const auto mask = static_cast<std::uint32_t>(_mm256_movemask_ps(_mm256_castsi256_ps(ascii)));
            if (mask != 0xFF) return i + LeadingSet(mask, 1);
        }
    }

    NEXO_KERNEL static bool NarrowPage(const SingleBytePage& page, const wchar_t* in, char* out) {
        __m256i bits;
        const __m256i bytes = Narrow(in, bits);
        if (!_mm256_testz_si256(bits, _mm256_set1_epi32(page.latin ? ~0xFF : ~0x7F))) return false;
        const __m256i middle = _mm256_cmpeq_epi8(_mm256_and_si256(bytes, _mm256_set1_epi8(char(0xE0))),
                                                 _mm256_set1_epi8(char(0x80)));
        Store(out, bytes);
        return _mm256_testz_si256(middle, middle);
    }

    NEXO_KERNEL static std::ptrdiff_t DecodePairs(const unsigned char* in, wchar_t* out) {
        const __m128i bytes = LoadHalf(in);
        const __m128i shaped = _mm_cmpeq_epi16(_mm_and_si128(bytes, _mm_set1_epi16(short(0xC0E0))),
                                               _mm_set1_epi16(short(0x80C0)));
        // C0 and C1 would start overlong forms.
        const __m128i overlong =
            _mm_cmpeq_epi16(_mm_and_si128(bytes, _mm_set1_epi16(0x1E)), _mm_setzero_si128());
        const auto good = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_andnot_si128(overlong, shaped)));
        const __m128i lead = _mm_slli_epi16(_mm_and_si128(bytes, _mm_set1_epi16(0x1F)), 6);
        const __m128i trail = _mm_and_si128(_mm_srli_epi16(bytes, 8), _mm_set1_epi16(0x3F));
        Store(out, _mm256_cvtepu16_epi32(_mm_or_si128(lead, trail)));
        return LeadingSet(good, 2);
    }

    NEXO_KERNEL static std::ptrdiff_t DecodeTriples(const unsigned char* in, wchar_t* out) {
        const __m128i order = _mm_setr_epi8(2, 1, 0, -1, 5, 4, 3, -1, 8, 7, 6, -1, 11, 10, 9, -1);
        const __m128i bytes =
            _mm_shuffle_epi8(LoadHalf(in), order);  // a lane is lead, trail, trail from the top
        const __m128i shaped =
            _mm_cmpeq_epi32(_mm_and_si128(bytes, _mm_set1_epi32(0xF0C0C0)), _mm_set1_epi32(0xE08080));
        const __m128i lead = _mm_and_si128(_mm_srli_epi32(bytes, 4), _mm_set1_epi32(0xF000));
        const __m128i middle = _mm_and_si128(_mm_srli_epi32(bytes, 2), _mm_set1_epi32(0xFC0));
        const __m128i last = _mm_and_si128(bytes, _mm_set1_epi32(0x3F));
        const __m128i units = _mm_or_si128(_mm_or_si128(lead, middle), last);
        const __m128i top = _mm_and_si128(units, _mm_set1_epi32(0xF800));
        const __m128i bad =
            _mm_or_si128(_mm_cmpeq_epi32(top, _mm_setzero_si128()),  // overlong, or a surrogate
                         _mm_cmpeq_epi32(top, _mm_set1_epi32(0xD800)));
        StoreHalf(out, units);
        return LeadingSet(static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_andnot_si128(bad, shaped))), 4);
    }

    NEXO_KERNEL static std::ptrdiff_t EncodePairs(const wchar_t* in, char* out) {
        const __m256i units = Load(in);
        const __m256i offset = _mm256_sub_epi32(units, _mm256_set1_epi32(0x80));
        const __m256i two = _mm256_cmpeq_epi32(_mm256_min_epu32(offset, _mm256_set1_epi32(0x77F)), offset);
        const __m256i lead = _mm256_srli_epi32(units, 6);
        const __m256i trail = _mm256_slli_epi32(_mm256_and_si256(units, _mm256_set1_epi32(0x3F)), 8);
        const __m256i bytes = _mm256_or_si256(_mm256_or_si256(lead, trail), _mm256_set1_epi32(0x80C0));
        const __m256i packed = _mm256_permute4x64_epi64(_mm256_packus_epi32(bytes, bytes), 0x08);
        StoreHalf(out, _mm256_castsi256_si128(packed));
        return LeadingSet(static_cast<std::uint32_t>(_mm256_movemask_ps(_mm256_castsi256_ps(two))), 1);
    }

    NEXO_KERNEL static std::ptrdiff_t EncodeTriples(const wchar_t* in, char* out) {
        const __m128i units = LoadHalf(in);
        const __m128i offset = _mm_sub_epi32(units, _mm_set1_epi32(0x800));
        const __m128i three = _mm_cmpeq_epi32(_mm_min_epu32(offset, _mm_set1_epi32(0xF7FF)), offset);
        const __m128i surrogate =
            _mm_cmpeq_epi32(_mm_and_si128(units, _mm_set1_epi32(0xF800)), _mm_set1_epi32(0xD800));
        const __m128i lead = _mm_srli_epi32(units, 12);
        const __m128i middle = _mm_and_si128(_mm_slli_epi32(units, 2), _mm_set1_epi32(0x3F00));
        const __m128i last = _mm_slli_epi32(_mm_and_si128(units, _mm_set1_epi32(0x3F)), 16);
        const __m128i bytes =
            _mm_or_si128(_mm_or_si128(lead, middle), _mm_or_si128(last, _mm_set1_epi32(0x8080E0)));
        const __m128i order = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
        StoreHalf(out, _mm_shuffle_epi8(bytes, order));
        return LeadingSet(
            static_cast<std::uint32_t>(_mm_movemask_ps(_mm_castsi128_ps(_mm_andnot_si128(surrogate, three)))),
            1);
    }
};

#include "nexo/platform/CodePageLoops.inl"

}  // namespace

const CodePageKernels* Avx2Kernels() {
    return &kKernels;
}

}  // namespace nexo::platform

#else

namespace nexo::platform {

const CodePageKernels* Avx2Kernels() {
    return nullptr;
}

}  // namespace nexo::platform

#endif
