// What a progress window counts.

#include "platform/Progress.h"

void CProgress::SetTotal(int nTotal) {
    m_sTotal = std::to_string(nTotal);
    m_dFactor = nTotal != 0 ? static_cast<double>(RANGE) / nTotal : 0.0; // nothing to count: the bar stays where it is
}

int CProgress::MoveTo(int iLine) {
    m_sCurrent = std::to_string(iLine);
    const double dPlace = iLine * m_dFactor;
    if (dPlace <= 0.0) return 0;
    return dPlace >= RANGE ? RANGE : static_cast<int>(dPlace);
}
