#include "nexo/platform/LocalTime.h"

#include <limits>

#include "nexo/base/Calendar.h"

nexo::platform::LocalTime nexo::platform::LocalTimeOf(std::int64_t unixSeconds) {
    std::int64_t local = 0;
    if (__builtin_add_overflow(unixSeconds, LocalOffsetAt(unixSeconds).seconds, &local))
        return {0, 0, 0, 0, 0, 0};
    const Calendar date = CalendarOf(local);
    if (date.year < std::numeric_limits<int>::min() || date.year > std::numeric_limits<int>::max())
        return {0, 0, 0, 0, 0, 0};
    return {static_cast<int>(date.year), date.month, date.day, date.hour, date.minute, date.second};
}
