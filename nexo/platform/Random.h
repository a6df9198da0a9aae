#ifndef NEXO_PLATFORM_RANDOM_H
#define NEXO_PLATFORM_RANDOM_H

#include <cstddef>

#include "nexo/base/Export.h"

namespace nexo::platform {

/// Fills `out` with bytes from the system's cryptographic source; false, with `out` holding anything, when it
/// refuses. Safe from any thread. For numbers of a repeatable sequence this is the wrong place.
NEXO_API bool RandomBytes(void* out, std::size_t size);

}  // namespace nexo::platform

#endif
