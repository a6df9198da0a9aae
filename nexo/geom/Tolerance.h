#ifndef NEXO_GEOM_TOLERANCE_H
#define NEXO_GEOM_TOLERANCE_H

// The tolerances of every fuzzy comparison of the geometry types, each used as a strict "less than"
// unless noted. They are absolute: two long, almost parallel vectors fail isParallelTo, two very
// short ones always pass. Lengths are in whatever unit the coordinates have.
//
//   value    used by
//   -------  ---------------------------------------------------------------------------------------
//   1e-10    moxBaseVector3d: isZero (each component), isEqualTo (isZero of the difference),
//            isParallelTo (isZero of the cross product), isPerpendicularTo (|dot|),
//            isCodirectionalTo (length of the difference of the normals), getPerpVector (length)
//            normalize, getNormal (2-D and 3-D): length at most 1e-10, or at most 1e-10 from 1,
//            leaves the vector alone; here the limit itself belongs to the range
//            moxBasePoint2d: bIsEqualTo (each coordinate)
//            moxBasePlane3d: getIntersection (|determinant| must exceed it)
//            moxBaseExtents: isInExtents (each face), getIntersections (equal points)
//   1e-4     moxBasePlane3d: isParallelTo(line)
//   caller's moxBasePoint3d: isEqualTo(p, tol)

namespace nexo {

inline constexpr double kTolerance = 1e-10;
inline constexpr double kPlaneParallelTolerance = 1e-4;

/// The coordinate of an empty box and of "maximum" points, and the answer of a table that cannot be used.
inline constexpr double kLargestDouble = 1.7976931348623157e308;

}  // namespace nexo

#endif
