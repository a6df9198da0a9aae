#ifndef NEXO_FUZZ_GEOM_BOX_REFERENCE_H
#define NEXO_FUZZ_GEOM_BOX_REFERENCE_H

// moxBaseExtents::getIntersections as it is described, step by step, without any shortcut.

#include "nexo/geom/Extents.h"
#include "nexo/geom/Plane3d.h"

namespace reference {

inline bool Intersect(const moxBaseExtents& box, const moxBaseLine3d& line, moxBasePoint3d& first,
                      moxBasePoint3d& second) {
    const auto corner = [&](int x, int y, int z) {
        const moxBasePoint3d ends[] = {box.getMinPoint(), box.getMaxPoint()};
        return moxBasePoint3d(ends[x].getX(), ends[y].getY(), ends[z].getZ());
    };
    const moxBasePlane3d faces[] = {{corner(0, 0, 0), corner(0, 1, 0), corner(0, 0, 1)},  // x min, x max
                                    {corner(1, 0, 0), corner(1, 1, 0), corner(1, 0, 1)},
                                    {corner(0, 0, 1), corner(1, 0, 1), corner(0, 1, 1)},  // z max, z min
                                    {corner(0, 0, 0), corner(1, 0, 0), corner(0, 1, 0)},
                                    {corner(0, 0, 0), corner(0, 0, 1), corner(1, 0, 0)},  // y min, y max
                                    {corner(0, 1, 0), corner(0, 1, 1), corner(1, 1, 0)}};
    int hits = 0;
    for (const moxBasePlane3d& face : faces) {
        moxBasePoint3d hit;
        if (!face.getIntersection(line, hit) || !box.isInExtents(hit)) continue;
        if (++hits == 1) first = hit;
        if (hits == 2 || (hits == 3 && !hit.isEqualTo(first, 1e-10))) second = hit;
        if (hits == 3) break;
    }
    if (hits < 2) second = first;
    return hits > 0;
}

}  // namespace reference

#endif
