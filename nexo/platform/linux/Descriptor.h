#ifndef NEXO_PLATFORM_LINUX_DESCRIPTOR_H
#define NEXO_PLATFORM_LINUX_DESCRIPTOR_H

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace nexo::platform {

/// Owner of a file descriptor; empty (-1) by default, closes on destruction. Moves, does not copy.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor_(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~Descriptor() { Reset(); }

    explicit operator bool() const { return descriptor_ >= 0; }
    [[nodiscard]] int Get() const { return descriptor_; }
    int Release() { return std::exchange(descriptor_, -1); }

    /// Keeps errno, so that a failure can be reported after the descriptor is gone.
    void Reset(int descriptor = -1) {
        const int error = errno;
        if (descriptor_ >= 0) close(descriptor_);
        descriptor_ = descriptor;
        errno = error;
    }

private:
    int descriptor_ = -1;
};

/// Repeats a system call that a signal interrupted.
template <class Call>
auto Retry(Call call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

}  // namespace nexo::platform

#endif
