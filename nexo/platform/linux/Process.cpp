#include "nexo/platform/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <limits>
#include <mutex>

#include "nexo/platform/Clock.h"
#include "nexo/platform/linux/Descriptor.h"
#include "nexo/platform/linux/Errno.h"

extern char** environ;

namespace nexo::platform {
namespace {

constexpr std::uint32_t kPollPause =
    5;  // milliseconds, where the system cannot wait for one child with a time-out

// Programs whose object is gone while they run; collected whenever another one starts.
class Abandoned {
public:
    void Add(int id) {
        const std::lock_guard guard(lock_);
        ids_.push_back(id);
    }
    void Collect() {
        const std::lock_guard guard(lock_);
        std::erase_if(ids_, [](int id) { return waitpid(id, nullptr, WNOHANG) != 0; });
    }

private:
    std::mutex lock_;
    std::vector<int> ids_;
};

Abandoned& AbandonedPrograms() {
    static Abandoned programs;
    return programs;
}

/// What a program starts with: default signals, the wanted streams and no other descriptor.
class SpawnSettings {
public:
    explicit SpawnSettings(Process::Streams streams) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        if (streams == Process::Streams::kNone)
            for (int stream = 0; stream < 3; ++stream)
                posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions_, 3);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    int Spawn(pid_t& id, char* const* arguments) const {
        return posix_spawnp(&id, arguments[0], &actions_, &attributes_, arguments, environ);
    }

private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

int ExitCodeOf(int status) {
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

int PollTimeout(std::uint32_t milliseconds) {
    if (milliseconds == Process::kInfinite) return -1;
    return static_cast<int>(std::min<std::uint32_t>(milliseconds, std::numeric_limits<int>::max()));
}

// Waits until the child may have ended or the time is over; false when the system cannot do that.
bool WaitWithDescriptor(pid_t id, std::uint32_t milliseconds) {
    const Descriptor child(static_cast<int>(syscall(SYS_pidfd_open, id, 0)));
    if (!child) return false;
    struct pollfd wait = {child.Get(), POLLIN, 0};
    const std::uint32_t start = TickCount();
    for (;;) {
        const std::uint32_t passed = TickCount() - start;
        const bool endless = milliseconds == Process::kInfinite;
        const std::uint32_t left = endless ? milliseconds : milliseconds - std::min(passed, milliseconds);
        if (poll(&wait, 1, PollTimeout(left)) != -1 || errno != EINTR) return true;
    }
}

// 1 ended, 0 still running, -1 no such child.
int Collect(pid_t id, int& status) {
    const pid_t result = Retry([&] { return waitpid(id, &status, WNOHANG); });
    return result == id ? 1 : result;
}

}  // namespace

Process& Process::operator=(Process&& other) noexcept {
    Process former(std::move(*this));
    id_ = std::exchange(other.id_, -1);
    exitCode_ = other.exitCode_;
    return *this;
}

Process::~Process() {
    if (id_ > 0 && waitpid(id_, nullptr, WNOHANG) == 0) AbandonedPrograms().Add(id_);
}

bool Process::Start(const std::vector<std::string>& arguments, Streams streams) {
    *this = Process();
    AbandonedPrograms().Collect();
    if (arguments.empty() || arguments[0].empty()) return Fail(kErrorInvalidParameter);
    std::vector<char*> pointers;
    for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    pid_t id = -1;
    const int error = SpawnSettings(streams).Spawn(id, pointers.data());
    if (error != 0) return Fail(ErrorFromErrno(error));
    id_ = id;
    return true;
}

ProcessState Process::Wait(std::uint32_t milliseconds) {
    if (id_ <= 0) return ProcessState::kFailed;
    const std::uint32_t start = TickCount();
    for (;;) {
        int status = 0;
        const bool waited = WaitWithDescriptor(id_, milliseconds);
        const int ended = Collect(id_, status);
        if (ended != 0) {
            // Where the host has children collected by the system, the code is not known.
            exitCode_ = ended > 0 ? ExitCodeOf(status) : -1;
            id_ = -1;
            return ProcessState::kExited;
        }
        if (milliseconds != kInfinite && (waited || TickCount() - start >= milliseconds)) break;
        SleepMilliseconds(kPollPause);
    }
    SetLastError(kErrorTimeout);
    return ProcessState::kTimedOut;
}

}  // namespace nexo::platform
