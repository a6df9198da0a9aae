#include <bit>
#include <cstdint>
#include <cstring>

#include "nexo/platform/CodePageKernels.h"

#define NEXO_KERNEL

namespace nexo::platform {
namespace {

struct Block {
    static constexpr std::ptrdiff_t kUnits = 16;

    // Index of the first byte with its top bit set in eight bytes; 8 when there is none.
    static int FirstHigh(std::uint64_t bytes) {
        const std::uint64_t high = bytes & 0x8080808080808080u;
        if (high == 0) return 8;
        return (std::endian::native == std::endian::little ? std::countr_zero(high)
                                                           : std::countl_zero(high)) /
               8;
    }

    typedef std::uint8_t Bytes __attribute__((vector_size(16)));
    typedef std::uint16_t Shorts __attribute__((vector_size(32)));
    typedef std::uint32_t Words __attribute__((vector_size(64)));

    static void Widen(const unsigned char* in, wchar_t* out) {
        Bytes bytes;
        std::memcpy(&bytes, in, sizeof bytes);
        const Words words = __builtin_convertvector(__builtin_convertvector(bytes, Shorts), Words);
        std::memcpy(out, &words, sizeof words);
    }

    static std::ptrdiff_t AsciiPrefix(const unsigned char* in) {
        std::uint64_t halves[2];
        std::memcpy(halves, in, sizeof halves);
        const int first = FirstHigh(halves[0]);
        return first < 8 ? first : 8 + FirstHigh(halves[1]);
    }

    static std::ptrdiff_t WidenAscii(const unsigned char* in, wchar_t* out) {
        Widen(in, out);
        return AsciiPrefix(in);
    }

    static void WidenPage(const SingleBytePage& page, const unsigned char* in, wchar_t* out) {
        if (AsciiPrefix(in) == kUnits) return Widen(in, out);
        for (std::ptrdiff_t i = 0; i < kUnits; ++i) out[i] = page.wide[in[i]];
    }

    // Whether all units lie below `limit`, a power of two.
    static bool AllBelow(const wchar_t* in, std::uint32_t limit) {
        std::uint32_t bits = 0;
        for (std::ptrdiff_t i = 0; i < kUnits; ++i) bits |= static_cast<std::uint32_t>(in[i]);
        return bits < limit;
    }

    static void Narrow(const wchar_t* in, char* out) {
        Words words;
        std::memcpy(&words, in, sizeof words);
        const Bytes bytes = __builtin_convertvector(__builtin_convertvector(words, Shorts), Bytes);
        std::memcpy(out, &bytes, sizeof bytes);
    }

    static std::ptrdiff_t NarrowAscii(const wchar_t* in, char* out) {
        Narrow(in, out);
        if (AllBelow(in, 0x80)) return kUnits;
        std::ptrdiff_t count = 0;
        while (static_cast<std::uint32_t>(in[count]) < 0x80) ++count;
        return count;
    }

    static bool NarrowPage(const SingleBytePage& page, const wchar_t* in, char* out) {
        if (!AllBelow(in, page.latin ? 0x100 : 0x80)) return false;
        Narrow(in, out);
        if (!page.latin) return true;
        unsigned int middle = 0;  // 80 to 9F are other characters in such a page
        for (std::ptrdiff_t i = 0; i < kUnits; ++i) middle |= (out[i] & 0xE0) == 0x80;
        return middle == 0;
    }

    // Runs beyond ASCII are converted character by character.
    static std::ptrdiff_t DecodePairs(const unsigned char*, wchar_t*) { return 0; }
    static std::ptrdiff_t DecodeTriples(const unsigned char*, wchar_t*) { return 0; }
    static std::ptrdiff_t EncodePairs(const wchar_t*, char*) { return 0; }
    static std::ptrdiff_t EncodeTriples(const wchar_t*, char*) { return 0; }
};

#include "nexo/platform/CodePageLoops.inl"

const CodePageKernels& Choose() {
    const CodePageKernels* avx2 = Avx2Kernels();
#if defined(__x86_64__)
    if (avx2 != nullptr && __builtin_cpu_supports("avx2")) return *avx2;
#endif
    return kKernels;
}

}  // namespace

const CodePageKernels& PlainKernels() {
    return kKernels;
}

const CodePageKernels& BestKernels() {
    static const CodePageKernels& best = Choose();
    return best;
}

}  // namespace nexo::platform
