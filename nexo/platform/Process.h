#ifndef NEXO_PLATFORM_PROCESS_H
#define NEXO_PLATFORM_PROCESS_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "nexo/base/Export.h"

namespace nexo::platform {

enum class ProcessState { kExited, kTimedOut, kFailed };

/// A program started without a window: no shell sees its arguments, its standard streams are closed to it
/// unless it asks otherwise, and no descriptor of this process reaches it. Empty by default. One object is
/// for one thread at a time.
///
/// Destroying the object does not end the program; it is collected once it ends.
class NEXO_API Process {
public:
    static constexpr std::uint32_t kInfinite = 0xFFFFFFFF;

    enum class Streams {
        kNone,     ///< standard streams lead to the null device
        kInherit,  ///< the program shares this process's standard streams
    };

    Process() = default;
    Process(Process&& other) noexcept : id_(std::exchange(other.id_, -1)), exitCode_(other.exitCode_) {}
    Process& operator=(Process&& other) noexcept;
    ~Process();

    /// Starts `arguments[0]` (searched in PATH when it holds no slash), UTF-8. kErrorFileNotFound when there
    /// is no such program.
    bool Start(const std::vector<std::string>& arguments, Streams streams = Streams::kNone);

    /// Waits for its end, at most `milliseconds`. kFailed when nothing was started.
    ProcessState Wait(std::uint32_t milliseconds = kInfinite);

    /// Exit code after kExited; 128 plus the signal when a signal ended it.
    [[nodiscard]] int ExitCode() const { return exitCode_; }

private:
    int id_ = -1;
    int exitCode_ = -1;
};

}  // namespace nexo::platform

#endif
