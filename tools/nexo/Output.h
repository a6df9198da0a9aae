#ifndef NEXO_TOOLS_OUTPUT_H
#define NEXO_TOOLS_OUTPUT_H

// Standard output in UTF-8, whatever the encoding of the files that are shown. See Json.h and Table.h for
// answers with a structure.

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace nexo::tool {

/// Standard output, written in large pieces. A failed write ends the command: quietly (ReaderGone) when
/// nobody reads any more, else with a Failure.
class Output {
public:
    Output& operator<<(std::string_view bytes);  ///< as it is
    Output& operator<<(std::wstring_view text);  ///< as UTF-8
    Output& operator<<(const char* bytes) { return *this << std::string_view(bytes); }
    Output& operator<<(char byte) { return *this << std::string_view(&byte, 1); }
    template <std::integral Number>
    Output& operator<<(Number number) {
        return *this << std::string_view(std::to_string(number));
    }

    /// One line's worth of text: control characters are shown as the symbols that stand for them, so that
    /// what a file holds can neither break the layout nor reach the terminal.
    void Visible(std::wstring_view text);

    void Repeat(char byte, std::size_t count);
    void Flush();

private:
    std::string m_waiting;
};

/// The process's standard output.
Output& Out();

/// `text` in UTF-8 with its control characters as symbols (U+2400 ...).
std::string Visible(std::wstring_view text);

}  // namespace nexo::tool

#endif
