#ifndef NEXO_PLATFORM_CONSOLE_H
#define NEXO_PLATFORM_CONSOLE_H

#include <string>
#include <string_view>

#include "nexo/base/Export.h"

// The standard streams as a terminal; text is UTF-8.

namespace nexo::platform {

/// Whether a person sees what is written to stderr, or can also answer on stdin.
[[nodiscard]] NEXO_API bool IsErrorTerminal();
[[nodiscard]] bool CanAsk();

void WriteToError(std::string_view text);

/// One line of stdin without its end; false at the end of the stream.
bool ReadAnswer(std::string& line);

/// Name of the running program, without a path.
[[nodiscard]] std::string ProgramName();

}  // namespace nexo::platform

#endif
