#include "nexo/geom/Matrix3d.h"

#include "nexo/geom/Lanes.h"

namespace {

using nexo::Four;

// Cramer's rule with four determinants side by side: of the matrix itself and with column 0, 1 and 2 replaced
// by the right side, each summed in the order of getDeterminant.
NEXO_GEOM_AVX2 moxBaseVector3d SolveAvx2(const double (&m)[3][3], const double (&b)[3]) {
    Four c0[3];
    Four c1[3];
    Four c2[3];
    for (int row = 0; row < 3; ++row) {
        const Four right = NEXO_GEOM_SPREAD(b[row]);
        c0[row] = __builtin_shufflevector(NEXO_GEOM_SPREAD(m[row][0]), right, 0, 5, 2, 3);
        c1[row] = __builtin_shufflevector(NEXO_GEOM_SPREAD(m[row][1]), right, 0, 1, 6, 3);
        c2[row] = __builtin_shufflevector(NEXO_GEOM_SPREAD(m[row][2]), right, 0, 1, 2, 7);
    }
    const Four det = c0[0] * c1[1] * c2[2] + c1[0] * c2[1] * c0[2] + c2[0] * c0[1] * c1[2] -
                     c2[0] * c1[1] * c0[2] - c0[1] * c1[0] * c2[2] - c0[0] * c2[1] * c1[2];
    const Four x = det / det[0];
    return {x[1], x[2], x[3]};
}

moxBaseVector3d SolvePlain(const moxBaseMatrix3d& m, const moxBaseVector3d& b) {
    const double bx = b.getX();
    const double by = b.getY();
    const double bz = b.getZ();
    const double det = m.getDeterminant();
    const moxBaseMatrix3d x(bx, m[0][1], m[0][2], by, m[1][1], m[1][2], bz, m[2][1], m[2][2]);
    const moxBaseMatrix3d y(m[0][0], bx, m[0][2], m[1][0], by, m[1][2], m[2][0], bz, m[2][2]);
    const moxBaseMatrix3d z(m[0][0], m[0][1], bx, m[1][0], m[1][1], by, m[2][0], m[2][1], bz);
    return {x.getDeterminant() / det, y.getDeterminant() / det, z.getDeterminant() / det};
}

}  // namespace

moxBaseVector3d moxBaseMatrix3d::solveLGS(const moxBaseVector3d& b) const {
    if (!NEXO_GEOM_HAS_AVX2) return SolvePlain(*this, b);
    const double right[3] = {b.getX(), b.getY(), b.getZ()};
    return SolveAvx2(m_rows, right);
}

moxBaseMatrix3d moxBaseMatrix3d::getRotationMatrix(double angle, const moxBaseVector3d& axis) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    const double x = axis.getX();
    const double y = axis.getY();
    const double z = axis.getZ();
    return {x * x * t + c,     x * y * t + z * s, x * z * t - y * s,  //
            x * y * t - z * s, y * y * t + c,     y * z * t + x * s,  //
            x * z * t + y * s, y * z * t - x * s, z * z * t + c};
}
