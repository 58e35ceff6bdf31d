// What a page tells of a run and nobody else keeps.

#include "nas2zdt/report/RunNotes.h"

#include <algorithm>

void CRunNotes::OnLeft(const T_LEFT_D& rLeft) {
    const T_KEY key{rLeft.eREASON, rLeft.sKEYWORD};
    if (!m_pLast || m_pLast->first != key) m_pLast = &*m_mapLeft.try_emplace(key).first;
    m_pLast->second.push_back(rLeft.iID);
}

CRunNotes::IDS CRunNotes::GetLeft() const {
    IDS ids;
    for (const auto& [key, rIds] : m_mapLeft) {
        const T_REASON_D& rReason = ReasonOf(key.first);
        std::vector<std::int32_t>& rOfKind = ids[{key.second ? key.second : rReason.sKEYWORD, rReason.sCODE}];
        rOfKind.insert(rOfKind.end(), rIds.begin(), rIds.end());
    }
    for (auto& [key, rIds] : ids) {
        std::sort(rIds.begin(), rIds.end());
        rIds.erase(std::unique(rIds.begin(), rIds.end()), rIds.end());
    }
    return ids;
}
