#ifndef NEXO_BASE_SLABSTORE_H
#define NEXO_BASE_SLABSTORE_H

#include <ext/atomicity.h>

#include <cstddef>
#include <cstdint>
#include <mutex>

#include "nexo/base/Export.h"

// Where the slabs of texts (TextSlab.h) and of tree items (SlabPool.h) come from.

#ifndef NEXO_SLABS
#if defined(__SANITIZE_ADDRESS__)
#define NEXO_SLABS 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NEXO_SLABS 0
#endif
#endif
#ifndef NEXO_SLABS
#define NEXO_SLABS 1
#endif
#endif

namespace nexo {

/// False where an address sanitizer watches: then every object has a heap block of its own, so that its use
/// after its end is found.
inline constexpr bool kSlabsEnabled = NEXO_SLABS != 0;

/// Size of a slab and its alignment, so that the address of anything inside leads to the slab.
inline constexpr std::size_t kSlabSize = std::size_t{64} * 1024;

/// What every slab begins with; the rest belongs to whoever took it.
struct SlabHeader {
    void* region;  ///< the store's own
    /// Things that live in the slab. Whoever fills a slab adds kSlabHeld, so that it is not given back
    /// meanwhile.
    int live;
};
inline constexpr int kSlabHeld = 0x40000000;

/// The slab around an address inside it.
template <class Slab>
Slab* SlabOf(const void* inside) noexcept {
    return reinterpret_cast<Slab*>(reinterpret_cast<std::uintptr_t>(inside) & ~(kSlabSize - 1));
}

/// A slab with a header of zeros but for the store's part. Any thread. Throws std::bad_alloc.
[[nodiscard]] NEXO_API SlabHeader* TakeSlab();
NEXO_API void GiveSlab(SlabHeader* slab) noexcept;
/// Gives the system back what is kept for slabs to come. That is little, unless the process made and
/// destroyed large trees several times.
NEXO_API void FreeSpareSlabs() noexcept;

/// Adds to the count of living things. Costs no locked instruction while the process has one thread.
inline void AddLive(SlabHeader* slab, int count) noexcept {
    __gnu_cxx::__atomic_add_dispatch(&slab->live, count);
}
/// Takes from the count and returns what is left.
inline int DropLive(SlabHeader* slab, int count) noexcept {
    return __gnu_cxx::__exchange_and_add_dispatch(&slab->live, -count) - count;
}

/// Holds a mutex, but only when the process has a second thread.
class ThreadGuard {
public:
    explicit ThreadGuard(std::mutex& mutex) : mutex_(__gnu_cxx::__is_single_threaded() ? nullptr : &mutex) {
        if (mutex_) mutex_->lock();
    }
    ThreadGuard(const ThreadGuard&) = delete;
    ThreadGuard& operator=(const ThreadGuard&) = delete;
    ~ThreadGuard() {
        if (mutex_) mutex_->unlock();
    }

private:
    std::mutex* mutex_;
};

/// Tells the system that memory which is about to be filled profits from large pages. Only a hint: it changes
/// neither content nor ownership.
NEXO_API void AdviseLargePages(void* memory, std::size_t size) noexcept;

}  // namespace nexo

#endif
