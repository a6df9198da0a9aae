#ifndef NEXO_DIAG_ERRORTEXT_H
#define NEXO_DIAG_ERRORTEXT_H

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"

/// A message with the place in the source it comes from: "%s\nFile: %s\nLine: %ld".
[[nodiscard]] NEXO_API CString FormatFileLineMessage(const wchar_t* message, const wchar_t* file, int line);

/// Shows an error message box with "Error: %s\nFile: %s\nLine: %u". A null message counts as empty; the bytes
/// of the file name are taken as UTF-8, as compilers give them.
NEXO_API void ReportError(const wchar_t* message, const char* file, int line);

#endif
