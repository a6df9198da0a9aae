#include "nexo/platform/LocalTime.h"

#include <time.h>

nexo::platform::LocalTime nexo::platform::LocalTimeOf(std::int64_t unixSeconds) {
    const time_t seconds = unixSeconds;
    tm parts{};
    tzset();  // localtime_r alone would keep the time zone it met first
    if (!localtime_r(&seconds, &parts)) return {0, 0, 0, 0, 0, 0};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}
