#include "nexo/geom/Point2d.h"

#include <gtest/gtest.h>

#include <numbers>

#include "nexo/geom/Rect2i.h"

namespace {

using Point = moxBasePoint2d;

TEST(Point2d, ComparesExactlyOrWithTolerance) {
    EXPECT_TRUE(Point(1, 2) != Point(1, 2 + 1e-15) && Point(1, 2).bIsEqualTo({1, 2 + 1e-15}));
    EXPECT_FALSE(Point().bIsEqualTo({1e-10, 0}));
}

TEST(Point2d, RotatesBothWays) {
    const struct {
        const char* name;
        void (Point::*rotate)(double);
        double angle;
        Point want;
    } rows[] = {
        {"counter-clockwise", &Point::rotateCounterclockwiseDegrees, 90, {-2, 1}},
        {"clockwise", &Point::rotateClockwiseDegrees, 90, {2, -1}},
        {"radians", &Point::rotateCounterclockwiseRadians, std::numbers::pi, {-1, -2}},
    };
    for (const auto& row : rows) {
        Point p(1, 2);
        (p.*row.rotate)(row.angle);
        EXPECT_TRUE(p.bIsEqualTo(row.want)) << row.name;
    }
}

TEST(Point2d, CalculatesInPlaceAndByCopy) {
    Point p(6, 8);
    EXPECT_TRUE(p.getNormal().bIsEqualTo({0.6, 0.8}));
    EXPECT_EQ(Point(1e-10, 0).getNormal(), Point(1e-10, 0)) << "a zero vector stays";
    p.add({1, 1}).subtract({0, 4}).multiplyWith(4).divideBy(2);
    EXPECT_EQ(p, Point(14, 10));
    EXPECT_EQ(p.getDistanceTo({11, 6}), 5.0);
    EXPECT_EQ(p.toString(), L"14.000000 / 10.000000");
    p.setToMinimum();
    EXPECT_EQ(p, Point(2.2250738585072014e-308, 2.2250738585072014e-308))
        << "positive, not the most negative";
}

TEST(Rect2i, TakesBothXFirst) {
    const moxBaseRect2i r(5, 1, 9, 2);
    EXPECT_EQ(r, moxBaseRect2i(moxBasePoint2i(5, 9), moxBasePoint2i(1, 2)));
    EXPECT_NE(r, moxBaseRect2i(1, 5, 2, 9)) << "the order of the corners counts";
    EXPECT_EQ(r.getLeft() * 1000 + r.getTop() * 100 + r.getRight() * 10 + r.getBottom(), 1259);
    EXPECT_EQ(r.getWidth() * 100 + r.getHeight() * 10 + r.getP1X(), 475);
}

TEST(Rect2i, HoldsThirtyTwoBits) {
    moxBasePoint2i low, high;
    low.setToMinimum();
    high.setToMaximum();
    EXPECT_TRUE(low == moxBasePoint2i(-2147483648, -2147483648) && high.getY() == 2147483647);
    EXPECT_EQ(moxBaseRect2i(low, high).getWidth(), 4294967295);
    EXPECT_EQ(moxBasePoint2i(4294967296 + 5, 2147483648), moxBasePoint2i(5, -2147483648));
}

}  // namespace
