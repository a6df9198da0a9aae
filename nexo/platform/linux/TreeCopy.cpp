#include <fcntl.h>
#include <sys/stat.h>

#include <climits>
#include <memory>
#include <unordered_map>

#include "nexo/base/CharClass.h"
#include "nexo/platform/FileTree.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/PathText.h"
#include "nexo/platform/linux/DirectoryStack.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/MissingFolders.h"
#include "nexo/platform/linux/NewFile.h"
#include "nexo/platform/linux/OpenFile.h"
#include "nexo/platform/linux/Replacement.h"

namespace nexo::platform {
namespace {

/// The names that a directory held before the copy began, to be found again in whatever case.
class ExistingNames {
public:
    /// A directory made by the copy holds none.
    void SetEmpty() { read_ = true; }

    /// The stored spelling of `name`, or `name`.
    const char* Spelling(int directory, const char* name) {
        if (!read_) Read(directory);
        const auto found = names_.empty() ? names_.end() : names_.find(Folded(name));
        return found == names_.end() ? name : found->second.c_str();
    }
    [[nodiscard]] bool MayHold() const { return !read_ || !names_.empty(); }

private:
    static std::wstring Folded(std::string_view name) {
        std::wstring folded;
        WideNameFromNative(name, folded);
        for (wchar_t& unit : folded) unit = ToUpper(unit);
        return folded;
    }

    void Read(int directory) {
        read_ = true;
        const Descriptor again = OpenDirectory(directory, ".", false);
        if (!again) return;
        DirectoryReader reader;
        reader.Attach(again.Get());
        DirectoryEntry entry;
        while (reader.Next(entry)) names_.try_emplace(Folded(entry.name), entry.name);
    }

    bool read_ = false;
    std::unordered_map<std::wstring, std::string> names_;
};

bool CopyLink(int from, const char* name, int to, const char* target) {
    char text[PATH_MAX];
    const ssize_t size = readlinkat(from, name, text, sizeof text - 1);
    if (size < 0) return FailWithErrno();
    text[size] = '\0';
    if (symlinkat(text, to, target) == 0) return true;
    if (errno != EEXIST || unlinkat(to, target, 0) != 0) return FailWithErrno();
    return symlinkat(text, to, target) == 0 || FailWithErrno();
}

// Copies into a target that stands already, by the rules of ReplaceFile.
bool CopyOver(int source, const struct stat& status, int to, const char* target) {
    Replacement replacement;
    if (!replacement.Begin("/proc/self/fd/" + std::to_string(to) + '/' + target)) return false;
    if (!CopyContent(source, replacement.Get(), static_cast<std::uint64_t>(status.st_size)))
        return FailWithErrno();
    replacement.SetAttributes(status.st_mode & 0777, status.st_mtim);
    return replacement.Commit(Replacement::Sync::kLosses);
}

bool CopyNew(int source, const struct stat& status, int to, const char* target) {
    NewFile file;
    const struct timespec times[2] = {{0, UTIME_OMIT}, status.st_mtim};
    if (!file.Create(to, 0600) ||
        !CopyContent(source, file.Get(), static_cast<std::uint64_t>(status.st_size)) ||
        futimens(file.Get(), times) != 0 || fchmod(file.Get(), status.st_mode & 0777) != 0)
        return FailWithErrno();
    if (file.PublishNew(target)) return true;
    if (errno != EEXIST) return FailWithErrno();
    if (lseek(source, 0, SEEK_SET) != 0) return FailWithErrno();
    return CopyOver(source, status, to, target);
}

/// A walk that copies: the subdirectories of a directory, then its files.
class CopyingWalk {
public:
    CopyingWalk(Descriptor from, Descriptor to, bool toIsNew) {
        from_.Push(std::move(from));
        to_.Push(std::move(to));
        Arrive(toIsNew);
    }

    bool Run() {
        for (;;) {
            Level& here = levels_.back();
            if (here.next < here.directories.Size()) {
                if (!Enter(here.directories[here.next++])) return false;
                continue;
            }
            if (!CopyFiles(here)) return false;
            levels_.pop_back();
            if (levels_.empty()) return true;
            if (!from_.Pop() || !to_.Pop()) return FailWithErrno();
        }
    }

private:
    struct Level {
        NameList directories;
        NameList files;
        NameList links;
        std::size_t next = 0;
        ExistingNames existing;
    };

