#ifndef NEXO_ENV_FILEITERATION_H
#define NEXO_ENV_FILEITERATION_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

// Iterating over files and directories on one stack of the process, at most 64 iterations deep. Every
// iteration is ended by reaching its end or by a stop call. For use from one thread at a time; CFindFiles in
// FindFiles.h has no such limits.

/// Opens an iteration on top of the stack and gives its first file (without directory).
///
/// 0, with nothing opened and `name` unchanged, when 64 iterations are open, the directory does not exist or
/// no file matches.
NEXO_API int GetFirstFileName(const CString& dir, const CString& pattern, CString& name);

/// As GetFirstFileName() for directories; "." and ".." are listed, too.
NEXO_API int GetFirstDirName(const CString& dir, const CString& pattern, CString& name);

/// The next file of the topmost iteration. At its end 0, and the iteration is closed; 0 when none is open.
NEXO_API int GetNextFileName(CString& name);

/// The next directory of the topmost iteration, as GetNextFileName().
NEXO_API int GetNextDirName(CString& name);

/// Closes the topmost iteration; nothing happens when none is open.
NEXO_API void StopFileIteration();
NEXO_API void StopDirIteration();

#endif
