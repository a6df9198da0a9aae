#include <time.h>

#include <cstring>

#include "nexo/base/Calendar.h"

nexo::ZoneOffset nexo::LocalOffsetAt(std::int64_t seconds) {
    ZoneOffset zone;
    tm parts{};
    const time_t when = seconds;
    tzset();  // localtime_r alone would keep the zone of its first call
    if (!localtime_r(&when, &parts)) return zone;
    zone.seconds = static_cast<int>(parts.tm_gmtoff);
    zone.daylight = parts.tm_isdst > 0;
    std::memset(zone.name, 0, sizeof zone.name);
    if (parts.tm_zone) std::strncpy(zone.name, parts.tm_zone, sizeof zone.name - 1);
    return zone;
}
