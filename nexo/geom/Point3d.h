#ifndef NEXO_GEOM_POINT3D_H
#define NEXO_GEOM_POINT3D_H

// A position in space, and the reversal of a list of positions.

#include "nexo/base/Export.h"
#include "nexo/geom/Vector3d.h"

/// Three doubles (x, y, z), the origin at first; a plain value, 24 bytes.
///
/// The difference of two points is a vector, a point plus a vector is a point. No operation fails.
class moxBasePoint3d {
public:
    constexpr moxBasePoint3d() = default;
    constexpr moxBasePoint3d(double x, double y, double z) : m_v(x, y, z) {}
    constexpr moxBasePoint3d(const moxBaseVector3d& fromOrigin) : m_v(fromOrigin) {}

    constexpr moxBasePoint3d& setTo(double x, double y, double z) { return *this = moxBasePoint3d(x, y, z); }
    constexpr moxBasePoint3d& setTo(const moxBasePoint3d& p) { return *this = p; }
    constexpr moxBasePoint3d& setTo(const moxBaseVector3d& fromOrigin) { return *this = fromOrigin; }

    [[nodiscard]] constexpr double getX() const { return m_v.getX(); }
    [[nodiscard]] constexpr double getY() const { return m_v.getY(); }
    [[nodiscard]] constexpr double getZ() const { return m_v.getZ(); }
    constexpr void setX(double x) { m_v.setX(x); }
    constexpr void setY(double y) { m_v.setY(y); }
    constexpr void setZ(double z) { m_v.setZ(z); }

    /// 0 = x, 1 = y, 2 = z; the index is not checked.
    [[nodiscard]] constexpr double operator[](unsigned i) const { return m_v[i]; }
    [[nodiscard]] constexpr double& operator[](unsigned i) { return m_v[i]; }

    /// The same three numbers as a vector from the origin; a view, valid as long as the point.
    [[nodiscard]] constexpr const moxBaseVector3d& asVector() const { return m_v; }
    [[nodiscard]] constexpr moxBaseVector3d& asVector() { return m_v; }

    [[nodiscard]] constexpr moxBasePoint3d operator+(const moxBaseVector3d& v) const { return m_v + v; }
    [[nodiscard]] constexpr moxBasePoint3d operator-(const moxBaseVector3d& v) const { return m_v - v; }
    /// The vector from `p` to this point.
    [[nodiscard]] constexpr moxBaseVector3d operator-(const moxBasePoint3d& p) const { return m_v - p.m_v; }
    [[nodiscard]] constexpr moxBasePoint3d operator*(double factor) const { return m_v * factor; }
    [[nodiscard]] constexpr moxBasePoint3d operator/(double divisor) const;
    [[nodiscard]] constexpr moxBasePoint3d operator-() const { return -m_v; }
    constexpr moxBasePoint3d& operator+=(const moxBaseVector3d& v) { return *this = *this + v; }
    constexpr moxBasePoint3d& operator-=(const moxBaseVector3d& v) { return *this = *this - v; }
    constexpr moxBasePoint3d& operator*=(double factor) { return *this = *this * factor; }
    constexpr moxBasePoint3d& operator/=(double divisor) { return *this = *this / divisor; }

    /// p - this: the way from here to `p`.
    [[nodiscard]] constexpr moxBaseVector3d getVectorTo(const moxBasePoint3d& p) const { return p - *this; }
    [[nodiscard]] double getDistanceTo(const moxBasePoint3d& p) const { return getVectorTo(p).getLength(); }
    [[nodiscard]] static double getDistanceTo(const moxBasePoint3d& a, const moxBasePoint3d& b) {
        return a.getDistanceTo(b);
    }
    /// True when each coordinate differs by less than `tol`.
    [[nodiscard]] bool isEqualTo(const moxBasePoint3d& p, double tol) const;
    /// The signed maximum of the coordinates, not the one of greatest magnitude.
    [[nodiscard]] constexpr double getLargestComponent() const { return m_v.getLargestComponent(); }

private:
    moxBaseVector3d m_v;
};

constexpr moxBasePoint3d moxBasePoint3d::operator/(double divisor) const {
    return {getX() / divisor, getY() / divisor, getZ() / divisor};
}

inline bool moxBasePoint3d::isEqualTo(const moxBasePoint3d& p, double tol) const {
    const moxBaseVector3d d = *this - p;
    return std::fabs(d.getX()) < tol && std::fabs(d.getY()) < tol && std::fabs(d.getZ()) < tol;
}

#endif
