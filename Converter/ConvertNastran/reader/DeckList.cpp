// The test for decks that include each other in a circle.

#include "reader/DeckList.h"

#include "messages/RunError.h"

/// A deck may be included again and again by different roads, but a road that leads back to where it came from would
/// never end. The road is walked only for a deck that includes others, and once for all cards of a deck that name it.
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
