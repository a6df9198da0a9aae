#include "nexo/geom/Vector3d.h"

double moxBaseVector3d::getAngleTo(const moxBaseVector3d& v) const {
    // std::clamp passes NaN on, so a vector without length is not given an angle.
    const double cosine = getDotProduct(v) / (getLength() * v.getLength());
    return std::acos(std::clamp(cosine, -1.0, 1.0));
}

moxBaseVector3d moxBaseVector3d::getPerpVector() const {
    const moxBaseVector3d perpendicular = getCrossProduct(moxBaseVector3d(0.0, 0.0, 1.0));
    if (perpendicular.getLength() < nexo::kTolerance) return getCrossProduct(moxBaseVector3d(0.0, 1.0, 0.0));
    return perpendicular;
}

moxBaseVector3d& moxBaseVector3d::rotate(const moxBaseVector3d& axis, double angle) {
    if (angle == 0.0) return *this;
    const moxBaseVector3d n = axis.getNormal();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    const double nx = n.getX();
    const double ny = n.getY();
    const double nz = n.getZ();
    const moxBaseVector3d row0(t * (nx * nx) + c, t * nx * ny - nz * s, t * nx * nz + ny * s);
    const moxBaseVector3d row1(t * nx * ny + nz * s, t * (ny * ny) + c, t * ny * nz - nx * s);
    const moxBaseVector3d row2(t * nx * nz - ny * s, t * ny * nz + nx * s, t * (nz * nz) + c);
    return setTo(row0.getDotProduct(*this), row1.getDotProduct(*this), row2.getDotProduct(*this));
}
