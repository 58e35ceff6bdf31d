// Takes a set and what it sums up.

#include "nas2zdt/restate/SetChoice.h"

#include <algorithm>
#include <iterator>

void CSetChoice::AddSum(std::int32_t iSum, std::vector<std::int32_t> aSets) {
    std::vector<std::int32_t>& rSets = m_mapSums[iSum];
    rSets.insert(rSets.end(), aSets.begin(), aSets.end());
}

std::int32_t CSetChoice::FindRoot() const {
    std::set<std::int32_t> roots(m_sets.upper_bound(0), m_sets.end());
    for (const auto& [iSum, aSets] : m_mapSums) {
        if (iSum > 0) roots.insert(iSum);
    }
    if (roots.empty()) return 0;
    const std::int32_t iLowest = *roots.begin();
    for (const auto& [iSum, aSets] : m_mapSums) {
        for (const std::int32_t iSet : aSets) {
            if (iSet != iSum) roots.erase(iSet);
        }
    }
    if (roots.size() == 1) return *roots.begin();
    const auto pSum = m_mapSums.upper_bound(0);
    return pSum == m_mapSums.end() ? iLowest : pSum->first;
}

/// Sums may sum up sums, in circles, too.
void CSetChoice::Choose(std::optional<std::int32_t> iAsked) {
    m_iChosen = iAsked ? *iAsked : FindRoot();
    if (m_iChosen == 0) return;
    std::vector<std::int32_t> aStack = {m_iChosen};
    while (!aStack.empty()) {
        const std::int32_t iSet = aStack.back();
        aStack.pop_back();
        const auto pSum = m_taken.insert(iSet).second ? m_mapSums.find(iSet) : m_mapSums.end();
        if (pSum != m_mapSums.end()) aStack.insert(aStack.end(), pSum->second.begin(), pSum->second.end());
    }
}

std::vector<std::int32_t> CSetChoice::GetLeft() const {
    std::vector<std::int32_t> aLeft;
    std::set_difference(m_sets.begin(), m_sets.end(), m_taken.begin(), m_taken.end(), std::back_inserter(aLeft));
    return aLeft;
}

std::string ListIds(const std::vector<std::int32_t>& rIDs) {
    constexpr std::size_t MOST = 10;
    std::string sList;
    for (std::size_t i = 0; i < std::min(rIDs.size(), MOST); ++i) {
        sList += (i == 0 ? "" : ", ") + std::to_string(rIDs[i]);
    }
    if (rIDs.size() > MOST) sList += " and " + std::to_string(rIDs.size() - MOST) + " more";
    return sList;
}
