#include <gtest/gtest.h>

#include "../../fuzz/geom/box_reference.h"
#include "../../fuzz/geom/numbers.h"

namespace {

using Vector = moxBaseVector3d;
using Point = moxBasePoint3d;
using Box = moxBaseExtents;

bool AreSame(const Point& a, const Point& b) {
    return IsSame(a.getX(), b.getX()) && IsSame(a.getY(), b.getY()) && IsSame(a.getZ(), b.getZ());
}

bool Spans(const Box& box, const Point& min, const Point& max) {
    return AreSame(box.getMinPoint(), min) && AreSame(box.getMaxPoint(), max);
}

TEST(Box, GrowsFromEmpty) {
    const double most = 1.7976931348623157e308;
    Box box;
    EXPECT_TRUE(!box.isValid() && Spans(box, {most, most, most}, {-most, -most, -most}));
    box.addPoint({1, 2, 3});
    EXPECT_TRUE(box.isValid() && Spans(box, {1, 2, 3}, {1, 2, 3}));
    box.addPoint({NAN, 0, 5});
    box.addExt(Box({4, 4, 4}, {0, 5, 4}));
    const Box empty;
    box.addExt(empty);
    EXPECT_TRUE(Spans(box, {0, 0, 3}, {4, 5, 5})) << "neither NaN nor an empty box adds anything";
    EXPECT_TRUE(AreSame(box.getCenter(), {2, 2.5, 4}) &&
                box.getWidth() - box.getHeight() / box.getDepth() == 1.5);
    box.setTo(box.getMaxPoint(), box.getMinPoint());
    EXPECT_TRUE(Spans(box, {0, 0, 3}, {4, 5, 5})) << "from its own corners";
}

TEST(Box, CopyOfAnEmptyOneCoversAllSpaceButAssignmentStaysEmpty) {
    const Box empty;
    const Box copy(empty);
    EXPECT_TRUE(copy.isValid() && copy.isInExtents({-1e300, 0, 1e300}));
    Box assigned({0, 0, 0}, {1, 1, 1});
    assigned = empty;
    EXPECT_FALSE(assigned.isValid());
}

TEST(Box, FacesCountAsInside) {
    const Box box({0, 0, 0}, {1, 1, 1});
    EXPECT_TRUE(box.isInExtents({0, 1, 0.5}) && box.isInExtents({-9e-11, 1 + 9e-11, 0.5}));
    EXPECT_FALSE(box.isInExtents({-1e-10, 0.5, 0.5}) || box.isInExtents({0.5, 0.5, 1.0000000002}));
    EXPECT_FALSE(box.isInExtents({0.5, NAN, 0.5}));
}

TEST(Box, GivesThePointsOfALineInFaceOrder) {
    const Box box({0, 0, 0}, {1, 1, 1});
    const Point before(7, 7, 7);
    const struct {
        const char* name;
        moxBaseLine3d line;
        Point first, second;
    } rows[] = {
        {"along x", {Point(-5, 0.5, 0.5), Vector(1, 0, 0)}, {0, 0.5, 0.5}, {1, 0.5, 0.5}},
        {"along z, upper face first", {Point(0.5, 0.5, 3), Vector(0, 0, 1)}, {0.5, 0.5, 1}, {0.5, 0.5, 0}},
        {"through two edges", {Point(-1, 0.5, -1), Vector(1, 0, 1)}, {0, 0.5, 0}, {1, 0.5, 1}},
        {"through an edge, then a face", {Point(0, 0.5, 1), Vector(2, 0, -1)}, {0, 0.5, 1}, {1, 0.5, 0.5}},
        {"along an edge", {Point(0, 0, 9), Vector(0, 0, 1)}, {0, 0, 1}, {0, 0, 0}},
        {"beside", {Point(0, 0, 2), Vector(1, 1, 0)}, before, before},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Point first = before;
        Point second(8, 8, 8);
        EXPECT_EQ(box.getIntersections(row.line, first, second), !AreSame(row.first, before));
        EXPECT_TRUE(first.isEqualTo(row.first, 1e-12) && second.isEqualTo(row.second, 1e-12));
    }
}

TEST(Box, LeavesOutOnlyZeroTermsOfTheDeterminants) {
    NumberSource numbers(5);
    int met = 0;
    for (int round = 0; round < 200000; ++round) {
        const auto number = [&] {
            return round % 3 == 0   ? numbers.Any()
                   : round % 3 == 1 ? numbers.SmallWhole()
                                    : numbers.Ordinary();
        };
        Box box({number(), number(), number()}, {number(), number(), number()});
        if (numbers.Chance(50)) box.reset();
        const moxBaseLine3d line(Point(number(), number(), number()), Vector(number(), number(), number()));
        Point first(7, 7, 7), second, wantedFirst(7, 7, 7), wantedSecond;
        const bool isMet = box.getIntersections(line, first, second);
        ASSERT_EQ(isMet, reference::Intersect(box, line, wantedFirst, wantedSecond)) << "round " << round;
        ASSERT_TRUE(AreSame(first, wantedFirst) && AreSame(second, wantedSecond)) << "round " << round;
        met += isMet;
    }
    EXPECT_GT(met, 20000) << "the lines should meet boxes often";
}

}  // namespace
