#ifndef NEXO_GEOM_POINT2D_H
#define NEXO_GEOM_POINT2D_H

// A position or displacement in the plane. Screen coordinates are moxBasePoint2i (nexo/geom/Rect2i.h).

#include <cmath>

#include "nexo/base/CString.h"
#include "nexo/base/Export.h"
#include "nexo/geom/Tolerance.h"

/// Two doubles (x, y), the origin at first; a plain value, 16 bytes. No operation but toString can fail.
class moxBasePoint2d {
public:
    constexpr moxBasePoint2d() = default;
    constexpr moxBasePoint2d(double x, double y) : m_x(x), m_y(y) {}

    constexpr void setTo(double x, double y) { *this = moxBasePoint2d(x, y); }
    constexpr void setXTo(double x) { m_x = x; }
    constexpr void setYTo(double y) { m_y = y; }
    [[nodiscard]] constexpr double getX() const { return m_x; }
    [[nodiscard]] constexpr double getY() const { return m_y; }

    /// Both coordinates at the largest double.
    constexpr void setToMaximum() { setTo(nexo::kLargestDouble, nexo::kLargestDouble); }
    /// Both coordinates at the smallest positive normal double, not at the most negative value; callers
    /// rely on it.
    constexpr void setToMinimum() { setTo(2.2250738585072014e-308, 2.2250738585072014e-308); }

    /// Equal without tolerance; bIsEqualTo allows each coordinate to differ by less than 1e-10.
    [[nodiscard]] constexpr bool operator==(const moxBasePoint2d& p) const = default;
    [[nodiscard]] bool bIsEqualTo(const moxBasePoint2d& p) const;

    [[nodiscard]] constexpr moxBasePoint2d operator+(const moxBasePoint2d& p) const;
    [[nodiscard]] constexpr moxBasePoint2d operator-(const moxBasePoint2d& p) const;
    [[nodiscard]] constexpr moxBasePoint2d operator*(const double& factor) const;
    constexpr moxBasePoint2d& operator+=(const moxBasePoint2d& p) { return *this = *this + p; }
    constexpr moxBasePoint2d& operator-=(const moxBasePoint2d& p) { return *this = *this - p; }
    constexpr moxBasePoint2d& operator*=(const double& factor) { return *this = *this * factor; }
    /// The same in place, by name.
    constexpr moxBasePoint2d& add(const moxBasePoint2d& p) { return *this += p; }
    constexpr moxBasePoint2d& subtract(const moxBasePoint2d& p) { return *this -= p; }
    constexpr moxBasePoint2d& multiplyWith(double factor) { return *this *= factor; }
    constexpr moxBasePoint2d& divideBy(double divisor) { return *this = {m_x / divisor, m_y / divisor}; }

    [[nodiscard]] constexpr double getDotProduct(const moxBasePoint2d& p) const;
    [[nodiscard]] double getVectorLength() const { return std::sqrt(getDotProduct(*this)); }
    [[nodiscard]] double getDistanceTo(const moxBasePoint2d& p) const {
        return (p - *this).getVectorLength();
    }
    /// A copy of length 1; a zero vector and one that has that length already are copied as they are.
    [[nodiscard]] moxBasePoint2d getNormal() const;

    // Rotations in place about the origin, y pointing up.
    void rotateClockwiseDegrees(double degrees) { rotateClockwiseRadians(toRadians(degrees)); }
    void rotateClockwiseRadians(double radians) { rotateCounterclockwiseRadians(-radians); }
    void rotateCounterclockwiseDegrees(double degrees) { rotateCounterclockwiseRadians(toRadians(degrees)); }
    NEXO_API void rotateCounterclockwiseRadians(double radians);

    /// Both coordinates with six decimals: (1, 2) gives "1.000000 / 2.000000".
    [[nodiscard]] NEXO_API CString toString() const;

private:
    static constexpr double toRadians(double degrees) {
        return (degrees + degrees) * 3.141592653589793 / 360.0;
    }

    double m_x = 0.0;
    double m_y = 0.0;
};

inline bool moxBasePoint2d::bIsEqualTo(const moxBasePoint2d& p) const {
    return std::fabs(m_x - p.m_x) < nexo::kTolerance && std::fabs(m_y - p.m_y) < nexo::kTolerance;
}

constexpr moxBasePoint2d moxBasePoint2d::operator+(const moxBasePoint2d& p) const {
    return {m_x + p.m_x, m_y + p.m_y};
}

constexpr moxBasePoint2d moxBasePoint2d::operator-(const moxBasePoint2d& p) const {
    return {m_x - p.m_x, m_y - p.m_y};
}

constexpr moxBasePoint2d moxBasePoint2d::operator*(const double& factor) const {
    return {m_x * factor, m_y * factor};
}

constexpr double moxBasePoint2d::getDotProduct(const moxBasePoint2d& p) const {
    return m_x * p.m_x + m_y * p.m_y;
}

inline moxBasePoint2d moxBasePoint2d::getNormal() const {
    const double length = getVectorLength();
    if (length <= nexo::kTolerance || std::fabs(1.0 - length) <= nexo::kTolerance) return *this;
    return *this * (1.0 / length);
}

#endif
