// Included decks, and the test for decks that include each other in a circle.

#include "reader/DeckList.h"

#include "messages/RunError.h"

#include <utility>

void CDeckList::Include(std::string_view sPath, std::int32_t iLine, std::int64_t nMost) {
    if (static_cast<std::int64_t>(m_aDecks.size()) >= nMost) throw CRunError(FAILURE_LIMIT_DECKS, iLine, nMost);
    m_setIncluding.insert(GetCurrent().id);
    m_aDecks.push_back({std::string(sPath), m_iCurrent, {}});
    std::erase(m_aDecks.back().sPATH, '\'');
}

/// A deck may be included many times by different decks, but one that includes itself, directly or through others,
/// would never end. Only a deck that includes others is tested, and once for all cards of a deck that name it.
void CDeckList::Open(const T_FILEID_D& rId) {
    m_aDecks[m_iCurrent].id = rId;
    if (!m_setIncluding.contains(rId)) return;
    const std::size_t iOrigin = m_aDecks[m_iCurrent].iORIGIN;
    if (std::exchange(m_iTestedOrigin, iOrigin) != iOrigin) m_setTested.clear();
    if (!m_setTested.insert(rId).second) return;
    for (std::size_t iDeck = m_iCurrent; iDeck != 0;) {
        iDeck = m_aDecks[iDeck].iORIGIN;
        if (m_aDecks[iDeck].id == rId) throw CRunError(FAILURE_INCLUDE_CYCLE);
    }
}