    void Arrive(bool toIsNew) {
        Level& level = levels_.emplace_back();
        if (toIsNew) level.existing.SetEmpty();
        reader_.Attach(from_.Top());
        DirectoryEntry entry;
        while (reader_.Next(entry)) {
            const EntryKind kind = KindOf(from_.Top(), entry);
            (kind == EntryKind::kDirectory ? level.directories
             : kind == EntryKind::kLink    ? level.links
                                           : level.files)
                .Add(entry.name);
        }
        failed_ = reader_.Failed();
    }

    bool Enter(const char* name) {
        if (!from_.PushChild(name, false)) return FailWithErrno();
        struct stat status;
        if (fstat(from_.Top(), &status) != 0) return FailWithErrno();
        const char* target = levels_.back().existing.Spelling(to_.Top(), name);
        const bool created = mkdirat(to_.Top(), target, (status.st_mode & 0777) | 0700) == 0;
        if (!created && errno != EEXIST) return FailWithErrno();
        if (!to_.PushChild(target, true)) return FailWithErrno();
        Arrive(created);
        return !failed_ || FailWithErrno();
    }

    bool CopyFiles(Level& level) {
        for (std::size_t i = 0; i < level.files.Size(); ++i)
            if (!CopyOne(level, level.files[i])) return false;
        for (std::size_t i = 0; i < level.links.Size(); ++i) {
            const char* target = level.existing.Spelling(to_.Top(), level.links[i]);
            if (!CopyLink(from_.Top(), level.links[i], to_.Top(), target)) return false;
        }
        return true;
    }

    // Whether the target is there, with its status; a name in another case counts.
    bool FindTarget(Level& level, const char*& target, struct stat& status) {
        if (!level.existing.MayHold()) return false;
        if (fstatat(to_.Top(), target, &status, 0) == 0) return true;
        target = level.existing.Spelling(to_.Top(), target);
        return fstatat(to_.Top(), target, &status, 0) == 0;
    }

    bool CopyOne(Level& level, const char* name) {
        struct stat source, existing;
        const char* target = name;
        const bool exists = FindTarget(level, target, existing);
        if (fstatat(from_.Top(), name, &source, AT_SYMLINK_NOFOLLOW) != 0) return FailWithErrno();
        if (!S_ISREG(source.st_mode)) return Fail(kErrorAccessDenied);
        if (exists && !S_ISDIR(existing.st_mode) && existing.st_mtim.tv_sec >= source.st_mtim.tv_sec)
            return true;
        const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW;
        const Descriptor file(Retry([&] { return openat(from_.Top(), name, flags); }));
        if (!file) return FailWithErrno();
        if (IsLocked(file.Get(), LockTest::kReading)) return Fail(kErrorSharingViolation);
        return exists ? CopyOver(file.Get(), source, to_.Top(), target)
                      : CopyNew(file.Get(), source, to_.Top(), target);
    }

    DirectoryStack from_;
    DirectoryStack to_;
    DirectoryReader reader_;
    std::vector<Level> levels_;
    bool failed_ = false;
};

bool SameDirectory(int a, int b) {
    struct stat first, second;
    return fstat(a, &first) == 0 && fstat(b, &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

// Whether the directory `place` is `directory` or lies below it, at any depth.
bool LiesIn(int directory, Descriptor place) {
    while (place) {
        if (SameDirectory(place.Get(), directory)) return true;
        Descriptor above = OpenDirectory(place.Get(), "..", false);
        if (above && SameDirectory(above.Get(), place.Get())) return false;
        place = std::move(above);
    }
    return false;
}

}  // namespace

bool CopyTree(const wchar_t* from, const wchar_t* to) {
    std::string native;
    PathText target;
    if (!Resolve(from, native) || !ParsePath(to == nullptr ? L"" : to, target)) return false;
    Descriptor source = OpenStart(native);
    if (!source) return false;
    SpellAsOnDisk(target);
    const std::size_t depth = ExistingDepth(target);
    if (LiesIn(source.Get(), OpenDirectory(AT_FDCWD, target.Native(depth).c_str(), true)))
        return Fail(kErrorInvalidParameter);
    if (!MakeMissing(target, depth, 0777)) return false;
    Descriptor directory = OpenStart(target.Native());
    if (!directory) return false;
    return CopyingWalk(std::move(source), std::move(directory), depth < target.names.size()).Run();
}

}  // namespace nexo::platform
