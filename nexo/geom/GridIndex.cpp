#include "nexo/geom/GridIndex.h"

#include <cmath>
#include <numeric>

#include "nexo/geom/Lanes.h"

namespace nexo {
namespace {

// What one pass over a grid finds, the last number not counted.
struct Scan {
    bool isStrict = true;
    int before = 0;

    // The pass over single numbers, from number `i` on.
    template <bool Ascending>
    void Continue(const GridView& grid, int i, double v) {
        for (; i + 1 < grid.count; ++i) {
            const double a = grid[i];
            const double b = grid[i + 1];
            isStrict &= Ascending ? a < b : a > b;
            before += Ascending ? a < v : a > v;
        }
    }
};

// Two neighbouring pairs of numbers at a time.
template <bool Ascending>
Scan ScanAnywhere(const GridView& grid, double v) {
    const Two value = {v, v};
    Two strict = Less(Two{0.0, 0.0}, Two{1.0, 1.0});
    TwoBits before = {0, 0};
    int i = 0;
    double next = grid.First();
    for (; i + 2 < grid.count; i += 2) {
        const Two b = {grid[i + 1], grid[i + 2]};
        const Two a = {next, b[0]};
        next = b[1];
        strict = And(strict, Ascending ? Less(a, b) : Less(b, a));
        before -= reinterpret_cast<TwoBits>(Ascending ? Less(a, value) : Less(value, a));
    }
    Scan scan{AnswerBits(strict) == 3, static_cast<int>(before[0] + before[1])};
    scan.Continue<Ascending>(grid, i, v);
    return scan;
}

// Four at a time, of numbers that stand side by side.
template <bool Ascending>
NEXO_GEOM_AVX2 Scan ScanRowAvx2(const GridView& grid, double v) {
    const Four value = NEXO_GEOM_SPREAD(v);
    FourBits strict = {-1, -1, -1, -1};
    FourBits before = {0, 0, 0, 0};
    int i = 0;
    for (; i + 4 < grid.count; i += 4) {
        const Four a = NEXO_GEOM_LOAD(grid.values + i);
        const Four b = NEXO_GEOM_LOAD(grid.values + i + 1);
        strict &= Ascending ? a < b : a > b;
        before -= Ascending ? a < value : a > value;
    }
    Scan scan{(strict[0] & strict[1] & strict[2] & strict[3]) != 0,
              static_cast<int>(before[0] + before[1] + before[2] + before[3])};
    scan.Continue<Ascending>(grid, i, v);
    return scan;
}

template <bool Ascending>
GridPlace ScanGridInOrder(const GridView& grid, double v) {
    const bool isRow = grid.stride == 1 && NEXO_GEOM_HAS_AVX2;
    const Scan scan = isRow ? ScanRowAvx2<Ascending>(grid, v) : ScanAnywhere<Ascending>(grid, v);
    if (!scan.isStrict) return {GridOrder::kNone, 0};
    return {Ascending ? GridOrder::kAscending : GridOrder::kDescending, scan.before};
}

}  // namespace

GridPlace ScanGrid(const GridView& grid, double v) {
    if (grid.count < 2) return {GridOrder::kNone, 0};
    return grid[1] > grid[0] ? ScanGridInOrder<true>(grid, v) : ScanGridInOrder<false>(grid, v);
}

void GridIndex::Build(const GridView& grid, GridOrder order) {
    m_order = order;
    m_count = grid.count;
    m_range = GridRange(grid, order);
    m_first = grid.First();
    m_bucketsPerUnit = m_count / (grid.Last() - m_first);
    m_starts.clear();
    if (m_bucketsPerUnit == 0.0 || !std::isfinite(m_bucketsPerUnit)) return;

    m_starts.resize(static_cast<std::size_t>(Bucket(grid.Last())) + 2);
    for (int i = 0; i < m_count; ++i) ++m_starts[static_cast<std::size_t>(Bucket(grid[i])) + 1];
    std::partial_sum(m_starts.begin(), m_starts.end(), m_starts.begin());
}

}  // namespace nexo
