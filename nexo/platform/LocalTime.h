#ifndef NEXO_PLATFORM_LOCALTIME_H
#define NEXO_PLATFORM_LOCALTIME_H

#include <cstdint>

#include "nexo/base/Export.h"

namespace nexo::platform {

/// A date and time of day on the wall clock of the user's time zone.
struct LocalTime {
    int year = 1970;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;  ///< 0 to 59
};

/// The local time of a second since 1970-01-01 UTC, by the daylight rule of that date; all zero when the time
/// zone's calendar cannot hold it. A change of the time zone is noticed. Safe from any thread.
[[nodiscard]] NEXO_API LocalTime LocalTimeOf(std::int64_t unixSeconds);

}  // namespace nexo::platform

#endif
