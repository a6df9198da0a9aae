#ifndef NEXO_TOOLS_POSITION_H
#define NEXO_TOOLS_POSITION_H

#include <cstddef>
#include <string>
#include <string_view>

#include "Exit.h"

namespace nexo::tool {

/// A place in a text as editors count: lines end with LF, columns count characters, both from 1.
struct Position {
    std::size_t line = 1;
    std::size_t column = 1;
};

Position PositionOf(std::wstring_view text, std::size_t offset);

/// "file:line:column: message"
std::string MessageAt(const std::string& file, const Position& position, const std::string& message);

/// The failure for broken input at a place of its text.
Failure BrokenAt(const std::string& file, std::wstring_view text, std::size_t offset,
                 const std::string& message);

}  // namespace nexo::tool

#endif
