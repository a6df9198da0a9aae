#ifndef NEXO_PLATFORM_LINUX_ERRNO_H
#define NEXO_PLATFORM_LINUX_ERRNO_H

#include <string>

#include "nexo/platform/Error.h"

namespace nexo::platform {

/// The number for an errno value; the one place where they are matched.
[[nodiscard]] Error ErrorFromErrno(int error);

/// Leaves a cause in LastError(); false, so that it can be returned.
bool Fail(Error error);

/// The same for the current errno.
bool FailWithErrno();

/// The same for a call on `native`, where a missing name is told from a missing folder.
bool FailWithErrno(const std::string& native);

}  // namespace nexo::platform

#endif
