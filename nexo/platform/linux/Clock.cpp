#include "nexo/platform/Clock.h"

#include <cerrno>
#include <ctime>

#include "nexo/platform/FileSystem.h"
#include "nexo/platform/linux/FileInfo.h"

namespace nexo::platform {
namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1000000000;

struct timespec Now(clockid_t clock) {
    struct timespec now;
    clock_gettime(clock, &now);
    return now;
}

std::uint32_t MillisecondsOf(const struct timespec& now) {
    return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1000000);
}

}  // namespace

std::uint32_t TickCount() {
    return MillisecondsOf(Now(CLOCK_MONOTONIC));
}

std::uint32_t CoarseTickCount() {
    return MillisecondsOf(Now(CLOCK_MONOTONIC_COARSE));
}

std::int64_t PerformanceCounter() {
    const struct timespec now = Now(CLOCK_MONOTONIC);
    return now.tv_sec * kNanosecondsPerSecond + now.tv_nsec;
}

std::int64_t PerformanceFrequency() {
    return kNanosecondsPerSecond;
}

std::int64_t SystemTimeTicks() {
    return TicksOf(Now(CLOCK_REALTIME));
}

void SleepMilliseconds(std::uint32_t milliseconds) {
    struct timespec left = {milliseconds / 1000, milliseconds % 1000 * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) continue;
}

}  // namespace nexo::platform
