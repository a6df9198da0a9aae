#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <memory>

#include "nexo/base/CString.h"
#include "nexo/platform/FileTree.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/linux/DirectoryStack.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/OpenFile.h"

namespace nexo::platform {
namespace {

/// A walk that removes: the files of a directory, then its subdirectories, then itself.
class RemovingWalk {
public:
    RemovingWalk(Descriptor start, ReadOnlyFiles readOnly) : readOnly_(readOnly) {
        struct stat status;
        if (fstat(start.Get(), &status) == 0) Take(std::move(start), status);
        device_ = status.st_dev;
    }

    /// Empties the start directory; true when nothing is left in it.
    bool Run() {
        if (directories_.Depth() == 0) return Failed(errno);
        Empty();
        while (!pending_.empty()) {
            Pending& here = pending_.back();
            if (here.next < here.names.Size()) {
                if (Enter(here.names[here.next++])) Empty();
                continue;
            }
            pending_.pop_back();
            if (pending_.empty()) break;
            if (!directories_.Pop()) return Failed(errno);
            const Pending& above = pending_.back();
            Check(unlinkat(directories_.Top(), above.names[above.next - 1], AT_REMOVEDIR));
        }
        return !failed_;
    }

private:
    struct Pending {
        NameList names;  // subdirectories
        std::size_t next = 0;
    };

    bool Failed(int error) {
        if (!failed_) Fail(ErrorFromErrno(error));
        failed_ = true;
        return false;
    }
    bool Check(int result) { return result == 0 || Failed(errno); }

    // Directories that may not be written or searched are opened up when read-only files go, too.
    Descriptor Open(const char* name) {
        const int parent = directories_.Top();
        Descriptor directory = OpenDirectory(parent, name, false);
        if (directory || errno != EACCES || readOnly_ == ReadOnlyFiles::kLeave) return directory;
        // Opened as a mere place first, so that a link put there meanwhile is not followed.
        const Descriptor place(openat(parent, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!place || chmod(("/proc/self/fd/" + std::to_string(place.Get())).c_str(), 0700) != 0)
            return directory;
        return OpenDirectory(place.Get(), ".", false);
    }

    bool Enter(const char* name) {
        Descriptor directory = Open(name);
        struct stat status;
        if (!directory || fstat(directory.Get(), &status) != 0) return Failed(errno);
        if (status.st_dev != device_) return Failed(EBUSY);  // another file system is mounted there
        Take(std::move(directory), status);
        return true;
    }

    void Take(Descriptor directory, const struct stat& status) {
        const bool closed = (status.st_mode & 0300) != 0300;
        if (closed && readOnly_ == ReadOnlyFiles::kRemove) fchmod(directory.Get(), status.st_mode | 0700);
        directories_.Push(std::move(directory));
    }

    // Removes all but the subdirectories. The whole listing comes first: some file systems lose their place
    // when names vanish.
    void Empty() {
        pending_.emplace_back();
        NameList files;
        reader_.Attach(directories_.Top());
        DirectoryEntry entry;
        while (reader_.Next(entry)) {
            const EntryKind kind = KindOf(directories_.Top(), entry);
            (kind == EntryKind::kDirectory ? pending_.back().names : files).Add(entry.name);
        }
        if (reader_.Failed()) Failed(errno);
        for (std::size_t i = 0; i < files.Size(); ++i) {
            if (readOnly_ == ReadOnlyFiles::kLeave && IsReadOnly(files[i])) {
                Failed(EACCES);
            } else {
                Check(unlinkat(directories_.Top(), files[i], 0));
            }
        }
    }

    bool IsReadOnly(const char* name) const {
        struct stat status;
        return fstatat(directories_.Top(), name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
               S_ISREG(status.st_mode) && IsReadOnlyMode(status.st_mode);
    }

    DirectoryStack directories_;
    DirectoryReader reader_;
    std::vector<Pending> pending_;
    ReadOnlyFiles readOnly_;
    dev_t device_ = 0;
    bool failed_ = false;
};

bool IsLinkToDirectory(const std::string& native) {
    struct stat status;
    if (lstat(native.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return false;
    return stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string RealNativePath(const std::string& native) {
    const std::unique_ptr<char, void (*)(void*)> path(realpath(native.c_str(), nullptr), std::free);
    return path ? path.get() : std::string();
}

// Whether `path` lies in `folder` or is it; both real.
bool LiesIn(const std::string& path, const std::string& folder) {
    return path == folder || path.starts_with(folder == "/" ? folder : folder + '/');
}

bool HoldsHome(const std::string& real, const char* home) {
    if (home == nullptr || home[0] != '/') return false;
    const std::string place = RealNativePath(home);
    return !place.empty() && LiesIn(place, real);
}

bool IsMountPoint(const std::string& real) {
    struct statx status;
    if (statx(AT_FDCWD, real.c_str(), 0, STATX_BASIC_STATS, &status) != 0) return true;
    if ((status.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0)
        return (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    struct stat here, above;
    return stat(real.c_str(), &here) != 0 || stat((real + "/..").c_str(), &above) != 0 ||
           here.st_dev != above.st_dev;
}

// The home directory that the system's list of users gives.
std::string ListedHome() {
    struct passwd entry;
    struct passwd* found = nullptr;
    char text[4096];
    if (getpwuid_r(geteuid(), &entry, text, sizeof text, &found) != 0 || found == nullptr) return {};
    return entry.pw_dir;
}

}  // namespace

bool RemoveTree(const wchar_t* directory, ReadOnlyFiles readOnly) {
    std::string native;
    if (!Resolve(directory, native)) return false;
    if (IsLinkToDirectory(native)) return unlink(native.c_str()) == 0 || FailWithErrno(native);
    Descriptor start = OpenStart(native, false);  // should it be a link by now, nothing is done
    if (!start) return false;
    if (!RemovingWalk(std::move(start), readOnly).Run()) return false;
    return rmdir(native.c_str()) == 0 || FailWithErrno(native);
}

CString RealPath(const wchar_t* path) {
    std::string native;
    if (!Resolve(path, native)) return CString();
    native = RealNativePath(native);
    if (native.empty()) FailWithErrno();
    return PathFromNative(native);
}

bool IsProtectedDirectory(const wchar_t* directory) {
    std::string native;
    if (!Resolve(directory, native)) return true;
    const std::string real = RealNativePath(native);
    if (real.empty() || real == "/" || IsMountPoint(real)) return true;
    return HoldsHome(real, std::getenv("HOME")) || HoldsHome(real, ListedHome().c_str());
}

}  // namespace nexo::platform
