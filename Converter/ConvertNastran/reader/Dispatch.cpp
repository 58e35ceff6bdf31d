// What becomes of an assembled card.

#include "driver/CConvertNastran.h"

#include "messages/MsgDll.h"
#include "reader/FieldCursor.h"
#include "reader/Keywords.h"

#include <algorithm>

/// Sends a card to its handler, whose result doesn't matter. Returns 0 for the keyword that ends a deck, else 1.
int CConvertNastran::DispatchCard(const T_DATA_D& rCard) {
    if (rCard.iKEYWORD < 0) return 1;
    const T_KEYW_D& rKeyword = T_KEYW_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)];
    switch (rKeyword.eACTION) {
    case CARD_PARSED:
        (this->*rKeyword.pfnPARSE)(rCard);
        break;
    case CARD_REPORTED:
        ReportCard(rCard);
        break;
    case CARD_INCLUDED:
        TakeInclude(rCard);
        break;
    case CARD_END:
        return 0;
    case CARD_SKIPPED:
        break;
    }
    return 1;
}

/// Logs that a card isn't converted.
void CConvertNastran::ReportCard(const T_DATA_D& rCard) {
    const std::string_view sKeyword = T_KEYW_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)].sNAME;
    LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_convert_in_this_version"), sKeyword,
               LineInfoText(rCard.aLINES, m_pObserver));
}

/// Takes the path of an INCLUDE from its first field, without apostrophes. A card without one gives an empty path.
/// Throws CRunError for a deck too many: all that are named will be opened, and their names alone could fill the
/// memory.
void CConvertNastran::TakeInclude(const T_DATA_D& rCard) {
    if (static_cast<std::int64_t>(m_aIncludeFiles.size()) >= m_limits.nDECKS) {
        throw CRunError(FAILURE_LIMIT_DECKS, m_aLines[0]->iLINE, m_limits.nDECKS);
    }
    std::string sPath(CFieldCursor(rCard).Text());
    std::erase(sPath, '\'');
    m_aIncludeFiles.push_back({std::move(sPath), m_iCurDeck, {}});
}
