#ifndef NEXO_BASE_SLABPOOL_H
#define NEXO_BASE_SLABPOOL_H

#include <cstddef>
#include <cstdint>

#include "nexo/base/Export.h"
#include "nexo/base/SlabStore.h"
#include "nexo/base/TextSlab.h"

namespace nexo {

class SlabPool;

/// A slab cut into slots of one size.
struct SlotSlab : SlabHeader {
    static constexpr std::uint32_t kFirstSlot = 192;
    static constexpr std::uint32_t kMaxPins = 12;

    SlabPool* pool;
    SlotSlab* prev;  // among the slabs of single slots that have room
    SlotSlab* next;
    void* free;           // given back slots, chained through their first word; of single slots only
    std::uint32_t fresh;  // offset of the first slot that was never given out
    std::uint32_t pinCount;
    bool run;  // filled by a SlabRun: slots are not reused, and with the last one the pins go
    TextSlab* pins[kMaxPins];

    char* End() const noexcept;
    bool Unpin() noexcept;
};
static_assert(sizeof(SlotSlab) <= SlotSlab::kFirstSlot);

/// Memory for objects of one size, kept in slabs that go back to the system when they are empty.
///
/// Slots are handed out one at a time here or many in a row by SlabRun; either kind is given back by Give(),
/// in any order and from any thread. Pools live as long as the process.
class NEXO_API SlabPool {
public:
    constexpr explicit SlabPool(std::uint32_t slotSize) noexcept : slotSize_(slotSize) {}

    /// An aligned slot. Throws std::bad_alloc.
    [[nodiscard]] void* Take();
    void Give(void* slot) noexcept;

private:
    friend class SlabRun;
    friend struct SlotSlab;

    SlotSlab* MakeSlab(bool run);
    void Link(SlotSlab* slab) noexcept;
    void Unlink(SlotSlab* slab) noexcept;
    void CloseOpen(SlotSlab* slab) noexcept;
    static void DropRun(SlotSlab* slab, int count) noexcept;

    std::uint32_t slotSize_;
    std::mutex mutex_;
    SlotSlab* roomy_ = nullptr;  // slabs of single slots that have room
    SlotSlab* open_ = nullptr;   // the slab that the last run left with room in it; counts as held
};

/// Takes many slots of a pool one behind the other. For one thread at a time.
class NEXO_API SlabRun {
public:
    explicit SlabRun(SlabPool& pool) noexcept : pool_(pool) {}
    SlabRun(const SlabRun&) = delete;
    SlabRun& operator=(const SlabRun&) = delete;
    ~SlabRun() { Leave(); }

    /// The next slot: the one directly behind the last, but for the change from one slab to another. Only
    /// where kSlabsEnabled. Throws std::bad_alloc.
    [[nodiscard]] void* Take() {
        if (at_ == end_) NextSlab();
        void* const slot = at_;
        at_ += pool_.slotSize_;
        return slot;
    }

    /// Keeps a text alive as long as the slab of the slot last taken; `text` lies in a text slab that is
    /// alive now. False when the slab cannot take more texts from elsewhere; then the text needs an owner of
    /// its own.
    bool Pin(const StringHeader* text) noexcept {
        TextSlab* const slab = SlabOf<TextSlab>(text);
        return slab == pinned_ || PinSlab(slab);
    }

    /// Gives back `count` slots of one slab that a run filled.
    static void Give(void* first, std::size_t count) noexcept {
        SlabPool::DropRun(SlabOf<SlotSlab>(first), static_cast<int>(count));
    }

private:
    void NextSlab();
    void Leave() noexcept;
    bool PinSlab(TextSlab* slab) noexcept;

    SlabPool& pool_;
    SlotSlab* slab_ = nullptr;
    char* first_ = nullptr;  // where this run began in the slab
    char* at_ = nullptr;
    char* end_ = nullptr;
    TextSlab* pinned_ = nullptr;  // a text slab that is pinned to the slab
};

}  // namespace nexo

#endif
