#include "nexo/platform/linux/NewFile.h"

#include <fcntl.h>
#include <sys/random.h>

#include <atomic>
#include <cstdint>
#include <cstdio>

namespace nexo::platform {
namespace {

constexpr int kAttempts = 100;

// Nameless files get their name through the descriptor's entry there.
bool CanNameDescriptors() {
    static const bool can = access("/proc/self/fd", X_OK) == 0;
    return can;
}

std::string TemporaryName() {
    std::uint64_t number = 0;
    if (getrandom(&number, sizeof number, 0) != sizeof number)
        number = reinterpret_cast<std::uintptr_t>(&number);
    char name[40];
    std::snprintf(name, sizeof name, ".nexo-%016llx.tmp", static_cast<unsigned long long>(number));
    return name;
}

}  // namespace

bool NewFile::Create(int folder, mode_t mode) {
    Discard();
    folder_ = folder;
    if (CanNameDescriptors()) {
        file_.Reset(Retry([&] { return openat(folder, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode); }));
        if (file_ || (errno != EOPNOTSUPP && errno != EISDIR && errno != ENOENT && errno != EINVAL))
            return bool(file_);
    }
    for (int i = 0; i < kAttempts && !file_; ++i) {
        temporary_ = TemporaryName();
        file_.Reset(Retry(
            [&] { return openat(folder, temporary_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode); }));
        if (!file_ && errno != EEXIST) break;
    }
    if (!file_) temporary_.clear();
    return static_cast<bool>(file_);
}

// Naming a descriptor itself is quicker, and answers ENOENT where the kernel keeps it for the privileged.
bool NewFile::Link(const char* name) {
    static std::atomic<bool> direct = true;
    if (direct) {
        if (linkat(file_.Get(), "", folder_, name, AT_EMPTY_PATH) == 0) return true;
        if (errno != ENOENT) return false;
        direct = false;
    }
    char descriptor[40];
    std::snprintf(descriptor, sizeof descriptor, "/proc/self/fd/%d", file_.Get());
    return linkat(AT_FDCWD, descriptor, folder_, name, AT_SYMLINK_FOLLOW) == 0;
}

bool NewFile::LinkTemporary() {
    for (int i = 0; i < kAttempts; ++i) {
        std::string name = TemporaryName();
        if (Link(name.c_str())) {
            temporary_ = std::move(name);
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

bool NewFile::PublishNew(const char* name) {
    if (temporary_.empty()) return Link(name);
    if (linkat(folder_, temporary_.c_str(), folder_, name, 0) == 0) {
        unlinkat(folder_, temporary_.c_str(), 0);
    } else if (errno == EEXIST ||
               renameat2(folder_, temporary_.c_str(), folder_, name, RENAME_NOREPLACE) != 0) {
        return false;  // the second way is for file systems without links
    }
    temporary_.clear();
    return true;
}

bool NewFile::PublishOver(const char* name) {
    if (temporary_.empty() && Link(name)) return true;
    if (temporary_.empty() && (errno != EEXIST || !LinkTemporary())) return false;
    if (renameat(folder_, temporary_.c_str(), folder_, name) != 0) return false;
    temporary_.clear();
    return true;
}

bool NewFile::Keep(std::string& name) {
    if (temporary_.empty() && !LinkTemporary()) return false;
    name = temporary_;
    return true;
}

void NewFile::Discard() {
    const int error = errno;
    if (!temporary_.empty()) unlinkat(folder_, temporary_.c_str(), 0);
    temporary_.clear();
    file_.Reset();
    errno = error;
}

}  // namespace nexo::platform
