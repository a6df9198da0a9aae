#include <sys/mman.h>

#include <cerrno>
#include <cstdint>

#include "nexo/base/SlabStore.h"

namespace nexo {

void AdviseLargePages(void* memory, std::size_t size) noexcept {
    constexpr std::uintptr_t kLargePage = std::uintptr_t{2} * 1024 * 1024;
    const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + kLargePage - 1) & ~(kLargePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + size) & ~(kLargePage - 1);
    if (begin >= end) return;
    const int error = errno;  // a system without large pages is no failure
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
    errno = error;
}

}  // namespace nexo
