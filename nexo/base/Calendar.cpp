#include "nexo/base/Calendar.h"

namespace nexo {

namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kDaysOfEra = 146097;           // 400 years
constexpr std::int64_t kDaysFromEraToEpoch = 719468;  // from 0000-03-01 to 1970-01-01

constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0);
}

// Years are counted from March, so that the leap day is the last of its year.
constexpr std::int64_t DaysOf(std::int64_t year, int month, int day) {
    const std::int64_t marchYear = year - (month <= 2);
    const std::int64_t era = FloorDiv(marchYear, 400);
    const std::int64_t yearOfEra = marchYear - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * kDaysOfEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear -
           kDaysFromEraToEpoch;
}
static_assert(DaysOf(1970, 1, 1) == 0 && DaysOf(2000, 3, 1) == 11017 && DaysOf(1601, 1, 1) == -134774);

void SetDate(Calendar& date, std::int64_t days) {
    const std::int64_t shifted = days + kDaysFromEraToEpoch;
    const std::int64_t era = FloorDiv(shifted, kDaysOfEra);
    const std::int64_t dayOfEra = shifted - era * kDaysOfEra;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (kDaysOfEra - 1)) / 365;
    const int dayOfYear = static_cast<int>(dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100));
    const int marchMonth = (5 * dayOfYear + 2) / 153;
    date.day = dayOfYear - (153 * marchMonth + 2) / 5 + 1;
    date.month = marchMonth + (marchMonth < 10 ? 3 : -9);
    date.year = yearOfEra + era * 400 + (date.month <= 2);
    date.yearDay = static_cast<int>(days - DaysOf(date.year, 1, 1));
    date.weekDay = static_cast<int>((days % 7 + 11) % 7);
}

}  // namespace

Calendar CalendarOf(std::int64_t seconds) {
    Calendar date;
    const std::int64_t days = FloorDiv(seconds, kDay);
    const int rest = static_cast<int>(seconds - days * kDay);
    SetDate(date, days);
    date.hour = rest / 3600;
    date.minute = rest / 60 % 60;
    date.second = rest % 60;
    return date;
}

std::int64_t SecondsOf(int year, int month, int day, int hour, int minute, int second) {
    const std::int64_t months = std::int64_t{month} - 1;
    const std::int64_t years = FloorDiv(months, 12);
    const std::int64_t days = DaysOf(year + years, static_cast<int>(months - years * 12) + 1, 1) + day - 1;
    return days * kDay + std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second;
}

std::int64_t LocalToUtc(std::int64_t local, int daylight) {
    // A day away from `local` the offsets before and behind any change on that day are in force.
    const ZoneOffset before = LocalOffsetAt(local - kDay);
    const ZoneOffset behind = LocalOffsetAt(local + kDay);
    const auto shows = [&](const ZoneOffset& zone) {
        return LocalOffsetAt(local - zone.seconds).seconds == zone.seconds;
    };
    const ZoneOffset& usual = !shows(before) && shows(behind) ? behind : before;
    const std::int64_t utc = local - usual.seconds;
    if (daylight < 0) return utc;

    const bool wanted = daylight > 0;
    constexpr std::int64_t kHalfYear = 182 * kDay;
    const ZoneOffset candidates[] = {LocalOffsetAt(utc), before, behind, LocalOffsetAt(utc - kHalfYear),
                                     LocalOffsetAt(utc + kHalfYear)};
    for (const ZoneOffset& zone : candidates)
        if (zone.daylight == wanted) return local - zone.seconds;
    return utc;
}

}  // namespace nexo
