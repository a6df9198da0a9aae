#ifndef NEXO_BASE_TIME_H
#define NEXO_BASE_TIME_H

// CTime, a point in time with a resolution of one second, and CTimeSpan, the difference of two.

#include <compare>
#include <cstdint>
#include <ctime>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/base/Types.h"

/// A number of seconds, negative ones included.
///
/// The parts (days, hours 0 to 23, ...) are cut towards zero and carry the sign of the span.
class NEXO_API CTimeSpan {
public:
    constexpr CTimeSpan() noexcept = default;
    constexpr CTimeSpan(std::int64_t seconds) noexcept : m_seconds(seconds) {}
    constexpr CTimeSpan(LONG days, int hours, int minutes, int seconds) noexcept
        : m_seconds(((std::int64_t{days} * 24 + hours) * 60 + minutes) * 60 + seconds) {}

    [[nodiscard]] constexpr LONGLONG GetDays() const noexcept { return m_seconds / 86400; }
    [[nodiscard]] constexpr LONGLONG GetTotalHours() const noexcept { return m_seconds / 3600; }
    [[nodiscard]] constexpr LONG GetHours() const noexcept {
        return static_cast<LONG>(m_seconds / 3600 % 24);
    }
    [[nodiscard]] constexpr LONGLONG GetTotalMinutes() const noexcept { return m_seconds / 60; }
    [[nodiscard]] constexpr LONG GetMinutes() const noexcept {
        return static_cast<LONG>(m_seconds / 60 % 60);
    }
    [[nodiscard]] constexpr LONGLONG GetTotalSeconds() const noexcept { return m_seconds; }
    [[nodiscard]] constexpr LONG GetSeconds() const noexcept { return static_cast<LONG>(m_seconds % 60); }
    [[nodiscard]] constexpr std::int64_t GetTimeSpan() const noexcept { return m_seconds; }

    /// %D days, %H hours, %M minutes, %S seconds (two digits each but the days), %% a percent sign; any other
    /// conversion prints itself.
    [[nodiscard]] CString Format(const wchar_t* format) const;

    /// Sums and differences wrap around at the limits of 64 bits.
    constexpr CTimeSpan& operator+=(CTimeSpan span) noexcept { return *this = *this + span; }
    constexpr CTimeSpan& operator-=(CTimeSpan span) noexcept { return *this = *this - span; }
    friend constexpr CTimeSpan operator+(CTimeSpan a, CTimeSpan b) noexcept {
        return static_cast<std::int64_t>(static_cast<std::uint64_t>(a.m_seconds) +
                                         static_cast<std::uint64_t>(b.m_seconds));
    }
    friend constexpr CTimeSpan operator-(CTimeSpan a, CTimeSpan b) noexcept {
        return static_cast<std::int64_t>(static_cast<std::uint64_t>(a.m_seconds) -
                                         static_cast<std::uint64_t>(b.m_seconds));
    }
    friend constexpr auto operator<=>(CTimeSpan, CTimeSpan) noexcept = default;

private:
    std::int64_t m_seconds = 0;
};

/// A second, counted from 1970-01-01 00:00:00 UTC; the default is that moment. A plain value.
///
/// The parts of the date are those of the user's time zone, by the daylight rule of that date. They exist
/// for the years 1 to 9999; outside, GetYear, GetMonth, GetDay and GetDayOfWeek give 0, the parts of the time
/// of day -1 and the formatted text is "". Any thread may use its own copies.
class NEXO_API CTime {
public:
    constexpr CTime() noexcept = default;
    constexpr CTime(std::int64_t seconds) noexcept : m_seconds(seconds) {}
    /// A local date and time; month and day count from 1. Fields beyond their range carry over (month 13 is
    /// next January). `isDst`: 1 or 0 when daylight saving time is in force or not, -1 as on that date;
    /// see nexo::LocalToUtc() for the hours of the change.
    CTime(int year, int month, int day, int hour, int minute, int second, int isDst = -1);
    /// A local date and time as file archives store it (years 1980 to 2107, even seconds).
    CTime(WORD dosDate, WORD dosTime, int isDst = -1);
    explicit CTime(const SYSTEMTIME& local, int isDst = -1);
    /// The ticks of a file stamp; the fraction of the second is cut off. The last argument has no meaning.
    explicit CTime(const FILETIME& ticks, int isDst = -1) noexcept;

    [[nodiscard]] static CTime GetCurrentTime() noexcept;

    [[nodiscard]] constexpr std::int64_t GetTime() const noexcept { return m_seconds; }
    [[nodiscard]] int GetYear() const;
    [[nodiscard]] int GetMonth() const;      ///< 1 to 12
    [[nodiscard]] int GetDay() const;        ///< 1 to 31
    [[nodiscard]] int GetHour() const;       ///< 0 to 23
    [[nodiscard]] int GetMinute() const;     ///< 0 to 59
    [[nodiscard]] int GetSecond() const;     ///< 0 to 59
    [[nodiscard]] int GetDayOfWeek() const;  ///< 1 = Sunday to 7 = Saturday

    /// Fills `*parts` and returns it; null, with nothing changed, for a null pointer or outside the years 1
    /// to 9999.
    std::tm* GetGmtTm(std::tm* parts) const;
    std::tm* GetLocalTm(std::tm* parts) const;
    /// The local date and time; false, with nothing changed, outside the years 1 to 9999.
    bool GetAsSystemTime(SYSTEMTIME& local) const;

    /// strftime conversions with English names, whatever the locale; see nexo::FormatCalendar().
    ///
    ///     CTime(2024, 2, 29, 8, 5, 0).Format(L"%d.%m.%Y %H:%M") == L"29.02.2024 08:05"
    [[nodiscard]] CString Format(const wchar_t* format) const;
    [[nodiscard]] CString FormatGmt(const wchar_t* format) const;

    CTime& operator=(std::int64_t seconds) noexcept {
        m_seconds = seconds;
        return *this;
    }
    CTime& operator+=(CTimeSpan span) noexcept { return *this = *this + span; }
    CTime& operator-=(CTimeSpan span) noexcept { return *this = *this - span; }
    [[nodiscard]] CTime operator+(CTimeSpan span) const noexcept {
        return (CTimeSpan(m_seconds) + span).GetTimeSpan();
    }
    [[nodiscard]] CTime operator-(CTimeSpan span) const noexcept {
        return (CTimeSpan(m_seconds) - span).GetTimeSpan();
    }
    [[nodiscard]] CTimeSpan operator-(CTime other) const noexcept {
        return CTimeSpan(m_seconds) - CTimeSpan(other.m_seconds);
    }
    friend constexpr auto operator<=>(CTime, CTime) noexcept = default;

private:
    std::int64_t m_seconds = 0;
};

#endif
