#ifndef NEXO_GEOM_COMPLEXMATRIX_H
#define NEXO_GEOM_COMPLEXMATRIX_H

// 2 x 2 matrices of complex numbers.

#include <complex>

#include "nexo/base/Export.h"

/// Four complex numbers, all zero at first. Rows and columns count from 1.
class NEXO_API ComplexMatrix {
public:
    ComplexMatrix() = default;
    ComplexMatrix(const ComplexMatrix&) = default;
    ComplexMatrix& operator=(const ComplexMatrix&) = default;
    virtual ~ComplexMatrix() = default;

    /// Rows and columns are 1 or 2; others are not refused but meet one of the four entries all the same.
    [[nodiscard]] const std::complex<double>& getAt(int row, int col) const;
    void setAt(int row, int col, const std::complex<double>& value);
    void setAt(int row, int col, double re, double im);
    /// Sets every entry to 0.
    void reset();

    /// Compares all real and imaginary parts without tolerance.
    [[nodiscard]] bool operator==(const ComplexMatrix& other) const;
    /// 1 when every real and imaginary part is smaller than 2.220446049250313e-16 in magnitude, else 0.
    [[nodiscard]] int isNull() const;

    [[nodiscard]] ComplexMatrix operator*(const ComplexMatrix& b) const;
    /// this = this * b, in this order.
    ComplexMatrix& operator*=(const ComplexMatrix& b);

    /// Sends the entries to the debugger output (nexo/platform/DebugOutput.h), imaginary part first.
    void watchMatrixEntries() const;
    static void watchMatrixEntries(const ComplexMatrix& matrix) { matrix.watchMatrixEntries(); }

    /// Checks the products of the identity and the three Pauli matrices with one another; true when all
    /// agree.
    [[nodiscard]] static bool unitTestMatrixMultiplication();

private:
    std::complex<double> m_entries[2][2];
};

#endif
