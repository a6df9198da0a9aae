#ifndef NEXO_TESTS_SUPPORT_FORK_H
#define NEXO_TESTS_SUPPORT_FORK_H

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

/// Runs `work` in a process of its own, which ends with it; its result, a bool, is the exit status.
template <class Work>
class ChildProcess {
public:
    explicit ChildProcess(Work work) : id_(fork()) {
        if (id_ == 0) _exit(work() ? 0 : 1);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() {
        if (id_ > 0) Kill();
    }

    /// Waits for its end; whether it succeeded.
    bool Succeeds() {
        int status = -1;
        waitpid(id_, &status, 0);
        id_ = -1;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    void Kill() {
        kill(id_, SIGKILL);
        Succeeds();
    }

private:
    pid_t id_;
};

#endif
