#ifndef NEXO_PLATFORM_ERROR_H
#define NEXO_PLATFORM_ERROR_H

#include "nexo/base/Export.h"

// Causes of failure, in the numbers that the interface's home platform gives them. Functions of this
// folder answer false (or what they document) and leave the cause in LastError().

namespace nexo::platform {

enum Error : unsigned int {
    kErrorSuccess = 0,
    kErrorInvalidFunction = 1,  ///< the file system cannot do this at all
    kErrorFileNotFound = 2,     ///< the name itself is missing
    kErrorPathNotFound = 3,     ///< the folder it should lie in is missing, or the path is empty
    kErrorTooManyOpenFiles = 4,
    kErrorAccessDenied = 5,  ///< no permission, a read-only file, or a directory where a file is wanted
    kErrorInvalidHandle = 6,
    kErrorNotEnoughMemory = 8,
    kErrorNotSameDevice = 17,
    kErrorNoMoreFiles = 18,     ///< end of an enumeration
    kErrorWriteProtected = 19,  ///< the file system is mounted read-only
    kErrorGeneralFailure = 31,
    kErrorSharingViolation = 32,  ///< another process holds the file exclusively
    kErrorBadNetPath = 53,        ///< a UNC host that no mapping names
    kErrorFileExists = 80,        ///< "create new" or "fail if exists" met a file
    kErrorInvalidParameter = 87,  ///< also: unknown code page
    kErrorDiskFull = 112,         ///< also: quota or file-size limit
    kErrorInsufficientBuffer = 122,
    kErrorInvalidName = 123,  ///< characters that no name may hold, or a wildcard in the folder
    kErrorDirectoryNotEmpty = 145,
    kErrorAlreadyExists = 183,  ///< a directory is to be created where something stands
    kErrorNameTooLong = 206,
    kErrorTimeout = 258,
    kErrorDirectoryInvalid = 267,       ///< a file where a directory is wanted
    kErrorNoUnicodeTranslation = 1113,  ///< strict conversion met malformed text
    kErrorIoDevice = 1117,
    kErrorTooManyLinks = 1142,
    kErrorCannotResolve = 1921,  ///< links that lead in a circle
};

/// Cause of the calling thread's last failure. A call that succeeds does not clear it unless it says so.
[[nodiscard]] NEXO_API unsigned int LastError();

/// Sets the calling thread's cause of failure; upper layers use it to pass a cause of their own on.
NEXO_API void SetLastError(unsigned int code);

}  // namespace nexo::platform

#endif
