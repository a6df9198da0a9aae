#ifndef NEXO_GEOM_VECTOR3D_H
#define NEXO_GEOM_VECTOR3D_H

// A direction or displacement in space. Positions are moxBasePoint3d (nexo/geom/Point3d.h), which hold
// the same three numbers but allow only what makes sense for a position.

#include <algorithm>
#include <cmath>

#include "nexo/base/Export.h"
#include "nexo/geom/Tolerance.h"

/// Three doubles (x, y, z), (0, 0, 0) at first; a plain value, 24 bytes.
///
/// No operation fails: zero lengths, NaN and infinities give what the arithmetic gives. Binary functions also
/// exist as static two-argument forms. Tolerances: nexo/geom/Tolerance.h.
class moxBaseVector3d {
public:
    constexpr moxBaseVector3d() = default;
    constexpr moxBaseVector3d(double x, double y, double z) : m_xyz{x, y, z} {}

    constexpr moxBaseVector3d& setTo(double x, double y, double z);
    constexpr moxBaseVector3d& setTo(const moxBaseVector3d& v) { return *this = v; }

    [[nodiscard]] constexpr double getX() const { return m_xyz[0]; }
    [[nodiscard]] constexpr double getY() const { return m_xyz[1]; }
    [[nodiscard]] constexpr double getZ() const { return m_xyz[2]; }
    constexpr void setX(double x) { m_xyz[0] = x; }
    constexpr void setY(double y) { m_xyz[1] = y; }
    constexpr void setZ(double z) { m_xyz[2] = z; }

    /// 0 = x, 1 = y, 2 = z; the index is not checked.
    [[nodiscard]] constexpr double operator[](unsigned i) const { return m_xyz[i]; }
    [[nodiscard]] constexpr double& operator[](unsigned i) { return m_xyz[i]; }

    [[nodiscard]] constexpr moxBaseVector3d operator+(const moxBaseVector3d& v) const;
    [[nodiscard]] constexpr moxBaseVector3d operator-(const moxBaseVector3d& v) const;
    [[nodiscard]] constexpr moxBaseVector3d operator*(double factor) const;
    [[nodiscard]] constexpr moxBaseVector3d operator-() const { return {-m_xyz[0], -m_xyz[1], -m_xyz[2]}; }
    [[nodiscard]] constexpr moxBaseVector3d getNegateVec() const { return -*this; }
    constexpr moxBaseVector3d& operator+=(const moxBaseVector3d& v) { return *this = *this + v; }
    constexpr moxBaseVector3d& operator-=(const moxBaseVector3d& v) { return *this = *this - v; }
    constexpr moxBaseVector3d& operator*=(double factor) { return *this = *this * factor; }
    constexpr moxBaseVector3d& operator/=(double divisor);

    [[nodiscard]] double getLength() const { return std::sqrt(getDotProduct(*this)); }
    [[nodiscard]] constexpr double getDotProduct(const moxBaseVector3d& v) const;
    [[nodiscard]] constexpr moxBaseVector3d getCrossProduct(const moxBaseVector3d& v) const;
    /// The angle between the two directions in radians, 0 to pi; NaN when one of them has no length.
    [[nodiscard]] NEXO_API double getAngleTo(const moxBaseVector3d& v) const;
    [[nodiscard]] double getDistanceTo(const moxBaseVector3d& v) const { return (v - *this).getLength(); }
    /// The signed maximum of the components, not the one of greatest magnitude.
    [[nodiscard]] constexpr double getLargestComponent() const;

    [[nodiscard]] bool isZero() const;
    [[nodiscard]] bool isEqualTo(const moxBaseVector3d& v) const { return (*this - v).isZero(); }
    [[nodiscard]] bool isParallelTo(const moxBaseVector3d& v) const { return getCrossProduct(v).isZero(); }
    [[nodiscard]] bool isPerpendicularTo(const moxBaseVector3d& v) const;
    /// Same direction and same sense: opposite vectors are parallel but not codirectional.
    [[nodiscard]] bool isCodirectionalTo(const moxBaseVector3d& v) const;

    [[nodiscard]] static constexpr double getDotProduct(const moxBaseVector3d& a, const moxBaseVector3d& b);
    [[nodiscard]] static constexpr moxBaseVector3d getCrossProduct(const moxBaseVector3d& a,
                                                                   const moxBaseVector3d& b);
    [[nodiscard]] static double getAngleTo(const moxBaseVector3d& a, const moxBaseVector3d& b);
    [[nodiscard]] static double getDistanceTo(const moxBaseVector3d& a, const moxBaseVector3d& b);
    [[nodiscard]] static bool isParallelTo(const moxBaseVector3d& a, const moxBaseVector3d& b);
    [[nodiscard]] static bool isPerpendicularTo(const moxBaseVector3d& a, const moxBaseVector3d& b);

    /// Gives the vector the length 1; a zero vector and one that has that length already stay as they are.
    moxBaseVector3d& normalize();
    [[nodiscard]] moxBaseVector3d getNormal() const { return moxBaseVector3d(*this).normalize(); }

