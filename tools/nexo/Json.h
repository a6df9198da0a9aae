#ifndef NEXO_TOOLS_JSON_H
#define NEXO_TOOLS_JSON_H

#include <string_view>
#include <vector>

#include "Output.h"

namespace nexo::tool {

/// Writes one JSON value piece by piece, on one line; commas and quotes come by themselves.
///
///     Json json(Out());
///     json.Object();
///     json.Member("lines", 3).Member("name", L"Gebäude").End();
class Json {
public:
    explicit Json(Output& out) : m_out(out) {}

    Json& Object() { return Open('{', '}'); }
    Json& Array() { return Open('[', ']'); }
    Json& End();  ///< closes the innermost object or array; the outermost ends the line
    Json& Key(std::string_view name);

    Json& Value(std::wstring_view text);
    Json& Value(std::string_view utf8);
    Json& Value(const char* utf8) { return Value(std::string_view(utf8)); }
    Json& Value(const wchar_t* text) { return Value(std::wstring_view(text)); }
    Json& Value(double number);  ///< null for what JSON has no number for
    template <std::integral Number>
    Json& Value(Number number) {
        return Raw(std::to_string(number));
    }
    Json& Value(bool truth) { return Raw(truth ? "true" : "false"); }

    template <class T>
    Json& Member(std::string_view name, const T& value) {
        return Key(name).Value(value);
    }

private:
    Json& Open(char opening, char closing);
    Json& Raw(std::string_view token);
    void Comma();
    void Quote(std::string_view utf8);

    Output& m_out;
    std::vector<char> m_closing;
    bool m_first = true;
};

}  // namespace nexo::tool

#endif
