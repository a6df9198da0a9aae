#ifndef NEXO_BASE_DIGITBLOCK_H
#define NEXO_BASE_DIGITBLOCK_H

// Private to the library.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Decimal digits made and stored eight at a time without a branch; the inner part of NumberWriter.cpp.
///
/// A block holds ASCII digits, the first one in its lowest byte. Storing a block always writes 8 or 16
/// characters: the room behind a number must be there, whatever the number's own length.
namespace nexo {

__extension__ using Wide = unsigned __int128;

inline constexpr std::uint64_t kZeroDigits = 0x3030303030303030u;

/// The eight digits of a value below 10^8, as numbers 0 to 9 in its bytes.
inline std::uint64_t EightDigits(std::uint32_t value) noexcept {
    // Halved three times, all parts at once: 10^4, 10^2, 10. The factors are reciprocals, exact in these
    // ranges.
    const std::uint64_t fours = value / 10000 | std::uint64_t{value % 10000} << 32;
    const std::uint64_t upper = (fours * 10486 >> 20) & 0x0000007F0000007Fu;
    const std::uint64_t twos = upper | (fours - upper * 100) << 16;
    const std::uint64_t tens = (twos * 103 >> 10) & 0x000F000F000F000Fu;
    return tens | (twos - tens * 10) << 8;
}

/// Number of leading zero digits, 7 at most: a zero keeps its last digit.
inline int LeadingZeros(std::uint64_t digits) noexcept {
    return std::countr_zero(digits | std::uint64_t{1} << 56) / 8;
}

inline void StoreDigits(char* out, std::uint64_t ascii) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(out, &ascii, sizeof ascii);
    } else {
        for (int i = 0; i < 8; ++i) out[i] = static_cast<char>(ascii >> (8 * i));
    }
}

inline void StoreDigits(wchar_t* out, std::uint64_t ascii) noexcept {
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i words = _mm_unpacklo_epi8(_mm_cvtsi64_si128(static_cast<long long>(ascii)), zero);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi16(words, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4), _mm_unpackhi_epi16(words, zero));
#else
    for (int i = 0; i < 8; ++i) out[i] = static_cast<wchar_t>(ascii >> (8 * i) & 0xFF);
#endif
}

template <class Ch>
void StoreDigits(Ch* out, std::uint64_t ascii, bool) noexcept {
    StoreDigits(out, ascii);
}

/// Stores the first 8 digits of a block of sixteen, or all when `both`.
template <class Ch>
void StoreDigits(Ch* out, Wide ascii, bool both) noexcept {
    StoreDigits(out, static_cast<std::uint64_t>(ascii));
    if (both) StoreDigits(out + 8, static_cast<std::uint64_t>(ascii >> 64));
}

}  // namespace nexo

#endif
