#include "Position.h"

#include <algorithm>

#include "Files.h"

namespace nexo::tool {
namespace {

bool IsLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

Position PositionOf(std::wstring_view text, std::size_t offset) {
    const std::wstring_view before = text.substr(0, offset);
    const std::size_t lineStart = before.rfind(L'\n') + 1;  // npos + 1 is 0: the first line
    const std::wstring_view line = before.substr(lineStart);
    const auto lines = std::ranges::count(before, L'\n');
    const auto pairs = std::ranges::count_if(line, IsLowSurrogate);
    return {static_cast<std::size_t>(lines) + 1, line.size() - static_cast<std::size_t>(pairs) + 1};
}

std::string MessageAt(const std::string& file, const Position& position, const std::string& message) {
    return DisplayName(file) + ":" + std::to_string(position.line) + ":" + std::to_string(position.column) +
           ": " + message;
}

Failure BrokenAt(const std::string& file, std::wstring_view text, std::size_t offset,
                 const std::string& message) {
    return {Exit::kBroken, MessageAt(file, PositionOf(text, offset), message)};
}

}  // namespace nexo::tool
