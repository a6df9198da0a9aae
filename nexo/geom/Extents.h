#ifndef NEXO_GEOM_EXTENTS_H
#define NEXO_GEOM_EXTENTS_H

// The axis-aligned box around a building element.

#include "nexo/base/Export.h"
#include "nexo/geom/Line3d.h"

/// A minimum and a maximum corner; empty (and not valid) at first. A value of 48 bytes.
///
/// Copy construction is not assignment: see there.
class moxBaseExtents {
public:
    constexpr moxBaseExtents() = default;
    constexpr moxBaseExtents(const moxBasePoint3d& p1, const moxBasePoint3d& p2) { setTo(p1, p2); }
    /// Spans the corners of `other` anew. An empty box therefore becomes one that covers all space, while
    /// assignment keeps it empty; callers rely on the difference.
    constexpr moxBaseExtents(const moxBaseExtents& other) { setTo(other.m_min, other.m_max); }
    constexpr moxBaseExtents& operator=(const moxBaseExtents& other) = default;

    /// Makes the box empty: minimum at the largest double, maximum at its negative, in every axis.
    constexpr void reset();
    /// The smallest box that holds both points, in any order.
    constexpr void setTo(const moxBasePoint3d& p1, const moxBasePoint3d& p2);
    /// Extends the box to hold the point; a coordinate that is NaN is ignored.
    constexpr void addPoint(const moxBasePoint3d& p);
    /// Extends the box to hold another one; a box that is not valid adds nothing.
    constexpr void addExt(const moxBaseExtents& e);

    /// True when the maximum is not below the minimum in any axis.
    [[nodiscard]] constexpr bool isValid() const;
    /// True when the point lies inside or within 1e-10 of a face.
    [[nodiscard]] constexpr bool isInExtents(const moxBasePoint3d& p) const;

    [[nodiscard]] constexpr const moxBasePoint3d& getMinPoint() const { return m_min; }
    [[nodiscard]] constexpr const moxBasePoint3d& getMaxPoint() const { return m_max; }
    [[nodiscard]] constexpr moxBasePoint3d getCenter() const { return m_min + (m_max - m_min) * 0.5; }
    /// The sizes along x, y and z.
    [[nodiscard]] constexpr double getWidth() const { return m_max.getX() - m_min.getX(); }
    [[nodiscard]] constexpr double getHeight() const { return m_max.getY() - m_min.getY(); }
    [[nodiscard]] constexpr double getDepth() const { return m_max.getZ() - m_min.getZ(); }

    /// Finds where the line passes through the faces; true when it meets at least one.
    ///
    /// The faces are tried in the order x min, x max, z max, z min, y min, y max, which need not be the order
    /// along the line. `first` and `second` take the first two hits; a third one that is not equal to `first`
    /// replaces `second`, so a line through an edge or corner still gives two distinct points. With one hit
    /// `second` equals `first`; without a hit `first` keeps its value and `second` takes it, too.
    NEXO_API bool getIntersections(const moxBaseLine3d& line, moxBasePoint3d& first,
                                   moxBasePoint3d& second) const;

private:
    moxBasePoint3d m_min{nexo::kLargestDouble, nexo::kLargestDouble, nexo::kLargestDouble};
    moxBasePoint3d m_max{-nexo::kLargestDouble, -nexo::kLargestDouble, -nexo::kLargestDouble};
};

constexpr void moxBaseExtents::reset() {
    *this = moxBaseExtents();
}

constexpr void moxBaseExtents::setTo(const moxBasePoint3d& p1, const moxBasePoint3d& p2) {
    const moxBasePoint3d other = p2;  // p2 may be a corner of this box
    m_min = p1;
    m_max = m_min;
    addPoint(other);
}

constexpr void moxBaseExtents::addPoint(const moxBasePoint3d& p) {
    for (unsigned axis = 0; axis < 3; ++axis) {
        const double c = p[axis];
        if (m_min[axis] > c) m_min[axis] = c;
        if (c > m_max[axis]) m_max[axis] = c;
    }
}

constexpr void moxBaseExtents::addExt(const moxBaseExtents& e) {
    if (!e.isValid()) return;
    addPoint(e.m_min);
    addPoint(e.m_max);
}

constexpr bool moxBaseExtents::isValid() const {
    return m_max.getX() >= m_min.getX() && m_max.getY() >= m_min.getY() && m_max.getZ() >= m_min.getZ();
}

constexpr bool moxBaseExtents::isInExtents(const moxBasePoint3d& p) const {
    for (unsigned axis = 0; axis < 3; ++axis)
        if (!(p[axis] + nexo::kTolerance > m_min[axis] && m_max[axis] > p[axis] - nexo::kTolerance))
            return false;
    return true;
}

#endif
