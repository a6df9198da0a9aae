#include "Output.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

#include "Exit.h"
#include "nexo/base/CodeUnits.h"

namespace nexo::tool {
namespace {

constexpr std::size_t kPiece = 64 * 1024;

bool IsControl(wchar_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

// The picture of a control character; those of 80 to 9F have none.
wchar_t Picture(wchar_t unit) {
    if (unit < 0x20) return static_cast<wchar_t>(0x2400 + unit);
    return unit == 0x7F ? L'\x2421' : L'\xFFFD';
}

}  // namespace

Output& Output::operator<<(std::string_view bytes) {
    m_waiting += bytes;
    if (m_waiting.size() >= kPiece) Flush();
    return *this;
}

Output& Output::operator<<(std::wstring_view text) {
    const auto plain = static_cast<std::size_t>(
        std::find_if(text.begin(), text.end(), [](wchar_t unit) { return unit >= 0x80; }) - text.begin());
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(plain),
                   std::back_inserter(m_waiting), [](wchar_t unit) { return static_cast<char>(unit); });
    return *this << (plain == text.size() ? std::string() : ToUtf8(text.substr(plain)));
}

void Output::Visible(std::wstring_view text) {
    if (std::none_of(text.begin(), text.end(), IsControl))
        *this << text;
    else
        *this << tool::Visible(text);
}

void Output::Repeat(char byte, std::size_t count) {
    m_waiting.append(count, byte);
}

void Output::Flush() {
    const std::string bytes = std::exchange(m_waiting, {});
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0)
        return;
    if (errno == EPIPE) throw ReaderGone();
    throw Failure(Exit::kSystem, std::string("standard output: ") + std::strerror(errno));
}

Output& Out() {
    static Output output;
    return output;
}

std::string Visible(std::wstring_view text) {
    std::wstring pictured(text);
    for (wchar_t& unit : pictured)
        if (IsControl(unit)) unit = Picture(unit);
    return ToUtf8(pictured);
}

}  // namespace nexo::tool
