#ifndef NEXO_TEXT_FILEBLOCKS_H
#define NEXO_TEXT_FILEBLOCKS_H

// Private to the library.

#include <functional>
#include <string_view>

#include "nexo/base/Export.h"

namespace nexo {

/// Hands the content of a file to `take`, piece by piece from its start, in constant memory.
///
/// Returns 0, or the platform's error code when the file cannot be opened (`take` was not called then) or not
/// be read to its end. For checksums and the like; whole texts are read by platform/FileSystem.h.
NEXO_API unsigned int ReadFileBlocks(const wchar_t* file, const std::function<void(std::string_view)>& take);

}  // namespace nexo

#endif
