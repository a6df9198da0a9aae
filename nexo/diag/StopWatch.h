#ifndef NEXO_DIAG_STOPWATCH_H
#define NEXO_DIAG_STOPWATCH_H

#include <cstdint>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"

/// A process-wide bank of stopwatches, numbered 0 to 255, that add up the time spent in sections of code.
///
/// For developers and for one thread at a time. Starting and stopping read the high-resolution counter once
/// and allocate nothing.
class NEXO_API CStopWatch {
public:
    /// Starts a measurement, or nests in the one that runs: it goes on from the outermost start.
    static void Start(unsigned char id);

    /// Ends the innermost start. The outermost one adds the time to the stopwatch, counts one measurement and
    /// returns its milliseconds; an inner one returns 0.
    ///
    /// A stop without a start is not forgiven: as many starts do nothing until both are even. Callers that
    /// stop on every path rely on it.
    static unsigned long Stop(unsigned char id);

    /// A thousandth of the counter ticks added up so far: raw ticks, not a unit of time, as readers of the
    /// figure expect. For times see DumpAllTimes.
    [[nodiscard]] static unsigned long GetCumulativeTime(unsigned char id);

    /// Clears a stopwatch: its time, its count and its nesting.
    static void Reset(unsigned char id);

    /// Clears the stopwatches 0 to 254 (255 keeps running through) and restarts the time that DumpAllTimes
    /// takes as 100 %.
    static void ResetAll();

    /// Whether DumpAllTimes reports microseconds; milliseconds at first.
    static void UseMicroSeconds(bool use);

    /// The report on the stopwatches 0 to 254 that have measured at least one unit of time, one line each. It
    /// is also sent to the debugger output. `names` names them in order from 0 on; null and missing ones are
    /// "(no Name)".
    static CString DumpAllTimes(CStringList* names);
};

/// Adds its own lifetime to a stopwatch of CStopWatch and counts one measurement, whatever else that
/// stopwatch is doing.
class NEXO_API CLifetimeStopWatch {
public:
    explicit CLifetimeStopWatch(unsigned char id = 0);
    CLifetimeStopWatch(const CLifetimeStopWatch&) = delete;
    CLifetimeStopWatch& operator=(const CLifetimeStopWatch&) = delete;
    ~CLifetimeStopWatch();

private:
    unsigned char id_;
    std::int64_t start_;
};

#endif
