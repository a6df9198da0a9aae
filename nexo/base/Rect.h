#ifndef NEXO_BASE_RECT_H
#define NEXO_BASE_RECT_H

#include <algorithm>

/// A rectangle in pixels; right and bottom lie just outside. Empty, all zero, by default.
class CRect {
public:
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr CRect() = default;
    constexpr CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}

    /// Wrap at 32 bits, so that rectangles read from damaged settings are harmless.
    [[nodiscard]] constexpr int Width() const { return Distance(left, right); }
    [[nodiscard]] constexpr int Height() const { return Distance(top, bottom); }
    [[nodiscard]] constexpr bool IsRectEmpty() const { return left >= right || top >= bottom; }

    constexpr void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    constexpr void SetRectEmpty() { *this = CRect(); }

    /// Becomes the common part of both; all zero and false when there is none.
    constexpr bool IntersectRect(const CRect& a, const CRect& b) {
        const CRect common(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                           std::min(a.bottom, b.bottom));
        const bool empty = a.IsRectEmpty() || b.IsRectEmpty() || common.IsRectEmpty();
        *this = empty ? CRect() : common;
        return !empty;
    }

    friend constexpr bool operator==(const CRect&, const CRect&) = default;

private:
    static constexpr int Distance(int from, int to) {
        return static_cast<int>(static_cast<unsigned int>(to) - static_cast<unsigned int>(from));
    }
};

#endif
