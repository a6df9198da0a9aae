#include "nexo/platform/linux/MissingFolders.h"

#include <sys/stat.h>

#include <climits>

#include "nexo/platform/FileSystem.h"
#include "nexo/platform/linux/Errno.h"

namespace nexo::platform {

std::size_t ExistingDepth(const PathText& text) {
    struct stat status;
    std::size_t depth = text.DepthWithin(PATH_MAX);
    while (depth > 0 && stat(text.Native(depth).c_str(), &status) != 0) --depth;
    return depth;
}

bool MakeMissing(const PathText& text, std::size_t existing, mode_t permissions) {
    for (std::size_t depth = existing + 1; depth <= text.names.size(); ++depth)
        if (mkdir(text.Native(depth).c_str(), permissions) != 0) return FailWithErrno();
    return true;
}

bool CreateDirectories(const wchar_t* path, unsigned int permissions) {
    PathText text;
    if (!ParsePath(path == nullptr ? L"" : path, text)) return false;
    SpellAsOnDisk(text);
    const std::size_t depth = ExistingDepth(text);
    if (!MakeMissing(text, depth, permissions & 0777)) return false;
    return depth < text.names.size() || DirectoryExists(path) || Fail(kErrorDirectoryInvalid);
}

}  // namespace nexo::platform
