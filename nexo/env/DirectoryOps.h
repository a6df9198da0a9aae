#ifndef NEXO_ENV_DIRECTORYOPS_H
#define NEXO_ENV_DIRECTORYOPS_H

#include "nexo/base/Export.h"
#include "nexo/base/Types.h"
#include "nexo/env/FilePath.h"

// Directories with all that lies below them: creating, copying, removing, summing up.
//
// All of it works at any depth with few open files, never follows a link to a directory and answers 1, or 0
// for a failure; what was done before the failure stays done.

/// Who may use what is created.
struct SECURITY_ATTRIBUTES {
    DWORD nLength;               ///< sizeof(SECURITY_ATTRIBUTES)
    void* lpSecurityDescriptor;  ///< an `unsigned int` with POSIX permission bits such as 0750; null for 0777
    BOOL bInheritHandle;         ///< without meaning for directories
};

/// Creates the directory and what is missing above it, all with the permissions given, less the umask of the
/// process. 1 at once when it exists; 0 when a level cannot be created.
NEXO_API int CreateDirectoryRecursive(const wchar_t* path, SECURITY_ATTRIBUTES* attributes = nullptr);

/// Copies all of `src` into `dst`, which is created when missing: subdirectories first, then files, by the
/// rules of FileUtils::CopyFileWithTimeCompare(). Ends with 0 at the first failure. Links are copied as
/// links. 0, with nothing created, when `src` is missing or when `dst` is `src` or lies below it.
NEXO_API int CopyDirectoryRecursive(const wchar_t* src, const wchar_t* dst);

/// Removes the directory and everything in it, going on after failures: 1 only when nothing failed. Read-only
/// files, and the directories above them, stay. Of a link the link goes, not what it leads to.
NEXO_API int RemoveDirectoryRecursive(const wchar_t* dir);

/// Removes the directory and everything in it, read-only files too, unless that looks like a mistake.
///
/// Refused (0) for a path that is empty, ends with "\", is UNC, missing, not absolute, or holds fewer than
/// two backslashes, so that neither a drive nor a directory right below it can go. That is asked of the text,
/// of the normalised text and of the place on the disk that it leads to; the home directory, the directories
/// above it and mounted file systems are refused, too. 1 once the removal has run, whatever it achieved.
NEXO_API int RemoveDirectoryRecursiveCmd(CDirPath dir);

namespace nexo {

/// Whether RemoveDirectoryRecursiveCmd() would remove the directory; looks, but changes nothing.
[[nodiscard]] NEXO_API bool IsRemovalAllowed(const CDirPath& dir);

}  // namespace nexo

/// The sum of the sizes of the files in the directory that match the pattern ("" and null mean "*"). With
/// `recursive`, directories that match the same pattern contribute what they hold. The first form gives the
/// low 32 bits. 0 for a missing directory.
[[nodiscard]] NEXO_API unsigned int GetSpaceUsage(const wchar_t* dir, const wchar_t* pattern, int recursive);
[[nodiscard]] NEXO_API __int64 GetSpaceUsageLong(const CDirPath& dir, const wchar_t* pattern, int recursive);

/// Whether files can be created and deleted in the directory: 1 or 0. Does so with the name "_test_.000".
[[nodiscard]] NEXO_API int IsDirectoryWritable(const CDirPath& dir);

/// The user's directory for temporary files, ending with a backslash; "" when there is none, or none of at
/// most 260 characters.
[[nodiscard]] NEXO_API CDirPath GetTempPathW();

#endif
