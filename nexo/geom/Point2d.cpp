#include "nexo/geom/Point2d.h"

void moxBasePoint2d::rotateCounterclockwiseRadians(double radians) {
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    setTo(m_x * c - m_y * s, m_x * s + m_y * c);
}

CString moxBasePoint2d::toString() const {
    CString text;
    text.Format(L"%f / %f", m_x, m_y);
    return text;
}
