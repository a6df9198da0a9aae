#include "nexo/geom/Extents.h"

#include <bit>

#include "nexo/geom/Lanes.h"
#include "nexo/geom/Plane3d.h"

namespace {

using nexo::And;
using nexo::AnswerBits;
using nexo::Less;
using nexo::Magnitude;
using nexo::Two;

constexpr int kFaces = 6;

// Takes the hits of the faces in order; tells when no further one matters.
class HitList {
public:
    HitList(moxBasePoint3d& first, moxBasePoint3d& second) : m_first(first), m_second(second) {}

    bool Add(const moxBasePoint3d& hit) {
        ++m_count;
        if (m_count == 1) m_first = hit;
        if (m_count == 2 || (m_count == 3 && !hit.isEqualTo(m_first, nexo::kTolerance))) m_second = hit;
        return m_count < 3;
    }

    bool Finish() {
        if (m_count < 2) m_second = m_first;
        return m_count > 0;
    }

private:
    moxBasePoint3d& m_first;
    moxBasePoint3d& m_second;
    int m_count = 0;
};

// Six planes through corners of the box, each with its axes along edges.
bool IntersectPlanes(const moxBaseExtents& box, const moxBaseLine3d& line, HitList hits) {
    const moxBasePoint3d& lo = box.getMinPoint();
    const moxBasePoint3d& hi = box.getMaxPoint();
    const moxBasePoint3d corner(lo.getX(), lo.getY(), lo.getZ());
    const moxBasePoint3d x(hi.getX(), lo.getY(), lo.getZ());
    const moxBasePoint3d y(lo.getX(), hi.getY(), lo.getZ());
    const moxBasePoint3d z(lo.getX(), lo.getY(), hi.getZ());
    const moxBasePoint3d xy(hi.getX(), hi.getY(), lo.getZ());
    const moxBasePoint3d xz(hi.getX(), lo.getY(), hi.getZ());
    const moxBasePoint3d yz(lo.getX(), hi.getY(), hi.getZ());
    const moxBasePlane3d faces[kFaces] = {{corner, y, z}, {x, xy, xz},    {z, xz, yz},
                                          {corner, x, y}, {corner, z, x}, {y, yz, xy}};
    for (const moxBasePlane3d& face : faces) {
        moxBasePoint3d hit;
        if (face.getIntersection(line, hit) && box.isInExtents(hit) && !hits.Add(hit)) break;
    }
    return hits.Finish();
}

// The same for ordinary numbers, two parallel faces side by side. With axes along edges five of the six terms
// of each determinant are products with an exact zero. Leaving them out changes no bit of the result while
// no product of two numbers overflows, except that a numerator of zero must be +0.
class FacePairs {
public:
    FacePairs(const moxBaseExtents& box, const moxBaseLine3d& line)
        : m_origin(line.getOrigin()), m_dir(line.getDir()), m_lo(box.getMinPoint()), m_hi(box.getMaxPoint()) {
        const Two x = m_origin[0] - Two{m_lo[0], m_hi[0]};
        const Two z = m_origin[2] - Two{m_hi[2], m_lo[2]};
        const Two y = m_origin[1] - Two{m_lo[1], m_hi[1]};
        const double dx = box.getWidth();
        const double dy = box.getHeight();
        const double dz = box.getDepth();
        m_hits = Meet(0, x * dy * dz, -m_dir[0] * dy * dz) |       //
                 Meet(1, dx * dy * z, dx * dy * -m_dir[2]) << 2 |  //
                 Meet(2, dx * y * dz, dx * -m_dir[1] * dz) << 4;

        const Two ways = Magnitude(x) + Magnitude(y) + Magnitude(z);
        const double rest =
            (std::fabs(m_dir[0]) + dx) + (std::fabs(m_dir[1]) + dy) + (std::fabs(m_dir[2]) + dz);
        m_isOrdinary = ways[0] + ways[1] + rest < 1e150;
    }

    // False when a number is infinite, NaN or too large for that; nothing else is valid then.
    bool IsOrdinary() const { return m_isOrdinary; }

    bool Collect(const moxBaseLine3d& line, HitList hits) const {
        for (unsigned rest = m_hits; rest != 0; rest &= rest - 1) {
            const int face = std::countr_zero(rest);
            if (!hits.Add(line.getPointOnLine(m_t[face / 2][face % 2]))) break;
        }
        return hits.Finish();
    }

private:
    // Notes where the line meets the faces of a pair; returns a bit for each one met inside the box.
    unsigned Meet(int pair, Two numerator, double determinant) {
        const Two t = (numerator + 0.0) / determinant;
        m_t[pair] = t;
        const double magnitude = std::fabs(determinant);
        Two hit = Less(Two{nexo::kTolerance, nexo::kTolerance}, Two{magnitude, magnitude});
        for (unsigned i = 0; i < 3; ++i) {
            const Two p = m_origin[i] + m_dir[i] * t;
            hit = And(hit, Less(Two{m_lo[i], m_lo[i]}, p + nexo::kTolerance));
            hit = And(hit, Less(p - nexo::kTolerance, Two{m_hi[i], m_hi[i]}));
        }
        return AnswerBits(hit);
    }

    const moxBasePoint3d& m_origin;
    const moxBaseVector3d& m_dir;
    const moxBasePoint3d& m_lo;
    const moxBasePoint3d& m_hi;
    Two m_t[3];  // in the order of the faces
    unsigned m_hits;
    bool m_isOrdinary;
};

}  // namespace

bool moxBaseExtents::getIntersections(const moxBaseLine3d& line, moxBasePoint3d& first,
                                      moxBasePoint3d& second) const {
    const FacePairs pairs(*this, line);
    const HitList hits(first, second);
    return pairs.IsOrdinary() ? pairs.Collect(line, hits) : IntersectPlanes(*this, line, hits);
}
