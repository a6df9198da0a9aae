#include "nexo/platform/linux/Errno.h"

#include <sys/stat.h>

#include <cerrno>

namespace nexo::platform {
namespace {

struct ErrnoRow {
    int number;
    Error error;
};

constexpr ErrnoRow kErrors[] = {
    {0, kErrorSuccess},
    {ENOENT, kErrorFileNotFound},
    {ENOTDIR, kErrorPathNotFound},
    {EMFILE, kErrorTooManyOpenFiles},
    {ENFILE, kErrorTooManyOpenFiles},
    {EACCES, kErrorAccessDenied},
    {EPERM, kErrorAccessDenied},
    {EISDIR, kErrorAccessDenied},
    {ENXIO, kErrorAccessDenied},
    {EBADF, kErrorInvalidHandle},
    {ENOMEM, kErrorNotEnoughMemory},
    {EXDEV, kErrorNotSameDevice},
    {EROFS, kErrorWriteProtected},
    {EAGAIN, kErrorSharingViolation},
    {EBUSY, kErrorSharingViolation},
    {ETXTBSY, kErrorSharingViolation},
    {EINVAL, kErrorInvalidParameter},
    {ENOSPC, kErrorDiskFull},
    {EDQUOT, kErrorDiskFull},
    {EFBIG, kErrorDiskFull},
    {ENOTEMPTY, kErrorDirectoryNotEmpty},
    {EEXIST, kErrorAlreadyExists},
    {ENAMETOOLONG, kErrorNameTooLong},
    {EIO, kErrorIoDevice},
    {EMLINK, kErrorTooManyLinks},
    {ELOOP, kErrorCannotResolve},
    {ENOTSUP, kErrorInvalidFunction},
    {ENOSYS, kErrorInvalidFunction},
};

bool ParentExists(const std::string& native) {
    const std::size_t end = native.find_last_not_of('/');
    const std::size_t slash = end == std::string::npos ? end : native.find_last_of('/', end);
    const std::string parent = slash == std::string::npos ? "." : slash == 0 ? "/" : native.substr(0, slash);
    struct stat status;
    return stat(parent.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

Error ErrorFromErrno(int error) {
    for (const ErrnoRow& row : kErrors)
        if (row.number == error) return row.error;
    return kErrorGeneralFailure;
}

bool Fail(Error error) {
    SetLastError(error);
    return false;
}

bool FailWithErrno() {
    return Fail(ErrorFromErrno(errno));
}

bool FailWithErrno(const std::string& native) {
    if (errno != ENOENT) return FailWithErrno();
    return Fail(ParentExists(native) ? kErrorFileNotFound : kErrorPathNotFound);
}

}  // namespace nexo::platform
