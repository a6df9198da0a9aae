#ifndef NEXO_TOOLS_EXIT_H
#define NEXO_TOOLS_EXIT_H

// How a command ends: its exit status, and the failures that end it early.

#include <stdexcept>
#include <string>

namespace nexo::tool {

enum class Exit : int {
    kYes = 0,     ///< done; found; true; equal
    kNo = 1,      ///< not found; false; different
    kUsage = 2,   ///< the command line makes no sense
    kBroken = 3,  ///< the input is broken
    kSystem = 4,  ///< the system refused: missing file, no permission, disk full
};

/// Ends the command: main prints the message on stderr and exits with the status.
class Failure : public std::runtime_error {
public:
    Failure(Exit status, const std::string& message) : std::runtime_error(message), m_status(status) {}
    [[nodiscard]] Exit Status() const { return m_status; }

private:
    Exit m_status;
};

/// Whoever read standard output has gone away: ends the command without a word.
struct ReaderGone {};

}  // namespace nexo::tool

#endif
