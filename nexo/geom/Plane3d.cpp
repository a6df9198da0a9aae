#include "nexo/geom/Plane3d.h"

moxBasePlane3d::moxBasePlane3d(const moxBasePoint3d& origin, const moxBaseVector3d& normal)
    : m_origin(origin) {
    const moxBaseVector3d xAxis(1.0, 0.0, 0.0);
    const moxBaseVector3d yAxis(0.0, 1.0, 0.0);
    m_u = normal.getCrossProduct(normal.isParallelTo(xAxis) ? yAxis : xAxis);
    m_v = normal.getCrossProduct(m_u);
}

void moxBasePlane3d::getCoordSystem(moxBasePoint3d& origin, moxBaseVector3d& uAxis,
                                    moxBaseVector3d& vAxis) const {
    origin = m_origin;
    uAxis = m_u.getNormal();
    vAxis = m_v.getNormal();
}

bool moxBasePlane3d::isParallelTo(const moxBaseLine3d& line) const {
    return std::fabs(line.getDir().getCrossProduct(m_v).getDotProduct(m_u)) < nexo::kPlaneParallelTolerance;
}
