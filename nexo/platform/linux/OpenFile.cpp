#include "nexo/platform/linux/OpenFile.h"

#include <fcntl.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <mutex>
#include <vector>

#include "nexo/platform/NativePath.h"
#include "nexo/platform/linux/Errno.h"

namespace nexo::platform {
namespace {

constexpr std::size_t kCopyBlock = 65536;
constexpr std::uint64_t kWorthCopyingInKernel = 256 * 1024;
constexpr int kMostLinks = 40;

// Files that this process has locked exclusively.
class OwnLocks {
public:
    void Add(int file) {
        struct stat status;
        if (fstat(file, &status) != 0) return;
        const std::lock_guard guard(lock_);
        files_.emplace_back(status.st_dev, status.st_ino);
    }
    void Remove(int file) {
        struct stat status;
        if (fstat(file, &status) != 0) return;
        const std::lock_guard guard(lock_);
        const auto found = Find(status);
        if (found != files_.end()) files_.erase(found);
    }
    bool Contains(int file) {
        struct stat status;
        if (fstat(file, &status) != 0) return false;
        const std::lock_guard guard(lock_);
        return Find(status) != files_.end();
    }

private:
    using Files = std::vector<std::pair<dev_t, ino_t>>;
    Files::iterator Find(const struct stat& status) {
        return std::find(files_.begin(), files_.end(), std::make_pair(status.st_dev, status.st_ino));
    }

    std::mutex lock_;
    Files files_;
};

OwnLocks& Locks() {
    static OwnLocks locks;
    return locks;
}

int Open(const std::string& native) {
    // Without O_NONBLOCK a pipe would be waited for before it can be refused.
    return Retry([&] { return open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); });
}

bool LinkTarget(const std::string& native, std::string& target) {
    char text[PATH_MAX];
    const ssize_t size = readlink(native.c_str(), text, sizeof text);
    if (size < 0) return false;
    target.assign(text, static_cast<std::size_t>(size));
    return true;
}

struct flock LockOf(short type, off_t start, off_t length) {
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = start;
    lock.l_len = length;
    return lock;
}

// Within one file system the kernel moves or shares the blocks itself; false when it cannot, with nothing
// copied.
bool CopyInKernel(int from, int to, bool& failed) {
    bool any = false;
    for (;;) {
        const ssize_t size = Retry([&] { return copy_file_range(from, nullptr, to, nullptr, 1 << 30, 0); });
        if (size == 0) return true;
        failed = size < 0 && any;
        if (size < 0) return failed;
        any = true;
    }
}

// Cuts the last `written` bytes off again, unless somebody has written behind them; keeps errno.
void TakeBack(int file, off_t written) {
    const int error = errno;
    struct stat status;
    const off_t reached = lseek(file, 0, SEEK_CUR);
    if (written > 0 && fstat(file, &status) == 0 && status.st_size == reached)
        static_cast<void>(!ftruncate(file, reached - written));
    errno = error;
}

}  // namespace

bool Resolve(const wchar_t* path, std::string& native) {
    return NativePath(path == nullptr ? L"" : path, native);
}

bool OpenForReading(const wchar_t* path, Descriptor& file, struct stat& status) {
    std::string native;
    if (!NativeText(path == nullptr ? L"" : path, native)) return false;
    file.Reset(Open(native));
    if (!file && errno == ENOENT) {  // the exact name costs no second look at the disk
        if (!Resolve(path, native)) return false;
        file.Reset(Open(native));
    }
    if (!file) return FailWithErrno(native);
    if (fstat(file.Get(), &status) != 0) return FailWithErrno();
    if (!S_ISREG(status.st_mode)) return Fail(kErrorAccessDenied);
    if (IsLocked(file.Get(), LockTest::kReading)) return Fail(kErrorSharingViolation);
    return true;
}

bool FollowLinks(std::string& native) {
    struct stat status;
    std::string target;
    for (int i = 0; i < kMostLinks; ++i) {
        if (lstat(native.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return true;
        if (!LinkTarget(native, target)) return FailWithErrno();
        native = target.starts_with('/') ? target : FolderOf(native) + '/' + target;
    }
    return Fail(kErrorCannotResolve);
}

std::string FolderOf(const std::string& native) {
    const std::size_t slash = native.find_last_of('/');
    return slash == std::string::npos ? std::string(1, '.')
                                      : native.substr(0, std::max<std::size_t>(slash, 1));
}

std::string NameOf(const std::string& native) {
    return native.substr(native.find_last_of('/') + 1);
}

bool IsLocked(int file, LockTest test) {
    struct flock lock = LockOf(F_RDLCK, 0, test == LockTest::kReading ? kLockedBytes : 0);
    if (fcntl(file, F_OFD_GETLK, &lock) != 0) return false;  // no locks here at all
    if (lock.l_type == F_UNLCK || lock.l_pid != -1)
        return false;  // a record lock of the older kind is no exclusion
    return test == LockTest::kWriting || !Locks().Contains(file);
}

bool Lock(int file, LockKind kind) {
    struct flock lock =
        kind == LockKind::kExclusive ? LockOf(F_WRLCK, 0, 0) : LockOf(F_WRLCK, kLockedBytes, 1);
    if (fcntl(file, F_OFD_SETLK, &lock) != 0) return errno != EAGAIN && errno != EACCES;
    if (kind == LockKind::kExclusive) Locks().Add(file);
    return true;
}

void ForgetLock(int file) {
    Locks().Remove(file);
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t size = Retry([&] { return write(file, bytes.data(), bytes.size()); });
        if (size < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(size));
    }
    return true;
}

bool AppendAll(int file, std::string_view bytes) {
    off_t written = 0;
    while (!bytes.empty()) {
        const ssize_t size = Retry([&] { return write(file, bytes.data(), bytes.size()); });
        if (size < 0) {
            TakeBack(file, written);
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(size));
        written += size;
    }
    return true;
}

bool CopyContent(int from, int to, std::uint64_t expected) {
    bool failed = false;
    if (expected >= kWorthCopyingInKernel && CopyInKernel(from, to, failed)) return !failed;
    const auto block = std::make_unique_for_overwrite<char[]>(kCopyBlock);
    for (std::uint64_t total = 0;;) {
        const ssize_t size = Retry([&] { return read(from, block.get(), kCopyBlock); });
        if (size <= 0) return size == 0;
        const auto count = static_cast<std::size_t>(size);
        if (!WriteAll(to, {block.get(), count})) return false;
        total += count;
        if (count < kCopyBlock && total == expected)
            return true;  // a regular file reads short at its end only
    }
}

}  // namespace nexo::platform
