#ifndef NEXO_BASE_CALENDAR_H
#define NEXO_BASE_CALENDAR_H

// Date arithmetic of the proleptic Gregorian calendar and the place where the user's time zone enters.
// Programs use CTime (nexo/base/Time.h).

#include <cstdint>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

namespace nexo {

/// A date and time of day, without saying of which zone.
struct Calendar {
    std::int64_t year = 1970;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekDay = 4;  // 0 = Sunday
    int yearDay = 0;  // 0 = 1 January
};

/// The date of a number of seconds since 1970-01-01 00:00:00.
[[nodiscard]] NEXO_API Calendar CalendarOf(std::int64_t seconds);

/// Seconds since 1970-01-01 00:00:00. Fields beyond their range carry over: month 13 is next January.
[[nodiscard]] NEXO_API std::int64_t SecondsOf(int year, int month, int day, int hour, int minute, int second);

/// What a zone's clocks show in relation to UTC.
struct ZoneOffset {
    int seconds = 0;  // ahead of UTC (east is positive)
    bool daylight = false;
    char name[8] = "UTC";  // abbreviation, cut to 7 characters
};

/// The user's zone at that second since 1970 UTC; UTC where the zone's data do not reach.
/// Implemented by the platform. Any thread may call it; a changed zone setting is noticed.
[[nodiscard]] NEXO_API ZoneOffset LocalOffsetAt(std::int64_t seconds);

/// The second since 1970 UTC at which the user's clocks show `local` (counted as if it were UTC).
///
/// Of an hour that is repeated in autumn the first is meant, of one that is skipped in spring the time as
/// if the clocks had not yet been changed. `daylight` 0 or 1 says which time is in force instead.
[[nodiscard]] NEXO_API std::int64_t LocalToUtc(std::int64_t local, int daylight = -1);

/// strftime-like formatting with the names of the C locale, whatever the process's locale is: "%Y-%m-%d".
///
/// All conversions of ISO C; "#" behind "%" drops leading zeros (and gives the long form of %c and %x). An
/// unknown conversion prints itself.
[[nodiscard]] NEXO_API CString FormatCalendar(const wchar_t* format, const Calendar& date,
                                              const ZoneOffset& zone);

}  // namespace nexo

#endif
