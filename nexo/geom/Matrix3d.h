#ifndef NEXO_GEOM_MATRIX3D_H
#define NEXO_GEOM_MATRIX3D_H

// A linear map of space: products, inverse, linear equations, rotation.

#include "nexo/base/Export.h"
#include "nexo/geom/Vector3d.h"

/// Nine doubles, row by row, the identity at first; a plain value, 72 bytes.
///
/// Acts on column vectors (M * v). Singular matrices are not guarded against: their inverse and solutions are
/// infinities or NaN.
class moxBaseMatrix3d {
public:
    constexpr moxBaseMatrix3d() = default;
    constexpr moxBaseMatrix3d(double m00, double m01, double m02, double m10, double m11, double m12,
                              double m20, double m21, double m22)
        : m_rows{{m00, m01, m02}, {m10, m11, m12}, {m20, m21, m22}} {}
    constexpr void setToIdentity() { *this = moxBaseMatrix3d(); }

    /// The three doubles of a row; neither index is checked.
    [[nodiscard]] constexpr double* operator[](unsigned row) { return m_rows[row]; }
    [[nodiscard]] constexpr const double* operator[](unsigned row) const { return m_rows[row]; }

    [[nodiscard]] constexpr moxBaseMatrix3d operator*(const moxBaseMatrix3d& b) const;
    [[nodiscard]] constexpr moxBaseVector3d operator*(const moxBaseVector3d& v) const;
    /// this = this * b, in this order.
    constexpr moxBaseMatrix3d& operator*=(const moxBaseMatrix3d& b) { return *this = *this * b; }

    [[nodiscard]] constexpr double getDeterminant() const;
    /// Adjugate times 1 / determinant; not finite when the determinant is 0.
    constexpr moxBaseMatrix3d& invert() { return *this = getInverse(); }
    [[nodiscard]] constexpr moxBaseMatrix3d getInverse() const;
    constexpr moxBaseMatrix3d& transpose() { return *this = getTransposed(); }
    [[nodiscard]] constexpr moxBaseMatrix3d getTransposed() const;

    /// The x of this * x = b by Cramer's rule; not finite when the determinant is 0.
    [[nodiscard]] NEXO_API moxBaseVector3d solveLGS(const moxBaseVector3d& b) const;

    /// A rotation by `angle` radians about `axis`, which must have length 1: it is used as given.
    ///
    /// M * v turns clockwise when looking against the axis, opposite to moxBaseVector3d::rotate; callers rely
    /// on it. About (0, 0, 1) by pi/2, (1, 0, 0) becomes (0, -1, 0).
    [[nodiscard]] NEXO_API static moxBaseMatrix3d getRotationMatrix(double angle,
                                                                    const moxBaseVector3d& axis);

private:
    constexpr double productEntry(const moxBaseMatrix3d& b, int i, int j) const;

    double m_rows[3][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
};

constexpr double moxBaseMatrix3d::productEntry(const moxBaseMatrix3d& b, int i, int j) const {
    return m_rows[i][0] * b.m_rows[0][j] + m_rows[i][1] * b.m_rows[1][j] + m_rows[i][2] * b.m_rows[2][j];
}

constexpr moxBaseMatrix3d moxBaseMatrix3d::operator*(const moxBaseMatrix3d& b) const {
    return {productEntry(b, 0, 0), productEntry(b, 0, 1), productEntry(b, 0, 2),
            productEntry(b, 1, 0), productEntry(b, 1, 1), productEntry(b, 1, 2),
            productEntry(b, 2, 0), productEntry(b, 2, 1), productEntry(b, 2, 2)};
}

constexpr moxBaseVector3d moxBaseMatrix3d::operator*(const moxBaseVector3d& v) const {
    return {m_rows[0][0] * v.getX() + m_rows[0][1] * v.getY() + m_rows[0][2] * v.getZ(),
            m_rows[1][0] * v.getX() + m_rows[1][1] * v.getY() + m_rows[1][2] * v.getZ(),
            m_rows[2][0] * v.getX() + m_rows[2][1] * v.getY() + m_rows[2][2] * v.getZ()};
}

constexpr double moxBaseMatrix3d::getDeterminant() const {
    return m_rows[0][0] * m_rows[1][1] * m_rows[2][2] + m_rows[0][1] * m_rows[1][2] * m_rows[2][0] +
           m_rows[0][2] * m_rows[1][0] * m_rows[2][1] - m_rows[0][2] * m_rows[1][1] * m_rows[2][0] -
           m_rows[1][0] * m_rows[0][1] * m_rows[2][2] - m_rows[0][0] * m_rows[1][2] * m_rows[2][1];
}

constexpr moxBaseMatrix3d moxBaseMatrix3d::getInverse() const {
    const double r = 1.0 / getDeterminant();
    return {(m_rows[1][1] * m_rows[2][2] - m_rows[1][2] * m_rows[2][1]) * r,
            (m_rows[0][2] * m_rows[2][1] - m_rows[0][1] * m_rows[2][2]) * r,
            (m_rows[0][1] * m_rows[1][2] - m_rows[0][2] * m_rows[1][1]) * r,
            (m_rows[1][2] * m_rows[2][0] - m_rows[1][0] * m_rows[2][2]) * r,
            (m_rows[0][0] * m_rows[2][2] - m_rows[0][2] * m_rows[2][0]) * r,
            (m_rows[0][2] * m_rows[1][0] - m_rows[0][0] * m_rows[1][2]) * r,
            (m_rows[1][0] * m_rows[2][1] - m_rows[1][1] * m_rows[2][0]) * r,
            (m_rows[0][1] * m_rows[2][0] - m_rows[0][0] * m_rows[2][1]) * r,
            (m_rows[0][0] * m_rows[1][1] - m_rows[0][1] * m_rows[1][0]) * r};
}

constexpr moxBaseMatrix3d moxBaseMatrix3d::getTransposed() const {
    return {m_rows[0][0], m_rows[1][0], m_rows[2][0], m_rows[0][1], m_rows[1][1],
            m_rows[2][1], m_rows[0][2], m_rows[1][2], m_rows[2][2]};
}

#endif
