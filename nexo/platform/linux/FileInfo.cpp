#include "nexo/platform/linux/FileInfo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <charconv>
#include <string_view>

#include "nexo/platform/linux/Errno.h"
#include "nexo/platform/linux/OpenFile.h"

namespace nexo::platform {
namespace {

constexpr char kCreatedAttribute[] = "user.nexo.created";  // ticks in decimal
constexpr std::int64_t kNanosecondsPerTick = 100;

std::int64_t TicksOf(const struct statx_timestamp& time) {
    return kUnixEpochTicks + time.tv_sec * kTicksPerSecond + time.tv_nsec / kNanosecondsPerTick;
}

// The creation stamp that SetFileStamp kept; false when there is none.
bool KeptCreation(const std::string& native, std::int64_t& ticks) {
    char text[32];
    const ssize_t size = getxattr(native.c_str(), kCreatedAttribute, text, sizeof text);
    return size > 0 && std::from_chars(text, text + size, ticks).ec == std::errc();
}

bool KeepCreation(const std::string& native, std::int64_t ticks) {
    const std::string text = std::to_string(ticks);
    return setxattr(native.c_str(), kCreatedAttribute, text.data(), text.size(), 0) == 0;
}

unsigned int AttributesOf(unsigned int mode) {
    const unsigned int kind = S_ISDIR(mode) ? kAttributeDirectory : kAttributeArchive;
    return kind | (IsReadOnlyMode(mode) ? kAttributeReadOnly : 0);
}

bool Status(const wchar_t* path, std::string& native, struct stat& status) {
    if (!Resolve(path, native)) return false;
    return stat(native.c_str(), &status) == 0 || FailWithErrno(native);
}

}  // namespace

std::int64_t TicksOf(const struct timespec& time) {
    return kUnixEpochTicks + time.tv_sec * kTicksPerSecond + time.tv_nsec / kNanosecondsPerTick;
}

struct timespec TimeOfTicks(std::int64_t ticks) {
    const std::int64_t since = ticks - kUnixEpochTicks;
    std::int64_t seconds = since / kTicksPerSecond;
    std::int64_t rest = since % kTicksPerSecond;
    if (rest < 0) {
        rest += kTicksPerSecond;
        --seconds;
    }
    return {seconds, rest * kNanosecondsPerTick};
}

bool ReadInfo(const std::string& native, bool orLink, FileInfo& info) {
    struct statx status;
    const unsigned int wanted = STATX_BASIC_STATS | STATX_BTIME;
    if (statx(AT_FDCWD, native.c_str(), 0, wanted, &status) != 0 &&
        (!orLink || statx(AT_FDCWD, native.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &status) != 0))
        return false;
    info.attributes = AttributesOf(status.stx_mode);
    info.size = S_ISDIR(status.stx_mode) ? 0 : status.stx_size;
    info.created = TicksOf((status.stx_mask & STATX_BTIME) != 0 ? status.stx_btime : status.stx_ctime);
    info.accessed = TicksOf(status.stx_atime);
    info.written = TicksOf(status.stx_mtime);
    KeptCreation(native, info.created);
    return true;
}

bool GetFileInfo(const wchar_t* path, FileInfo& info) {
    std::string native;
    if (!Resolve(path, native)) return false;
    return ReadInfo(native, false, info) || FailWithErrno(native);
}

unsigned int GetFileAttributes(const wchar_t* path) {
    std::string native;
    struct stat status;
    return Status(path, native, status) ? AttributesOf(status.st_mode) : kAttributesMissing;
}

bool FileExists(const wchar_t* path) {
    const unsigned int attributes = GetFileAttributes(path);
    return attributes != kAttributesMissing && (attributes & kAttributeDirectory) == 0;
}

bool DirectoryExists(const wchar_t* path) {
    const unsigned int attributes = GetFileAttributes(path);
    return attributes != kAttributesMissing && (attributes & kAttributeDirectory) != 0;
}

bool SetReadOnly(const wchar_t* path, bool readOnly) {
    std::string native;
    struct stat status;
    if (!Status(path, native, status)) return false;
    if (IsReadOnlyMode(status.st_mode) == readOnly) return true;
    const mode_t mode = readOnly ? status.st_mode & ~static_cast<mode_t>(0222) : status.st_mode | 0200;
    return chmod(native.c_str(), mode & 07777) == 0 || FailWithErrno(native);
}

bool SetFileStamp(const wchar_t* path, FileStamp which, std::int64_t ticks) {
    std::string native;
    struct stat status;
    if (!Status(path, native, status)) return false;
    if (S_ISDIR(status.st_mode) || IsReadOnlyMode(status.st_mode)) return Fail(kErrorAccessDenied);
    if (ticks == 0) return true;
    if (which == FileStamp::kCreated) return KeepCreation(native, ticks) || FailWithErrno(native);
    struct timespec times[2] = {{0, UTIME_OMIT}, {0, UTIME_OMIT}};
    times[which == FileStamp::kAccessed ? 0 : 1] = TimeOfTicks(ticks);
    return utimensat(AT_FDCWD, native.c_str(), times, 0) == 0 || FailWithErrno(native);
}

}  // namespace nexo::platform
