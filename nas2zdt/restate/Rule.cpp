// Adds up what rules tell.

#include "nas2zdt/restate/Rule.h"

std::size_t CTold::Find(const T_RULE_D& rRule, std::string_view sKeyword, std::string_view sDetail) {
    T_KEY key{&rRule, std::string(sKeyword), std::string(sDetail)};
    const auto pFound = m_mapTold.find(key);
    if (pFound != m_mapTold.end()) return pFound->second;
    if (sDetail != "others" && ++m_mapDetails[{&rRule, std::get<1>(key)}] > MOST_DETAILS) {
        return Find(rRule, sKeyword, "others");
    }
    m_aTold.push_back({&rRule, std::get<1>(key), std::get<2>(key), 0, {}});
    return m_mapTold[std::move(key)] = m_aTold.size() - 1;
}

void CTold::Tell(const T_RULE_D& rRule, std::string_view sKeyword, const T_ORIGINLINE_D& rPlace,
                 std::string_view sDetail, std::uint64_t nCount) {
    const auto isSame = [&](const T_TOLD_D& rTold) {
        return rTold.pRULE == &rRule && rTold.sKEYWORD == sKeyword && rTold.sDETAIL == sDetail;
    };
    // one rule often tells many times in a row
    if (m_iLast >= m_aTold.size() || !isSame(m_aTold[m_iLast])) m_iLast = Find(rRule, sKeyword, sDetail);
    T_TOLD_D& rTold = m_aTold[m_iLast];
    rTold.nCOUNT += nCount;
    if (rTold.aPLACES.size() < T_TOLD_D::MOST_PLACES) rTold.aPLACES.push_back(rPlace);
}
