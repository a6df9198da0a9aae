#include "nexo/text/Md5.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "nexo/text/LittleEndian.h"

namespace nexo {
namespace {

/// The integer part of 2^32 |sin(i + 1)|.
constexpr std::uint32_t sines[64] = {
    0xD76AA478, 0xE8C7B756, 0x242070DB, 0xC1BDCEEE, 0xF57C0FAF, 0x4787C62A, 0xA8304613, 0xFD469501,
    0x698098D8, 0x8B44F7AF, 0xFFFF5BB1, 0x895CD7BE, 0x6B901122, 0xFD987193, 0xA679438E, 0x49B40821,
    0xF61E2562, 0xC040B340, 0x265E5A51, 0xE9B6C7AA, 0xD62F105D, 0x02441453, 0xD8A1E681, 0xE7D3FBC8,
    0x21E1CDE6, 0xC33707D6, 0xF4D50D87, 0x455A14ED, 0xA9E3E905, 0xFCEFA3F8, 0x676F02D9, 0x8D2A4C8A,
    0xFFFA3942, 0x8771F681, 0x6D9D6122, 0xFDE5380C, 0xA4BEEA44, 0x4BDECFA9, 0xF6BB4B60, 0xBEBFBC70,
    0x289B7EC6, 0xEAA127FA, 0xD4EF3085, 0x04881D05, 0xD9D4D039, 0xE6DB99E5, 0x1FA27CF8, 0xC4AC5665,
    0xF4292244, 0x432AFF97, 0xAB9423A7, 0xFC93A039, 0x655B59C3, 0x8F0CCC92, 0xFFEFF47D, 0x85845DD1,
    0x6FA87E4F, 0xFE2CE6E0, 0xA3014314, 0x4E0811A1, 0xF7537E82, 0xBD3AF235, 0x2AD7D2BB, 0xEB86D391,
};

/// Left rotations: those of a round repeat every four steps.
constexpr int rotations[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

/// The word of the block that a step takes: 1, 5, 3 or 7 times its number, from 0, 1, 5 or 0 on.
constexpr int WordOf(int step) {
    constexpr int factors[4] = {1, 5, 3, 7}, starts[4] = {0, 1, 5, 0};
    return (starts[step / 16] + factors[step / 16] * step) & 15;
}

/// The low 16 bits of a unit as they lie in memory, low byte first.
inline std::uint16_t LittleEndianUnit(wchar_t unit) {
    const auto value = static_cast<std::uint16_t>(unit);
    if constexpr (std::endian::native == std::endian::little) return value;
    return static_cast<std::uint16_t>(value << 8 | value >> 8);
}

inline void PutLittleEndian(std::uint64_t value, std::size_t bytes, unsigned char* out) {
    for (std::size_t i = 0; i < bytes; ++i) out[i] = static_cast<unsigned char>(value >> 8 * i);
}

/// One of the 64 steps. The steps form one chain through `b`, the newest word; whatever does not need it is
/// summed first, so that only few operations of the round's function stand in the chain.
template <int step>
inline void Step(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                 const unsigned char* block) {
    std::uint32_t sum = a + LittleEndian(block + 4 * WordOf(step)) + sines[step];
    if constexpr (step < 16) {
        sum += d ^ (b & (c ^ d));
    } else if constexpr (step < 32) {
        sum += c & ~d;
        sum += b & d;  // no bit is in both, so that adding does what or does
    } else if constexpr (step < 48) {
        sum += b ^ (c ^ d);
    } else {
        sum += c ^ (b | ~d);
    }
    a = b + std::rotl(sum, rotations[step / 16][step & 3]);
}

template <int... quad>
inline void AllSteps(std::uint32_t& a, std::uint32_t& b, std::uint32_t& c, std::uint32_t& d,
                     const unsigned char* block, std::integer_sequence<int, quad...>) {
    ((Step<4 * quad>(a, b, c, d, block), Step<4 * quad + 1>(d, a, b, c, block),
      Step<4 * quad + 2>(c, d, a, b, block), Step<4 * quad + 3>(b, c, d, a, block)),
     ...);
}

}  // namespace

void Md5::TakeBlocks(const unsigned char* data, std::size_t count) {
    std::uint32_t a = state_[0], b = state_[1], c = state_[2], d = state_[3];
    for (; count > 0; --count, data += 64) {
        const std::uint32_t beforeA = a, beforeB = b, beforeC = c, beforeD = d;
        AllSteps(a, b, c, d, data, std::make_integer_sequence<int, 16>());
        a += beforeA;
        b += beforeB;
        c += beforeC;
        d += beforeD;
    }
    state_[0] = a;
    state_[1] = b;
    state_[2] = c;
    state_[3] = d;
}

void Md5::Update(const void* data, std::size_t n) {
    if (n == 0) return;
    auto bytes = static_cast<const unsigned char*>(data);
    const std::size_t held = length_ % 64;
    length_ += n;
    if (held > 0) {
        const std::size_t taken = std::min(n, 64 - held);
        std::memcpy(rest_ + held, bytes, taken);
        if (held + taken < 64) return;
        TakeBlocks(rest_, 1);
        bytes += taken, n -= taken;
    }
    TakeBlocks(bytes, n / 64);
    std::memcpy(rest_, bytes + n / 64 * 64, n % 64);
}

void Md5::UpdateUnits(std::wstring_view units) {
    std::uint16_t packed[512];
    while (!units.empty()) {
        const std::size_t piece = std::min(units.size(), std::size(packed));
        for (std::size_t i = 0; i < piece; ++i) packed[i] = LittleEndianUnit(units[i]);
        Update(packed, 2 * piece);
        units.remove_prefix(piece);
    }
}

Md5::Digest Md5::Finish() {
    std::size_t held = length_ % 64;
    rest_[held++] = 0x80;
    if (held > 56) {
        std::fill(rest_ + held, rest_ + 64, static_cast<unsigned char>(0));
        TakeBlocks(rest_, 1);
        held = 0;
    }
    std::fill(rest_ + held, rest_ + 56, static_cast<unsigned char>(0));
    PutLittleEndian(length_ * 8, 8, rest_ + 56);
    TakeBlocks(rest_, 1);

    Digest digest;
    for (std::size_t i = 0; i < 4; ++i) PutLittleEndian(state_[i], 4, &digest[4 * i]);
    return digest;
}

}  // namespace nexo
