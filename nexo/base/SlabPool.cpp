#include "nexo/base/SlabPool.h"

#include <algorithm>
#include <new>
#include <utility>

namespace nexo {

/// Behind the last slot.
char* SlotSlab::End() const noexcept {
    const std::size_t slots = (kSlabSize - kFirstSlot) / pool->slotSize_;
    return const_cast<char*>(reinterpret_cast<const char*>(this)) + kFirstSlot + slots * pool->slotSize_;
}

SlotSlab* SlabPool::MakeSlab(bool run) {
    SlabHeader* const taken = TakeSlab();
    auto* const slab = static_cast<SlotSlab*>(taken);
    slab->pool = this;
    slab->prev = slab->next = nullptr;
    slab->free = nullptr;
    slab->fresh = SlotSlab::kFirstSlot;
    slab->pinCount = 0;
    slab->run = run;
    slab->touched = false;
    return slab;
}

// Single slots. Their counts change under the pool's lock only.

void* SlabPool::Take() {
    if (!kSlabsEnabled) return ::operator new(slotSize_);
    const ThreadGuard guard(mutex_);
    if (!roomy_) Link(MakeSlab(false));
    SlotSlab* const slab = roomy_;
    ++slab->live;
    void* slot = slab->free;
    if (slot) {
        slab->free = *static_cast<void**>(slot);
    } else {
        slot = reinterpret_cast<char*>(slab) + slab->fresh;
        slab->fresh += slotSize_;
    }
    if (!slab->free && slab->fresh + slotSize_ > kSlabSize) Unlink(slab);
    return slot;
}

void SlabPool::Give(void* slot) noexcept {
    if (!kSlabsEnabled) return ::operator delete(slot);
    SlotSlab* const slab = SlabOf<SlotSlab>(slot);
    if (slab->run) return DropRun(slab, 1);
    const ThreadGuard guard(mutex_);
    const bool full = !slab->free && slab->fresh + slotSize_ > kSlabSize;
    *static_cast<void**>(slot) = slab->free;
    slab->free = slot;
    if (full) Link(slab);
    if (--slab->live > 0) return;
    Unlink(slab);
    GiveSlab(slab);
}

void SlabPool::Link(SlotSlab* slab) noexcept {
    slab->prev = nullptr;
    slab->next = roomy_;
    if (roomy_) roomy_->prev = slab;
    roomy_ = slab;
}

void SlabPool::Unlink(SlotSlab* slab) noexcept {
    (slab->prev ? slab->prev->next : roomy_) = slab->next;
    if (slab->next) slab->next->prev = slab->prev;
}

// Runs

namespace {

void FreeRun(SlotSlab* slab) noexcept {
    for (std::uint32_t i = 0; i < slab->pinCount; ++i) ReleaseTextSlab(slab->pins[i]);
    GiveSlab(slab);
}

}  // namespace

void SlabPool::DropRun(SlotSlab* slab, int count) noexcept {
    SlabPool* const pool = slab->pool;
    const int live = DropLive(slab, count);
    if (live == 0) return FreeRun(slab);
    if (live == kSlabHeld) pool->CloseOpen(slab);
}

/// Frees the open slab when the slot that was just dropped was its last one.
void SlabPool::CloseOpen(SlotSlab* slab) noexcept {
    {
        const ThreadGuard guard(mutex_);
        if (open_ != slab || __atomic_load_n(&slab->live, __ATOMIC_ACQUIRE) != kSlabHeld) return;
        open_ = nullptr;
    }
    FreeRun(slab);
}

void SlabRun::NextSlab() {
    Leave();
    {
        const ThreadGuard guard(pool_.mutex_);
        slab_ = std::exchange(pool_.open_, nullptr);
    }
    if (!slab_) {
        slab_ = pool_.MakeSlab(true);
        slab_->live = kSlabHeld;
    }
    pinned_[0] = pinned_[1] = nullptr;
    first_ = at_ = reinterpret_cast<char*>(slab_) + slab_->fresh;
    end_ = slab_->End();
}

/// Counts the slots that were taken and leaves the rest of the slab to the next run.
void SlabRun::Leave() {
    if (!slab_) return;
    const int taken = static_cast<int>((at_ - first_) / static_cast<std::ptrdiff_t>(pool_.slotSize_));
    if (shares_ && taken > 0) shares_->shares_.push_back({slab_, taken});
    SlotSlab* const slab = std::exchange(slab_, nullptr);
    slab->fresh = static_cast<std::uint32_t>(at_ - reinterpret_cast<char*>(slab));
    // A slab whose pins run out would not serve the next run well.
    SlotSlab* full = at_ == end_ || slab->pinCount > SlotSlab::kMaxPins / 2 ? slab : nullptr;
    if (!full) {
        if (taken > 0) AddLive(slab, taken);
        const ThreadGuard guard(pool_.mutex_);
        full = std::exchange(pool_.open_, slab);
    }
    at_ = end_ = nullptr;
    if (full) SlabPool::DropRun(full, full == slab ? kSlabHeld - taken : kSlabHeld);
    if (full != slab) pool_.CloseOpen(slab);
}

bool SlabRun::PinSlab(TextSlab* slab) noexcept {
    TextSlab** const end = slab_->pins + slab_->pinCount;
    if (std::find(slab_->pins, end, slab) == end) {
        if (slab_->pinCount == SlotSlab::kMaxPins) return false;
        AddLive(slab, 1);
        *end = slab;
        ++slab_->pinCount;
    }
    pinned_[1] = pinned_[0];
    pinned_[0] = slab;
    return true;
}

// Shares

bool SlabShares::AreUntouched() const noexcept {
    return std::none_of(shares_.begin(), shares_.end(), [](const Share& share) {
        return __atomic_load_n(&share.slab->touched, __ATOMIC_RELAXED);
    });
}

void SlabShares::GiveAll() noexcept {
    for (const Share& share : shares_) SlabPool::DropRun(share.slab, share.count);
    shares_.clear();
}

}  // namespace nexo
