// What becomes of an assembled card.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "reader/FieldCursor.h"
#include "reader/Keywords.h"

#include <string>
#include <utility>

/// Sends a card to its handler, whose result doesn't matter. Returns 0 for the keyword that ends a deck, else 1. Throws
/// CRunError for a deck too many.
int CConvertNastran::DispatchCard(const T_DATA_D& rCard) {
    if (rCard.iKEYWORD < 0) return 1;
    const T_KEYW_D& rKeyword = T_KEYW_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)];
    switch (rKeyword.eACTION) {
    case CARD_PARSED:
        (this->*rKeyword.pfnPARSE)(rCard);
        break;
    case CARD_REPORTED:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_convert_in_this_version"),
                   {rKeyword.sNAME, LineInfoText(rCard.aLINES)});
        break;
    case CARD_INCLUDED: {
        // All decks that are named will be opened, and their names alone could fill the memory.
        const std::int64_t nMost = m_options.limits.nDECKS;
        const std::size_t nDecks = m_aIncludeFiles.GetDecks().size();
        if (static_cast<std::int64_t>(nDecks) >= nMost) {
            throw CRunError(FAILURE_LIMIT_DECKS, m_aLines.First().iLINE, nMost);
        }
        std::string sPath(CFieldCursor(rCard).Text()); // a card without a path gives an empty one
        std::erase(sPath, '\'');
        m_aIncludeFiles.Add(std::move(sPath));
        break;
    }
    case CARD_END:
        return 0;
    case CARD_SKIPPED:
        break;
    }
    return 1;
}
