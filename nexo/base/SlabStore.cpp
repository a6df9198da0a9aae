#include "nexo/base/SlabStore.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace nexo {
namespace {

constexpr std::size_t kRegionSize = std::size_t{2} * 1024 * 1024;  // a large page
constexpr std::uint32_t kSlabsPerRegion = kRegionSize / kSlabSize;
constexpr std::uint32_t kAllFree = 0xFFFFFFFF;
static_assert(kSlabsPerRegion == 32);

/// From this many regions on a region is worth a large page; below, memory is touched slab by slab.
constexpr std::size_t kFirstLargePage = 2;

/// The most empty regions that are kept: 128 MiB.
constexpr std::size_t kMostSpares = 64;

/// A piece of memory cut into slabs.
struct Region {
    char* memory;
    std::uint32_t free;  // one bit for each slab that is not taken
    Region* prev;
    Region* next;
};

/// The regions that have a free slab, and empty ones kept for later.
///
/// A process that fills and empties slabs again and again would spend more time in getting memory from the
/// system than in using it. So every region that has to be made although an empty one was freed before raises
/// the number of empty ones that are kept; a process that needs much memory once gives back all of it but one
/// region.
struct Store {
    std::mutex mutex;
    Region* partial = nullptr;
    Region* spare = nullptr;  // without a taken slab; chained by `next`
    std::size_t spares = 0;
    std::size_t sparesKept = 1;
    std::size_t freed = 0;  // regions freed that might have been kept
    std::size_t regions = 0;

    Region* MakeRegion();
    void Unlink(Region* region) noexcept;
    void Link(Region* region) noexcept;
    void Discard(Region* region) noexcept;
};

constinit Store store;

Region* Store::MakeRegion() {
    if (spare) {
        --spares;
        return std::exchange(spare, spare->next);
    }
    if (freed > 0 && sparesKept < kMostSpares) {
        --freed;
        ++sparesKept;
    }
    auto* const region = new Region{nullptr, kAllFree, nullptr, nullptr};
    region->memory = static_cast<char*>(std::aligned_alloc(kRegionSize, kRegionSize));
    if (!region->memory) {
        delete region;
        throw std::bad_alloc();
    }
    if (regions >= kFirstLargePage) AdviseLargePages(region->memory, kRegionSize);
    ++regions;
    return region;
}

void Store::Link(Region* region) noexcept {
    region->prev = nullptr;
    region->next = partial;
    if (partial) partial->prev = region;
    partial = region;
}

void Store::Unlink(Region* region) noexcept {
    (region->prev ? region->prev->next : partial) = region->next;
    if (region->next) region->next->prev = region->prev;
}

void Store::Discard(Region* region) noexcept {
    if (spares < sparesKept) {
        region->next = spare;
        spare = region;
        ++spares;
        return;
    }
    --regions;
    ++freed;
    std::free(region->memory);
    delete region;
}

}  // namespace

SlabHeader* TakeSlab() {
    const ThreadGuard guard(store.mutex);
    if (!store.partial) store.Link(store.MakeRegion());
    Region* const region = store.partial;
    const int index = __builtin_ctz(region->free);
    region->free &= region->free - 1;
    if (region->free == 0) store.Unlink(region);
    return new (region->memory + static_cast<std::size_t>(index) * kSlabSize) SlabHeader{region, 0};
}

void GiveSlab(SlabHeader* slab) noexcept {
    const ThreadGuard guard(store.mutex);
    auto* const region = static_cast<Region*>(slab->region);
    if (region->free == 0) store.Link(region);
    region->free |=
        1U << ((reinterpret_cast<char*>(slab) - region->memory) / static_cast<std::ptrdiff_t>(kSlabSize));
    if (region->free != kAllFree) return;
    store.Unlink(region);
    store.Discard(region);
}

void FreeSpareSlabs() noexcept {
    const ThreadGuard guard(store.mutex);
    store.sparesKept = 0;
    while (store.spare) {
        --store.spares;
        store.Discard(std::exchange(store.spare, store.spare->next));
    }
    store.sparesKept = 1;
    store.freed = 0;
}

}  // namespace nexo
