#ifndef NEXO_GEOM_LINE3D_H
#define NEXO_GEOM_LINE3D_H

// An infinite line in space.

#include "nexo/geom/Point3d.h"

/// A direction, kept as given (not normalised), and an origin; at first the X axis. A plain value.
class moxBaseLine3d {
public:
    constexpr moxBaseLine3d() = default;
    constexpr moxBaseLine3d(const moxBasePoint3d& origin, const moxBaseVector3d& dir)
        : m_dir(dir), m_origin(origin) {}
    /// The line that starts at `p1` and reaches `p2` at t = 1.
    constexpr moxBaseLine3d(const moxBasePoint3d& p1, const moxBasePoint3d& p2)
        : m_dir(p2 - p1), m_origin(p1) {}

    constexpr void setTo(const moxBasePoint3d& origin, const moxBaseVector3d& dir) {
        *this = moxBaseLine3d(origin, dir);
    }
    constexpr void setOrigin(const moxBasePoint3d& origin) { m_origin = origin; }
    constexpr void setDir(const moxBaseVector3d& dir) { m_dir = dir; }
    [[nodiscard]] constexpr const moxBasePoint3d& getOrigin() const { return m_origin; }
    [[nodiscard]] constexpr const moxBaseVector3d& getDir() const { return m_dir; }

    /// origin + t * direction.
    [[nodiscard]] constexpr moxBasePoint3d getPointOnLine(double t) const { return m_origin + m_dir * t; }

private:
    moxBaseVector3d m_dir{1.0, 0.0, 0.0};
    moxBasePoint3d m_origin;
};

#endif
