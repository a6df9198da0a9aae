#ifndef NEXO_GEOM_POINTARRAY_H
#define NEXO_GEOM_POINTARRAY_H

// Lists of positions.

#include "nexo/base/CArray.h"
#include "nexo/base/Export.h"
#include "nexo/geom/Point3d.h"

/// Reverses the order of the points in place.
NEXO_API void reversePoint3dArray(CArray<moxBasePoint3d>& points);

#endif
