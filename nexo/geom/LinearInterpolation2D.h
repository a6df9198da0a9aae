#ifndef NEXO_GEOM_LINEARINTERPOLATION2D_H
#define NEXO_GEOM_LINEARINTERPOLATION2D_H

// A tabulated surface z(x, y). A curve y(x) is a CLinearInterpolation (nexo/geom/LinearInterpolation.h).

#include <memory>
#include <vector>

#include "nexo/base/Export.h"
#include "nexo/geom/GridIndex.h"
#include "nexo/geom/Tolerance.h"

/// A rectangular grid of doubles that is interpolated bilinearly:
///
///     unused  y1   y2   ...
///     x1      z11  z12  ...
///     x2      z21  z22  ...
///
/// The x (column 0, one per row) and the y (row 0, one per column) must each rise or fall strictly. The grid
/// owns its cells, or views an array of the caller's, who keeps it alive and may change it at any time.
/// Copies always own. For one thread at a time.
class NEXO_API CLinearInterpolation2D {
public:
    /// Owns a grid of zeros. Rows and columns, the x column and y row among them, are raised to at least 1.
    CLinearInterpolation2D(int rows, int columns);
    /// Views `data`: row i starts at data + i * columns. Null gives an own grid of zeros.
    CLinearInterpolation2D(int rows, int columns, double* data);
    CLinearInterpolation2D(const CLinearInterpolation2D& other);
    /// Copies `*other`; null gives an own grid of 1 x 1.
    explicit CLinearInterpolation2D(const CLinearInterpolation2D* other);
    CLinearInterpolation2D& operator=(const CLinearInterpolation2D& other);
    ~CLinearInterpolation2D() = default;

    /// A cell, the largest double outside the grid.
    [[nodiscard]] double GetAt(int row, int col) const;
    /// Sets a cell; does nothing outside the grid.
    void SetAt(int row, int col, double value);

    /// Interpolates bilinearly at (`x`, `y`).
    ///
    /// Outside the grid the values of its edge hold, or with `bExtrapolate` the edge cell's surface goes on.
    /// Returns the largest double for fewer than 3 rows or columns and for x or y that do not rise or fall
    /// strictly.
    ///
    /// An own grid is checked once after a change of its x or y, then O(1) for evenly spread x and y, O(log
    /// n) for any. A viewed one is checked by every call, O(rows + columns).
    [[nodiscard]] double GetZ(double x, double y, bool bExtrapolate);

    /// True from 2 rows and 2 columns on, fewer than GetZ needs; callers rely on the difference.
    [[nodiscard]] bool bHasATable() const { return m_rows >= 2 && m_columns >= 2; }

private:
    enum class Check { kOpen, kPassed, kFailed };
    // A value to interpolate at and the row or column at the upper end of its segment.
    struct Place {
        double value;
        int upper;
    };

    bool IsInside(int row, int col) const { return row >= 0 && row < m_rows && col >= 0 && col < m_columns; }
    double* Row(int row) const { return m_data + std::ptrdiff_t{row} * m_columns; }
    nexo::GridView XGrid() const { return {m_data + m_columns, m_columns, m_rows - 1}; }
    nexo::GridView YGrid() const { return {m_data + 1, 1, m_columns - 1}; }
    double GetZOfView(double x, double y, bool bExtrapolate) const;
    double Interpolate(const Place& x, const Place& y) const;
    void RunCheck();

    int m_rows;
    int m_columns;
    std::unique_ptr<double[]> m_cells;  // null when viewing
    double* m_data;
    Check m_check = Check::kOpen;  // of an own grid
    // Of an own grid, valid while m_check is kPassed. The x stand far apart in the cells, so they are
    // repeated.
    std::vector<double> m_x;
    nexo::GridIndex m_xIndex;
    nexo::GridIndex m_yIndex;
};

#endif
