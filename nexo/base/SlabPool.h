#ifndef NEXO_BASE_SLABPOOL_H
#define NEXO_BASE_SLABPOOL_H

// Private to the library.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "nexo/base/Export.h"
#include "nexo/base/SlabStore.h"
#include "nexo/base/TextSlab.h"

namespace nexo {

class SlabPool;

/// A slab cut into slots of one size.
struct SlotSlab : SlabHeader {
    static constexpr std::uint32_t kFirstSlot = 320;
    /// Enough for leaves whose texts are as long as text slabs take them.
    static constexpr std::uint32_t kMaxPins = 28;

    SlabPool* pool;
    SlotSlab* prev;  // among the slabs of single slots that have room
    SlotSlab* next;
    void* free;           // given back slots, chained through their first word; of single slots only
    std::uint32_t fresh;  // offset of the first slot that was never given out
    std::uint32_t pinCount;
    bool run;      // filled by a SlabRun: slots are not reused, and with the last one the pins go
    bool touched;  // an object in it owns something beside its slot; see SlabShares
    TextSlab* pins[kMaxPins];

    char* End() const noexcept;
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
    friend class SlabShares;
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

/// The slots that one or more runs took, to be given back all at once: without a look at the objects in them,
/// which is possible as long as none of these owns anything that its end would have to release.
class NEXO_API SlabShares {
public:
    /// Says that the object in a run's slot now owns something. Any thread.
    static void Touch(const void* slot) noexcept {
        bool& touched = SlabOf<SlotSlab>(slot)->touched;
        if (!__atomic_load_n(&touched, __ATOMIC_RELAXED)) __atomic_store_n(&touched, true, __ATOMIC_RELAXED);
    }

    /// Whether no object in any of the slabs owns anything.
    [[nodiscard]] bool AreUntouched() const noexcept;
    void GiveAll() noexcept;

private:
    friend class SlabRun;

    struct Share {
        SlotSlab* slab;
        int count;
    };
    std::vector<Share> shares_;
};

/// Takes many slots of a pool one behind the other. For one thread at a time.
class NEXO_API SlabRun {
public:
    /// `shares`, if not null, learns which slots were taken by the time the run leaves them.
    explicit SlabRun(SlabPool& pool, SlabShares* shares = nullptr) noexcept : pool_(pool), shares_(shares) {}
    SlabRun(const SlabRun&) = delete;
    SlabRun& operator=(const SlabRun&) = delete;
    ~SlabRun() {
        shares_ = nullptr;
        Leave();
    }

    /// The next slot: the one directly behind the last, but for the change from one slab to another. Only
    /// where kSlabsEnabled. Throws std::bad_alloc.
    [[nodiscard]] void* Take() {
        if (at_ == end_) NextSlab();
        void* const slot = at_;
        at_ += pool_.slotSize_;
        return slot;
    }

    /// How many slots side by side the next TakeMany() may take: at least one. Only where kSlabsEnabled.
    /// Throws std::bad_alloc.
    [[nodiscard]] std::size_t Available() {
        if (at_ == end_) NextSlab();
        return static_cast<std::size_t>(end_ - at_) / pool_.slotSize_;
    }
    /// The first of these slots. What Pin() says holds for them already before they are taken.
    [[nodiscard]] void* Next() const noexcept { return at_; }
    void TakeMany(std::size_t count) noexcept { at_ += count * pool_.slotSize_; }

    /// Keeps a text alive as long as the slab of the slot last taken; `text` lies in a text slab that is
    /// alive now. False when the slab cannot take more texts from elsewhere; then the text needs an owner of
    /// its own.
    bool Pin(const StringHeader* text) noexcept {
        TextSlab* const slab = SlabOf<TextSlab>(text);
        return slab == pinned_[0] || slab == pinned_[1] || PinSlab(slab);
    }

    /// How many slots lie from `slot` on to the end of its slab.
    static std::size_t SlotsFrom(const void* slot) noexcept {
        const auto* const slab = SlabOf<SlotSlab>(slot);
        return static_cast<std::size_t>(slab->End() - static_cast<const char*>(slot)) / slab->pool->slotSize_;
    }
    /// Gives back `count` slots side by side in one slab that a run filled.
    static void Give(void* first, std::size_t count) noexcept {
        SlabPool::DropRun(SlabOf<SlotSlab>(first), static_cast<int>(count));
    }

    /// Ends the run: the next slot will lie somewhere else. Throws std::bad_alloc, only with shares.
    void Leave();

private:
    void NextSlab();
    bool PinSlab(TextSlab* slab) noexcept;

    SlabPool& pool_;
    SlabShares* shares_;
    SlotSlab* slab_ = nullptr;
    char* first_ = nullptr;  // where this run began in the slab
    char* at_ = nullptr;
    char* end_ = nullptr;
    TextSlab* pinned_[2] = {};  // the text slabs last pinned to the slab: often one of names, one of values
};

}  // namespace nexo

#endif
