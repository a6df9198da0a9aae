#include "nexo/diag/StopWatch.h"

#include "nexo/platform/Clock.h"
#include "nexo/platform/DebugOutput.h"

namespace {

using nexo::platform::PerformanceCounter;

struct Slot {
    std::int64_t ticks = 0;   // added up by completed measurements
    std::uint32_t count = 0;  // completed measurements
    std::int64_t start = 0;   // counter at the outermost start
    std::uint32_t depth = 0;  // starts without a stop, modulo 2^32; "below zero" after a stop without a start
};

constexpr unsigned reportedSlots = 255;  // the last one takes no part in resets and reports

struct Bank {
    Slot slots[256];
    std::int64_t reset = 0;  // counter at the last ResetAll
    bool microseconds = false;
};

Bank bank;

void Add(Slot& slot, std::int64_t ticks) {
    slot.ticks += ticks;
    ++slot.count;
}

/// Counter ticks as a number of 1/`unitsPerSecond` seconds, cut to 32 bits.
std::uint32_t Convert(std::int64_t ticks, double unitsPerSecond) {
    static const auto frequency = static_cast<double>(nexo::platform::PerformanceFrequency());
    return static_cast<std::uint32_t>(
        static_cast<std::int64_t>(static_cast<double>(ticks) * unitsPerSecond / frequency));
}

std::uint32_t ReportedTime(std::int64_t ticks) {
    return Convert(ticks, bank.microseconds ? 1e6 : 1e3);
}

const wchar_t* UnitName() {
    return bank.microseconds ? L"\u03BCs" : L"ms";
}

void AddLine(CString& report, unsigned id, const wchar_t* name, std::uint32_t total) {
    const Slot& slot = bank.slots[id];
    const std::uint32_t time = ReportedTime(slot.ticks);
    if (time == 0) return;
    const std::uint64_t percent = total == 0 ? 0 : std::uint64_t{time} * 100 / total;
    report.AppendFormat(L"%3u. %-15s: %u %s (%3ux - %3u%%)\n", id, name, time, UnitName(), slot.count,
                        static_cast<std::uint32_t>(percent));
}

}  // namespace

void CStopWatch::Start(unsigned char id) {
    Slot& slot = bank.slots[id];
    if (slot.depth++ == 0) slot.start = PerformanceCounter();
}

unsigned long CStopWatch::Stop(unsigned char id) {
    Slot& slot = bank.slots[id];
    if (slot.depth-- != 1) return 0;
    const std::int64_t elapsed = PerformanceCounter() - slot.start;
    Add(slot, elapsed);
    return Convert(elapsed, 1e3);
}

unsigned long CStopWatch::GetCumulativeTime(unsigned char id) {
    return static_cast<std::uint32_t>(bank.slots[id].ticks / 1000);
}

void CStopWatch::Reset(unsigned char id) {
    Slot& slot = bank.slots[id];
    slot.ticks = 0;
    slot.count = 0;
    slot.depth = 0;
}

void CStopWatch::ResetAll() {
    bank.reset = PerformanceCounter();
    for (unsigned id = 0; id < reportedSlots; ++id) Reset(static_cast<unsigned char>(id));
}

void CStopWatch::UseMicroSeconds(bool use) {
    bank.microseconds = use;
}

CString CStopWatch::DumpAllTimes(CStringList* names) {
    const std::uint32_t total = ReportedTime(PerformanceCounter() - bank.reset);
    CString report;
    report.Format(L"/--------[ Stop Watches ]--------\\\n%s since last reset: %3u\n\n", UnitName(), total);
    POSITION next = names ? names->GetHeadPosition() : nullptr;
    for (unsigned id = 0; id < reportedSlots; ++id) {
        const CString name = next ? names->GetNext(next) : CString(L"(no Name)");
        AddLine(report, id, name, total);
    }
    report += L"\\--------------------------------/\n";
    nexo::platform::WriteDebug(report.View());
    return report;
}

CLifetimeStopWatch::CLifetimeStopWatch(unsigned char id) : id_(id), start_(PerformanceCounter()) {}

CLifetimeStopWatch::~CLifetimeStopWatch() {
    Add(bank.slots[id_], PerformanceCounter() - start_);
}
