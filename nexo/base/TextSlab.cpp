#include "nexo/base/TextSlab.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

#include "nexo/base/CString.h"

namespace nexo {
namespace {

constexpr std::size_t kSlabSize = 64 * 1024;  // also its alignment, so that a block finds its slab
constexpr std::size_t kLongestText = 1024;    // code units

/// Larger than the number of blocks a slab can hold: what a writer adds to the count of the slab it fills.
constexpr std::uint32_t kHeldByWriter = 0x40000000;

constexpr std::size_t BlockSize(std::size_t length) {
    return sizeof(StringHeader) + (length + 1) * sizeof(wchar_t);
}

}  // namespace

struct TextSlab {
    std::atomic<std::uint32_t>
        live;  // blocks not yet given back; while a writer fills it, counted down from above
};

namespace {

void Drop(TextSlab* slab, std::uint32_t count) noexcept {
    if (slab->live.fetch_sub(count, std::memory_order_acq_rel) != count) return;
    slab->~TextSlab();
    std::free(slab);
}

}  // namespace

void ReleaseSlabText(StringHeader* header) noexcept {
    const auto address = reinterpret_cast<std::uintptr_t>(header) & ~(kSlabSize - 1);
    Drop(reinterpret_cast<TextSlab*>(address), 1);
}

TextSlabWriter::~TextSlabWriter() {
    LeaveSlab();
}

CString TextSlabWriter::Make(const wchar_t* text, std::size_t length) {
    if (length == 0) return CString();
    if (length > kLongestText) return CString(text, static_cast<int>(length));
    const std::size_t size = BlockSize(length);
    if (!slab_ || used_ + size > kSlabSize) StartSlab();
    auto* const header = new (reinterpret_cast<char*>(slab_) + used_)
        StringHeader{1, static_cast<std::uint32_t>(length), static_cast<std::uint32_t>(length) | kSlabText};
    auto* const characters = reinterpret_cast<wchar_t*>(header + 1);
    std::memcpy(characters, text, length * sizeof(wchar_t));
    characters[length] = 0;
    used_ += size;
    ++blocks_;
    return CString::Adopt(header);
}

void TextSlabWriter::StartSlab() {
    LeaveSlab();
    void* const memory = std::aligned_alloc(kSlabSize, kSlabSize);
    if (!memory) throw std::bad_alloc();
    slab_ = new (memory) TextSlab{kHeldByWriter};
    used_ = sizeof(TextSlab);
    blocks_ = 0;
}

// The count started high, so that blocks given back meanwhile never freed the slab under the writer, and
// making a string needed no atomic operation; now it comes down to the blocks that still live.
void TextSlabWriter::LeaveSlab() noexcept {
    if (slab_) Drop(slab_, kHeldByWriter - blocks_);
    slab_ = nullptr;
}

}  // namespace nexo
