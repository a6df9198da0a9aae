#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <string>

#include "nexo/geom/ComplexMatrix.h"
#include "nexo/geom/Random.h"
#include "nexo/platform/DebugOutput.h"

namespace {

TEST(ComplexMatrix, MultipliesRowByColumn) {
    ComplexMatrix a, b;
    a.setAt(1, 1, {1, 2});
    a.setAt(1, 2, 0, 1);
    a.setAt(2, 1, 3, 0);
    b.setAt(1, 1, 0, 1);
    b.setAt(2, 1, 5, 0);
    const ComplexMatrix product = a * b;
    EXPECT_TRUE(product.getAt(1, 1) == std::complex(-2.0, 6.0) &&
                product.getAt(2, 1) == std::complex(0.0, 3.0));
    a *= a;
    EXPECT_EQ(a.getAt(1, 1), std::complex(-3.0, 7.0)) << "a factor of itself";
    EXPECT_TRUE(ComplexMatrix::unitTestMatrixMultiplication());
}

TEST(ComplexMatrix, IsNullBelowEpsilonOnly) {
    for (double part : {1e-17, std::nextafter(2.220446049250313e-16, 0.0), 2.220446049250313e-16}) {
        ComplexMatrix m;
        m.setAt(2, 1, 0.0, -part);
        EXPECT_EQ(m.isNull(), part < 2.220446049250313e-16) << part;
    }
}

TEST(ComplexMatrix, ShowsImaginaryPartsFirst) {
    std::wstring seen;
    const auto former = nexo::platform::SetDebugSink([&](std::wstring_view text) { seen += text; });
    ComplexMatrix m;
    m.setAt(1, 1, 1.5, -2);
    m.setAt(2, 2, 1e20, 0.1);
    ComplexMatrix::watchMatrixEntries(m);
    nexo::platform::SetDebugSink(former);
    EXPECT_EQ(seen,
              L"\n\t- MatrixEntries -\n\t[1 1] im -2 re 1.5\t[1 2] im 0 re 0"
              L"\n\t[2 1] im 0 re 0\t[2 2] im 0.1 re 1e+20");
}

TEST(Random, StaysInItsRangeAndReachesAllOfIt) {
    for (auto source : {moxRandom::eMersenneTwister, static_cast<moxRandom::enRandom>(7)}) {
        EXPECT_EQ(moxRandom::generateRndNumber(5, 5, source) + moxRandom::generateRndNumber(2.5, 2.5, source),
                  7.5);
        CArray<int> numbers;
        moxRandom::generateRndNumbers(numbers, 2000, 3, -3, source);
        EXPECT_EQ(std::set<int>(numbers.begin(), numbers.end()), (std::set<int>{-3, -2, -1, 0, 1, 2, 3}));
    }
}

TEST(Random, DoublesStayBelowTheUpperBound) {
    const double most = 1.7976931348623157e308;
    for (const auto& [min, max] : {std::pair(-1.0, 2.0), {1.0, std::nextafter(1.0, 2.0)}, {-most, most}}) {
        CArray<double> numbers;
        moxRandom::generateRndNumbers(numbers, 5000, min, max, moxRandom::eMersenneTwister);
        ASSERT_EQ(numbers.GetSize(), 5000);
        const auto [low, high] = std::minmax_element(numbers.begin(), numbers.end());
        EXPECT_TRUE(*low >= min && *high < max) << min;
        EXPECT_LE(*low, min / 2 + max / 2);
    }
}

TEST(Random, FillsOrAllocatesPlainArrays) {
    int own[3] = {9, 9, 9};
    int* numbers = own;
    moxRandom::generateRndNumbers(numbers, 2, 1, 1, moxRandom::eMersenneTwister);
    EXPECT_TRUE(numbers == own && own[1] == 1 && own[2] == 9);
    double* allocated = nullptr;
    moxRandom::generateRndNumbers(allocated, -4, 0.0, 1.0, moxRandom::eMersenneTwister);
    EXPECT_EQ(allocated, nullptr);
    moxRandom::generateRndNumbers(allocated, 4, 0.25, 0.25, moxRandom::eMersenneTwister);
    const std::unique_ptr<double[]> owner(allocated);
    EXPECT_EQ(allocated[3], 0.25);
}

}  // namespace
