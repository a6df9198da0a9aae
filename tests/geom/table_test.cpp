#include <gtest/gtest.h>

#include <stdexcept>

#include "../../fuzz/geom/numbers.h"
#include "../../fuzz/geom/table_reference.h"
#include "nexo/geom/LinearInterpolation.h"
#include "nexo/geom/LinearInterpolation2D.h"

namespace {

using Numbers = std::vector<double>;
constexpr double kNoValue = reference::kNoValue;
constexpr double kInf = std::numeric_limits<double>::infinity();

CLinearInterpolation Curve(std::initializer_list<std::pair<double, double>> pairs) {
    CLinearInterpolation curve;
    for (const auto& [x, y] : pairs) curve.Add(x, y);
    return curve;
}

Numbers XsOf(const CLinearInterpolation& curve) {
    Numbers xs;
    for (int i = 0; i < curve.getSize(); ++i) xs.push_back(curve.GetAtXArray(i));
    return xs;
}

TEST(Curve, InterpolatesHoldsAndExtrapolates) {
    CLinearInterpolation rising = Curve({{0, 0}, {10, 100}});
    CLinearInterpolation falling = Curve({{10, 100}, {0, 0}});
    for (CLinearInterpolation* curve : {&rising, &falling}) {
        EXPECT_EQ(curve->GetY(5, false), 50);
        EXPECT_EQ(curve->GetY(20, false), 100);
        EXPECT_EQ(curve->GetY(20, true), 200);
        EXPECT_EQ(curve->GetY(-10, true), -100);
        EXPECT_TRUE(std::isnan(curve->GetY(NAN, false)));
    }
}

TEST(Curve, UnusableTablesGiveTheLargestDouble) {
    CLinearInterpolation repeated = Curve({{0, 0}, {0, 5}});
    EXPECT_EQ(repeated.GetY(0, false), kNoValue);
    repeated.SetAtXArray(1, 5);
    EXPECT_EQ(repeated.GetY(2.5, false), 2.5) << "a change is noticed";
    CLinearInterpolation one = Curve({{3, 7}});
    EXPECT_EQ(one.GetY(99, false), 7.0) << "a single pair answers, but only without extrapolation";
    EXPECT_EQ(one.GetY(3, true), kNoValue);
    EXPECT_EQ(CLinearInterpolation().GetY(0, false), kNoValue);
}

TEST(Curve, SetsAppendsAndReads) {
    CLinearInterpolation curve;
    curve.SetAtXArray(7, 1);  // appends (1, 0)
    curve.SetAtYArray(1, 4);  // appends (0, 4)
    curve.SetAtYArray(0, 2);
    EXPECT_EQ(curve.GetY(0.5, false), 3.0);
    curve.changeXandY();
    EXPECT_EQ(curve.GetY(3, false), 0.5);
    EXPECT_EQ(curve.firstX() * 1000 + curve.firstY() * 100 + curve.lastX() * 10 + curve.lastY(), 2140);
    for (int i : {-1, 2}) EXPECT_THROW((void)curve.GetAtYArray(i), std::invalid_argument) << i;
    EXPECT_THROW(curve.SetAtXArray(-1, 0), std::invalid_argument);
    EXPECT_TRUE(CLinearInterpolation(&curve).getSize() == 2 && CLinearInterpolation(nullptr).isEmpty());
}

TEST(Curve, SortsAndKeepsTheLastOfARun) {
    const struct {
        const char* name;
        Numbers xs;
        double tolerance;
        Numbers want;
    } rows[] = {
        {"pair in tolerance", {1.0, 2.0, 1.0005}, 0.001, {1.0005, 2.0}},
        {"run longer than the tolerance", {3, 1, 2}, 1.5, {3}},
        {"difference at the tolerance", {3, 1, 2}, 1.0, {1, 2, 3}},
        {"infinities differ by NaN", {kInf, -kInf, kInf}, 1.0, {-kInf, kInf, kInf}},
    };
    for (const auto& row : rows) {
        CLinearInterpolation curve;
        for (double x : row.xs) curve.Add(x, 0.0);
        curve.sort(row.tolerance);
        EXPECT_EQ(XsOf(curve), row.want) << row.name;
    }
    CLinearInterpolation twice = Curve({{5, 1}, {5, 2}, {4, 0}});
    twice.sort(0.1);
    EXPECT_EQ(twice.lastY(), 2.0) << "of equal x the one added last";
}

TEST(Curve, SortWithNaNLosesNothing) {
    NumberSource numbers(6);
    CLinearInterpolation curve;
    for (int i = 0; i < 5000; ++i) curve.Add(i % 3 == 0 ? NAN : numbers.Ordinary(), i);
    curve.sort(0.0);
    const Numbers xs = XsOf(curve);
    ASSERT_EQ(xs.size(), 5000u);
    EXPECT_TRUE(std::is_sorted(xs.begin(), xs.begin() + 3333) && std::isnan(xs[3333]) &&
                std::isnan(xs[4999]));
}

TEST(Curve, SortKeepsAPassedCheck) {
    CLinearInterpolation curve = Curve({{10, 100}, {5, 50}, {0, 3}});
    EXPECT_EQ(curve.GetY(5, false), 50.0);
    curve.sort(0.001);
    EXPECT_EQ(curve.GetY(7, true), 3 + 47 * 7 / 5.0) << "still searched as falling: always the first segment";
    EXPECT_EQ(CLinearInterpolation(curve).GetY(7, true), 70.0) << "a copy is checked anew";
    curve.SetAtXArray(0, 0);
    EXPECT_EQ(curve.GetY(7, true), 70.0) << "so is a changed table";
    EXPECT_EQ(curve.GetY(0, true), 3.0);
    curve.sort(99.0);
    EXPECT_EQ(curve.GetY(0, false), 100.0) << "one pair left answers like any single pair";
    EXPECT_EQ(curve.GetY(0, true), kNoValue);
}

TEST(Curve, AgreesWithTheDescription) {
    NumberSource numbers(7);
    for (std::size_t count = 1; count < 400; ++count) {
        const Numbers grid = numbers.Grid(count % 80 + count / 20);
        if (grid.empty()) continue;
        CLinearInterpolation curve;
        reference::Curve wanted;
        for (double x : grid) {
            curve.Add(x, numbers.Ordinary());
            wanted.pairs.emplace_back(x, curve.lastY());
        }
        for (int i = 0; i < 200; ++i) {
            if (i == 150) {
                curve.sort(0.01);
                wanted.Sort(0.01);
            }
            const double x = numbers.PlaceIn(grid, i);
            ASSERT_TRUE(IsSame(curve.GetY(x, i % 3 == 0), wanted.GetY(x, i % 3 == 0)))
                << count << " at " << x;
        }
    }
}

TEST(Surface, ViewsAreCheckedByEveryCallAndOwnGridsAfterAChange) {
    double cells[] = {99, 0, 1,  //
                      0,  0, 1,  //
                      1,  1, 2};
    CLinearInterpolation2D view(3, 3, cells);
    CLinearInterpolation2D own(view);
    EXPECT_EQ(view.GetZ(0.5, 0.5, false), 1.0);
    EXPECT_EQ(own.GetZ(2, 0, true), 2.0);
    EXPECT_EQ(own.GetZ(2, 0, false), 1.0);
    cells[6] = 0;  // x repeats
    EXPECT_EQ(view.GetZ(0.5, 0.5, false), kNoValue);
    EXPECT_EQ(own.GetZ(0.5, 0.5, false), 1.0) << "a copy owns its cells";
    own.SetAt(2, 0, 0);
    EXPECT_EQ(own.GetZ(0.5, 0.5, false), kNoValue);
    own.SetAt(2, 0, 2);
    own.SetAt(2, 2, 4);
    EXPECT_EQ(own.GetZ(1, 1, false), 2.5);
}

TEST(Surface, GuardsItsCells) {
    CLinearInterpolation2D surface(0, -5);
    EXPECT_EQ(surface.GetAt(0, 0), 0.0) << "raised to one row and one column";
    for (const auto& [row, col] : {std::pair(-1, 0), {0, -1}, {1, 0}, {0, 1}}) {
        surface.SetAt(row, col, 5);
        EXPECT_EQ(surface.GetAt(row, col), kNoValue);
    }
    CLinearInterpolation2D small(2, 2, nullptr);
    EXPECT_TRUE(small.bHasATable()) << "a lower bound than GetZ has";
    EXPECT_EQ(small.GetZ(0, 0, false), kNoValue);
    EXPECT_THROW(CLinearInterpolation2D(2147483647, 2147483647), std::bad_alloc);
}

TEST(Surface, OwnAndViewedAgreeWithTheDescription) {
    NumberSource numbers(8);
    for (std::size_t round = 0; round < 300; ++round) {
        const Numbers xs = numbers.Grid(round % 30 + 1);
        const Numbers ys = numbers.Grid(round % 23 + 1);
        if (xs.empty() || ys.empty()) continue;
        Numbers cells = numbers.Cells(xs, ys);
        CLinearInterpolation2D view(static_cast<int>(xs.size()) + 1, static_cast<int>(ys.size()) + 1,
                                    cells.data());
        CLinearInterpolation2D own(view);
        for (int i = 0; i < 60; ++i) {
            const double x = numbers.PlaceIn(xs, i);
            const double y = numbers.PlaceIn(ys, i / 4);
            const double wanted = reference::GetZ(cells, ys.size(), x, y, i % 3 == 0);
            ASSERT_TRUE(IsSame(view.GetZ(x, y, i % 3 == 0), wanted)) << round << ": " << x << ", " << y;
            ASSERT_TRUE(IsSame(own.GetZ(x, y, i % 3 == 0), wanted)) << round << ": " << x << ", " << y;
        }
    }
}

}  // namespace
