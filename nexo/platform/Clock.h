#ifndef NEXO_PLATFORM_CLOCK_H
#define NEXO_PLATFORM_CLOCK_H

#include <cstdint>

#include "nexo/base/Export.h"

namespace nexo::platform {

/// Milliseconds of a steady clock, modulo 2^32; differences stay right across the wrap after 49.7 days.
[[nodiscard]] NEXO_API std::uint32_t TickCount();

/// The same as of the last beat of the system's clock, 1 to 10 ms ago; costs a fifth.
[[nodiscard]] NEXO_API std::uint32_t CoarseTickCount();

/// Steady high-resolution counter and its counts per second. Reading it makes no system call.
[[nodiscard]] NEXO_API std::int64_t PerformanceCounter();
[[nodiscard]] NEXO_API std::int64_t PerformanceFrequency();

/// Now, in 100 ns ticks since 1601-01-01 UTC, as file stamps count.
[[nodiscard]] NEXO_API std::int64_t SystemTimeTicks();

/// Pauses the calling thread; 0 gives up its time slice.
NEXO_API void SleepMilliseconds(std::uint32_t milliseconds);

}  // namespace nexo::platform

#endif
