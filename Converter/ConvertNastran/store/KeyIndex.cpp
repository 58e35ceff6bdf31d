// Growth of the index.

#include "store/KeyIndex.h"

namespace {
constexpr std::size_t FIRST_SIZE = 16;
}

std::uint32_t CKeyIndex::FindCrowded(std::uint32_t nGroup) const {
    const auto pFound = m_mapCrowded.find(nGroup);
    return pFound == m_mapCrowded.end() ? NONE : pFound->second;
}

bool CKeyIndex::TryPut(DIRECTORY& rEntries, T_ENTRY_D entry) {
    std::size_t i = Home(rEntries, entry.nGroup);
    for (std::size_t nSteps = 0; nSteps < LONGEST_SEARCH; ++nSteps, i = (i + 1) & (rEntries.size() - 1)) {
        if (rEntries[i].iPage == NONE) {
            rEntries[i] = entry;
            return true;
        }
    }
    return false;
}

/// Doubles the directory.
void CKeyIndex::Grow() {
    DIRECTORY aEntries(m_aEntries.empty() ? FIRST_SIZE : m_aEntries.size() * 2, {0, NONE});
    std::map<std::uint32_t, std::uint32_t> mapCrowded;
    const auto put = [&](T_ENTRY_D entry) {
        if (!TryPut(aEntries, entry)) mapCrowded.emplace(entry.nGroup, entry.iPage);
    };
    for (const T_ENTRY_D& rEntry : m_aEntries) {
        if (rEntry.iPage != NONE) put(rEntry);
    }
    for (const auto& [nGroup, iPage] : m_mapCrowded) put({nGroup, iPage});
    m_aEntries.swap(aEntries);
    m_mapCrowded.swap(mapCrowded);
}

void CKeyIndex::Add(std::int32_t iKey, std::uint32_t iPlace) {
    const auto nKey = static_cast<std::uint32_t>(iKey);
    std::uint32_t iPage = m_nPages > 0 && nKey / PAGE == m_nLastGroup ? m_iLastPage : FindPage(nKey / PAGE);
    if (iPage == NONE) {
        iPage = m_nPages;
        if (iPage == m_aBlocks.size() * BLOCK) m_aBlocks.push_back(std::make_unique_for_overwrite<T_BLOCK_D>());
        Page(iPage).fill(NONE);
        if ((std::size_t(iPage) + 1) * 2 > m_aEntries.size()) Grow();
        const T_ENTRY_D added{nKey / PAGE, iPage};
        if (!TryPut(m_aEntries, added)) m_mapCrowded.emplace(added.nGroup, added.iPage);
        ++m_nPages;
    }
    m_nLastGroup = nKey / PAGE;
    m_iLastPage = iPage;
    Page(iPage)[nKey % PAGE] = iPlace;
}
