#include "nexo/geom/PointArray.h"

#include <utility>

void reversePoint3dArray(CArray<moxBasePoint3d>& points) {
    const INT_PTR last = points.GetUpperBound();
    for (INT_PTR i = 0; i < last - i; ++i) std::swap(points.ElementAt(i), points.ElementAt(last - i));
}
