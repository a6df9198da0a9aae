#ifndef NEXO_FUZZ_GEOM_NUMBERS_H
#define NEXO_FUZZ_GEOM_NUMBERS_H

// Doubles for comparing results bit by bit.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

/// The same bits, or both NaN.
inline bool IsSame(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (a != a && b != b);
}

/// Ordinary numbers mixed with those at which arithmetic turns special.
class NumberSource {
public:
    explicit NumberSource(unsigned seed) : m_engine(seed) {}

    double Ordinary() { return m_distribution(m_engine); }
    double SmallWhole() { return static_cast<double>(m_engine() % 5) - 2.0; }
    bool Chance(unsigned oneIn) { return m_engine() % oneIn == 0; }

    double Any() {
        constexpr double inf = std::numeric_limits<double>::infinity();
        constexpr double special[] = {
            0.0, -0.0,   1e-10, -1e-10, 1.0 + 1e-10, 1e-320, 1e150,
            inf, -1e200, -inf,  1e300,  -1.79e308,   NAN,    1.7976931348623157e308};
        return Chance(2) ? Ordinary() : Chance(2) ? SmallWhole() : special[m_engine() % std::size(special)];
    }

    /// Strictly monotonic numbers, even, crowded or with infinite ends; at times the last one breaks the
    /// order.
    std::vector<double> Grid(std::size_t count) {
        const bool crowded = Chance(3);
        std::vector<double> grid;
        while (grid.size() < count) {
            const double even = Chance(20) ? Any() : Ordinary();
            grid.push_back(crowded ? std::exp(300.0 * Ordinary()) : even);
        }
        std::erase_if(grid, [](double x) { return std::isnan(x); });
        std::sort(grid.begin(), grid.end());
        grid.erase(std::unique(grid.begin(), grid.end()), grid.end());
        if (Chance(2)) std::reverse(grid.begin(), grid.end());
        if (Chance(10)) grid.push_back(Any());
        return grid;
    }

    /// A number of the grid, just above one, or anywhere, by turns.
    double PlaceIn(const std::vector<double>& grid, int turn) {
        const double tabulated = grid[static_cast<std::size_t>(turn) % grid.size()];
        if (turn % 4 == 0) return tabulated;
        if (turn % 4 == 1) return std::nextafter(tabulated, std::numeric_limits<double>::infinity());
        return turn % 4 == 2 ? Any() : 1.1 * Ordinary();
    }

    /// A grid of any z, with `xs` as its first column and `ys` as its first row.
    std::vector<double> Cells(const std::vector<double>& xs, const std::vector<double>& ys) {
        std::vector<double> cells = {std::numeric_limits<double>::quiet_NaN()};
        cells.insert(cells.end(), ys.begin(), ys.end());
        for (double x : xs) {
            cells.push_back(x);
            for (std::size_t j = 0; j < ys.size(); ++j) cells.push_back(Ordinary());
        }
        return cells;
    }

private:
    std::mt19937 m_engine;
    std::uniform_real_distribution<double> m_distribution{-2.0, 2.0};
};

#endif
