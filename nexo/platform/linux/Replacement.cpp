#include "nexo/platform/linux/Replacement.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/xattr.h>

#include <memory>
#include <string_view>
#include <utility>

#include "nexo/platform/linux/DirectoryReader.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/OpenFile.h"

namespace nexo::platform {
namespace {

// Whether a failure to make a new file means that this folder takes none, while the target itself could be
// written.
bool IsFolderClosed(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}

// Access lists, labels and the library's own creation stamp; what cannot be carried over is left behind.
void CopyExtendedAttributes(int from, int to) {
    char names[4096];
    const ssize_t size = flistxattr(from, names, sizeof names);
    if (size <= 0) return;
    const auto value = std::make_unique_for_overwrite<char[]>(65536);
    const char* const end = names + size;
    for (const char* name = names; name < end; name += std::string_view(name).size() + 1) {
        const ssize_t length = fgetxattr(from, name, value.get(), 65536);
        if (length >= 0) fsetxattr(to, name, value.get(), static_cast<std::size_t>(length), 0);
    }
}

bool Rewind(int file) {
    return lseek(file, 0, SEEK_SET) == 0;
}

// Makes room for `size` bytes without touching the content; false only when there is no room.
bool ReserveRoom(int file, off_t size) {
    if (size == 0 || fallocate(file, FALLOC_FL_KEEP_SIZE, 0, size) == 0) return true;
    return errno == EOPNOTSUPP || errno == ENOSYS;
}

}  // namespace

bool Replacement::Begin(std::string native) {
    native_ = std::move(native);
    return FollowLinks(native_) && Judge() && (stream_ || Stage());
}

bool Replacement::Judge() {
    if (stat(native_.c_str(), &status_) != 0) return errno == ENOENT || FailWithErrno(native_);
    if (S_ISDIR(status_.st_mode)) return Fail(kErrorAccessDenied);
    if (S_ISREG(status_.st_mode) && IsReadOnlyMode(status_.st_mode)) return Fail(kErrorAccessDenied);
    const int flags = O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
    Descriptor opened(Retry([&] { return open(native_.c_str(), flags); }));
    if (!opened || fstat(opened.Get(), &status_) != 0) return FailWithErrno(native_);
    if (!S_ISREG(status_.st_mode)) {
        stream_ = std::move(opened);
        return true;
    }
    if (IsLocked(opened.Get(), LockTest::kWriting)) return Fail(kErrorSharingViolation);
    target_ = std::move(opened);
    return true;
}

bool Replacement::Stage() {
    if (target_ && status_.st_nlink > 1) return StageAside();
    folder_ = OpenDirectory(AT_FDCWD, FolderOf(native_).c_str(), true);
    const bool created = folder_ && file_.Create(folder_.Get(), target_ ? 0600 : 0666);
    if (!created && target_ && IsFolderClosed(errno)) return StageAside();
    if (!created) return FailWithErrno(native_);
    return !target_ || InheritFromTarget() || StageAside();
}

bool Replacement::InheritFromTarget() {
    struct stat own;
    if (fstat(file_.Get(), &own) != 0) return false;
    const bool foreign = status_.st_uid != own.st_uid || status_.st_gid != own.st_gid;
    if (foreign && fchown(file_.Get(), status_.st_uid, status_.st_gid) != 0) return false;
    if (fchmod(file_.Get(), status_.st_mode & 07777) != 0) return false;
    CopyExtendedAttributes(target_.Get(), file_.Get());
    return true;
}

bool Replacement::StageAside() {
    file_.Discard();
    // Backups need reading, too.
    target_.Reset(Retry([&] { return open(native_.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW); }));
    content_.Reset(memfd_create("nexo", MFD_CLOEXEC));
    return (target_ && content_) || FailWithErrno(native_);
}

void Replacement::SetAttributes(mode_t mode, const struct timespec& written) {
    hasAttributes_ = true;
    mode_ = mode;
    written_ = written;
}

bool Replacement::ApplyAttributes(int file) const {
    if (!hasAttributes_) return true;
    const struct timespec times[2] = {{0, UTIME_OMIT}, written_};
    return futimens(file, times) == 0 && fchmod(file, mode_ & 07777) == 0;
}

bool Replacement::Commit(Sync sync) {
    if (stream_) return true;
    if (content_) return WriteInPlace();
    if (!ApplyAttributes(file_.Get())) return FailWithErrno();
    const bool loses = target_ && status_.st_size > 0;
    if ((loses || sync == Sync::kAlways) && fdatasync(file_.Get()) != 0) return FailWithErrno();
    return Publish();
}

bool Replacement::Publish() {
    const std::string name = NameOf(native_);
    if (!target_ && file_.PublishNew(name.c_str())) return true;
    return file_.PublishOver(name.c_str()) || FailWithErrno(native_);
}

// Copies `from` over the target; false with errno.
bool Replacement::Overwrite(int from) {
    struct stat content;
    if (fstat(from, &content) != 0 || !Rewind(from) || !Rewind(target_.Get())) return false;
    return CopyContent(from, target_.Get(), 0) && ftruncate(target_.Get(), content.st_size) == 0 &&
           fdatasync(target_.Get()) == 0;
}

// Keeps the old content in a file beside the target until the new one is complete, so that not even the end
// of the process loses it; where the folder takes no file, in memory.
bool Replacement::WriteInPlace() {
    struct stat content;
    if (fstat(content_.Get(), &content) != 0) return FailWithErrno();
    if (!ReserveRoom(target_.Get(), content.st_size)) {
        FailWithErrno();
        if (ftruncate(target_.Get(), status_.st_size) != 0) return FailWithErrno();
        return false;
    }
    NewFile beside;
    std::string name;
    if (!folder_) folder_ = OpenDirectory(AT_FDCWD, FolderOf(native_).c_str(), true);
    const bool kept = folder_ && beside.Create(folder_.Get(), 0600) && beside.Keep(name);
    const Descriptor memory(kept ? -1 : memfd_create("nexo", MFD_CLOEXEC));
    const int old = kept ? beside.Get() : memory.Get();
    if (!Rewind(target_.Get()) || !CopyContent(target_.Get(), old, 0)) return FailWithErrno();
    if (Overwrite(content_.Get())) return ApplyAttributes(target_.Get()) || FailWithErrno();
    FailWithErrno();
    if (!Overwrite(old) && kept) beside.Leave();  // the only place that has the old content now
    return false;
}

}  // namespace nexo::platform
