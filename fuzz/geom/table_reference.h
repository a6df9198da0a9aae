#ifndef NEXO_FUZZ_GEOM_TABLE_REFERENCE_H
#define NEXO_FUZZ_GEOM_TABLE_REFERENCE_H

// The interpolation tables as they are described, step by step, without any shortcut.

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace reference {

inline constexpr double kNoValue = 1.7976931348623157e308;

inline bool IsStrict(const std::vector<double>& x, bool ascending) {
    for (std::size_t i = 1; i < x.size(); ++i)
        if (!(ascending ? x[i] > x[i - 1] : x[i] < x[i - 1])) return false;
    return x.size() >= 2;
}

inline double Clamped(const std::vector<double>& x, bool ascending, double v) {
    if (ascending ? v < x.front() : v > x.front()) v = x.front();
    if (ascending ? v > x.back() : v < x.back()) v = x.back();
    return v;
}

inline std::size_t UpperIndex(const std::vector<double>& x, bool ascending, double v) {
    for (std::size_t i = 0; i < x.size(); ++i)
        if (ascending ? x[i] >= v : v >= x[i]) return i > 0 ? i : 1;
    return 1;
}

struct Segment {
    double value;
    std::size_t upper;
};

inline Segment Find(const std::vector<double>& x, bool ascending, double v, bool extrapolate) {
    const double clamped = Clamped(x, ascending, v);
    if (!extrapolate) v = clamped;
    const bool inside = ascending ? v >= x.front() && v <= x.back() : v <= x.front() && v >= x.back();
    return {v, UpperIndex(x, ascending, inside ? v : clamped)};
}

class Curve {
public:
    std::vector<std::pair<double, double>> pairs;
    bool checked = false;

    double GetY(double x, bool extrapolate) {
        if (pairs.size() == 1 && !extrapolate) return pairs[0].second;
        std::vector<double> xs;
        for (const auto& pair : pairs) xs.push_back(pair.first);
        if (!checked || pairs.size() < 2) {
            if (pairs.size() < 2) return kNoValue;
            m_ascending = xs[1] > xs[0];
            checked = IsStrict(xs, m_ascending);
            if (!checked) return kNoValue;
        }
        const auto [v, upper] = Find(xs, m_ascending, x, extrapolate);
        const auto& [xl, yl] = pairs[upper - 1];
        const auto& [xu, yu] = pairs[upper];
        const double f = (v - xl) / (xu - xl);
        return yu * f + (1.0 - f) * yl;
    }

    // NaN, which has no place in the order, goes to the end.
    void Sort(double tolerance) {
        for (std::size_t i = 1; i < pairs.size(); ++i)
            for (std::size_t j = i; j > 0 && Precedes(pairs[j].first, pairs[j - 1].first); --j)
                std::swap(pairs[j], pairs[j - 1]);
        std::size_t i = 0;
        while (i + 1 < pairs.size()) {
            if (std::fabs(pairs[i].first - pairs[i + 1].first) < tolerance)
                pairs.erase(pairs.begin() + static_cast<std::ptrdiff_t>(i));
            else
                ++i;
        }
    }

private:
    static bool Precedes(double a, double b) { return a < b || (std::isnan(b) && !std::isnan(a)); }

    bool m_ascending = false;
};

// `cells` row by row: the x in column 0, the `columns` y in row 0.
inline double GetZ(const std::vector<double>& cells, std::size_t columns, double x, double y,
                   bool extrapolate) {
    const auto cell = [&](std::size_t row, std::size_t column) {
        return cells[row * (columns + 1) + column];
    };
    std::vector<double> xs, ys;
    for (std::size_t i = 1; i * (columns + 1) < cells.size(); ++i) xs.push_back(cell(i, 0));
    for (std::size_t j = 1; j <= columns; ++j) ys.push_back(cell(0, j));
    if (xs.size() < 2 || ys.size() < 2) return kNoValue;
    const bool xUp = xs[1] > xs[0];
    const bool yUp = ys[1] > ys[0];
    if (!IsStrict(xs, xUp) || !IsStrict(ys, yUp)) return kNoValue;
    const auto [vx, ru] = Find(xs, xUp, x, extrapolate);
    const auto [vy, cu] = Find(ys, yUp, y, extrapolate);
    const double xi = 2.0 * (vx - xs[ru - 1]) / (xs[ru] - xs[ru - 1]) - 1.0;
    const double eta = 2.0 * (vy - ys[cu - 1]) / (ys[cu] - ys[cu - 1]) - 1.0;
    const double a = (1.0 - xi) * 0.25;
    const double b = (1.0 + xi) * 0.25;
    const double c = 1.0 - eta;
    const double d = 1.0 + eta;
    return cell(ru + 1, cu) * b * c + cell(ru, cu) * a * c + cell(ru + 1, cu + 1) * b * d +
           cell(ru, cu + 1) * a * d;
}

}  // namespace reference

#endif
