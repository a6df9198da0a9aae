#include "nexo/geom/Matrix4d.h"

#include <cstring>

#include "nexo/geom/Lanes.h"

namespace {

using Rows = double[4][4];

NEXO_GEOM_AVX2 void ProductAvx2(const Rows& a, const Rows& b, Rows& out) {
    using nexo::Four;
    const Four b0 = NEXO_GEOM_LOAD(b[0]);
    const Four b1 = NEXO_GEOM_LOAD(b[1]);
    const Four b2 = NEXO_GEOM_LOAD(b[2]);
    const Four b3 = NEXO_GEOM_LOAD(b[3]);
    for (int i = 0; i < 4; ++i) {
        const Four row = a[i][0] * b0 + a[i][1] * b1 + a[i][2] * b2 + a[i][3] * b3;
        std::memcpy(out[i], &row, sizeof row);
    }
}

void ProductPlain(const Rows& a, const Rows& b, Rows& out) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            out[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j] + a[i][3] * b[3][j];
}

// The determinant of rows r and r + 1 in columns j and k.
double Minor(const Rows& m, int r, int j, int k) {
    return m[r][j] * m[r + 1][k] - m[r][k] * m[r + 1][j];
}

}  // namespace

void moxBaseMatrix4d::setToProduct(const moxBaseMatrix4d& a, const moxBaseMatrix4d& b) {
    if (NEXO_GEOM_HAS_AVX2) return ProductAvx2(a.m_rows, b.m_rows, m_rows);
    ProductPlain(a.m_rows, b.m_rows, m_rows);
}

double moxBaseMatrix4d::getDeterminant() const {
    const Rows& m = m_rows;
    return Minor(m, 0, 0, 1) * Minor(m, 2, 2, 3) - Minor(m, 0, 0, 2) * Minor(m, 2, 1, 3) +
           Minor(m, 0, 0, 3) * Minor(m, 2, 1, 2) + Minor(m, 0, 1, 2) * Minor(m, 2, 0, 3) -
           Minor(m, 0, 1, 3) * Minor(m, 2, 0, 2) + Minor(m, 0, 2, 3) * Minor(m, 2, 0, 1);
}
