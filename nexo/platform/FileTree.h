#ifndef NEXO_PLATFORM_FILETREE_H
#define NEXO_PLATFORM_FILETREE_H

#include <cstdint>
#include <functional>
#include <string_view>

#include "nexo/base/Export.h"

// Operations on a directory with all that lies below it.
//
// They hold few descriptors at any depth, work beyond the longest path the system takes, keep their place on
// the heap and never follow a link to a directory. Names in one directory come in no promised order. A
// missing directory answers false with kErrorPathNotFound.

namespace nexo::platform {

/// What a walk reports.
struct TreeFile {
    std::wstring_view folder;  ///< below the start, with a backslash after each level; empty at the start
    std::wstring_view name;
};

/// Calls `visit` for every file (not directory) whose name matches `pattern`, in the start directory and,
/// whatever their names, in all below it; the files of a directory come before those of its subdirectories.
/// Ends early when `visit` answers false. Directories that cannot be read count as empty. The result tells
/// whether the start directory could be read.
NEXO_API bool WalkFiles(const wchar_t* directory, std::wstring_view pattern,
                        const std::function<bool(const TreeFile&)>& visit);

/// Sum of the sizes of the entries that match `pattern` (empty means everything); with `recursive`,
/// directories that match are descended into, with the same pattern. 0 for a missing directory.
[[nodiscard]] NEXO_API std::uint64_t SpaceUsage(const wchar_t* directory, std::wstring_view pattern,
                                                bool recursive);

/// Copies all of `from` into `to`, which is created when missing with its missing parents: subdirectories
/// first, then files. A file that exists there and is not older (whole seconds of the last write) is left;
/// links are copied as links. Ends at the first failure; what was copied stays. kErrorInvalidParameter, and
/// nothing is created, when `to` is `from` or lies below it.
NEXO_API bool CopyTree(const wchar_t* from, const wchar_t* to);

enum class ReadOnlyFiles {
    kLeave,   ///< they, and the directories above them, stay; the result is false
    kRemove,  ///< they go like all others
};

/// Removes the directory and everything in it; goes on after a failure, true only when nothing failed. A link
/// is removed, not what it points to; other mounted file systems are left alone.
NEXO_API bool RemoveTree(const wchar_t* directory, ReadOnlyFiles readOnly);

/// Whether removing this directory would be a catastrophe whatever the caller meant: the root, a mount point,
/// the home directory of the user or one of its ancestors, judged on the real path. True for a directory that
/// cannot be judged.
[[nodiscard]] NEXO_API bool IsProtectedDirectory(const wchar_t* directory);

}  // namespace nexo::platform

#endif
