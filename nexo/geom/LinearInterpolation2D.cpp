#include "nexo/geom/LinearInterpolation2D.h"

#include <algorithm>
#include <utility>

using nexo::GridOrder;
using nexo::GridPlace;
using nexo::GridRange;
using nexo::GridView;

namespace {

// Throws std::bad_alloc when there is no memory, however large the product.
std::unique_ptr<double[]> MakeCells(int rows, int columns) {
    return std::make_unique<double[]>(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
}

// Grid positions count from 0, rows and columns of cells from 1; the upper end of a segment is never the
// first.
int UpperLine(int gridPosition) {
    return std::max(gridPosition, 1) + 1;
}

}  // namespace

CLinearInterpolation2D::CLinearInterpolation2D(int rows, int columns)
    : m_rows(std::max(rows, 1)),
      m_columns(std::max(columns, 1)),
      m_cells(MakeCells(m_rows, m_columns)),
      m_data(m_cells.get()) {}

CLinearInterpolation2D::CLinearInterpolation2D(int rows, int columns, double* data)
    : m_rows(std::max(rows, 1)),
      m_columns(std::max(columns, 1)),
      m_cells(data ? nullptr : MakeCells(m_rows, m_columns)),
      m_data(data ? data : m_cells.get()) {}

CLinearInterpolation2D::CLinearInterpolation2D(const CLinearInterpolation2D& other)
    : CLinearInterpolation2D(other.m_rows, other.m_columns) {
    std::copy(other.m_data, other.Row(m_rows), m_data);
}

CLinearInterpolation2D::CLinearInterpolation2D(const CLinearInterpolation2D* other)
    : CLinearInterpolation2D(other ? *other : CLinearInterpolation2D(1, 1)) {}

CLinearInterpolation2D& CLinearInterpolation2D::operator=(const CLinearInterpolation2D& other) {
    CLinearInterpolation2D copy(other);
    m_rows = copy.m_rows;
    m_columns = copy.m_columns;
    m_cells = std::move(copy.m_cells);
    m_data = m_cells.get();
    m_check = Check::kOpen;
    return *this;
}

double CLinearInterpolation2D::GetAt(int row, int col) const {
    return IsInside(row, col) ? Row(row)[col] : nexo::kLargestDouble;
}

void CLinearInterpolation2D::SetAt(int row, int col, double value) {
    if (!IsInside(row, col)) return;
    Row(row)[col] = value;
    if (row == 0 || col == 0) m_check = Check::kOpen;
}

double CLinearInterpolation2D::GetZ(double x, double y, bool bExtrapolate) {
    if (!m_cells) return GetZOfView(x, y, bExtrapolate);
    if (m_check == Check::kOpen) RunCheck();
    if (m_check == Check::kFailed) return nexo::kLargestDouble;
    const GridRange& xs = m_xIndex.Range();
    const GridRange& ys = m_yIndex.Range();
    const int row = m_xIndex.Position<1>(m_x.data(), x);
    const int column = m_yIndex.Position<1>(YGrid().values, y);
    return Interpolate({bExtrapolate ? x : xs.Clamp(x), UpperLine(row)},
                       {bExtrapolate ? y : ys.Clamp(y), UpperLine(column)});
}

double CLinearInterpolation2D::GetZOfView(double x, double y, bool bExtrapolate) const {
    const GridPlace row = nexo::ScanGrid(XGrid(), x);
    const GridPlace column = nexo::ScanGrid(YGrid(), y);
    if (row.order == GridOrder::kNone || column.order == GridOrder::kNone) return nexo::kLargestDouble;
    return Interpolate(
        {bExtrapolate ? x : GridRange(XGrid(), row.order).Clamp(x), UpperLine(row.position)},
        {bExtrapolate ? y : GridRange(YGrid(), column.order).Clamp(y), UpperLine(column.position)});
}

double CLinearInterpolation2D::Interpolate(const Place& x, const Place& y) const {
    const double* yRow = Row(0);
    const double* lower = Row(x.upper - 1);
    const double* upper = Row(x.upper);
    const int cl = y.upper - 1;
    const int cu = y.upper;
    // The shape functions of a cell's four corners in coordinates from -1 to 1.
    const double xi = 2.0 * (x.value - lower[0]) / (upper[0] - lower[0]) - 1.0;
    const double eta = 2.0 * (y.value - yRow[cl]) / (yRow[cu] - yRow[cl]) - 1.0;
    const double a = (1.0 - xi) * 0.25;
    const double b = (1.0 + xi) * 0.25;
    const double c = 1.0 - eta;
    const double d = 1.0 + eta;
    return upper[cl] * b * c + lower[cl] * a * c + upper[cu] * b * d + lower[cu] * a * d;
}

void CLinearInterpolation2D::RunCheck() {
    m_check = Check::kFailed;
    const GridOrder xOrder = nexo::ScanGrid(XGrid(), 0.0).order;
    const GridOrder yOrder = nexo::ScanGrid(YGrid(), 0.0).order;
    if (xOrder == GridOrder::kNone || yOrder == GridOrder::kNone) return;
    const GridView xs = XGrid();
    m_x.resize(static_cast<std::size_t>(xs.count));
    for (int i = 0; i < xs.count; ++i) m_x[static_cast<std::size_t>(i)] = xs[i];
    m_xIndex.Build({m_x.data(), 1, xs.count}, xOrder);
    m_yIndex.Build(YGrid(), yOrder);
    m_check = Check::kPassed;
}
