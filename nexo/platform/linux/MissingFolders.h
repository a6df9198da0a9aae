#ifndef NEXO_PLATFORM_LINUX_MISSINGFOLDERS_H
#define NEXO_PLATFORM_LINUX_MISSINGFOLDERS_H

#include <sys/types.h>

#include "nexo/platform/PathText.h"

namespace nexo::platform {

/// The number of names of a path, from its start, that are there.
[[nodiscard]] std::size_t ExistingDepth(const PathText& text);

/// Creates the directories behind the first `existing` names of a path, from the top down.
bool MakeMissing(const PathText& text, std::size_t existing, mode_t permissions);

}  // namespace nexo::platform

#endif
