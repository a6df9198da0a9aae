#include "nexo/base/Time.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "nexo/base/Calendar.h"
#include "support/LocaleScope.h"

namespace {

// 2024 in Berlin: summer time from 31 March 02:00 (01:00 UTC) to 27 October 03:00 (01:00 UTC).
class TimeTest : public testing::Test {
protected:
    void SetUp() override { SetZone("CET-1CEST,M3.5.0,M10.5.0/3"); }
    void TearDown() override { SetZone("UTC0"); }
    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
};

constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();

TEST_F(TimeTest, LocalFieldsBecomeSecondsByTheRuleOfTheirDate) {
    struct Row {
        const char* name;
        CTime time;
        const wchar_t* gmt;
    };
    const Row rows[] = {
        {"winter", CTime(2024, 1, 15, 12, 0, 0), L"2024-01-15 11:00:00"},
        {"summer", CTime(2024, 7, 15, 12, 0, 0), L"2024-07-15 10:00:00"},
        {"last second of winter", CTime(2024, 3, 31, 1, 59, 59), L"2024-03-31 00:59:59"},
        {"skipped hour", CTime(2024, 3, 31, 2, 30, 0), L"2024-03-31 01:30:00"},
        {"first second of summer", CTime(2024, 3, 31, 3, 0, 0), L"2024-03-31 01:00:00"},
        {"repeated hour, first", CTime(2024, 10, 27, 2, 30, 0), L"2024-10-27 00:30:00"},
        {"repeated hour, summer", CTime(2024, 10, 27, 2, 30, 0, 1), L"2024-10-27 00:30:00"},
        {"repeated hour, winter", CTime(2024, 10, 27, 2, 30, 0, 0), L"2024-10-27 01:30:00"},
        {"behind the repeated hour", CTime(2024, 10, 27, 3, 0, 0), L"2024-10-27 02:00:00"},
        {"summer time in January", CTime(2024, 1, 15, 12, 0, 0, 1), L"2024-01-15 10:00:00"},
        {"standard time in July", CTime(2024, 7, 15, 12, 0, 0, 0), L"2024-07-15 11:00:00"},
        {"month 13", CTime(2023, 13, 1, 0, 0, 0), L"2023-12-31 23:00:00"},
        {"day 0 of March", CTime(2024, 3, 0, 1, 0, 0), L"2024-02-29 00:00:00"},
        {"minus one second", CTime(2024, 1, 1, 0, 0, -1), L"2023-12-31 22:59:59"},
        {"archive stamp", CTime(WORD{(2024 - 1980) << 9 | 2 << 5 | 29}, WORD{8 << 11 | 5 << 5 | 29}),
         L"2024-02-29 07:05:58"},
        {"system time", CTime(SYSTEMTIME{1969, 7, 0, 20, 21, 17, 40, 999}), L"1969-07-20 20:17:40"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.time.FormatGmt(L"%Y-%m-%d %H:%M:%S"), row.gmt);
    }
}

TEST_F(TimeTest, PartsAreLocalAndComeBack) {
    const CTime leap(2024, 2, 29, 23, 59, 58);
    EXPECT_EQ(leap.GetYear(), 2024);
    EXPECT_EQ(leap.GetMonth(), 2);
    EXPECT_EQ(leap.GetDay(), 29);
    EXPECT_EQ(leap.GetHour(), 23);
    EXPECT_EQ(leap.GetMinute(), 59);
    EXPECT_EQ(leap.GetSecond(), 58);
    EXPECT_EQ(leap.GetDayOfWeek(), 5);
    SYSTEMTIME parts{};
    ASSERT_TRUE(leap.GetAsSystemTime(parts));
    EXPECT_EQ(CTime(parts), leap);
    std::tm local{};
    ASSERT_EQ(leap.GetLocalTm(&local), &local);
    EXPECT_EQ(mktime(&local), leap.GetTime());
}

// The platform's own calendar as the witness, across zones with odd offsets and changes.
TEST_F(TimeTest, AgreesWithThePlatformsCalendar) {
    for (const char* zone : {"CET-1CEST,M3.5.0,M10.5.0/3", "NST3:30NDT,M3.2.0,M11.1.0",
                             "<+1245>-12:45<+1345>,M9.5.0,M4.1.0", "UTC0"}) {
        SCOPED_TRACE(zone);
        SetZone(zone);
        for (std::int64_t seconds = -30000000000; seconds < 250000000000; seconds += 987654321) {
            const time_t when = seconds;
            std::tm want{}, got{};
            localtime_r(&when, &want);
            ASSERT_TRUE(CTime(seconds).GetLocalTm(&got)) << seconds;
            char text[64];
            strftime(text, sizeof text, "%c %j %U %W %V %G %g %u %w %I %p %z", &want);
            ASSERT_EQ(CTime(seconds).Format(L"%c %j %U %W %V %G %g %u %w %I %p %z"), CString(text))
                << seconds;
            ASSERT_EQ(got.tm_isdst, want.tm_isdst) << seconds;
        }
    }
}

TEST_F(TimeTest, OutsideTheCalendarAnswersAreDefined) {
    for (std::int64_t seconds :
         {kMin, kMin + 1, std::int64_t{-62135683200}, std::int64_t{253402387200}, kMax}) {
        SCOPED_TRACE(seconds);
        const CTime time(seconds);
        std::tm parts{};
        SYSTEMTIME local{};
        EXPECT_EQ(time.GetYear() + time.GetMonth() + time.GetDay() + time.GetDayOfWeek(), 0);
        EXPECT_EQ(time.GetHour() + time.GetMinute() + time.GetSecond(), -3);
        EXPECT_EQ(time.GetLocalTm(&parts), nullptr);
        EXPECT_FALSE(time.GetAsSystemTime(local));
        EXPECT_EQ(time.Format(L"%Y"), L"");
    }
    constexpr int kMaxInt = std::numeric_limits<int>::max();
    EXPECT_EQ(CTime(kMaxInt, kMaxInt, kMaxInt, kMaxInt, kMaxInt, kMaxInt).GetYear(), 0);
    EXPECT_EQ(CTime(-kMaxInt, -kMaxInt, -kMaxInt, -kMaxInt, -kMaxInt, -kMaxInt, 1).GetYear(), 0);
    EXPECT_EQ((CTime(kMax) + CTimeSpan(1)).GetTime(), kMin);
}

TEST_F(TimeTest, FormatUsesItsOwnNamesAndPrintsTheUnknown) {
    const LocaleScope german("de_DE.UTF-8");
    const CTime time(2024, 3, 5, 8, 5, 9);
    const struct Row {
        const wchar_t *format, *want;
    } rows[] = {
        {L"%A, %d. %B %Y", L"Tuesday, 05. March 2024"},
        {L"%#d.%#m. %#H:%#M", L"5.3. 8:5"},
        {L"%#x|%#c", L"Tuesday, March 05, 2024|Tuesday, March 05, 2024, 08:05:09"},
        {L"%Z %z", L"CET +0100"},
        {L"100%% %q %", L"100% %q %"},
        {L"%#", L"%#"},
        {L"%EY%Od", L"202405"},
        {L"ü%nß", L"ü\nß"},
        {nullptr, L""},
    };
    for (const Row& row : rows) EXPECT_EQ(time.Format(row.format), row.want);
}

TEST_F(TimeTest, FileStampsAreCutToSeconds) {
    const auto stamp = [](std::uint64_t ticks) {
        return CTime(FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)});
    };
    EXPECT_EQ(stamp(116444736000000000).GetTime(), 0);
    EXPECT_EQ(stamp(116444736000000000 + 19999999).GetTime(), 1);
    EXPECT_EQ(stamp(116444736000000000 - 1).GetTime(), -1);
    EXPECT_EQ(stamp(0).GetTime(), -11644473600);
    EXPECT_EQ(stamp(~std::uint64_t{0}).GetYear(), 0);
}

TEST_F(TimeTest, SpansSplitAndAdd) {
    const CTimeSpan span = CTime(2024, 3, 1, 0, 0, 0) - CTime(2024, 2, 27, 21, 57, 55);
    EXPECT_EQ(span.GetDays(), 2);
    EXPECT_EQ(span.GetHours(), 2);
    EXPECT_EQ(span.GetTotalHours(), 50);
    EXPECT_EQ(span.GetTotalMinutes(), 3002);
    EXPECT_EQ(span.GetTotalSeconds(), 180125);
    EXPECT_EQ(span.Format(L"%D %H:%M:%S%% %x %"), L"2 02:02:05% %x %");
    EXPECT_EQ((CTimeSpan(0) - span).Format(L"%D %H"), L"-2 -02");
    EXPECT_EQ(CTimeSpan(2, 2, 2, 5), span);
    EXPECT_LT(CTime(1), CTime(2));
    CTime time(0);
    time += CTimeSpan(1, 0, 0, 0);
    EXPECT_EQ((time - CTimeSpan(400)).GetTime(), 86000);
}

}  // namespace
