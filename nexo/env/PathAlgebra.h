#ifndef NEXO_ENV_PATHALGEBRA_H
#define NEXO_ENV_PATHALGEBRA_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// Joining, normalising and relating paths as text; nothing here looks at the disk. All are linear. The path
// classes are in FilePath.h, the parts of a path in PathSplit.h.

namespace nexo {

/// Joins two paths with one separator: "\", or "/" when either side holds a slash.
///
/// An empty side gives the other one. A separator that ends the left side takes the place of one that begins
/// the right side; all others stay. A null pointer counts as empty.
///
/// CString(L"C:\\a\\") ^ L"\\b" == L"C:\\a\\b"        CString(L"C:/a") ^ L"b" == L"C:/a/b"
[[nodiscard]] NEXO_API CString operator^(const CString& left, const wchar_t* right);

}  // namespace nexo

using nexo::operator^;

/// Normalises in place and returns its argument.
///
/// In this order: "/" becomes "\"; trailing separators and white space go; from the third unit on, runs of
/// "\" become one, "\.\" becomes "\", spaces before and then after a "\" go; "\.." takes the component before
/// it away, but never the root, a host or its share. Each step is done once, so that the text may hold a
/// doubled separator again where only spaces stood between two. Stored paths rely on these results, also on
/// the odd ones: a component that merely begins with two dots counts as "..", and "a\..\b" gives "\b".
///
/// "C:/x//y/./z/../w/" gives "C:\x\y\w"; "C:\..\x" and "\\host\..\x" stay; "\\host\share\..\x" gives
/// "\\host\x"
NEXO_API CString& NormalizePath(CString& path);

/// `path` relative to the directory `base`, both taken normalised and without regard to case.
///
/// `path` unchanged when one is absolute or UNC and the other is not, when drive or host differ, or when
/// the first components differ. A path that is the base or lies above it gets one "..\" more than the levels
/// between them; callers have always seen it so.
///
/// CalcRelativePath(L"C:\\a\\b\\c", L"C:\\a\\x") == L"..\\b\\c"        of the base itself: L"..\\"
[[nodiscard]] NEXO_API CString CalcRelativePath(const CString& path, const CString& base);

#endif
