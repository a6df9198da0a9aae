#ifndef NEXO_PLATFORM_LINUX_FILEINFO_H
#define NEXO_PLATFORM_LINUX_FILEINFO_H

#include <cstdint>
#include <ctime>
#include <string>

#include "nexo/platform/FileSystem.h"

namespace nexo::platform {

[[nodiscard]] std::int64_t TicksOf(const struct timespec& time);
[[nodiscard]] struct timespec TimeOfTicks(std::int64_t ticks);

/// Information about a native path; a link that leads nowhere is described itself where `orLink`. False with
/// errno.
bool ReadInfo(const std::string& native, bool orLink, FileInfo& info);

}  // namespace nexo::platform

#endif
