#include "nexo/base/TextSlab.h"

#include <algorithm>
#include <new>
#include <utility>

#include "nexo/base/CString.h"

namespace nexo {
namespace {

/// The slab that the last writer left with room in it; counts as held by a writer.
struct OpenSlab {
    std::mutex mutex;
    TextSlab* slab = nullptr;
};
constinit OpenSlab open;

TextSlab* TakeOpen() noexcept {
    const ThreadGuard guard(open.mutex);
    return std::exchange(open.slab, nullptr);
}

TextRoom RestOf(TextSlab* slab) noexcept {
    char* const begin = reinterpret_cast<char*>(slab);
    return {begin + slab->used, begin + kSlabSize};
}

/// Frees the open slab when the text that was just dropped was its last one.
void CloseOpen(TextSlab* slab) noexcept {
    {
        const ThreadGuard guard(open.mutex);
        if (open.slab != slab || __atomic_load_n(&slab->live, __ATOMIC_ACQUIRE) != kSlabHeld) return;
        open.slab = nullptr;
    }
    GiveSlab(slab);
}

}  // namespace

void ShareSlabText(const StringHeader* header) noexcept {
    AddLive(SlabOf<TextSlab>(header), 1);
}

void ReleaseSlabText(const StringHeader* header) noexcept {
    ReleaseTextSlab(SlabOf<TextSlab>(header));
}

void ReleaseTextSlab(TextSlab* slab, int count) noexcept {
    const int live = DropLive(slab, count);
    if (live == 0) return GiveSlab(slab);
    if (live == kSlabHeld) CloseOpen(slab);
}

CString TextSlabWriter::Make(const wchar_t* text, std::size_t length) {
    if (length == 0) return CString();
    if (!kSlabsEnabled || length > kLongest) return CString(text, static_cast<int>(length));
    TextRoom room = Room(1);
    std::copy_n(text, length, room.Text());
    StringHeader* const header = room.Finish(length);
    Continue(room);
    ShareSlabText(header);
    return CString::Adopt(header);
}

void TextSlabWriter::NextSlab(std::size_t texts) {
    LeaveSlab();
    slab_ = TakeOpen();
    if (slab_ && !RestOf(slab_).Has(texts)) ReleaseTextSlab(std::exchange(slab_, nullptr), kSlabHeld);
    if (!slab_) {
        slab_ = static_cast<TextSlab*>(TakeSlab());
        slab_->live = kSlabHeld;
        slab_->used = sizeof(TextSlab);
    }
    room_ = RestOf(slab_);
}

/// Leaves the slab to the next writer when it has room for that, else to its owners.
void TextSlabWriter::LeaveSlab() noexcept {
    if (!slab_) return;
    TextSlab* const slab = std::exchange(slab_, nullptr);
    // The next writer, perhaps on another thread, leaves alone what is read together with the last text here.
    room_.Skip();
    const bool full = !room_.Has(1);
    slab->used = static_cast<std::uint32_t>(room_.At() - reinterpret_cast<char*>(slab));
    room_ = TextRoom();
    if (full) return ReleaseTextSlab(slab, kSlabHeld);
    TextSlab* other;
    {
        const ThreadGuard guard(open.mutex);
        other = std::exchange(open.slab, slab);
    }
    if (other) ReleaseTextSlab(other, kSlabHeld);
    CloseOpen(slab);
}

}  // namespace nexo
