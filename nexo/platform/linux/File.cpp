#include "nexo/platform/File.h"

#include <fcntl.h>

#include "nexo/platform/FileSystem.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/OpenFile.h"
#include "nexo/platform/linux/Replacement.h"

namespace nexo::platform {
namespace {

int FlagsOf(File::Mode mode) {
    switch (mode) {
        case File::Mode::kRead:
            return O_RDONLY;
        case File::Mode::kAppend:
            return O_WRONLY | O_APPEND | O_CREAT;
        case File::Mode::kCreateNew:
            return O_RDWR | O_CREAT | O_EXCL;
        case File::Mode::kCreateAlways:
            return O_RDWR | O_CREAT;  // emptied once it is known to be free
    }
    return O_RDONLY;
}

bool LockAs(int file, File::Share share) {
    if (share == File::Share::kAll) return true;
    return Lock(file, share == File::Share::kNone ? LockKind::kExclusive : LockKind::kWriterMark);
}

// Opens for writing, whatever the home platform would refuse left out.
bool OpenForWriting(const std::string& native, File::Mode mode, File::Share share, Descriptor& file) {
    const int flags = FlagsOf(mode) | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    struct stat status;
    const bool existed = stat(native.c_str(), &status) == 0;
    if (existed) {
        if (mode == File::Mode::kCreateNew) return Fail(kErrorFileExists);
        if (!S_ISREG(status.st_mode) || IsReadOnlyMode(status.st_mode)) return Fail(kErrorAccessDenied);
    }
    file.Reset(Retry([&] { return open(native.c_str(), flags, 0666); }));
    if (!file && errno == EEXIST) return Fail(kErrorFileExists);
    if (!file || fstat(file.Get(), &status) != 0) return FailWithErrno(native);
    if (!S_ISREG(status.st_mode)) return Fail(kErrorAccessDenied);
    if (IsLocked(file.Get(), LockTest::kWriting) || !LockAs(file.Get(), share))
        return Fail(kErrorSharingViolation);
    if (mode != File::Mode::kCreateAlways) return true;
    if (ftruncate(file.Get(), 0) != 0) return FailWithErrno();
    SetLastError(existed ? kErrorAlreadyExists : kErrorSuccess);
    return true;
}

}  // namespace

File& File::operator=(File&& other) noexcept {
    if (this != &other) {
        Close();
        descriptor_ = std::exchange(other.descriptor_, -1);
        exclusive_ = std::exchange(other.exclusive_, false);
    }
    return *this;
}

bool File::Open(const wchar_t* path, Mode mode, Share share) {
    Close();
    Descriptor file;
    struct stat status;
    std::string native;
    const bool opened = mode == Mode::kRead
                            ? OpenForReading(path, file, status)
                            : Resolve(path, native) && OpenForWriting(native, mode, share, file);
    if (!opened) return false;
    descriptor_ = file.Release();
    exclusive_ = mode != Mode::kRead && share == Share::kNone;
    return true;
}

std::ptrdiff_t File::Read(char* out, std::size_t size) {
    const ssize_t count = Retry([&] { return read(descriptor_, out, size); });
    if (count < 0) FailWithErrno();
    return count;
}

bool File::Write(std::string_view bytes) {
    return WriteAll(descriptor_, bytes) || FailWithErrno();
}

bool File::Append(std::string_view bytes) {
    return AppendAll(descriptor_, bytes) || FailWithErrno();
}

std::int64_t File::Size() const {
    struct stat status;
    if (fstat(descriptor_, &status) != 0) return FailWithErrno() ? 0 : -1;
    return status.st_size;
}

bool File::Close() {
    if (descriptor_ < 0) return true;
    if (std::exchange(exclusive_, false)) ForgetLock(descriptor_);
    // Once close is called the descriptor is gone, even when a signal interrupts it.
    return close(std::exchange(descriptor_, -1)) == 0 || errno == EINTR || FailWithErrno();
}

struct FileReplacement::State {
    Replacement replacement;
};

FileReplacement::FileReplacement() = default;
FileReplacement::FileReplacement(FileReplacement&&) noexcept = default;
FileReplacement& FileReplacement::operator=(FileReplacement&&) noexcept = default;
FileReplacement::~FileReplacement() = default;

bool FileReplacement::Begin(const wchar_t* path) {
    state_ = std::make_unique<State>();
    std::string native;
    if (Resolve(path, native) && state_->replacement.Begin(std::move(native))) return true;
    state_.reset();
    return false;
}

bool FileReplacement::Write(std::string_view bytes) {
    if (state_ == nullptr) return Fail(kErrorInvalidHandle);
    return WriteAll(state_->replacement.Get(), bytes) || FailWithErrno();
}

bool FileReplacement::Commit() {
    if (state_ == nullptr) return Fail(kErrorInvalidHandle);
    const bool done = state_->replacement.Commit(Replacement::Sync::kAlways);
    state_.reset();
    return done;
}

}  // namespace nexo::platform
