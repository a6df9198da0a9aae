#ifndef NEXO_GEOM_PLANE3D_H
#define NEXO_GEOM_PLANE3D_H

// An infinite plane in space and its intersection with a line.

#include "nexo/base/Export.h"
#include "nexo/geom/Line3d.h"
#include "nexo/geom/Matrix3d.h"

/// An origin and two axes U and V, kept as given (not normalised); at first the XY plane. A plain value.
class moxBasePlane3d {
public:
    constexpr moxBasePlane3d() = default;
    /// Through three points: origin p1, U = p2 - p1, V = p3 - p1.
    constexpr moxBasePlane3d(const moxBasePoint3d& p1, const moxBasePoint3d& p2, const moxBasePoint3d& p3)
        : m_origin(p1), m_u(p2 - p1), m_v(p3 - p1) {}
    /// U = normal x X axis, or normal x Y axis when the normal runs along X; V = normal x U.
    NEXO_API moxBasePlane3d(const moxBasePoint3d& origin, const moxBaseVector3d& normal);
    constexpr moxBasePlane3d(const moxBasePoint3d& origin, const moxBaseVector3d& uAxis,
                             const moxBaseVector3d& vAxis)
        : m_origin(origin), m_u(uAxis), m_v(vAxis) {}

    constexpr void setCoordSystem(const moxBasePoint3d& origin, const moxBaseVector3d& uAxis,
                                  const moxBaseVector3d& vAxis);
    /// Gives the origin and the two axes normalised, unlike getUAxis and getVAxis.
    NEXO_API void getCoordSystem(moxBasePoint3d& origin, moxBaseVector3d& uAxis,
                                 moxBaseVector3d& vAxis) const;

    constexpr void setOrigin(const moxBasePoint3d& origin) { m_origin = origin; }
    constexpr void setUAxis(const moxBaseVector3d& axis) { m_u = axis; }
    constexpr void setVAxis(const moxBaseVector3d& axis) { m_v = axis; }
    [[nodiscard]] constexpr const moxBasePoint3d& getOrigin() const { return m_origin; }
    [[nodiscard]] constexpr const moxBaseVector3d& getUAxis() const { return m_u; }
    [[nodiscard]] constexpr const moxBaseVector3d& getVAxis() const { return m_v; }

    /// U x V, not normalised.
    [[nodiscard]] constexpr moxBaseVector3d getNormal() const { return m_u.getCrossProduct(m_v); }

    /// True when |(direction x V) . U| is below 1e-4.
    [[nodiscard]] NEXO_API bool isParallelTo(const moxBaseLine3d& line) const;

    /// Sets `out` to where the line meets the (unbounded) plane; true on success.
    ///
    /// False, with `out` at (0, 0, 0), when the determinant of (U, V, -direction) is not above 1e-10: the
    /// line is parallel or the axes span no plane.
    constexpr bool getIntersection(const moxBaseLine3d& line, moxBasePoint3d& out) const;

private:
    // The determinant of the matrix with columns U, V and `w`.
    constexpr double determinantWith(const moxBaseVector3d& w) const;

    moxBasePoint3d m_origin;
    moxBaseVector3d m_u{1.0, 0.0, 0.0};
    moxBaseVector3d m_v{0.0, 1.0, 0.0};
};

constexpr void moxBasePlane3d::setCoordSystem(const moxBasePoint3d& origin, const moxBaseVector3d& uAxis,
                                              const moxBaseVector3d& vAxis) {
    *this = moxBasePlane3d(origin, uAxis, vAxis);
}

constexpr double moxBasePlane3d::determinantWith(const moxBaseVector3d& w) const {
    return moxBaseMatrix3d(m_u.getX(), m_v.getX(), w.getX(), m_u.getY(), m_v.getY(), w.getY(), m_u.getZ(),
                           m_v.getZ(), w.getZ())
        .getDeterminant();
}

constexpr bool moxBasePlane3d::getIntersection(const moxBaseLine3d& line, moxBasePoint3d& out) const {
    // Cramer's rule for the t of origin + a U + b V = line origin + t direction.
    const double determinant = determinantWith(-line.getDir());
    if (!(determinant > nexo::kTolerance || determinant < -nexo::kTolerance)) {
        out.setTo(0.0, 0.0, 0.0);
        return false;
    }
    out = line.getPointOnLine(determinantWith(line.getOrigin() - m_origin) / determinant);
    return true;
}

#endif
