#include <gtest/gtest.h>

#include "../../fuzz/geom/numbers.h"
#include "nexo/geom/Matrix4d.h"

namespace {

using Vector = moxBaseVector3d;
using Matrix3 = moxBaseMatrix3d;
using Matrix4 = moxBaseMatrix4d;

template <class Matrix, unsigned Size, class Number>
Matrix Filled(Number number) {
    Matrix m;
    for (unsigned i = 0; i < Size; ++i)
        for (unsigned j = 0; j < Size; ++j) m[i][j] = number();
    return m;
}

// Sums in the order of the columns, as products are defined.
template <unsigned Size, class Matrix>
double ProductEntry(const Matrix& a, const Matrix& b, unsigned i, unsigned j) {
    double sum = a[i][0] * b[0][j];
    for (unsigned k = 1; k < Size; ++k) sum += a[i][k] * b[k][j];
    return sum;
}

double CramerComponent(Matrix3 m, const Vector& b, unsigned column) {
    const double determinant = m.getDeterminant();
    for (unsigned row = 0; row < 3; ++row) m[row][column] = b[row];
    return m.getDeterminant() / determinant;
}

TEST(Matrix, ProductsAndSolutionsAreExactlyThePlainFormulas) {
    NumberSource numbers(2);
    for (int round = 0; round < 20000; ++round) {
        const auto number = [&] { return round % 2 ? numbers.Any() : numbers.Ordinary(); };
        const Matrix4 a = Filled<Matrix4, 4>(number);
        const Matrix4 b = Filled<Matrix4, 4>(number);
        Matrix4 square = a;
        square *= square;
        const Matrix4 product = a * b;
        const Matrix3 c = Filled<Matrix3, 3>(number);
        const Matrix3 d = Filled<Matrix3, 3>(number);
        const Matrix3 small = c * d;
        const Vector right(number(), number(), number());
        const Vector solution = c.solveLGS(right);
        for (unsigned i = 0; i < 4; ++i)
            for (unsigned j = 0; j < 4; ++j) {
                ASSERT_TRUE(IsSame(product[i][j], ProductEntry<4>(a, b, i, j)));
                ASSERT_TRUE(IsSame(square[i][j], ProductEntry<4>(a, a, i, j)));
            }
        for (unsigned i = 0; i < 3; ++i)
            for (unsigned j = 0; j < 3; ++j) ASSERT_TRUE(IsSame(small[i][j], ProductEntry<3>(c, d, i, j)));
        for (unsigned i = 0; i < 3; ++i) ASSERT_TRUE(IsSame(solution[i], CramerComponent(c, right, i)));
    }
}

TEST(Matrix, InversesAndDeterminantsObeyTheirAlgebra) {
    NumberSource numbers(3);
    const auto number = [&] { return numbers.Ordinary(); };
    for (int round = 0; round < 1000; ++round) {
        const Matrix3 a = Filled<Matrix3, 3>(number);
        const Matrix3 b = Filled<Matrix3, 3>(number);
        EXPECT_NEAR((a * b).getDeterminant(), a.getDeterminant() * b.getDeterminant(), 1e-12);
        const Matrix4 c = Filled<Matrix4, 4>(number);
        const Matrix4 d = Filled<Matrix4, 4>(number);
        EXPECT_NEAR((c * d.getTransposed()).getDeterminant(), c.getDeterminant() * d.getDeterminant(), 1e-10);
        if (std::fabs(a.getDeterminant()) < 0.1) continue;
        const Matrix3 identity = a * a.getInverse();
        for (unsigned i = 0; i < 3; ++i)
            for (unsigned j = 0; j < 3; ++j) EXPECT_NEAR(identity[i][j], i == j, 1e-12);
    }
    EXPECT_EQ(Matrix4(0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 2, 0, 0, 3, 0).getDeterminant(), 6.0);
    Matrix3 singular(1, 2, 3, 2, 4, 6, 0, 0, 1);
    EXPECT_FALSE(std::isfinite(singular.invert()[0][0]));
}

TEST(Matrix, PlacesVectors) {
    Matrix4 m;
    m.graphicSetRotation(Matrix3(0, -1, 0, 1, 0, 0, 0, 0, 1));
    m.graphicSetTranslation(1, 2, 3);
    m.graphicAddTranslation(Vector(10, 0, 0));  // not turned by the rotation
    m[3][0] = 5;                                // ignored by vectors
    m.graphicAddScale(2, 3, 4);                 // acts before the rotation
    Vector v(1, 1, 1);
    m.graphicApplyTransformToVector(v);
    EXPECT_TRUE(v.isEqualTo({11 - 3, 2 + 2, 3 + 4}));
    EXPECT_EQ(m.getTransposed()[0][3], 10.0) << "the scale reaches row 3, too";
}

}  // namespace
