#include <gtest/gtest.h>

#include <numbers>
#include <type_traits>

#include "../../fuzz/geom/numbers.h"
#include "nexo/geom/Matrix4d.h"
#include "nexo/geom/Plane3d.h"
#include "nexo/geom/PointArray.h"

namespace {

using Vector = moxBaseVector3d;
using Point = moxBasePoint3d;

static_assert(std::is_trivially_copyable_v<moxBaseMatrix4d> && std::is_trivially_copyable_v<moxBasePlane3d>);
static_assert(Vector(1, 2, 3).getCrossProduct({4, 5, 6}).getDotProduct({0, 1, 0}) == 6.0);

void ExpectNear(const Vector& got, const Vector& want) {
    for (unsigned i = 0; i < 3; ++i) EXPECT_NEAR(got[i], want[i], 1e-14) << "component " << i;
}

TEST(Vector, TolerancesAreStrictAndAbsolute) {
    const double below = std::nextafter(1e-10, 0.0);
    const Vector x(1, 0, 0);
    const struct {
        const char* name;
        bool got, want;
    } rows[] = {
        {"zero below the limit", Vector(below, -below, below).isZero(), true},
        {"not zero at the limit", Vector(0, 0, -1e-10).isZero(), false},
        {"NaN is not zero", Vector(0, NAN, 0).isZero(), false},
        {"parallel and opposite", x.isParallelTo({-3, 0, 0}), true},
        {"long and almost parallel", Vector(1e6, 0, 0).isParallelTo({1e6, 1e-9, 0}), false},
        {"very short ones always", Vector(1e-6, 0, 0).isParallelTo({0, 1e-6, 0}), true},
        {"perpendicular at", x.isPerpendicularTo({1e-10, 1, 0}), false},
        {"opposite is not codirectional", x.isCodirectionalTo({-5, 0, 0}), false},
        {"points at the caller's limit", Point(1, 1, 1).isEqualTo({1.25, 1, 1}, 0.25), false},
    };
    for (const auto& row : rows) EXPECT_EQ(row.got, row.want) << row.name;
}

TEST(Vector, NormalizeLeavesZeroAndUnitVectorsAlone) {
    const struct {
        const char* name;
        double length, want;
    } rows[] = {
        {"zero", 0.0, 0.0},
        {"at the limit", 1e-10, 1e-10},
        {"above the limit", 1.1e-10, 1.0},
        {"almost 1 from below", 1.0 - 9.9e-11, 1.0 - 9.9e-11},
        {"long", 1e200, 0.0},  // its square overflows, so it counts as infinitely long
    };
    for (const auto& row : rows) {
        Vector v(0.0, row.length, 0.0);
        EXPECT_EQ(&v.normalize(), &v);
        EXPECT_NEAR(v.getY(), row.want, 1e-15) << row.name;
    }
}

TEST(Vector, PerpendicularAndAngle) {
    EXPECT_TRUE(Vector(0, 0, 5).getPerpVector().isEqualTo({-5, 0, 0})) << "along Z the Y axis serves";
    EXPECT_DOUBLE_EQ(Vector::getAngleTo({2, 0, 0}, {0, 0, 3}), std::numbers::pi / 2);
    EXPECT_TRUE(std::isnan(Vector(1, 0, 0).getAngleTo({}))) << "no angle to a zero vector";
}

TEST(Vector, RotateTurnsAgainstTheRotationMatrix) {
    const double quarter = std::numbers::pi / 2;
    ExpectNear(Vector::getRotated({1, 0, 0}, {0, 0, 9}, quarter), {0, 1, 0});
    ExpectNear(moxBaseMatrix3d::getRotationMatrix(quarter, {0, 0, 1}) * Vector(1, 0, 0), {0, -1, 0});
    EXPECT_TRUE(Vector(1, 2, 3).rotate({0, 0, 0}, 0.0).isEqualTo({1, 2, 3})) << "angle 0 looks at no axis";

    NumberSource numbers(1);
    for (int i = 0; i < 1000; ++i) {
        const Vector v(numbers.Ordinary(), numbers.Ordinary(), numbers.Ordinary());
        const Vector axis(numbers.Ordinary(), numbers.Ordinary(), numbers.Ordinary());
        const double angle = numbers.Ordinary();
        const Vector turned = Vector::getRotated(v, axis, angle);
        EXPECT_LT(v.getAngleTo(v * 3.0), 1e-7) << "not NaN where the cosine rounds above 1";
        EXPECT_NEAR(turned.getDotProduct(axis), v.getDotProduct(axis), 1e-13);
        ExpectNear(Vector::getRotated(turned, axis, -angle), v);
        ExpectNear(moxBaseMatrix3d::getRotationMatrix(angle, axis.getNormal()) * turned, v);
    }
}

TEST(Point, IsAViewOfItsVectorAndSubtractsToOne) {
    Point p(1, 2, 3);
    p.asVector() *= 2.0;
    p[1] = 7.0;
    EXPECT_EQ(p.getX() + p.getY() + p.getZ(), 15.0);
    EXPECT_TRUE(p.getVectorTo({1, 1, 1}).isEqualTo(Point(1, 1, 1) - p));
    EXPECT_TRUE((-(p / 2.0) + Vector(1, 0, 0)).isEqualTo({0, -3.5, -3}, 1e-15));
    EXPECT_EQ(Point::getDistanceTo({1, 2, 3}, {1, 5, 7}), 5.0);
    EXPECT_TRUE(moxBaseLine3d(Point(1, 1, 1), Point(3, 1, 0)).getPointOnLine(2).isEqualTo({5, 1, -1}, 1e-15));
}

TEST(Point, ReversesArrays) {
    for (int count = 0; count < 6; ++count) {
        CArray<Point> points;
        for (int i = 0; i < count; ++i) points.Add(Point(i, 0, 0));
        reversePoint3dArray(points);
        for (int i = 0; i < count; ++i) EXPECT_EQ(points[i].getX(), count - 1 - i);
    }
}

TEST(Plane, MeetsLines) {
    const moxBasePlane3d plane(Point(0, 0, 2), Vector(0, 0, 3));
    Point hit(9, 9, 9);
    EXPECT_TRUE(plane.getIntersection({Point(1, 5, 0), Vector(0, 1, 4)}, hit));
    EXPECT_TRUE(hit.isEqualTo({1, 5.5, 2}, 1e-14));
    EXPECT_FALSE(plane.getIntersection({Point(1, 5, 0), Vector(1, 1, 0)}, hit));
    EXPECT_TRUE(hit.isEqualTo({0, 0, 0}, 1e-15)) << "no hit is the origin";

    // Axes of length 1 make the tolerances visible: 1e-10 for the intersection, 1e-4 for isParallelTo.
    const moxBasePlane3d unit;
    for (double slope : {1e-10, 1.0001e-10, 0.99e-4, 1e-4}) {
        const moxBaseLine3d line(Point(), Vector(1, 0, slope));
        EXPECT_EQ(unit.getIntersection(line, hit), slope > 1e-10) << slope;
        EXPECT_EQ(unit.isParallelTo(line), slope < 1e-4) << slope;
    }
}

TEST(Plane, BuildsAxesAndNormalisesThemOnlyInItsCoordinateSystem) {
    const moxBasePlane3d byNormal(Point(1, 2, 3), Vector(0, 0, 2));
    EXPECT_TRUE(byNormal.getUAxis().isEqualTo({0, 2, 0})) << "normal x X";
    EXPECT_TRUE(byNormal.getVAxis().isEqualTo({-4, 0, 0})) << "normal x U";
    EXPECT_TRUE(moxBasePlane3d({}, Vector(3, 0, 0)).getUAxis().isEqualTo({0, 0, 3})) << "normal x Y";
    Point origin;
    Vector u, v;
    moxBasePlane3d(Point(1, 0, 0), Point(4, 0, 0), Point(1, 0, 5)).getCoordSystem(origin, u, v);
    EXPECT_TRUE(origin.isEqualTo({1, 0, 0}, 1e-15) && u.isEqualTo({1, 0, 0}) && v.isEqualTo({0, 0, 1}));
}

}  // namespace
