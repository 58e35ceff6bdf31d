#include "nas2zdt/check/Findings.h"

#include <utility>

T_FINDING_D& CFindings::Find(const T_FINDINGKIND_D& rKind, std::string_view sKeyword) {
    const auto [pPlace, bNew] = m_mapFindings.try_emplace({&rKind, std::string(sKeyword)}, m_aFindings.size());
    if (bNew) m_aFindings.push_back({&rKind, std::string(sKeyword), 0, {}});
    return m_aFindings[pPlace->second];
}

bool CFindings::WantsText(const T_FINDINGKIND_D& rKind, std::string_view sKeyword) {
    return Find(rKind, sKeyword).aPLACES.size() < T_FINDING_D::MOST_PLACES;
}

void CFindings::Add(const T_FINDINGKIND_D& rKind, std::string_view sKeyword, T_PLACED_D place) {
    T_FINDING_D& rFinding = Find(rKind, sKeyword);
    ++rFinding.nCOUNT;
    if (rFinding.aPLACES.size() < T_FINDING_D::MOST_PLACES) rFinding.aPLACES.push_back(std::move(place));
}

void CFindings::Count(const T_FINDINGKIND_D& rKind, std::string_view sKeyword, std::uint64_t nCount) {
    if (nCount > 0) Find(rKind, sKeyword).nCOUNT += nCount;
}

std::uint64_t CFindings::GetCount(E_SEVERITY eSeverity) const {
    std::uint64_t nCount = 0;
    for (const T_FINDING_D& rFinding : m_aFindings) {
        if (rFinding.pKIND->eSEVERITY == eSeverity) nCount += rFinding.nCOUNT;
    }
    return nCount;
}
