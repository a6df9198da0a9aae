#include <bit>
#include <cstdint>
#include <cstring>

#include "nexo/platform/CodePageKernels.h"

#define NEXO_KERNEL

namespace nexo::platform {
namespace {

// Sixteen units at a time in the compiler's own vectors.
struct Block {
    static constexpr std::ptrdiff_t kUnits = 16;

    typedef std::uint8_t Bytes __attribute__((vector_size(16)));
    typedef std::uint16_t Shorts __attribute__((vector_size(32)));
    typedef std::uint32_t Words __attribute__((vector_size(64)));

    static void Widen(const unsigned char* in, wchar_t* out) {
        Bytes bytes;
        std::memcpy(&bytes, in, sizeof bytes);
        const Words words = __builtin_convertvector(__builtin_convertvector(bytes, Shorts), Words);
        std::memcpy(out, &words, sizeof words);
    }

    static void Narrow(const wchar_t* in, char* out) {
        Words words;
        std::memcpy(&words, in, sizeof words);
        const Bytes bytes = __builtin_convertvector(__builtin_convertvector(words, Shorts), Bytes);
        std::memcpy(out, &bytes, sizeof bytes);
    }

    // Index of the first byte with its top bit set; kUnits when there is none.
    static std::ptrdiff_t FirstHigh(const void* in) {
        std::uint64_t halves[2];
        std::memcpy(halves, in, sizeof halves);
        for (std::ptrdiff_t i = 0; i < 2; ++i) {
            const std::uint64_t high = halves[i] & 0x8080808080808080u;
            if (high == 0) continue;
            const bool little = std::endian::native == std::endian::little;
            return 8 * i + (little ? std::countr_zero(high) : std::countl_zero(high)) / 8;
        }
        return kUnits;
    }

    // Whether all units lie below `limit`, a power of two.
    static bool AllBelow(const wchar_t* in, std::uint32_t limit) {
        std::uint64_t pairs[kUnits / 2];
        std::memcpy(pairs, in, sizeof pairs);
        std::uint64_t bits = 0;
        for (const std::uint64_t pair : pairs) bits |= pair;
        return ((bits | bits >> 32) & 0xFFFFFFFF) < limit;
    }

    static std::size_t WidenPage(const SingleBytePage& page, const unsigned char* in, std::size_t size,
                                 wchar_t* out) {
        std::size_t i = 0;
        for (; i + kUnits <= size; i += kUnits) {
            if (FirstHigh(in + i) == kUnits) {
                Widen(in + i, out + i);
            } else {
                for (std::size_t j = 0; j < kUnits; ++j) out[i + j] = page.wide[in[i + j]];
            }
        }
        return i;
    }

    // Whether one of the narrowed bytes is 80 to 9F, which are other characters than the units of their
    // value.
    static bool HasMiddle(const char* narrowed) {
        std::uint64_t halves[2];
        std::memcpy(halves, narrowed, sizeof halves);
        std::uint64_t zeros = 0;  // a zero byte borrows into its top bit
        for (const std::uint64_t half : halves) {
            const std::uint64_t rest = (half & 0xE0E0E0E0E0E0E0E0u) ^ 0x8080808080808080u;
            zeros |= (rest - 0x0101010101010101u) & ~rest & 0x8080808080808080u;
        }
        return zeros != 0;
    }

    // Units that are the bytes of the page as they are.
    static bool NarrowDirect(const SingleBytePage& page, const wchar_t* in, char* out) {
        if (!AllBelow(in, page.latin ? 0x100 : 0x80)) return false;
        Narrow(in, out);
        return !page.latin || !HasMiddle(out);
    }

    static bool NarrowPage(const SingleBytePage& page, const wchar_t*& in, char*& out) {
        std::ptrdiff_t count = kUnits;
        if (!NarrowDirect(page, in, out)) {
            for (count = 0; count < kUnits; ++count) {
                const std::uint8_t byte = page.ByteOf(static_cast<std::uint32_t>(in[count]));
                if (byte == 0 && in[count] != 0) break;
                out[count] = static_cast<char>(byte);
            }
        }
        in += count;
        out += count;
        return count == kUnits;
    }

    static bool Decode(const unsigned char*& in, wchar_t*& out) {
        const std::ptrdiff_t count = FirstHigh(in);
        if (count == 0) return false;
        Widen(in, out);
        in += count;
        out += count;
        return count == kUnits;
    }

    static bool Encode(const wchar_t*& in, char*& out) {
        std::ptrdiff_t count = kUnits;
        if (AllBelow(in, 0x80)) {
            Narrow(in, out);
        } else {
            for (count = 0; static_cast<std::uint32_t>(in[count]) < 0x80; ++count)
                out[count] = static_cast<char>(in[count]);
        }
        in += count;
        out += count;
        return count == kUnits;
    }
};

#include "nexo/platform/CodePageLoops.inl"

}  // namespace

const CodePageKernels& PlainKernels() {
    return kKernels;
}

const CodePageKernels& BestKernels() {
    static const CodePageKernels* const avx2 = Avx2Kernels();
    return avx2 == nullptr ? kKernels : *avx2;
}

}  // namespace nexo::platform
