// A line meets a box, a plane and a system of equations where the plain formulas say so, whatever the
// numbers.
#include <cstdlib>

#include "box_reference.h"
#include "byte_source.h"
#include "numbers.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

bool AreSame(const moxBasePoint3d& a, const moxBasePoint3d& b) {
    return IsSame(a.getX(), b.getX()) && IsSame(a.getY(), b.getY()) && IsSame(a.getZ(), b.getZ());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteSource bytes(data, size);
    const bool isReset = bytes.Byte() % 16 == 0;
    const auto point = [&] {
        const double x = bytes.Number();
        const double y = bytes.Number();
        return moxBasePoint3d(x, y, bytes.Number());
    };
    const moxBasePoint3d a = point();
    const moxBasePoint3d b = point();
    const moxBasePoint3d origin = point();
    const moxBaseVector3d direction = point().asVector();
    const moxBaseLine3d line(origin, direction);

    moxBaseExtents box(a, b);
    if (isReset) box.reset();
    moxBasePoint3d first, second, wantedFirst, wantedSecond;
    const bool isMet = box.getIntersections(line, first, second);
    Require(isMet == reference::Intersect(box, line, wantedFirst, wantedSecond));
    Require(AreSame(first, wantedFirst) && AreSame(second, wantedSecond));

    const moxBaseMatrix3d m(a.getX(), b.getX(), origin.getX(), a.getY(), b.getY(), origin.getY(), a.getZ(),
                            b.getZ(), origin.getZ());
    const moxBaseVector3d solution = m.solveLGS(direction);
    for (unsigned column = 0; column < 3; ++column) {
        moxBaseMatrix3d replaced = m;
        for (unsigned row = 0; row < 3; ++row) replaced[row][column] = direction[row];
        Require(IsSame(solution[column], replaced.getDeterminant() / m.getDeterminant()));
    }
    return 0;
}
