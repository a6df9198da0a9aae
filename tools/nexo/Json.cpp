#include "Json.h"

#include <charconv>
#include <cmath>

#include "nexo/base/CString.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/platform/CodePage.h"

namespace nexo::tool {

Json& Json::Open(char opening, char closing) {
    Comma();
    m_out << opening;
    m_closing.push_back(closing);
    m_first = true;
    return *this;
}

Json& Json::End() {
    m_out << m_closing.back();
    m_closing.pop_back();
    m_first = false;
    if (m_closing.empty()) m_out << '\n';
    return *this;
}

Json& Json::Key(std::string_view name) {
    Comma();
    Quote(name);
    m_out << ':';
    m_first = true;
    return *this;
}

Json& Json::Value(std::wstring_view text) {
    Comma();
    Quote(ToUtf8(text));
    return *this;
}

Json& Json::Value(std::string_view utf8) {
    return Value(platform::WideFromUtf8(utf8).View());  // file names may hold other bytes
}

Json& Json::Value(double number) {
    if (!std::isfinite(number)) return Raw("null");
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return Raw({digits, end});
}

Json& Json::Raw(std::string_view token) {
    Comma();
    m_out << token;
    return *this;
}

void Json::Comma() {
    if (!m_first) m_out << ',';
    m_first = false;
}

void Json::Quote(std::string_view utf8) {
    m_out << '"';
    std::size_t done = 0;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte >= 0x20 && byte != '"' && byte != '\\') continue;
        constexpr char kHex[] = "0123456789abcdef";
        const char escape[] = {'\\', 'u', '0', '0', kHex[byte >> 4], kHex[byte & 15]};
        m_out << utf8.substr(done, i - done) << std::string_view(escape, sizeof escape);
        done = i + 1;
    }
    m_out << utf8.substr(done) << '"';
}

}  // namespace nexo::tool
