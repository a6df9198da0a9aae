#include "nexo/platform/linux/DirectoryStack.h"

#include <dirent.h>
#include <fcntl.h>

#include <utility>

#include "nexo/platform/linux/Errno.h"

namespace nexo::platform {

void DirectoryStack::Push(Descriptor directory) {
    levels_.push_back({std::move(directory)});
    if (levels_.size() - closed_ <= kMostOpen) return;
    Level& level = levels_[closed_];
    struct stat status;
    if (fstat(level.directory.Get(), &status) != 0) return;
    level.device = status.st_dev;
    level.number = status.st_ino;
    level.directory.Reset();
    ++closed_;
}

bool DirectoryStack::PushChild(const char* name, bool followLink) {
    Descriptor directory = OpenDirectory(Top(), name, followLink);
    if (!directory) return false;
    Push(std::move(directory));
    return true;
}

bool DirectoryStack::Pop() {
    const Descriptor left = std::move(levels_.back().directory);
    levels_.pop_back();
    if (levels_.empty() || levels_.back().directory) return true;
    Level& level = levels_.back();
    Descriptor above = OpenDirectory(left.Get(), "..", false);
    struct stat status;
    if (!above || fstat(above.Get(), &status) != 0) return false;
    if (status.st_dev != level.device || status.st_ino != level.number) {
        errno = ENOENT;
        return false;
    }
    level.directory = std::move(above);
    --closed_;
    return true;
}

EntryKind KindOf(int directory, const DirectoryEntry& entry) {
    switch (entry.type) {
        case DT_REG:
            return EntryKind::kFile;
        case DT_DIR:
            return EntryKind::kDirectory;
        case DT_LNK:
            return EntryKind::kLink;
        case DT_UNKNOWN:
            break;
        default:
            return EntryKind::kOther;
    }
    struct stat status;
    if (fstatat(directory, entry.name.data(), &status, AT_SYMLINK_NOFOLLOW) != 0) return EntryKind::kOther;
    return S_ISREG(status.st_mode)   ? EntryKind::kFile
           : S_ISDIR(status.st_mode) ? EntryKind::kDirectory
           : S_ISLNK(status.st_mode) ? EntryKind::kLink
                                     : EntryKind::kOther;
}

Descriptor OpenStart(const std::string& native, bool followLink) {
    Descriptor directory = OpenDirectory(AT_FDCWD, native.c_str(), followLink);
    if (directory) return directory;
    struct stat status;
    if (errno == ENOTDIR && stat(native.c_str(), &status) == 0) {
        Fail(kErrorDirectoryInvalid);
    } else if (errno == ENOENT || errno == ENOTDIR) {
        Fail(kErrorPathNotFound);
    } else {
        FailWithErrno();
    }
    return directory;
}

}  // namespace nexo::platform
