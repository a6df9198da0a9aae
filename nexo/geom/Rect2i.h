#ifndef NEXO_GEOM_RECT2I_H
#define NEXO_GEOM_RECT2I_H

// Whole-number points and rectangles for screen work; y grows downwards.

#include <algorithm>
#include <cstdint>
#include <limits>

/// Two signed 32-bit numbers (x, y), (0, 0) at first. Larger values are cut to their low 32 bits.
class moxBasePoint2i {
public:
    constexpr moxBasePoint2i() = default;
    constexpr moxBasePoint2i(long x, long y) { setTo(x, y); }

    constexpr void setTo(long x, long y) {
        setXTo(x);
        setYTo(y);
    }
    constexpr void setXTo(long x) { m_x = static_cast<std::int32_t>(x); }
    constexpr void setYTo(long y) { m_y = static_cast<std::int32_t>(y); }
    [[nodiscard]] constexpr long getX() const { return m_x; }
    [[nodiscard]] constexpr long getY() const { return m_y; }

    [[nodiscard]] constexpr bool operator==(const moxBasePoint2i& p) const = default;

    /// Both coordinates at 2147483647, or at -2147483648.
    constexpr void setToMaximum() { m_x = m_y = std::numeric_limits<std::int32_t>::max(); }
    constexpr void setToMinimum() { m_x = m_y = std::numeric_limits<std::int32_t>::min(); }

private:
    std::int32_t m_x = 0;
    std::int32_t m_y = 0;
};

/// Two corners in any order, both (0, 0) at first. Comparison looks at the corners as they were given: the
/// same area with swapped corners is not equal.
class moxBaseRect2i {
public:
    constexpr moxBaseRect2i() = default;
    constexpr moxBaseRect2i(const moxBasePoint2i& p1, const moxBasePoint2i& p2) : m_p1(p1), m_p2(p2) {}
    /// Corners (a, c) and (b, d): both x come first, then both y; callers rely on this order.
    constexpr moxBaseRect2i(long a, long b, long c, long d) { setTo(a, b, c, d); }

    constexpr void setTo(long a, long b, long c, long d) {
        m_p1.setTo(a, c);
        m_p2.setTo(b, d);
    }
    constexpr void setP1To(long x, long y) { m_p1.setTo(x, y); }
    constexpr void setP2To(long x, long y) { m_p2.setTo(x, y); }
    constexpr void setToZero() { *this = moxBaseRect2i(); }

    [[nodiscard]] constexpr long getLeft() const { return std::min(m_p1.getX(), m_p2.getX()); }
    [[nodiscard]] constexpr long getRight() const { return std::max(m_p1.getX(), m_p2.getX()); }
    [[nodiscard]] constexpr long getTop() const { return std::min(m_p1.getY(), m_p2.getY()); }
    [[nodiscard]] constexpr long getBottom() const { return std::max(m_p1.getY(), m_p2.getY()); }
    /// The distance of the corners' coordinates; exact also where it needs 33 bits.
    [[nodiscard]] constexpr long getWidth() const { return getRight() - getLeft(); }
    [[nodiscard]] constexpr long getHeight() const { return getBottom() - getTop(); }
    [[nodiscard]] constexpr long getP1X() const { return m_p1.getX(); }

    [[nodiscard]] constexpr bool operator==(const moxBaseRect2i& r) const = default;

private:
    moxBasePoint2i m_p1;
    moxBasePoint2i m_p2;
};

#endif