    /// Some vector at right angles to this one, not normalised: this x Z, or this x Y when this runs along Z.
    ///
    /// moxBaseVector3d(0, 0, 5).getPerpVector() is (-5, 0, 0)
    [[nodiscard]] NEXO_API moxBaseVector3d getPerpVector() const;

    /// Turns the vector about `axis` (of any length) by `angle` radians, counter-clockwise when looking
    /// against the axis. An angle of exactly 0.0 changes nothing, whatever the axis.
    ///
    /// moxBaseMatrix3d::getRotationMatrix turns the other way; see there.
    NEXO_API moxBaseVector3d& rotate(const moxBaseVector3d& axis, double angle);
    [[nodiscard]] static moxBaseVector3d getRotated(const moxBaseVector3d& v, const moxBaseVector3d& axis,
                                                    double angle) {
        return moxBaseVector3d(v).rotate(axis, angle);
    }

private:
    double m_xyz[3] = {0.0, 0.0, 0.0};
};

constexpr moxBaseVector3d& moxBaseVector3d::setTo(double x, double y, double z) {
    return *this = moxBaseVector3d(x, y, z);
}

constexpr moxBaseVector3d moxBaseVector3d::operator+(const moxBaseVector3d& v) const {
    return {m_xyz[0] + v.m_xyz[0], m_xyz[1] + v.m_xyz[1], m_xyz[2] + v.m_xyz[2]};
}

constexpr moxBaseVector3d moxBaseVector3d::operator-(const moxBaseVector3d& v) const {
    return {m_xyz[0] - v.m_xyz[0], m_xyz[1] - v.m_xyz[1], m_xyz[2] - v.m_xyz[2]};
}

constexpr moxBaseVector3d moxBaseVector3d::operator*(double factor) const {
    return {m_xyz[0] * factor, m_xyz[1] * factor, m_xyz[2] * factor};
}

constexpr moxBaseVector3d& moxBaseVector3d::operator/=(double divisor) {
    return setTo(m_xyz[0] / divisor, m_xyz[1] / divisor, m_xyz[2] / divisor);
}

constexpr double moxBaseVector3d::getDotProduct(const moxBaseVector3d& v) const {
    return m_xyz[0] * v.m_xyz[0] + m_xyz[1] * v.m_xyz[1] + m_xyz[2] * v.m_xyz[2];
}

constexpr moxBaseVector3d moxBaseVector3d::getCrossProduct(const moxBaseVector3d& v) const {
    return {m_xyz[1] * v.m_xyz[2] - m_xyz[2] * v.m_xyz[1], m_xyz[2] * v.m_xyz[0] - m_xyz[0] * v.m_xyz[2],
            m_xyz[0] * v.m_xyz[1] - m_xyz[1] * v.m_xyz[0]};
}

constexpr double moxBaseVector3d::getLargestComponent() const {
    return std::max(m_xyz[0], std::max(m_xyz[1], m_xyz[2]));
}

inline bool moxBaseVector3d::isZero() const {
    return std::fabs(m_xyz[0]) < nexo::kTolerance && std::fabs(m_xyz[1]) < nexo::kTolerance &&
           std::fabs(m_xyz[2]) < nexo::kTolerance;
}

inline bool moxBaseVector3d::isPerpendicularTo(const moxBaseVector3d& v) const {
    return std::fabs(getDotProduct(v)) < nexo::kTolerance;
}

inline bool moxBaseVector3d::isCodirectionalTo(const moxBaseVector3d& v) const {
    return (getNormal() - v.getNormal()).getLength() < nexo::kTolerance;
}

inline moxBaseVector3d& moxBaseVector3d::normalize() {
    const double length = getLength();
    if (length <= nexo::kTolerance || std::fabs(1.0 - length) <= nexo::kTolerance) return *this;
    return *this *= 1.0 / length;
}

constexpr double moxBaseVector3d::getDotProduct(const moxBaseVector3d& a, const moxBaseVector3d& b) {
    return a.getDotProduct(b);
}

constexpr moxBaseVector3d moxBaseVector3d::getCrossProduct(const moxBaseVector3d& a,
                                                           const moxBaseVector3d& b) {
    return a.getCrossProduct(b);
}

inline double moxBaseVector3d::getAngleTo(const moxBaseVector3d& a, const moxBaseVector3d& b) {
    return a.getAngleTo(b);
}

inline double moxBaseVector3d::getDistanceTo(const moxBaseVector3d& a, const moxBaseVector3d& b) {
    return a.getDistanceTo(b);
}

inline bool moxBaseVector3d::isParallelTo(const moxBaseVector3d& a, const moxBaseVector3d& b) {
    return a.isParallelTo(b);
}

inline bool moxBaseVector3d::isPerpendicularTo(const moxBaseVector3d& a, const moxBaseVector3d& b) {
    return a.isPerpendicularTo(b);
}

#endif
