// Where the lines of a joined deck came from.

#include "nas2zdt/flatten/LineMap.h"

#include <algorithm>

void CLineMap::AddRun(std::int32_t iJoined, std::size_t iFile, std::int32_t iLine) {
    if (!m_aRuns.empty() && m_aRuns.back().iJOINED == iJoined) m_aRuns.pop_back(); // not a line came of it
    m_aRuns.push_back({iJoined, iLine, iFile});
}

T_ORIGIN_D CLineMap::Find(std::int32_t iJoined) const {
    auto pRun = std::upper_bound(m_aRuns.begin(), m_aRuns.end(), iJoined,
                                 [](std::int32_t i, const T_STRETCH_D& rRun) { return i < rRun.iJOINED; });
    if (pRun == m_aRuns.begin()) return {m_aFiles.empty() ? std::string() : m_aFiles.front(), 0};
    --pRun;
    return {m_aFiles[pRun->iFILE], pRun->iLINE + (iJoined - pRun->iJOINED)};
}
