#ifndef NEXO_ENV_PATHSPLIT_H
#define NEXO_ENV_PATHSPLIT_H

#include <string_view>

#include "nexo/base/Export.h"

// The parts of a path as text. Nothing here looks at the disk, changes case or normalises; all results are
// views into the argument. Both separators count except where a function says otherwise.

namespace nexo {

/// A path taken apart; the four parts in a row are the path again.
struct PathParts {
    std::wstring_view drive;      ///< the first two units when the second is ":", else empty
    std::wstring_view directory;  ///< up to and including the last separator
    std::wstring_view name;       ///< the last component up to its last dot
    std::wstring_view extension;  ///< from that dot on; empty when there is none
};

/// Splits as the home platform does: any unit before a ":" is a drive, "\\host\share\" is directory text, a
/// trailing dot is the extension "." and ".." the name "." with the extension ".". Parts may have any length.
///
/// SplitPath(L"C:\\a.b\\c.tar.gz") == {L"C:", L"\\a.b\\", L"c.tar", L".gz"}
[[nodiscard]] NEXO_API PathParts SplitPath(std::wstring_view path);

/// The drive alone: two units or nothing.
[[nodiscard]] NEXO_API std::wstring_view DriveOf(std::wstring_view path);

/// Drive and directory: all up to the last component.
[[nodiscard]] NEXO_API std::wstring_view FolderOf(std::wstring_view path);

/// Name and extension: the last component.
[[nodiscard]] NEXO_API std::wstring_view FileNameOf(std::wstring_view path);

/// "\\host" of a UNC path: the text before the first backslash or, failing that, the first slash from the
/// third unit on, or all of it. Empty for any other path.
[[nodiscard]] NEXO_API std::wstring_view HostOf(std::wstring_view path);

/// Whether the path begins with two backslashes; slashes do not count.
[[nodiscard]] NEXO_API bool IsUncPath(std::wstring_view path);

/// Whether the path begins with a letter and a colon, or is a UNC path.
[[nodiscard]] NEXO_API bool IsAbsolutePath(std::wstring_view path);

/// The extension without its leading dot, compared without case; leading dots of `extension` do not count.
[[nodiscard]] NEXO_API bool HasExtension(std::wstring_view path, std::wstring_view extension);

/// Without white space at the start, and without backslashes, slashes and white space at the end.
[[nodiscard]] NEXO_API std::wstring_view TrimmedFolder(std::wstring_view path);

}  // namespace nexo

#endif
