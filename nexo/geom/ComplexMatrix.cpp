#include "nexo/geom/ComplexMatrix.h"

#include <cmath>
#include <limits>

#include "nexo/base/CString.h"
#include "nexo/platform/DebugOutput.h"

namespace {

using Complex = std::complex<double>;

// 1 -> 0, 2 -> 1; the mask keeps every other number inside the matrix.
int Position(int index) {
    return (index & 1) ^ 1;
}

ComplexMatrix Matrix(const Complex& e11, const Complex& e12, const Complex& e21, const Complex& e22) {
    ComplexMatrix matrix;
    matrix.setAt(1, 1, e11);
    matrix.setAt(1, 2, e12);
    matrix.setAt(2, 1, e21);
    matrix.setAt(2, 2, e22);
    return matrix;
}

bool IsNegligible(double part) {
    return std::fabs(part) < std::numeric_limits<double>::epsilon();
}

}  // namespace

const Complex& ComplexMatrix::getAt(int row, int col) const {
    return m_entries[Position(row)][Position(col)];
}

void ComplexMatrix::setAt(int row, int col, const Complex& value) {
    m_entries[Position(row)][Position(col)] = value;
}

void ComplexMatrix::setAt(int row, int col, double re, double im) {
    setAt(row, col, Complex(re, im));
}

void ComplexMatrix::reset() {
    *this = ComplexMatrix();
}

bool ComplexMatrix::operator==(const ComplexMatrix& other) const {
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2; ++j)
            if (m_entries[i][j] != other.m_entries[i][j]) return false;
    return true;
}

int ComplexMatrix::isNull() const {
    for (const auto& row : m_entries)
        for (const Complex& entry : row)
            if (!IsNegligible(entry.real()) || !IsNegligible(entry.imag())) return 0;
    return 1;
}

ComplexMatrix ComplexMatrix::operator*(const ComplexMatrix& b) const {
    ComplexMatrix product;
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2; ++j)
            product.m_entries[i][j] =
                m_entries[i][0] * b.m_entries[0][j] + m_entries[i][1] * b.m_entries[1][j];
    return product;
}

ComplexMatrix& ComplexMatrix::operator*=(const ComplexMatrix& b) {
    return *this = *this * b;
}

void ComplexMatrix::watchMatrixEntries() const {
    CString text(L"\n\t- MatrixEntries -");
    for (int row = 1; row <= 2; ++row) {
        const Complex& left = getAt(row, 1);
        const Complex& right = getAt(row, 2);
        text.AppendFormat(L"\n\t[%d 1] im %g re %g\t[%d 2] im %g re %g", row, left.imag(), left.real(), row,
                          right.imag(), right.real());
    }
    nexo::platform::WriteDebug(text.View());
}

bool ComplexMatrix::unitTestMatrixMultiplication() {
    const Complex one(1.0, 0.0);
    const Complex i(0.0, 1.0);
    const ComplexMatrix identity = Matrix(one, 0.0, 0.0, one);
    const ComplexMatrix x = Matrix(0.0, one, one, 0.0);
    const ComplexMatrix y = Matrix(0.0, -i, i, 0.0);
    const ComplexMatrix z = Matrix(one, 0.0, 0.0, -one);
    const ComplexMatrix ix = Matrix(0.0, i, i, 0.0);
    const ComplexMatrix iy = Matrix(0.0, one, -one, 0.0);
    const ComplexMatrix iz = Matrix(i, 0.0, 0.0, -i);
    const ComplexMatrix minusIy = Matrix(0.0, -one, one, 0.0);
    const struct {
        const ComplexMatrix& a;
        const ComplexMatrix& b;
        const ComplexMatrix& product;
    } rows[] = {
        {identity, x, x}, {y, identity, y}, {x, x, identity}, {y, y, identity}, {z, z, identity},
        {x, y, iz},       {y, z, ix},       {z, x, iy},       {x, z, minusIy},
    };
    for (const auto& row : rows) {
        ComplexMatrix inPlace = row.a;
        inPlace *= row.b;
        if (row.a * row.b != row.product || inPlace != row.product) return false;
    }
    return true;
}
