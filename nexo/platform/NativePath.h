#ifndef NEXO_PLATFORM_NATIVEPATH_H
#define NEXO_PLATFORM_NATIVEPATH_H

#include <string>
#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"

// File names of the interface (`C:\a\b`) and of the system (`/a/b`).
//
// Drive C is the root directory. Other drives and UNC hosts exist once the application maps them. Both
// separators count, repeated ones collapse, "." and ".." are resolved as text, trailing dots and blanks of
// the last name vanish. Native absolute paths pass as they are; relative ones stay relative to the working
// directory.
//
// Native names that the interface's form cannot hold keep a reversible spelling: a byte that is not UTF-8
// becomes U+DC80 to U+DCFF, one of \ : * ? " < > | and control characters becomes U+F000 plus its value.

namespace nexo::platform {

/// Maps a drive ("D:"), a host ("\\server") or a share ("\\server\share") to a native directory; an empty
/// directory removes the mapping. Drive C cannot be mapped. False, changing nothing, for any other prefix or
/// a directory that is not absolute. Safe from any thread; set mappings before paths that need them are used.
NEXO_API bool MapPath(std::wstring_view prefix, std::string_view nativeDirectory);

/// The native path of `path` as text, without looking at the disk.
///
/// False with kErrorPathNotFound (empty path, unmapped drive), kErrorBadNetPath (unmapped host) or
/// kErrorInvalidName (a character of | * ? < > " or a control character); `native` is then unchanged.
///
/// NativeText(L"C:/a//b/../c.", p) gives p == "/a/c"
NEXO_API bool NativeText(std::wstring_view path, std::string& native);

/// The native path of `path` as it is spelt on the disk: as NativeText, and each name that is missing is
/// looked for without regard to case. The exact name wins, else the first in code-unit order. From the first
/// name that does not exist in any case, the text stays as given, so that new files get the caller's
/// spelling.
///
/// Costs one system call when the exact name exists. Listings of folders are kept and follow what the system
/// reports of changes; where it reports none, they are checked against the folder's time stamps at every use.
NEXO_API bool NativePath(std::wstring_view path, std::string& native);

/// `C:\...` form of a native path; the longest mapped directory gives its drive or UNC form. Relative paths
/// stay so.
[[nodiscard]] NEXO_API CString PathFromNative(std::string_view native);

/// `C:\...` form of the place that an existing path leads to, without links; "" with the cause in
/// LastError().
[[nodiscard]] NEXO_API CString RealPath(const wchar_t* path);

/// One name, without separators, in the two forms.
[[nodiscard]] NEXO_API std::string NativeNameFromWide(std::wstring_view name);
NEXO_API void WideNameFromNative(std::string_view name, std::wstring& wide);

}  // namespace nexo::platform

#endif
