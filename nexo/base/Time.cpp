#include "nexo/base/Time.h"

#include <chrono>
#include <limits>
#include <optional>
#include <string>

#include "nexo/base/Calendar.h"

namespace {

constexpr std::int64_t kTicksPerSecond = 10000000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11644473600;
constexpr std::int64_t kFirstSecond = -62135596800;  // 0001-01-01 00:00:00
constexpr std::int64_t kLastSecond = 253402300799;   // 9999-12-31 23:59:59

// The date shown by clocks that are ahead of UTC by `offset` seconds, if it has a place in CTime's years.
std::optional<nexo::Calendar> DateOf(std::int64_t seconds, int offset) {
    if (seconds < kFirstSecond - offset || seconds > kLastSecond - offset) return std::nullopt;
    return nexo::CalendarOf(seconds + offset);
}

std::optional<nexo::Calendar> LocalDateOf(std::int64_t seconds) {
    return DateOf(seconds, nexo::LocalOffsetAt(seconds).seconds);
}

std::tm TmOf(const nexo::Calendar& date, bool isDst) {
    std::tm parts{};
    parts.tm_year = static_cast<int>(date.year) - 1900;
    parts.tm_mon = date.month - 1;
    parts.tm_mday = date.day;
    parts.tm_hour = date.hour;
    parts.tm_min = date.minute;
    parts.tm_sec = date.second;
    parts.tm_wday = date.weekDay;
    parts.tm_yday = date.yearDay;
    parts.tm_isdst = isDst;
    return parts;
}

std::int64_t LocalSeconds(int year, int month, int day, int hour, int minute, int second, int isDst) {
    return nexo::LocalToUtc(nexo::SecondsOf(year, month, day, hour, minute, second), isDst);
}

void AppendTwoDigits(std::wstring& text, int value) {
    if (value < 0) text += L'-';
    const int digits = value < 0 ? -value : value;
    if (digits < 10) text += L'0';
    text += std::to_wstring(digits);
}

}  // namespace

CString CTimeSpan::Format(const wchar_t* format) const {
    std::wstring text;
    for (const wchar_t* at = format; at && *at; ++at) {
        if (*at != L'%') {
            text += *at;
            continue;
        }
        switch (*++at) {
            case L'D':
                text += std::to_wstring(GetDays());
                break;
            case L'H':
                AppendTwoDigits(text, GetHours());
                break;
            case L'M':
                AppendTwoDigits(text, GetMinutes());
                break;
            case L'S':
                AppendTwoDigits(text, GetSeconds());
                break;
            case L'%':
                text += L'%';
                break;
            case L'\0':
                text += L'%', --at;
                break;
            default:
                text += {L'%', *at};
        }
    }
    return CString(std::wstring_view(text));
}

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int isDst)
    : m_seconds(LocalSeconds(year, month, day, hour, minute, second, isDst)) {}

CTime::CTime(WORD dosDate, WORD dosTime, int isDst)
    : CTime((dosDate >> 9) + 1980, dosDate >> 5 & 15, dosDate & 31, dosTime >> 11, dosTime >> 5 & 63,
            (dosTime & 31) * 2, isDst) {}

CTime::CTime(const SYSTEMTIME& local, int isDst)
    : CTime(local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond, isDst) {}

CTime::CTime(const FILETIME& ticks, int) noexcept
    : m_seconds(static_cast<std::int64_t>((std::uint64_t{ticks.dwHighDateTime} << 32 | ticks.dwLowDateTime) /
                                          kTicksPerSecond) -
                kSecondsFrom1601To1970) {}

CTime CTime::GetCurrentTime() noexcept {
    using namespace std::chrono;
    return floor<seconds>(system_clock::now()).time_since_epoch().count();
}

int CTime::GetYear() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? static_cast<int>(date->year) : 0;
}

int CTime::GetMonth() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? date->month : 0;
}

int CTime::GetDay() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? date->day : 0;
}

int CTime::GetHour() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? date->hour : -1;
}

int CTime::GetMinute() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? date->minute : -1;
}

int CTime::GetSecond() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? date->second : -1;
}

int CTime::GetDayOfWeek() const {
    const auto date = LocalDateOf(m_seconds);
    return date ? date->weekDay + 1 : 0;
}

std::tm* CTime::GetGmtTm(std::tm* parts) const {
    const auto date = DateOf(m_seconds, 0);
    if (!parts || !date) return nullptr;
    *parts = TmOf(*date, false);
    return parts;
}

std::tm* CTime::GetLocalTm(std::tm* parts) const {
    const nexo::ZoneOffset zone = nexo::LocalOffsetAt(m_seconds);
    const auto date = DateOf(m_seconds, zone.seconds);
    if (!parts || !date) return nullptr;
    *parts = TmOf(*date, zone.daylight);
    return parts;
}

bool CTime::GetAsSystemTime(SYSTEMTIME& local) const {
    const auto date = LocalDateOf(m_seconds);
    if (!date) return false;
    const auto word = [](std::int64_t value) { return static_cast<WORD>(value); };
    local = {word(date->year), word(date->month),  word(date->weekDay), word(date->day),
             word(date->hour), word(date->minute), word(date->second),  0};
    return true;
}

CString CTime::Format(const wchar_t* format) const {
    const nexo::ZoneOffset zone = nexo::LocalOffsetAt(m_seconds);
    const auto date = DateOf(m_seconds, zone.seconds);
    return date ? nexo::FormatCalendar(format, *date, zone) : CString();
}

CString CTime::FormatGmt(const wchar_t* format) const {
    const auto date = DateOf(m_seconds, 0);
    return date ? nexo::FormatCalendar(format, *date, nexo::ZoneOffset()) : CString();
}
