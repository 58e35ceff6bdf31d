// Adds up what rules tell.

#include "nas2zdt/restate/Rule.h"

#include <algorithm>

void CTold::Tell(const T_RULE_D& rRule, std::string_view sKeyword, const T_ORIGINLINE_D& rPlace,
                 std::string_view sDetail, std::uint64_t nCount) {
    const auto isSame = [&](const T_TOLD_D& rTold) {
        return rTold.pRULE == &rRule && rTold.sKEYWORD == sKeyword && rTold.sDETAIL == sDetail;
    };
    if (m_iLast >= m_aTold.size() || !isSame(m_aTold[m_iLast])) { // one rule often tells many times in a row
        m_iLast = static_cast<std::size_t>(std::find_if(m_aTold.begin(), m_aTold.end(), isSame) - m_aTold.begin());
        if (m_iLast == m_aTold.size()) {
            m_aTold.push_back({&rRule, std::string(sKeyword), std::string(sDetail), 0, {}});
        }
    }
    T_TOLD_D& rTold = m_aTold[m_iLast];
    rTold.nCOUNT += nCount;
    if (rTold.aPLACES.size() < T_TOLD_D::MOST_PLACES) rTold.aPLACES.push_back(rPlace);
}
