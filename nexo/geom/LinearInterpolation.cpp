#include "nexo/geom/LinearInterpolation.h"

#include <cmath>
#include <utility>

#include "nexo/base/ContainerSupport.h"

using nexo::GridOrder;
using nexo::GridRange;

CLinearInterpolation::CLinearInterpolation(const CLinearInterpolation* other) {
    if (other) m_pairs = other->m_pairs;
}

CLinearInterpolation& CLinearInterpolation::operator=(const CLinearInterpolation& other) {
    m_pairs = other.m_pairs;
    m_check = Check::kOpen;
    return *this;
}

void CLinearInterpolation::Add(double x, double y) {
    m_pairs.push_back({x, y});
    m_check = Check::kOpen;
}

void CLinearInterpolation::reset() {
    m_pairs.clear();
    m_check = Check::kOpen;
}

double CLinearInterpolation::GetY(double x, bool bExtrapolate) {
    if (m_check != Check::kPassed) return GetYUnchecked(x, bExtrapolate);
    const GridRange& range = m_index.Range();
    const int upper = m_index.Position<kXStride>(XValues(), x);
    return Interpolate(bExtrapolate ? x : range.Clamp(x), std::max(upper, 1));
}

double CLinearInterpolation::GetYUnchecked(double x, bool bExtrapolate) {
    if (getSize() == 1 && !bExtrapolate) return m_pairs.front().y;
    if (m_check == Check::kOpen) RunCheck();
    if (m_check == Check::kFailed) return nexo::kLargestDouble;
    return m_check == Check::kPassed ? GetY(x, bExtrapolate) : GetYSearchedAsFalling(x, bExtrapolate);
}

// Of x that rise, none but the first can be the first one at or below a value, so the search for it ends at
// the first segment; and holding a value between ends that stand the wrong way round takes it to the last.
double CLinearInterpolation::GetYSearchedAsFalling(double x, bool bExtrapolate) const {
    return Interpolate(bExtrapolate || std::isnan(x) ? x : lastX(), 1);
}

double CLinearInterpolation::Interpolate(double x, int upper) const {
    const Pair& u = m_pairs[static_cast<std::size_t>(upper)];
    const Pair& l = m_pairs[static_cast<std::size_t>(upper) - 1];
    const double f = (x - l.x) / (u.x - l.x);
    return u.y * f + (1.0 - f) * l.y;
}

void CLinearInterpolation::RunCheck() {
    const GridOrder order = nexo::ScanGrid(XGrid(), 0.0).order;
    if (order != GridOrder::kNone) m_index.Build(XGrid(), order);
    m_check = order == GridOrder::kNone ? Check::kFailed : Check::kPassed;
}

std::size_t CLinearInterpolation::CheckedIndex(int i) const {
    if (i < 0 || i >= getSize()) nexo::ThrowBadIndex();
    return static_cast<std::size_t>(i);
}

void CLinearInterpolation::SetAtXArray(int i, double v) {
    if (i >= getSize()) return Add(v, 0.0);
    m_pairs[CheckedIndex(i)].x = v;
    m_check = Check::kOpen;
}

void CLinearInterpolation::SetAtYArray(int i, double v) {
    if (i >= getSize()) return Add(0.0, v);
    m_pairs[CheckedIndex(i)].y = v;
    m_check = Check::kOpen;
}

void CLinearInterpolation::changeXandY() {
    for (Pair& pair : m_pairs) std::swap(pair.x, pair.y);
    m_check = Check::kOpen;
}

void CLinearInterpolation::sort(double tolerance) {
    const bool searchedAsFalling = m_check == Check::kPassedFalling ||
                                   (m_check == Check::kPassed && m_index.Order() == GridOrder::kDescending);
    // An order over NaN, too; the sort may rely on it.
    std::stable_sort(m_pairs.begin(), m_pairs.end(), [](const Pair& a, const Pair& b) {
        return a.x < b.x || (std::isnan(b.x) && !std::isnan(a.x));
    });
    RemoveClose(tolerance);
    // A passed check of rising x would pass again, so running it anew changes no answer.
    m_check = searchedAsFalling && getSize() > 1 ? Check::kPassedFalling : Check::kOpen;
}

void CLinearInterpolation::RemoveClose(double tolerance) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        const bool close = i + 1 < m_pairs.size() && std::fabs(m_pairs[i].x - m_pairs[i + 1].x) < tolerance;
        if (!close) m_pairs[kept++] = m_pairs[i];
    }
    m_pairs.resize(kept);
}
