#include "nexo/diag/StopWatch.h"

#include <gtest/gtest.h>

#include "nexo/platform/Clock.h"
#include "support/DebugText.h"

namespace {

/// Lets at least that many milliseconds pass.
void Pass(std::uint32_t milliseconds) {
    const std::int64_t end =
        nexo::platform::PerformanceCounter() + nexo::platform::PerformanceFrequency() * milliseconds / 1000;
    while (nexo::platform::PerformanceCounter() < end) {
    }
}

/// The number behind the last `before` in a text; -1 when there is none.
int NumberBehind(const CString& text, const wchar_t* before) {
    const int at = text.Find(before);
    return at < 0 ? -1 : std::stoi(std::wstring(text.Mid(at + CString::StringLength(before)).View()));
}

class StopWatch : public testing::Test {
protected:
    void SetUp() override {
        CStopWatch::UseMicroSeconds(false);
        CStopWatch::ResetAll();
        CStopWatch::Reset(255);
    }
    DebugText debug_;
};

TEST_F(StopWatch, NestedStartsMeasureFromTheOutermost) {
    CStopWatch::Start(3);
    Pass(3);
    CStopWatch::Start(3);
    EXPECT_EQ(CStopWatch::Stop(3), 0u);
    Pass(3);
    const unsigned long time = CStopWatch::Stop(3);
    EXPECT_GE(time, 6u);
    EXPECT_GE(CStopWatch::GetCumulativeTime(3), 6000u)
        << "thousandths of raw ticks, which are nanoseconds here";
    EXPECT_GE(NumberBehind(CStopWatch::DumpAllTimes(nullptr), L"ms (  1x - "), 1) << "one measurement";
}

TEST_F(StopWatch, AStopWithoutAStartSwallowsTheNextStart) {
    EXPECT_EQ(CStopWatch::Stop(9), 0u);
    CStopWatch::Start(9);
    Pass(2);
    EXPECT_EQ(CStopWatch::Stop(9), 0u);
    CStopWatch::Start(9);
    CStopWatch::Start(9);
    Pass(2);
    EXPECT_GE(CStopWatch::Stop(9), 2u) << "even again: the second start counts";
    CStopWatch::Stop(8);
    CStopWatch::Reset(8);
    CStopWatch::Start(8);
    Pass(2);
    EXPECT_GE(CStopWatch::Stop(8), 2u) << "a reset clears the depth too";
}

TEST_F(StopWatch, AfterAResetTheReportHasNoLines) {
    CStopWatch::Start(1);
    Pass(2);
    CStopWatch::Stop(1);
    CStopWatch::ResetAll();
    EXPECT_EQ(CStopWatch::DumpAllTimes(nullptr),
              L"/--------[ Stop Watches ]--------\\\nms since last reset:   0\n\n"
              L"\\--------------------------------/\n");
}

TEST_F(StopWatch, TheReportNamesStopwatchesInOrder) {
    CStringList names;
    names.AddTail(L"first");
    names.AddTail(L"second");
    for (const int id : {0, 1, 2, 254, 255}) {
        const CLifetimeStopWatch running(static_cast<unsigned char>(id));
        Pass(2);
    }
    CStopWatch::UseMicroSeconds(true);
    const CString report = CStopWatch::DumpAllTimes(&names);
    EXPECT_EQ(report, debug_.Text());
    EXPECT_GE(NumberBehind(report, L"\\\n\u03BCs since last reset: "), 10000);
    EXPECT_GE(NumberBehind(report, L"\n  0. first          : "), 2000);
    EXPECT_GE(NumberBehind(report, L"\n  1. second         : "), 2000);
    EXPECT_GE(NumberBehind(report, L"\n  2. (no Name)      : "), 2000);
    EXPECT_GE(NumberBehind(report, L"\n254. (no Name)      : "), 2000);
    EXPECT_EQ(report.Find(L"\n255."), -1) << "the last stopwatch is not reported";
    const int time = NumberBehind(report, L"\n  0. first          : ");
    const int total = NumberBehind(report, L"since last reset: ");
    EXPECT_EQ(NumberBehind(report, L" \u03BCs (  1x - "), static_cast<int>(100LL * time / total));
    EXPECT_EQ(report.Find(L"%)\n"), report.Find(L"%)"));
}

TEST_F(StopWatch, TheLastOneIsNotResetWithTheOthers) {
    for (const unsigned char id : {'\0', '\xFF'}) {
        const CLifetimeStopWatch running(id);
        Pass(1);
    }
    CStopWatch::ResetAll();
    EXPECT_GE(CStopWatch::GetCumulativeTime(255), 1000u);
    EXPECT_EQ(CStopWatch::GetCumulativeTime(0), 0u);
}

}  // namespace
