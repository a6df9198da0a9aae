#ifndef NEXO_DIAG_MESSAGETRACE_H
#define NEXO_DIAG_MESSAGETRACE_H

#include <initializer_list>

#include "nexo/base/Export.h"

// Tracing of window messages to the debugger output, for developers and for one thread at a time. The
// messages and what their parameters mean are listed in MessageTables.h.

/// Writes one line about a window message: "%03u: %s%s\n" of a running number, `prefix` and the message.
///
/// `lParam` holds an address where the message's parameter is one; `extra` is the message's result, or 0. The
/// message is shown as its name and its parameters: key codes, flags, each followed by " | ", points "(%u,
/// %u)", rectangles "(x:%i, y:%i, cx:%i, cy:%i)", characters "'%c'", booleans "True" and "False", all else
/// "0x%x". An address that cannot be read is shown as a number. A line that comes more than a second after
/// the one before is preceded by a separator. Nothing is written for a message that was switched off.
///
/// TraceMessage(L"list ", 0x200, 1, 20 << 16 | 10, 0) writes "000: list WM_MOUSEMOVE: MK_LBUTTON | (10, 20)"
NEXO_API void TraceMessage(const wchar_t* prefix, unsigned int message, unsigned int wParam, long lParam,
                           long extra);

namespace nexo {

/// Switches the tracing of messages off, for good; unknown ones are ignored. The list ends at its first 0.
NEXO_API void SwitchOffMessages(std::initializer_list<unsigned int> messages);

/// What the address of a window position points to.
struct WindowPosition {
    void* window;
    void* insertAfter;
    int x, y, cx, cy;
    unsigned int flags;
};

}  // namespace nexo

/// Switches the tracing of the messages of a zero-terminated list off, for good.
///
/// DontTraceMessages(0x200, 0x113, 0);
template <class... More>
void DontTraceMessages(unsigned int message, More... more) {
    nexo::SwitchOffMessages({message, static_cast<unsigned int>(more)...});
}

#endif
