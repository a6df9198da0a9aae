#ifndef NEXO_TOOLS_TABLE_H
#define NEXO_TOOLS_TABLE_H

#include <string>
#include <string_view>
#include <vector>

#include "Output.h"

namespace nexo::tool {

/// A table with a head, columns as wide as their widest cell, numbers to the right; cells are UTF-8.
///
/// Width counts characters. The last column is never padded, so lines end where their text ends.
class Table {
public:
    enum class Align { kLeft, kRight };
    struct Column {
        const char* title;
        Align align = Align::kLeft;
    };

    explicit Table(std::vector<Column> columns);

    void AddRow(std::vector<std::string> cells);
    void Print(Output& out) const;

private:
    void PrintRow(Output& out, const std::vector<std::string>& cells) const;

    std::vector<Column> m_columns;
    std::vector<std::size_t> m_widths;
    std::vector<std::vector<std::string>> m_rows;
};

/// Number of characters of a UTF-8 text.
std::size_t Characters(std::string_view utf8);

}  // namespace nexo::tool

#endif
