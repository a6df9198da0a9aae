#ifndef NEXO_PLATFORM_DEBUGOUTPUT_H
#define NEXO_PLATFORM_DEBUGOUTPUT_H

#include <functional>
#include <string_view>

#include "nexo/base/Export.h"

namespace nexo::platform {

using DebugSink = std::function<void(std::wstring_view text)>;

/// Sends text to the debugger output, as it is, without a line end of its own. Without a sink it goes to
/// stderr in UTF-8 when a debugger or a terminal watches, else nowhere. Safe from any thread.
NEXO_API void WriteDebug(std::wstring_view text);

/// Replaces the receiver and returns the former one; an empty sink restores the default. The sink is called
/// under no lock and may be called from several threads at once.
NEXO_API DebugSink SetDebugSink(DebugSink sink);

/// Whether a debugger is attached to the process.
[[nodiscard]] NEXO_API bool IsDebuggerPresent();

}  // namespace nexo::platform

#endif
