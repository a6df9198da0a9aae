#ifndef NEXO_TREE_TEXTSCAN_H
#define NEXO_TREE_TEXTSCAN_H

// Private to the library.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Loops over short texts of the tree parser and writer: so short that a call, or a branch that depends on
// their length, would cost more than the work.

namespace nexo::tree {

/// Most names and values fit into one block. Whole blocks are read and written, so that one block must be
/// accessible from wherever a text begins or goes on.
inline constexpr std::size_t kBlock = 16;

#ifdef __SSE2__

struct Block {
    __m128i part[4];
};
inline Block LoadBlock(const wchar_t* at) noexcept {
    const auto* const from = reinterpret_cast<const __m128i*>(at);
    return {{_mm_loadu_si128(from), _mm_loadu_si128(from + 1), _mm_loadu_si128(from + 2),
             _mm_loadu_si128(from + 3)}};
}
inline void StoreBlock(wchar_t* at, const Block& block) noexcept {
    auto* const to = reinterpret_cast<__m128i*>(at);
    for (int i = 0; i < 4; ++i) _mm_storeu_si128(to + i, block.part[i]);
}
inline Block Splat(wchar_t unit) noexcept {
    const __m128i part = _mm_set1_epi32(unit);
    return {{part, part, part, part}};
}
/// One bit for each unit whose four bytes in `part` are all set.
inline unsigned BitsOf(const __m128i (&part)[4]) noexcept {
    const __m128i low = _mm_packs_epi32(part[0], part[1]);
    const __m128i high = _mm_packs_epi32(part[2], part[3]);
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}
/// One bit for each unit of `a` that equals its counterpart.
inline unsigned EqualUnits(const Block& a, const Block& b) noexcept {
    __m128i equal[4];
    for (int i = 0; i < 4; ++i) equal[i] = _mm_cmpeq_epi32(a.part[i], b.part[i]);
    return BitsOf(equal);
}
inline unsigned EqualToEither(const Block& a, const Block& x, const Block& y) noexcept {
    __m128i equal[4];
    for (int i = 0; i < 4; ++i) {
        equal[i] = _mm_or_si128(_mm_cmpeq_epi32(a.part[i], x.part[i]), _mm_cmpeq_epi32(a.part[i], y.part[i]));
    }
    return BitsOf(equal);
}

#else

struct Block {
    std::uint32_t units[kBlock];
};
inline Block LoadBlock(const wchar_t* at) noexcept {
    Block block;
    std::memcpy(&block, at, sizeof block);
    return block;
}
inline void StoreBlock(wchar_t* at, const Block& block) noexcept {
    std::memcpy(at, &block, sizeof block);
}
inline Block Splat(wchar_t unit) noexcept {
    Block block;
    for (std::uint32_t& value : block.units) value = static_cast<std::uint32_t>(unit);
    return block;
}
inline unsigned EqualUnits(const Block& a, const Block& b) noexcept {
    unsigned bits = 0;
    for (std::size_t i = 0; i < kBlock; ++i) bits |= static_cast<unsigned>(a.units[i] == b.units[i]) << i;
    return bits;
}
inline unsigned EqualToEither(const Block& a, const Block& x, const Block& y) noexcept {
    return EqualUnits(a, x) | EqualUnits(a, y);
}

#endif

/// What a look at a terminated text found.
struct KnownText {
    std::size_t length;  ///< units before the terminator, at most as many as were asked for
    bool foreign;        ///< one of them is beyond U+FFFF, that is, no code unit
};
[[nodiscard]] KnownText LookAhead(const wchar_t* text, std::size_t limit) noexcept;

/// Asks for memory that will be read soon, `ahead` bytes behind a place: two cache lines, about what a leaf
/// takes. It need not be there.
inline void Prefetch(const void* place, std::size_t ahead) noexcept {
    const auto* const wanted = reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(place) + ahead);
    __builtin_prefetch(wanted, 0, 2);
    __builtin_prefetch(wanted + 64, 0, 2);
}

/// Whether `length` units are equal. Reads whole blocks.
inline bool SameUnits(const wchar_t* a, const wchar_t* b, std::size_t length) noexcept {
    for (; length > kBlock; a += kBlock, b += kBlock, length -= kBlock) {
        if (EqualUnits(LoadBlock(a), LoadBlock(b)) != 0xFFFF) return false;
    }
    const unsigned different = ~EqualUnits(LoadBlock(a), LoadBlock(b));
    return (different & ((1U << length) - 1)) == 0;
}

/// Copies from `from` to `to` up to the first `x` or `y` and returns where that stands, or `limit` (a number
/// of whole blocks) when it stands no earlier. Reads and writes whole blocks.
inline std::size_t CopyUntil(wchar_t* to, const wchar_t* from, std::size_t limit, wchar_t x,
                             wchar_t y) noexcept {
    const Block first = Splat(x);
    const Block second = Splat(y);
    for (std::size_t i = 0; i < limit; i += kBlock) {
        const Block block = LoadBlock(from + i);
        StoreBlock(to + i, block);
        if (const unsigned found = EqualToEither(block, first, second)) {
            return i + static_cast<std::size_t>(std::countr_zero(found));
        }
    }
    return limit;
}

/// Where the first of three units stands, or `limit` (a number of whole blocks). Reads whole blocks.
inline std::size_t FindAny(const wchar_t* text, std::size_t limit, wchar_t x, wchar_t y, wchar_t z) noexcept {
    const Block first = Splat(x);
    const Block second = Splat(y);
    const Block third = Splat(z);
    for (std::size_t i = 0; i < limit; i += kBlock) {
        const Block block = LoadBlock(text + i);
        if (const unsigned found = EqualToEither(block, first, second) | EqualUnits(block, third)) {
            return i + static_cast<std::size_t>(std::countr_zero(found));
        }
    }
    return limit;
}

/// Copies a text in whole blocks and returns its end.
inline wchar_t* CopyBlocks(wchar_t* to, const wchar_t* from, std::size_t length) noexcept {
    StoreBlock(to, LoadBlock(from));
    for (std::size_t i = kBlock; i < length; i += kBlock) StoreBlock(to + i, LoadBlock(from + i));
    return to + length;
}

}  // namespace nexo::tree

#endif
