#ifndef NEXO_TOOLS_FILES_H
#define NEXO_TOOLS_FILES_H

// Files named on the command line, as bytes. "-" is standard input or output; native paths and those like
// C:\a\b are taken alike. For their text see Encoding.h.

#include <string>
#include <string_view>

#include "Area.h"
#include "nexo/base/CString.h"

namespace nexo::tool {

/// The whole content of a file, a pipe or standard input; a Failure when it can not be read.
std::string ReadBytes(const std::string& file);

/// Writes standard output, or puts a file in place in one step; a Failure leaves the old content. With -n
/// nothing is written; with -v stderr tells `what`.
void WriteBytes(const std::string& file, std::string_view bytes, const WriteOptions& options,
                const std::string& what);

/// How messages name a file.
std::string DisplayName(const std::string& file);

/// What an error code of the library's platform layer means: "no such file".
std::string CauseText(unsigned int error);

/// The file's path as the library takes it.
CString LibraryPath(const std::string& file);

}  // namespace nexo::tool

#endif
