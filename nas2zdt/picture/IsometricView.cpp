// Projects points into a picture.

#include "nas2zdt/picture/IsometricView.h"

#include <limits>
#include <numbers>

namespace {
constexpr double DEEPEST = 4000.0; // pixels of depth: limits the scale of points in a row along the view
}

T_VECTOR CIsometricView::Turn(const T_VECTOR& v) {
    constexpr double SQRT2 = std::numbers::sqrt2;
    constexpr double SQRT3 = std::numbers::sqrt3;
    return {(v[0] + v[1]) / SQRT2, (2.0 * v[2] - v[0] + v[1]) / (SQRT2 * SQRT3), (v[0] - v[1] + v[2]) / SQRT3};
}

CIsometricView::CIsometricView(const std::vector<T_VECTOR>& aPoints, const T_FRAM_D& rFrame)
    : m_dX(rFrame.dLEFT + rFrame.dWIDTH / 2), m_dY(rFrame.dTOP + rFrame.dHEIGHT / 2) {
    double dLargest = 0.0;
    for (const T_VECTOR& rPoint : aPoints) {
        if (IsFinite(rPoint)) dLargest = std::max(dLargest, Largest(rPoint));
    }
    if (dLargest == 0.0) return;
    m_dUnit = dLargest;

    constexpr double FAR = std::numeric_limits<double>::max();
    T_VECTOR least = {FAR, FAR, FAR}, most = {-FAR, -FAR, -FAR};
    for (const T_VECTOR& rPoint : aPoints) {
        if (!IsFinite(rPoint)) continue;
        const T_VECTOR turned = Turn(Over(rPoint, m_dUnit));
        for (std::size_t i = 0; i < 3; ++i) {
            least[i] = std::min(least[i], turned[i]);
            most[i] = std::max(most[i], turned[i]);
        }
    }
    const T_VECTOR extent = Subtract(most, least);
    const T_VECTOR room = {rFrame.dWIDTH, rFrame.dHEIGHT, DEEPEST};
    double dScale = FAR;
    for (std::size_t i = 0; i < 3; ++i) {
        m_centre[i] = (least[i] + most[i]) / 2;
        if (extent[i] > 0.0) dScale = std::min(dScale, room[i] / extent[i]);
    }
    if (dScale < FAR) m_dScale = dScale;
}

T_VECTOR CIsometricView::Project(const T_VECTOR& point) const {
    constexpr double NOWHERE = std::numeric_limits<double>::quiet_NaN();
    if (!IsFinite(point)) return {NOWHERE, NOWHERE, NOWHERE};
    const T_VECTOR turned = Turn(Over(point, m_dUnit));
    return {m_dX + (turned[0] - m_centre[0]) * m_dScale, m_dY - (turned[1] - m_centre[1]) * m_dScale,
            (turned[2] - m_centre[2]) * m_dScale};
}
