#include "nexo/platform/CodePageKernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <bit>
#include <cstdint>
#include <cstring>

#define NEXO_KERNEL __attribute__((target("avx2,bmi")))

namespace nexo::platform {
namespace {

constexpr unsigned int kSubsets = 256;

// For every subset of eight lanes, the lanes in it, one after the other.
struct LaneTable {
    std::uint8_t lanes[kSubsets][8];
};

constexpr LaneTable MakeLanes() {
    LaneTable table{};
    for (unsigned int subset = 0; subset < kSubsets; ++subset)
        for (unsigned int lane = 0, count = 0; lane < 8; ++lane)
            if ((subset >> lane & 1) != 0) table.lanes[subset][count++] = static_cast<std::uint8_t>(lane);
    return table;
}

// For every subset of eight pairs of bytes, the shuffle that leaves out the second byte of the pairs that are
// not in it.
struct PairTable {
    alignas(16) std::uint8_t bytes[kSubsets][16];
};

constexpr PairTable MakePairs() {
    PairTable table{};
    for (unsigned int subset = 0; subset < kSubsets; ++subset) {
        unsigned int count = 0;
        for (unsigned int pair = 0; pair < 8; ++pair) {
            table.bytes[subset][count++] = static_cast<std::uint8_t>(2 * pair);
            if ((subset >> pair & 1) != 0)
                table.bytes[subset][count++] = static_cast<std::uint8_t>(2 * pair + 1);
        }
        while (count < 16) table.bytes[subset][count++] = 0x80;
    }
    return table;
}

constexpr LaneTable kLanes = MakeLanes();
constexpr PairTable kPairs = MakePairs();

struct Block {
    static constexpr std::ptrdiff_t kUnits = 32;
    static constexpr std::size_t kWorthStreaming = std::size_t{4} << 20;

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

    NEXO_KERNEL static std::uint32_t Mask(__m256i bytes) {
        return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
    }
    NEXO_KERNEL static std::uint32_t MaskOfWords(__m256i words) {
        return static_cast<std::uint32_t>(_mm256_movemask_ps(_mm256_castsi256_ps(words)));
    }
    NEXO_KERNEL static std::uint32_t HalfMask(__m128i bytes) {
        return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes));
    }

    // Bytes 80 to 9F, which are other characters than the units of their value in every page.
    NEXO_KERNEL static std::uint32_t Middle(__m256i bytes) {
        return Mask(_mm256_cmpeq_epi8(_mm256_and_si256(bytes, _mm256_set1_epi8(char(0xE0))),
                                      _mm256_set1_epi8(char(0x80))));
    }

    NEXO_KERNEL static void StoreUnits(__m128i units, wchar_t* out, bool stream) {
        const __m256i wide = _mm256_cvtepu16_epi32(units);
        if (stream) return _mm256_stream_si256(reinterpret_cast<__m256i*>(out), wide);
        Store(out, wide);
    }

    NEXO_KERNEL static __m256i Row(const std::uint8_t* row) {
        return _mm256_broadcastsi128_si256(LoadHalf(row));
    }

    // 32 bytes through the rows of the upper half of a page, of which the first `rows` differ from the bytes.
    NEXO_KERNEL static void WidenUpper(const SingleBytePage& page, __m256i bytes, int rows, __m256i& low,
                                       __m256i& high) {
        const __m256i row = _mm256_and_si256(bytes, _mm256_set1_epi8(char(0xF0)));
        const __m256i column = _mm256_and_si256(bytes, _mm256_set1_epi8(0x0F));
        low = bytes;
        high = _mm256_setzero_si256();
        for (int i = 0; i < rows; ++i) {
            const __m256i here = _mm256_cmpeq_epi8(row, _mm256_set1_epi8(static_cast<char>(0x80 + 16 * i)));
            low = _mm256_blendv_epi8(low, _mm256_shuffle_epi8(Row(page.upper[0][i]), column), here);
            high = _mm256_blendv_epi8(high, _mm256_shuffle_epi8(Row(page.upper[1][i]), column), here);
        }
    }

    NEXO_KERNEL static void WidenBlock(const SingleBytePage& page, const unsigned char* in, wchar_t* out,
                                       bool stream) {
        const __m256i bytes = Load(in);
        __m256i low = bytes, high = _mm256_setzero_si256();
        if (page.latin ? Middle(bytes) != 0 : Mask(bytes) != 0)
            WidenUpper(page, bytes, page.latin ? 2 : 8, low, high);
        const __m256i even = _mm256_unpacklo_epi8(low, high);  // bytes 0 to 7 and 16 to 23
        const __m256i odd = _mm256_unpackhi_epi8(low, high);
        StoreUnits(_mm256_castsi256_si128(even), out, stream);
        StoreUnits(_mm256_castsi256_si128(odd), out + 8, stream);
        StoreUnits(_mm256_extracti128_si256(even, 1), out + 16, stream);
        StoreUnits(_mm256_extracti128_si256(odd, 1), out + 24, stream);
    }

