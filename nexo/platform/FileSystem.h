#ifndef NEXO_PLATFORM_FILESYSTEM_H
#define NEXO_PLATFORM_FILESYSTEM_H

#include <cstdint>
#include <string>
#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"
#include "nexo/platform/ByteBuffer.h"

// Files and directories by name: whole contents, attributes, time stamps, copying, deleting.
//
// Names are taken as NativePath.h describes (`C:\a\b`, "/" equals "\", any case, native absolute paths); a
// null name is an empty one. Links are followed unless said otherwise. Every function that answers false
// leaves the cause in LastError() and its outputs unchanged. For open files see File.h, for listings
// FileSearch.h, for whole trees FileTree.h. Everything here is safe from any thread.

namespace nexo::platform {

inline constexpr unsigned int kAttributeReadOnly = 0x1;
inline constexpr unsigned int kAttributeDirectory = 0x10;
inline constexpr unsigned int kAttributeArchive = 0x20;
inline constexpr unsigned int kAttributesMissing = 0xFFFFFFFF;

/// Time stamps count 100 ns ticks since 1601-01-01 UTC.
inline constexpr std::int64_t kUnixEpochTicks = 116444736000000000;
inline constexpr std::int64_t kTicksPerSecond = 10000000;

enum class FileStamp { kCreated = 0, kAccessed = 1, kWritten = 2 };

struct FileInfo {
    unsigned int attributes = 0;  ///< read-only (no write bit for anyone), directory, archive (any other)
    std::uint64_t size = 0;       ///< bytes; 0 for a directory
    std::int64_t created =
        0;  ///< as set by SetFileStamp, else as the file system knows it, else last status change
    std::int64_t accessed = 0;
    std::int64_t written = 0;

    [[nodiscard]] bool IsDirectory() const { return (attributes & kAttributeDirectory) != 0; }
    [[nodiscard]] bool IsReadOnly() const { return (attributes & kAttributeReadOnly) != 0; }
    [[nodiscard]] std::int64_t Stamp(FileStamp which) const {
        return which == FileStamp::kCreated ? created : which == FileStamp::kAccessed ? accessed : written;
    }
};

/// Attributes, size and stamps of a file or directory; kErrorFileNotFound or kErrorPathNotFound when missing.
NEXO_API bool GetFileInfo(const wchar_t* path, FileInfo& info);

/// Attributes alone; kAttributesMissing when there is no such name.
[[nodiscard]] NEXO_API unsigned int GetFileAttributes(const wchar_t* path);
[[nodiscard]] NEXO_API bool FileExists(const wchar_t* path);       ///< anything but a directory
[[nodiscard]] NEXO_API bool DirectoryExists(const wchar_t* path);  ///< a directory

/// Read-only means no write bit for anyone; clearing it gives the owner write permission.
NEXO_API bool SetReadOnly(const wchar_t* path, bool readOnly);

/// Sets one stamp and leaves the others; 0 ticks changes nothing. The creation stamp is kept in the extended
/// attribute `user.nexo.created`, and fails with kErrorInvalidFunction where there are no such attributes.
NEXO_API bool SetFileStamp(const wchar_t* path, FileStamp which, std::int64_t ticks);

/// Reads a whole regular file into `out`, to its end and not only to the size first reported.
///
/// Asks for no exclusive access. kErrorSharingViolation when another process holds an exclusive
/// open-file-description lock on it: wait and try again. Pipes, devices and directories fail with
/// kErrorAccessDenied without being waited for.
NEXO_API bool ReadWholeFile(const wchar_t* path, ByteBuffer& out);

/// Reads at most `size` bytes from the start; returns how many, or -1. Otherwise as ReadWholeFile.
NEXO_API std::ptrdiff_t ReadFileStart(const wchar_t* path, char* out, std::size_t size);

/// Reads at most the last `size` bytes; returns how many, or -1. Otherwise as ReadWholeFile.
NEXO_API std::ptrdiff_t ReadFileEnd(const wchar_t* path, char* out, std::size_t size);

/// Creates the file or replaces its content in one step: readers, and a program that is killed or finds the
/// disk full, see the old content or the new, never a mixture. Keeps mode, owner and extended attributes.
///
/// A link is followed to its target. A file with several links, or one whose owner or folder does not permit
/// a replacement, is written in place; its old content is put back when that fails. kErrorAccessDenied for a
/// directory or a read-only file, kErrorSharingViolation for one that another process holds exclusively.
NEXO_API bool ReplaceFile(const wchar_t* path, std::string_view bytes);

/// Appends in one write; creates the file when missing. A write that fails half-way is taken back.
NEXO_API bool AppendToFile(const wchar_t* path, std::string_view bytes);

/// Creates an empty file; kErrorFileExists when the name is taken in any case.
NEXO_API bool CreateNewFile(const wchar_t* path);

/// kErrorAccessDenied for a read-only file or a directory; wildcards are never expanded.
NEXO_API bool DeleteFile(const wchar_t* path);

/// Copies content, last-write time and attributes; the creation time is that of the copy. An existing target
/// keeps its old content unless the copy is complete. kErrorAccessDenied for directories and for a read-only
/// target, kErrorFileExists with `failIfExists`, kErrorSharingViolation for a copy onto itself. Success
/// leaves 0 in LastError(), so that a caller can tell a failure of its own checks from one of the copy.
NEXO_API bool CopyFile(const wchar_t* from, const wchar_t* to, bool failIfExists = false);

/// One level. kErrorAlreadyExists when the name is taken, kErrorPathNotFound without the parent.
NEXO_API bool CreateDirectory(const wchar_t* path);

/// The directory and every missing one above it, from the top down, with these permissions less the umask.
/// True at once when it exists; kErrorDirectoryInvalid when it is a file.
NEXO_API bool CreateDirectories(const wchar_t* path, unsigned int permissions = 0777);

/// kErrorDirectoryNotEmpty, kErrorFileNotFound, kErrorPathNotFound, kErrorDirectoryInvalid (a file).
NEXO_API bool RemoveDirectory(const wchar_t* path);

/// The user's own folder `moxtel-<uid>` (mode 0700) below $TMPDIR or /tmp, in `C:\...\` form ending in one
/// backslash; created when missing. Empty, with the cause in LastError(), when it cannot be had or is not
/// ours.
[[nodiscard]] NEXO_API CString TemporaryDirectory();

}  // namespace nexo::platform

#endif
