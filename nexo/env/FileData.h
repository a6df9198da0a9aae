#ifndef NEXO_ENV_FILEDATA_H
#define NEXO_ENV_FILEDATA_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/base/Time.h"
#include "nexo/base/Types.h"

// What the file system knows about one file: size, time stamps, attributes. The path may hold wildcards in
// its last component; it then means the first match. All answer 1, or 0 with the outputs unchanged.

/// A time stamp of a file.
enum EFileTime : int {
    eFileTimeCreation = 0,
    eFileTimeLastAccess = 1,
    eFileTimeLastWrite = 2,
};

/// What a search finds about a file. Members that have no meaning here are 0.
struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;  ///< 0x1 read-only, 0x10 directory, 0x20 any other
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    wchar_t cFileName[260];  ///< the stored spelling, without directory
    wchar_t cAlternateFileName[14];
};

/// Finds the first match. The record is zeroed first, also when nothing is found.
NEXO_API int GetFileData(const wchar_t* path, WIN32_FIND_DATAW& data);

/// The size in bytes: its low 32 bits, or all of it. 0 bytes for a directory.
NEXO_API int GetFileSize(const wchar_t* path, unsigned int& size);
NEXO_API int GetFileSize(const wchar_t* path, __int64& size);

/// A stamp as a point in time, the fraction of its second cut off. Any other selector gives 1 for a file that
/// exists and leaves `time` unchanged.
NEXO_API int GetFileTime(const wchar_t* path, EFileTime which, CTime& time);

/// Sets one stamp and leaves the others. 0 for directories, read-only files, times before 1601 and any other
/// selector; the creation stamp also needs a file system with extended attributes.
NEXO_API int SetFileTime(const wchar_t* path, EFileTime which, const CTime& time);

/// Clears the read-only attribute and keeps the others; the owner may write then.
NEXO_API int RemoveReadOnlyFlag(const wchar_t* path);

#endif
