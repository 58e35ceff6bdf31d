// Growth of the index.

#include "store/KeyIndex.h"

namespace {
constexpr std::size_t FIRST_SIZE = 16;
// With half of the entries free and good scattering a search is a few steps; one this long means that pages crowd.
constexpr std::size_t LONGEST_SEARCH = 256;
} // namespace

bool CKeyIndex::TryPut(DIRECTORY& rEntries, T_ENTRY_D entry, std::uint64_t nSeed) {
    std::size_t i = Home(rEntries, entry.nGroup, nSeed);
    for (std::size_t nSteps = 0; nSteps < LONGEST_SEARCH && nSteps < rEntries.size(); ++nSteps) {
        if (rEntries[i].iPage == NONE) {
            rEntries[i] = entry;
            return true;
        }
        i = (i + 1) & (rEntries.size() - 1);
    }
    return false;
}

void CKeyIndex::Rebuild(std::size_t nSize, T_ENTRY_D added) {
    for (std::uint64_t nSeed = m_nSeed;; nSeed = nSeed * 6364136223846793005ull + 1442695040888963407ull) {
        DIRECTORY aEntries(nSize, {0, NONE});
        bool bDone = TryPut(aEntries, added, nSeed);
        for (std::size_t i = 0; bDone && i < m_aEntries.size(); ++i) {
            bDone = m_aEntries[i].iPage == NONE || TryPut(aEntries, m_aEntries[i], nSeed);
        }
        if (!bDone) continue;
        m_aEntries.swap(aEntries);
        m_nSeed = nSeed;
        return;
    }
}

void CKeyIndex::Add(std::int32_t iKey, std::uint32_t iPlace) {
    const auto nKey = static_cast<std::uint32_t>(iKey);
    std::uint32_t iPage = FindPage(nKey / PAGE);
    if (iPage == NONE) {
        iPage = static_cast<std::uint32_t>(m_aPages.size());
        m_aPages.emplace_back().fill(NONE);
        const T_ENTRY_D added{nKey / PAGE, iPage};
        try {
            if (m_aPages.size() * 2 > m_aEntries.size()) {
                Rebuild(m_aEntries.empty() ? FIRST_SIZE : m_aEntries.size() * 2, added);
            } else if (!TryPut(m_aEntries, added, m_nSeed)) {
                Rebuild(m_aEntries.size(), added);
            }
        } catch (...) {
            m_aPages.pop_back();
            throw;
        }
    }
    m_aPages[iPage][nKey % PAGE] = iPlace;
}
