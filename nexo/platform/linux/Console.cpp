#include "nexo/platform/Console.h"

#include <unistd.h>

#include <cerrno>

#include "nexo/platform/linux/OpenFile.h"

namespace nexo::platform {

bool IsErrorTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool CanAsk() {
    return IsErrorTerminal() && isatty(STDIN_FILENO) == 1;
}

void WriteToError(std::string_view text) {
    WriteAll(STDERR_FILENO, text);
}

bool ReadAnswer(std::string& line) {
    line.clear();
    char byte = 0;
    for (;;) {
        const ssize_t size = Retry([&] { return read(STDIN_FILENO, &byte, 1); });
        if (size <= 0) return !line.empty();
        if (byte == '\n') return true;
        line.push_back(byte);
    }
}

std::string ProgramName() {
    return program_invocation_short_name;
}

}  // namespace nexo::platform
