#include "nexo/platform/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>

#include "nexo/base/CString.h"
#include "nexo/platform/File.h"
#include "nexo/platform/NativePath.h"
#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/OpenFile.h"
#include "nexo/platform/linux/Replacement.h"

namespace nexo::platform {
namespace {

bool SameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool LinkStatus(const wchar_t* path, std::string& native, struct stat& status) {
    if (!Resolve(path, native)) return false;
    return lstat(native.c_str(), &status) == 0 || FailWithErrno(native);
}

bool IsDirectoryNamed(const std::string& native) {
    struct stat status;
    return stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Whether the folder is there, is ours alone and no link.
bool IsPrivate(const std::string& native) {
    struct stat status;
    if (lstat(native.c_str(), &status) != 0) return FailWithErrno(native);
    if (!S_ISDIR(status.st_mode) || status.st_uid != geteuid()) return Fail(kErrorAccessDenied);
    return (status.st_mode & 077) == 0 || chmod(native.c_str(), 0700) == 0 || FailWithErrno(native);
}

}  // namespace

bool CreateNewFile(const wchar_t* path) {
    File file;
    return file.Open(path, File::Mode::kCreateNew) && file.Close();
}

bool DeleteFile(const wchar_t* path) {
    std::string native;
    struct stat status;
    if (!LinkStatus(path, native, status)) return false;
    const bool link = S_ISLNK(status.st_mode);
    if (S_ISDIR(status.st_mode) || (!link && IsReadOnlyMode(status.st_mode))) return Fail(kErrorAccessDenied);
    return unlink(native.c_str()) == 0 || FailWithErrno(native);
}

bool CopyFile(const wchar_t* from, const wchar_t* to, bool failIfExists) {
    Descriptor source;
    struct stat status;
    if (!OpenForReading(from, source, status)) return false;
    std::string native;
    Replacement target;
    if (!Resolve(to, native)) return false;
    struct stat existing;
    if (stat(native.c_str(), &existing) == 0) {
        if (failIfExists) return Fail(kErrorFileExists);
        if (SameFile(existing, status)) return Fail(kErrorSharingViolation);
    }
    if (!target.Begin(std::move(native))) return false;
    if (!CopyContent(source.Get(), target.Get(), static_cast<std::uint64_t>(status.st_size)))
        return FailWithErrno();
    target.SetAttributes(status.st_mode & 0777, status.st_mtim);
    if (!target.Commit(Replacement::Sync::kLosses)) return false;
    SetLastError(kErrorSuccess);
    return true;
}

bool CreateDirectory(const wchar_t* path) {
    std::string native;
    if (!Resolve(path, native)) return false;
    if (mkdir(native.c_str(), 0777) == 0) return true;
    return errno == ENOENT ? Fail(kErrorPathNotFound) : FailWithErrno();
}

bool RemoveDirectory(const wchar_t* path) {
    std::string native;
    struct stat status;
    if (!LinkStatus(path, native, status)) return false;
    const bool link = S_ISLNK(status.st_mode) && IsDirectoryNamed(native);
    if (!link && !S_ISDIR(status.st_mode)) return Fail(kErrorDirectoryInvalid);
    if ((link ? unlink(native.c_str()) : rmdir(native.c_str())) == 0) return true;
    return errno == EEXIST ? Fail(kErrorDirectoryNotEmpty) : FailWithErrno(native);
}

CString TemporaryDirectory() {
    const char* base = std::getenv("TMPDIR");
    std::string native = base != nullptr && base[0] == '/' ? base : "/tmp";
    native += "/moxtel-" + std::to_string(geteuid());
    if (mkdir(native.c_str(), 0700) != 0 && errno != EEXIST) {
        FailWithErrno(native);
        return CString();
    }
    std::string text;
    if (!IsPrivate(native) || !NativeText(PathFromNative(native).View(), text)) return CString();
    return PathFromNative(text) + L"\\";
}

}  // namespace nexo::platform
