// nexo table: interpolation tables in CSV files.

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Area.h"
#include "Json.h"
#include "Output.h"
#include "Position.h"
#include "SourceText.h"
#include "nexo/base/CharClass.h"
#include "nexo/base/Number.h"
#include "nexo/geom/LinearInterpolation.h"
#include "nexo/geom/LinearInterpolation2D.h"

namespace nexo::tool {
namespace {

struct EvalOptions : CommonOptions {
    TextSource source;
    double x = 0.0;
    std::optional<double> y;
    bool extrapolate = false;
    std::optional<double> sort;
};

struct Cell {
    std::size_t offset;
    std::wstring_view text;
};

using Row = std::vector<Cell>;

// A text cut at `separator`; offsets count from that of the text.
Row Split(const Cell& text, wchar_t separator) {
    Row pieces;
    for (std::size_t start = 0; start <= text.text.size();) {
        const std::size_t end = std::min(text.text.find(separator, start), text.text.size());
        pieces.push_back({text.offset + start, text.text.substr(start, end - start)});
        start = end + 1;
    }
    return pieces;
}

Cell WithoutBlanks(Cell cell) {
    while (!cell.text.empty() && IsSpace(cell.text.back())) cell.text.remove_suffix(1);
    while (!cell.text.empty() && IsSpace(cell.text.front())) {
        cell.text.remove_prefix(1);
        ++cell.offset;
    }
    return cell;
}

// The numbers of a CSV file: cells parted by semicolons, tabs or commas, whichever of them, in this order,
// the first line holds. Empty lines and lines that begin with # are left out. With another separator than the
// comma a decimal comma is taken, too.
class CsvNumbers {
public:
    explicit CsvNumbers(const SourceText& file) : m_file(file) {
        for (const Cell& line : Split({0, file.text.View()}, L'\n')) {
            const std::wstring_view content = WithoutBlanks(line).text;
            if (content.empty() || content.front() == L'#') continue;
            if (m_rows.empty()) m_separator = SeparatorIn(line.text);
            m_rows.push_back(Split(line, m_separator));
            std::ranges::transform(m_rows.back(), m_rows.back().begin(), WithoutBlanks);
        }
    }

    [[nodiscard]] const std::vector<Row>& Rows() const { return m_rows; }

    [[nodiscard]] std::optional<double> NumberIn(const Cell& cell) const {
        std::wstring text(cell.text);
        if (m_separator != L',') std::ranges::replace(text, L',', L'.');
        std::size_t used = 0;
        const double number = ParseDouble(std::wstring_view(text), &used);
        if (text.empty() || used != text.size()) return std::nullopt;
        return number;
    }

    [[nodiscard]] double Number(const Cell& cell) const {
        if (const auto number = NumberIn(cell)) return *number;
        throw Broken(cell, "a number is missing here");
    }

    [[nodiscard]] Failure Broken(const Cell& cell, const char* message) const {
        return BrokenAt(m_file.name, m_file.text.View(), cell.offset, message);
    }

    void RequireWidth(std::size_t width, const char* message) const {
        for (const Row& row : m_rows)
            if (row.size() != width) throw Broken(row.front(), message);
    }

    // Fails at the first of the cells that neither goes on rising nor falling.
    void RequireOrder(const Row& cells) const {
        for (std::size_t i = 1; i < cells.size(); ++i) {
            const bool rising = Number(cells[1]) > Number(cells[0]);
            const double step = Number(cells[i]) - Number(cells[i - 1]);
            if (!(rising ? step > 0.0 : step < 0.0))
                throw Broken(cells[i], "the numbers must rise or fall without repetition");
        }
    }

private:
    static wchar_t SeparatorIn(std::wstring_view line) {
        for (wchar_t separator : {L';', L'\t'})
            if (line.find(separator) != line.npos) return separator;
        return L',';
    }

    const SourceText& m_file;
    std::vector<Row> m_rows;
    wchar_t m_separator = L',';
};

double EvaluateCurve(const CsvNumbers& csv, const EvalOptions& options) {
    csv.RequireWidth(2, "a curve has two columns, x and y");
    CLinearInterpolation curve;
    Row xs;
    for (const Row& row : csv.Rows()) {
        const bool isHeading = &row == &csv.Rows().front() && !csv.NumberIn(row[0]);
        if (isHeading) continue;
        xs.push_back(row[0]);
        curve.Add(csv.Number(row[0]), csv.Number(row[1]));
    }
    if (options.sort) curve.sort(*options.sort);
    const double value = curve.GetY(options.x, options.extrapolate);
    if (value == kLargestDouble && !options.sort) csv.RequireOrder(xs);
    return value;
}

double EvaluateSurface(const CsvNumbers& csv, const EvalOptions& options) {
    const std::vector<Row>& rows = csv.Rows();
    const std::size_t columns = rows.empty() ? 0 : rows.front().size();
    csv.RequireWidth(columns, "this line has more or fewer cells than the first one");
    CLinearInterpolation2D surface(static_cast<int>(rows.size()), static_cast<int>(columns));
    Row xs;
    Row ys;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0) xs.push_back(rows[i][0]);
        for (std::size_t j = 0; j < columns; ++j) {
            if (i == 0 && j == 0) continue;  // holds nothing or a title
            if (i == 0) ys.push_back(rows[0][j]);
            surface.SetAt(static_cast<int>(i), static_cast<int>(j), csv.Number(rows[i][j]));
        }
    }
    const double value = surface.GetZ(options.x, *options.y, options.extrapolate);
    if (value != kLargestDouble) return value;
    csv.RequireOrder(ys);
    csv.RequireOrder(xs);
    return value;
}

std::string Shortest(double number) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

Exit Eval(const EvalOptions& options) {
    const SourceText file = ReadText(options.source);
    const CsvNumbers csv(file);
    const double value = options.y ? EvaluateSurface(csv, options) : EvaluateCurve(csv, options);
    if (value == kLargestDouble)
        throw BrokenAt(file.name, file.text.View(), 0, "too few numbers, or two that are equal, for a table");
    if (!options.json) {
        Out() << Shortest(value) << '\n';
        return Exit::kYes;
    }
    Json json(Out());
    json.Object().Member("x", options.x);
    if (options.y) json.Member("y", *options.y);
    json.Member("value", value).End();
    return Exit::kYes;
}

void DeclareEval(CLI::App& command, EvalOptions& options) {
    AddSource(command, options.source);
    command.add_option("X", options.x, "Where to evaluate")->required();
    command.add_option(
        "Y", options.y,
        "The second coordinate: FILE is a surface, x in its first column, y in its first line");
    command.add_flag("-e,--extrapolate", options.extrapolate,
                     "Go on beyond the ends instead of holding their values");
    command.add_option("--sort", options.sort,
                       "Sort a curve by x first; of points closer than this the last stays");
}

void AddVerbs(VerbList& verbs) {
    verbs.Add<EvalOptions>({"eval", "Interpolate in a curve or a surface", DeclareEval, Eval,
                            "  nexo table eval pump.csv 12.5\n"
                            "  nexo table eval pump.csv -3 -e\n"
                            "  nexo table eval valve.csv 0.4 60 --json"});
}

const AreaEntry kEntry({"table", "Interpolation tables", AddVerbs});

}  // namespace
}  // namespace nexo::tool
