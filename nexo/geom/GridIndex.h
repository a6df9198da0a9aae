#ifndef NEXO_GEOM_GRIDINDEX_H
#define NEXO_GEOM_GRIDINDEX_H

// Finding the segment of a strictly monotonic list of numbers that a value falls into. Internal to the
// interpolation tables, which describe what their callers see.

#include <algorithm>
#include <cstddef>
#include <vector>

namespace nexo {

/// Numbers at a fixed distance in memory, for example a row or a column of a matrix.
struct GridView {
    const double* values;
    std::ptrdiff_t stride;
    int count;

    double operator[](int i) const { return values[i * stride]; }
    double First() const { return values[0]; }
    double Last() const { return values[(count - 1) * stride]; }
};

enum class GridOrder { kNone, kAscending, kDescending };

/// Where a value stands in a grid.
struct GridPlace {
    GridOrder order;  // kNone: the grid is not strictly monotonic
    int position;     // the first number that is not before the value, at most the last one; NaN stands at 0
};

/// Checks that every number differs from the one before in the same direction and finds the place of `v`,
/// both in one pass. Fewer than two numbers and NaN among them give kNone.
[[nodiscard]] GridPlace ScanGrid(const GridView& grid, double v);

/// The ends of a grid in numerical order, for holding values inside.
struct GridRange {
    double low = 0.0;
    double high = 0.0;

    GridRange() = default;
    GridRange(const GridView& grid, GridOrder order)
        : low(order == GridOrder::kAscending ? grid.First() : grid.Last()),
          high(order == GridOrder::kAscending ? grid.Last() : grid.First()) {}

    /// The value itself or the end it lies beyond; NaN stays NaN.
    double Clamp(double v) const { return v < low ? low : v > high ? high : v; }
};

/// Answers the searches in one grid in O(1) for evenly spread numbers, in O(log n) for any.
///
/// The range is cut into as many buckets as there are numbers. Each bucket knows where its numbers begin, and
/// the last steps are a walk. The grid itself stays with its owner and must not change.
class GridIndex {
public:
    /// Prepares searching in a grid that ScanGrid found to have this order. O(count).
    void Build(const GridView& grid, GridOrder order);

    [[nodiscard]] GridOrder Order() const { return m_order; }
    [[nodiscard]] const GridRange& Range() const { return m_range; }

    /// The position that ScanGrid finds for `v`. `values` and `Stride` are those of the grid.
    template <int Stride>
    [[nodiscard]] int Position(const double* values, double v) const {
        // NaN becomes an end, too.
        const double inside = std::min(v > m_range.low ? v : m_range.low, m_range.high);
        return m_order == GridOrder::kAscending ? Search<Stride, true>(values, inside)
                                                : Search<Stride, false>(values, inside);
    }

private:
    template <int Stride, bool Ascending>
    int Search(const double* values, double v) const;
    // Rises along the grid, rounding included: a number of a lower bucket is before one of a higher.
    std::ptrdiff_t Bucket(double v) const {
        return static_cast<std::ptrdiff_t>((v - m_first) * m_bucketsPerUnit);
    }

    GridOrder m_order = GridOrder::kNone;
    int m_count = 0;
    GridRange m_range;
    double m_first = 0.0;
    double m_bucketsPerUnit = 0.0;
    // Per bucket the number of grid values in lower ones, and one more entry. Empty for a grid whose range is
    // no ordinary number; it is searched as a whole.
    std::vector<int> m_starts;
};

template <int Stride, bool Ascending>
int GridIndex::Search(const double* values, double v) const {
    constexpr int kLongWalk = 8;
    const auto before = [values, v](int i) {
        const double number = values[std::ptrdiff_t{i} * Stride];
        return Ascending ? number < v : number > v;
    };
    int i = 0;
    int end = m_count;
    if (!m_starts.empty()) {
        const int* start = m_starts.data() + Bucket(v);
        i = start[0];
        end = start[1];
    }
    while (end - i > kLongWalk) {
        const int middle = i + (end - i) / 2;
        if (before(middle))
            i = middle + 1;
        else
            end = middle;
    }
    i += before(i);  // taken half of the time, so without a branch
    while (before(i)) ++i;
    return i;
}

}  // namespace nexo

#endif