    // What does not fit the caches is written past them, which saves reading it first.
    NEXO_KERNEL static std::size_t WidenPage(const SingleBytePage& page, const unsigned char* in,
                                             std::size_t size, wchar_t* out) {
        std::size_t i = 0;
        const bool stream = size >= kWorthStreaming;
        if (stream)
            for (; reinterpret_cast<std::uintptr_t>(out + i) % sizeof(__m256i) != 0; ++i)
                out[i] = page.wide[in[i]];
        for (; i + kUnits <= size; i += kUnits) WidenBlock(page, in + i, out + i, stream);
        if (stream) _mm_sfence();
        return i;
    }

    // 32 units to bytes; `beyond` marks the bytes whose unit has one of the bits `outside`.
    NEXO_KERNEL static __m256i Narrow(const wchar_t* in, int outside, std::uint32_t& beyond) {
        const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
        const __m256i bits = _mm256_set1_epi32(outside);
        const __m256i a = Load(in), b = Load(in + 8), c = Load(in + 16), d = Load(in + 24);
        const __m256i all = _mm256_or_si256(_mm256_or_si256(a, b), _mm256_or_si256(c, d));
        beyond = 0;
        if (!_mm256_testz_si256(all, bits)) {
            const __m256i zero = _mm256_setzero_si256();
            const auto outer = [&](__m256i units) __attribute__((target("avx2,bmi"))) {
                return 0xFF & ~MaskOfWords(_mm256_cmpeq_epi32(_mm256_and_si256(units, bits), zero));
            };
            beyond = outer(a) | outer(b) << 8 | outer(c) << 16 | outer(d) << 24;
        }
        const __m256i packed = _mm256_packus_epi16(_mm256_packus_epi32(a, b), _mm256_packus_epi32(c, d));
        return _mm256_permutevar8x32_epi32(packed, order);
    }

    NEXO_KERNEL static bool NarrowPage(const SingleBytePage& page, const wchar_t*& in, char*& out) {
        std::uint32_t special;
        const __m256i bytes = Narrow(in, page.latin ? ~0xFF : ~0x7F, special);
        if (page.latin) special |= Middle(bytes);
        Store(out, bytes);
        for (std::uint32_t left = special; left != 0; left &= left - 1) {
            const int i = std::countr_zero(left);
            const std::uint8_t byte = page.ByteOf(static_cast<std::uint32_t>(in[i]));
            if (byte == 0) {
                in += i;
                out += i;
                return false;
            }
            out[i] = static_cast<char>(byte);
        }
        in += kUnits;
        out += kUnits;
        return true;
    }

    // Three-byte sequences, four at a time; how many of the four are well-formed.
    NEXO_KERNEL static int DecodeTriples(const unsigned char* in, wchar_t* out) {
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
        return std::countr_one(HalfMask(_mm_andnot_si128(bad, shaped))) / 4;
    }

