#ifndef NEXO_ENV_FILEVERSION_H
#define NEXO_ENV_FILEVERSION_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/base/Types.h"

// The version resource that executables and libraries of the home platform carry; those of other platforms
// have none. Both functions answer 0 and leave their output unchanged for any other file. The file is read
// whole.

/// The fixed part of a version resource.
struct VS_FIXEDFILEINFO {
    DWORD dwSignature;  ///< 0xFEEF04BD
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;  ///< two numbers of 16 bits, the higher one first
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};

/// The fixed version record of a file: 1 if it has one.
NEXO_API int GetFileVersion(const wchar_t* path, VS_FIXEDFILEINFO& version);

/// The file version as text, such as "1.40.32.0".
NEXO_API int GetFileVersion(const wchar_t* path, CString& version);

#endif
