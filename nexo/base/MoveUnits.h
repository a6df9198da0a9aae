#ifndef NEXO_BASE_MOVEUNITS_H
#define NEXO_BASE_MOVEUNITS_H

// Private to the library.

#include <cstddef>
#include <cstring>

/// Copying of characters; most texts are short, and a call of memmove() costs more than moving them.
namespace nexo {

/// Sixteen bytes of characters, which the compiler moves in one register.
template <class Ch>
struct TextBlock {
    static constexpr std::size_t kSize = 16 / sizeof(Ch);
    Ch units[kSize];
};

/// Moves up to four blocks' worth of characters without a branch, always at least one whole block: where the
/// text is shorter, the room behind it must be there on both sides.
template <class Ch>
inline void MoveBlocks(Ch* out, const Ch* text, std::size_t count) noexcept {
    using Block = TextBlock<Ch>;
    // The blocks overlap as far as the text is shorter; all are read before the first is written.
    const std::size_t last = count > Block::kSize ? count - Block::kSize : 0;
    const std::size_t second = last < Block::kSize ? last : Block::kSize;
    const std::size_t third = last - second;
    Block blocks[4];
    std::memcpy(&blocks[0], text, sizeof(Block));
    std::memcpy(&blocks[1], text + second, sizeof(Block));
    std::memcpy(&blocks[2], text + third, sizeof(Block));
    std::memcpy(&blocks[3], text + last, sizeof(Block));
    std::memcpy(out, &blocks[0], sizeof(Block));
    std::memcpy(out + second, &blocks[1], sizeof(Block));
    std::memcpy(out + third, &blocks[2], sizeof(Block));
    std::memcpy(out + last, &blocks[3], sizeof(Block));
}

/// memmove() for characters, with the short lengths that most texts have in line.
template <class Ch>
inline void MoveUnits(Ch* out, const Ch* text, std::size_t count) noexcept {
    constexpr std::size_t block = TextBlock<Ch>::kSize;
    if (count == 0) return;
    if (count >= block && count <= 4 * block) return MoveBlocks(out, text, count);
    if (block == 4 && count < block) {
        const Ch first = text[0], middle = text[count / 2], last = text[count - 1];
        out[0] = first;
        out[count / 2] = middle;
        out[count - 1] = last;
        return;
    }
    std::memmove(out, text, count * sizeof(Ch));
}

}  // namespace nexo

#endif
