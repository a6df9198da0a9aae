#ifndef NEXO_GEOM_MATRIX4D_H
#define NEXO_GEOM_MATRIX4D_H

// The placement of a building element: rotation and scale in the upper left 3x3 block, translation in
// column 3. There is no inverse.

#include "nexo/base/Export.h"
#include "nexo/geom/Matrix3d.h"

/// Sixteen doubles, row by row, the identity at first; a plain value, 128 bytes.
///
/// Acts on column vectors. Row 3 takes part in products but is ignored when a vector is transformed.
class moxBaseMatrix4d {
public:
    constexpr moxBaseMatrix4d() = default;
    constexpr moxBaseMatrix4d(double m00, double m01, double m02, double m03, double m10, double m11,
                              double m12, double m13, double m20, double m21, double m22, double m23,
                              double m30, double m31, double m32, double m33)
        : m_rows{{m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}} {}
    constexpr void setToIdentity() { *this = moxBaseMatrix4d(); }

    /// The four doubles of a row; neither index is checked.
    [[nodiscard]] constexpr double* operator[](unsigned row) { return m_rows[row]; }
    [[nodiscard]] constexpr const double* operator[](unsigned row) const { return m_rows[row]; }

    [[nodiscard]] moxBaseMatrix4d operator*(const moxBaseMatrix4d& b) const;
    /// this = this * b, in this order.
    moxBaseMatrix4d& operator*=(const moxBaseMatrix4d& b) { return *this = *this * b; }

    [[nodiscard]] NEXO_API double getDeterminant() const;
    constexpr moxBaseMatrix4d& transpose() { return *this = getTransposed(); }
    [[nodiscard]] constexpr moxBaseMatrix4d getTransposed() const;

    /// Replaces the upper left 3x3 block and nothing else.
    constexpr void graphicSetRotation(moxBaseMatrix3d rotation);

    constexpr void graphicSetTranslation(double tx, double ty, double tz);
    constexpr void graphicSetTranslation(const moxBaseVector3d& t);
    /// Adds to the translation column as it is: the rotation block does not act on what is added.
    constexpr void graphicAddTranslation(double tx, double ty, double tz);
    constexpr void graphicAddTranslation(const moxBaseVector3d& t);

    /// this = this * diag(sx, sy, sz, 1): the scale acts before the rotation.
    constexpr void graphicAddScale(double sx, double sy, double sz);
    constexpr void graphicAddScale(const moxBaseVector3d& s);
    constexpr void graphicAddScale(double s) { graphicAddScale(s, s, s); }

    /// v = block * v + translation.
    constexpr void graphicApplyTransformToVector(moxBaseVector3d& v) const;

private:
    struct Uninitialized {};
    // Leaves the elements open for a product that is about to set them all.
    explicit moxBaseMatrix4d(Uninitialized) {}  // NOLINT(cppcoreguidelines-pro-type-member-init)
    NEXO_API void setToProduct(const moxBaseMatrix4d& a, const moxBaseMatrix4d& b);
    constexpr void graphicMultWithRotation(moxBaseVector3d& v) const;

    double m_rows[4][4] = {
        {1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};
};

inline moxBaseMatrix4d moxBaseMatrix4d::operator*(const moxBaseMatrix4d& b) const {
    moxBaseMatrix4d product{Uninitialized()};
    product.setToProduct(*this, b);
    return product;
}

constexpr moxBaseMatrix4d moxBaseMatrix4d::getTransposed() const {
    return {m_rows[0][0], m_rows[1][0], m_rows[2][0], m_rows[3][0], m_rows[0][1], m_rows[1][1],
            m_rows[2][1], m_rows[3][1], m_rows[0][2], m_rows[1][2], m_rows[2][2], m_rows[3][2],
            m_rows[0][3], m_rows[1][3], m_rows[2][3], m_rows[3][3]};
}

constexpr void moxBaseMatrix4d::graphicSetRotation(moxBaseMatrix3d rotation) {
    for (unsigned i = 0; i < 3; ++i)
        for (unsigned j = 0; j < 3; ++j) m_rows[i][j] = rotation[i][j];
}

constexpr void moxBaseMatrix4d::graphicSetTranslation(double tx, double ty, double tz) {
    m_rows[0][3] = tx;
    m_rows[1][3] = ty;
    m_rows[2][3] = tz;
}

constexpr void moxBaseMatrix4d::graphicSetTranslation(const moxBaseVector3d& t) {
    graphicSetTranslation(t.getX(), t.getY(), t.getZ());
}

constexpr void moxBaseMatrix4d::graphicAddTranslation(double tx, double ty, double tz) {
    m_rows[0][3] += tx;
    m_rows[1][3] += ty;
    m_rows[2][3] += tz;
}

constexpr void moxBaseMatrix4d::graphicAddTranslation(const moxBaseVector3d& t) {
    graphicAddTranslation(t.getX(), t.getY(), t.getZ());
}

constexpr void moxBaseMatrix4d::graphicAddScale(double sx, double sy, double sz) {
    for (double(&row)[4] : m_rows) {
        row[0] *= sx;
        row[1] *= sy;
        row[2] *= sz;
    }
}

constexpr void moxBaseMatrix4d::graphicAddScale(const moxBaseVector3d& s) {
    graphicAddScale(s.getX(), s.getY(), s.getZ());
}

constexpr void moxBaseMatrix4d::graphicMultWithRotation(moxBaseVector3d& v) const {
    v.setTo(m_rows[0][0] * v.getX() + m_rows[0][1] * v.getY() + m_rows[0][2] * v.getZ(),
            m_rows[1][0] * v.getX() + m_rows[1][1] * v.getY() + m_rows[1][2] * v.getZ(),
            m_rows[2][0] * v.getX() + m_rows[2][1] * v.getY() + m_rows[2][2] * v.getZ());
}

constexpr void moxBaseMatrix4d::graphicApplyTransformToVector(moxBaseVector3d& v) const {
    graphicMultWithRotation(v);
    v += moxBaseVector3d(m_rows[0][3], m_rows[1][3], m_rows[2][3]);
}

#endif
