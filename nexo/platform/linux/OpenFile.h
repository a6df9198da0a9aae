#ifndef NEXO_PLATFORM_LINUX_OPENFILE_H
#define NEXO_PLATFORM_LINUX_OPENFILE_H

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "nexo/platform/linux/Descriptor.h"

// How the functions of FileSystem.h and File.h get from a name to a descriptor.

namespace nexo::platform {

/// Native path of an argument, spelt as on the disk; null counts as empty.
bool Resolve(const wchar_t* path, std::string& native);

/// Opens a regular file for reading that no other process holds exclusively.
bool OpenForReading(const wchar_t* path, Descriptor& file, struct stat& status);

/// The path with the links in its last name followed, also where the last target is missing.
bool FollowLinks(std::string& native);

/// Folder and name of a native path; the folder is "." or ends without a slash.
std::string FolderOf(const std::string& native);
std::string NameOf(const std::string& native);

[[nodiscard]] inline bool IsReadOnlyMode(mode_t mode) {
    return (mode & 0222) == 0;
}

// Exclusive locks lie on the bytes of the file; a writer that shares reading only marks a byte far behind
// them.
inline constexpr off_t kLockedBytes = off_t{1} << 62;

enum class LockTest { kReading, kWriting };

/// Whether a lock forbids opening. Locks that this process holds itself do not keep it from reading.
[[nodiscard]] bool IsLocked(int file, LockTest test);

enum class LockKind { kWriterMark, kExclusive };

/// False with errno EAGAIN when another open file stands against it. Gone when the descriptor is closed.
bool Lock(int file, LockKind kind);

/// To be called before an exclusively locked descriptor of this process is closed.
void ForgetLock(int file);

/// All bytes, or false with errno.
bool WriteAll(int file, std::string_view bytes);

/// All bytes at the end of a file that was opened for appending, or false with errno: what was written by
/// then is taken back, unless somebody has written behind it.
bool AppendAll(int file, std::string_view bytes);

/// Copies from the current position of one file to that of the other, up to the end; false with errno.
bool CopyContent(int from, int to, std::uint64_t expected);

}  // namespace nexo::platform

#endif