    // Eight bytes with the values that they or the sequences they begin have, the lanes in `starts` alone.
    NEXO_KERNEL static wchar_t* StoreLanes(__m128i values, std::uint32_t starts, wchar_t* out) {
        const __m128i lanes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(kLanes.lanes[starts]));
        Store(out, _mm256_permutevar8x32_epi32(_mm256_cvtepu16_epi32(values), _mm256_cvtepu8_epi32(lanes)));
        return out + std::popcount(starts);
    }

    // Any mixture of sequences of one and two bytes among the first 16; false when another one comes first or
    // next.
    NEXO_KERNEL static bool DecodeShort(const unsigned char*& in, wchar_t*& out) {
        const __m128i bytes = LoadHalf(in);
        const __m128i next = _mm_srli_si128(bytes, 1);
        const std::uint32_t high = HalfMask(bytes);
        // As signed numbers the trail bytes are the smallest; C2 to DF lead sequences of two.
        const std::uint32_t trail = HalfMask(_mm_cmplt_epi8(bytes, _mm_set1_epi8(char(0xC0))));
        const std::uint32_t two = HalfMask(_mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8(char(0xC1))),
                                                         _mm_cmplt_epi8(bytes, _mm_set1_epi8(char(0xE0)))));
        // A trail byte must follow each lead byte and stand nowhere else; nothing may be of another kind.
        const std::uint32_t wrong = (high ^ (trail | two)) | (trail ^ (two << 1 & 0xFFFF));
        std::uint32_t size = 16;
        if ((wrong | (two & 0x8000)) != 0) {
            size = static_cast<std::uint32_t>(std::countr_zero(wrong | 0x10000));
            if (size > 0 && (two >> (size - 1) & 1) != 0) --size;  // its trail byte is not here, or is none
        }
        const __m128i zero = _mm_setzero_si128();
        const auto values = [&](__m128i own, __m128i behind) __attribute__((target("avx2,bmi"))) {
            const __m128i beyond = _mm_cmpgt_epi16(own, _mm_set1_epi16(0x7F));
            const __m128i lead = _mm_slli_epi16(_mm_and_si128(own, _mm_set1_epi16(0x1F)), 6);
            const __m128i both = _mm_or_si128(lead, _mm_and_si128(behind, _mm_set1_epi16(0x3F)));
            return _mm_blendv_epi8(own, both, beyond);
        };
        const std::uint32_t starts = ~trail & ((1u << size) - 1);
        out = StoreLanes(values(_mm_unpacklo_epi8(bytes, zero), _mm_unpacklo_epi8(next, zero)), starts & 0xFF,
                         out);
        out = StoreLanes(values(_mm_unpackhi_epi8(bytes, zero), _mm_unpackhi_epi8(next, zero)), starts >> 8,
                         out);
        in += size;
        return size != 0;
    }

    NEXO_KERNEL static bool Decode(const unsigned char*& in, wchar_t*& out) {
        if (Mask(Load(in)) == 0) {
            for (int i = 0; i < kUnits; i += 8)
                Store(out + i,
                      _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(in + i))));
            in += kUnits;
            out += kUnits;
            return true;
        }
        for (const unsigned char* const last = in + kUnits - 16; in <= last;) {
            if (*in < 0xE0) {
                if (!DecodeShort(in, out)) return false;
                continue;
            }
            const int triples = DecodeTriples(in, out);
            if (triples == 0) return false;
            in += 3 * triples;
            out += triples;
        }
        return true;
    }

    // Units of three bytes, four at a time; how many of the four are that.
    NEXO_KERNEL static int EncodeTriples(const wchar_t* in, char* out) {
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
        return std::countr_one(HalfMask(_mm_andnot_si128(surrogate, three))) / 4;
    }

    // Any mixture of units of one and two bytes that the first eight begin with.
    NEXO_KERNEL static void EncodeShort(const wchar_t*& in, char*& out) {
        const __m256i units = Load(in);
        const __m256i longer =
            _mm256_cmpeq_epi32(_mm256_min_epu32(units, _mm256_set1_epi32(0x800)), _mm256_set1_epi32(0x800));
        const __m256i two = _mm256_cmpgt_epi32(units, _mm256_set1_epi32(0x7F));
        const __m256i lead = _mm256_srli_epi32(units, 6);
        const __m256i trail = _mm256_slli_epi32(_mm256_and_si256(units, _mm256_set1_epi32(0x3F)), 8);
        const __m256i both = _mm256_or_si256(_mm256_or_si256(lead, trail), _mm256_set1_epi32(0x80C0));
        const __m256i bytes = _mm256_blendv_epi8(units, both, two);
        const __m128i packed =
            _mm256_castsi256_si128(_mm256_permute4x64_epi64(_mm256_packus_epi32(bytes, bytes), 0x08));
        const std::uint32_t pairs = MaskOfWords(two);
        StoreHalf(out, _mm_shuffle_epi8(packed, LoadHalf(kPairs.bytes[pairs])));
        const std::uint32_t stop = MaskOfWords(longer);
        if (stop == 0) {  // a branch, not a count: the next load need not wait for it
            in += 8;
            out += 8 + std::popcount(pairs);
            return;
        }
        const int count = std::countr_zero(stop);
        in += count;
        out += count + std::popcount(pairs & ((1u << count) - 1));
    }

    NEXO_KERNEL static bool IsAscii(const wchar_t* in) {
        const __m256i all = _mm256_or_si256(_mm256_or_si256(Load(in), Load(in + 8)),
                                            _mm256_or_si256(Load(in + 16), Load(in + 24)));
        return _mm256_testz_si256(all, _mm256_set1_epi32(~0x7F)) != 0;
    }

    NEXO_KERNEL static bool Encode(const wchar_t*& in, char*& out) {
        if (IsAscii(in)) {
            std::uint32_t none;
            Store(out, Narrow(in, 0, none));
            in += kUnits;
            out += kUnits;
            return true;
        }
        for (const wchar_t* const last = in + kUnits - 8; in <= last;) {
            if (static_cast<std::uint32_t>(*in) < 0x800) {
                EncodeShort(in, out);
                continue;
            }
            const int triples = EncodeTriples(in, out);
            if (triples == 0) return false;
            in += triples;
            out += 3 * triples;
        }
        return true;
    }
};

#include "nexo/platform/CodePageLoops.inl"

}  // namespace

const CodePageKernels* Avx2Kernels() {
    const bool able = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi");
    return able ? &kKernels : nullptr;
}

}  // namespace nexo::platform

#else

namespace nexo::platform {

const CodePageKernels* Avx2Kernels() {
    return nullptr;
}

}  // namespace nexo::platform

#endif
