#ifndef NEXO_PLATFORM_MEMORY_H
#define NEXO_PLATFORM_MEMORY_H

// Private to the library.

#include <cstddef>

#include "nexo/base/Export.h"

namespace nexo::platform {

/// Copies `size` bytes from an address that may be anything, as diagnostics meet it. False, with `out`
/// holding anything, when the memory is not readable or the system does not allow to try. One system call.
NEXO_API bool ReadForeignMemory(const void* address, void* out, std::size_t size);

}  // namespace nexo::platform

#endif
