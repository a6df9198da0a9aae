#include "Table.h"

#include <algorithm>

namespace nexo::tool {
namespace {

constexpr std::size_t kGap = 2;

}  // namespace

std::size_t Characters(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

Table::Table(std::vector<Column> columns) : m_columns(std::move(columns)) {
    for (const Column& column : m_columns) m_widths.push_back(Characters(column.title));
}

void Table::AddRow(std::vector<std::string> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) m_widths[i] = std::max(m_widths[i], Characters(cells[i]));
    m_rows.push_back(std::move(cells));
}

void Table::Print(Output& out) const {
    std::vector<std::string> titles;
    std::vector<std::string> rules;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        titles.emplace_back(m_columns[i].title);
        rules.emplace_back(m_widths[i], '-');
    }
    PrintRow(out, titles);
    PrintRow(out, rules);
    for (const auto& row : m_rows) PrintRow(out, row);
}

void Table::PrintRow(Output& out, const std::vector<std::string>& cells) const {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::size_t padding = m_widths[i] - Characters(cells[i]);
        const bool right = m_columns[i].align == Align::kRight;
        if (right) out.Repeat(' ', padding);
        out << cells[i];
        if (i + 1 < cells.size()) out.Repeat(' ', right ? kGap : padding + kGap);
    }
    out << '\n';
}

}  // namespace nexo::tool
