#ifndef NEXO_GEOM_LINEARINTERPOLATION_H
#define NEXO_GEOM_LINEARINTERPOLATION_H

// A tabulated characteristic y(x). A surface z(x, y) is a CLinearInterpolation2D
// (nexo/geom/LinearInterpolation2D.h).

#include <vector>

#include "nexo/base/Export.h"
#include "nexo/geom/GridIndex.h"
#include "nexo/geom/Tolerance.h"

/// A piecewise linear curve through (x, y) pairs, empty at first.
///
/// The pairs stay in the order they were added. To be evaluated, x must rise or fall strictly along them; the
/// first GetY() after a change checks that. Copying copies the pairs. For one thread at a time: GetY()
/// remembers the outcome of the check.
class NEXO_API CLinearInterpolation {
public:
    CLinearInterpolation() = default;
    CLinearInterpolation(const CLinearInterpolation& other) : m_pairs(other.m_pairs) {}
    /// Copies `*other`; null gives an empty table.
    explicit CLinearInterpolation(const CLinearInterpolation* other);
    CLinearInterpolation& operator=(const CLinearInterpolation& other);
    ~CLinearInterpolation() = default;

    /// Appends a pair.
    void Add(double x, double y);
    /// Removes all pairs.
    void reset();

    /// Interpolates linearly at `x`.
    ///
    /// Outside the pairs the end values hold, or with `bExtrapolate` the first and last segment go on.
    /// Returns the largest double for a table with fewer than two pairs or whose x do not rise or fall
    /// strictly; but a single pair gives its y when `bExtrapolate` is false. NaN gives NaN. O(1) for evenly
    /// spread x, O(log n) for any; O(n) after a change.
    ///
    /// Pairs (0, 0), (10, 100): GetY(5, false) == 50, GetY(20, false) == 100, GetY(20, true) == 200
    [[nodiscard]] double GetY(double x, bool bExtrapolate);

    /// One number of pair `i`; an index outside the table throws std::invalid_argument.
    [[nodiscard]] double GetAtXArray(int i) const { return m_pairs[CheckedIndex(i)].x; }
    [[nodiscard]] double GetAtYArray(int i) const { return m_pairs[CheckedIndex(i)].y; }
    /// Sets one number of pair `i`; any index from the size on appends a pair whose other number is 0. A
    /// negative index throws std::invalid_argument.
    void SetAtXArray(int i, double v);
    void SetAtYArray(int i, double v);

    /// A number of the first or last pair, 0.0 in an empty table.
    [[nodiscard]] double firstX() const { return isEmpty() ? 0.0 : m_pairs.front().x; }
    [[nodiscard]] double firstY() const { return isEmpty() ? 0.0 : m_pairs.front().y; }
    [[nodiscard]] double lastX() const { return isEmpty() ? 0.0 : m_pairs.back().x; }
    [[nodiscard]] double lastY() const { return isEmpty() ? 0.0 : m_pairs.back().y; }
    [[nodiscard]] int getSize() const { return static_cast<int>(m_pairs.size()); }
    [[nodiscard]] bool isEmpty() const { return m_pairs.empty(); }

    /// Swaps x and y in every pair: y(x) becomes x(y).
    void changeXandY();

    /// Sorts by rising x, then removes each pair whose x is less than `tolerance` away from the next one's;
    /// of a run of such pairs the last stays, of equal x the one added last. Pairs whose x is NaN come last.
    ///
    /// A check that was passed before still counts; callers rely on it. So a table that was evaluated while
    /// its x fell goes on being searched as a falling one until it changes (through SetAtXArray, for
    /// instance).
    void sort(double tolerance);

private:
    struct Pair {
        double x;
        double y;
    };
    static constexpr int kXStride = sizeof(Pair) / sizeof(double);
    // kPassedFalling: passed while x fell, then sorted, so that x rises now.
    enum class Check { kOpen, kPassed, kPassedFalling, kFailed };

    double GetYUnchecked(double x, bool bExtrapolate);
    double GetYSearchedAsFalling(double x, bool bExtrapolate) const;
    double Interpolate(double x, int upper) const;
    void RunCheck();
    void RemoveClose(double tolerance);
    std::size_t CheckedIndex(int i) const;
    const double* XValues() const { return reinterpret_cast<const double*>(m_pairs.data()); }
    nexo::GridView XGrid() const { return {XValues(), kXStride, getSize()}; }

    std::vector<Pair> m_pairs;
    Check m_check = Check::kOpen;
    nexo::GridIndex m_index;  // of the x; valid while m_check is kPassed
};

#endif
