// What the account says of a deck's text and of its lines before the bulk data.

#include "driver/CConvertNastran.h"
#include "nas2zdt/account/Account.h"

namespace {

std::int32_t KeywordOf(std::string_view sKeyword) {
    std::int32_t iKeyword = 0;
    CConvertNastran::KeywordToId(sKeyword, iKeyword);
    return iKeyword;
}

} // namespace

void CAccount::OnDeckBegin(const std::string& sName) {
    m_aDecks.push_back(sName);
    m_textLosses.BeginDeck();
    m_caseControl.BeginDeck();
    m_iSaidIgnored = 0;
    // decks are opened in the order of the cards that name them
    const std::size_t nIncluded = m_aDecks.size() - 1;
    m_bPart = nIncluded > 0 && nIncluded <= m_aIncludesPart.size() && m_aIncludesPart[nIncluded - 1];
    SetLast(nullptr);
}

void CAccount::OnControlLine(std::string_view sText, std::int32_t iLine) {
    m_caseControl.AddLine(sText);
    if (sText.starts_with("BEGIN BULK")) {
        if (sText.find("SUPER") != std::string_view::npos || BeginsPart(sText)) m_bPart = BeginsPart(sText);
        m_quiet.bTELLALL = m_bPart;
    } else if (sText.find("ENDDATA") != std::string_view::npos) {
        CCardText text;
        text.Read({&sText, 1});
        if (text.GetKeyword() != "ENDDATA")
            Note(Known(KeywordOf("ENDDATA")), NOTE_ENDED_EARLY, CLASS_MODEL, Place(iLine, iLine));
    } else if (sText.starts_with("INCLUDE")) {
        Note(Known(KeywordOf("INCLUDE")), NOTE_CONTROL_INCLUDE, CLASS_MODEL, Place(iLine, iLine));
    }
}

/// The card of rWord lost what is in aLosses, or the one of pBefore did.
void CAccount::NoteText(const std::vector<T_TEXTLOSS_D>& aLosses, T_WORD_D& rWord, T_WORD_D* pBefore,
                        const T_PLACE_D& rPlace) {
    for (const T_TEXTLOSS_D& rLoss : aLosses) {
        const T_MARK_D inHand = m_inHand;
        if (rLoss.bBEFORE) m_inHand = {};
        Note(rLoss.bBEFORE && pBefore ? *pBefore : rWord, rLoss.eNOTE, CLASS_MODEL, rPlace, rLoss.sTEXT);
        m_inHand = inHand;
    }
}

/// A card that is stored though it is no part of the main model, or though the log denies it.
void CAccount::NoteOutsider(T_WORD_D& rWord, std::int32_t iKeyword, const T_PLACE_D& rPlace) {
    if (T_KEYWORD_D::TABLE[static_cast<std::size_t>(iKeyword)].eACTION != CARD_PARSED) return;
    if (m_bPart) Note(rWord, NOTE_PART, CLASS_MODEL, rPlace);
    if (m_iSaidIgnored == rPlace.iFIRST) Note(rWord, NOTE_SAID_IGNORED, CLASS_NOTE, rPlace);
}

void CAccount::NoteDeck(const CDataPool& rPool) {
    for (const T_STRAY_D& rStray : m_textLosses.FindStrays()) {
        T_WORD_D& rWord = rStray.iKEYWORD >= 0 ? Known(rStray.iKEYWORD) : Unknown("");
        Note(rWord, NOTE_STRAY_LINE, CLASS_MODEL, {rStray.iDECK, rStray.iLINE, rStray.iLINE});
    }
    for (const T_CASELOSS_D& rLoss : m_caseControl.Find(rPool)) {
        T_NOTE_D& rNote = FindNote(Known(KeywordOf(rLoss.sKEYWORD)), rLoss.eNOTE,
                                   rLoss.eNOTE == NOTE_CASE_MISSING ? CLASS_MODEL : CLASS_CONTROL, {});
        rNote.nCOUNT += rLoss.aIDS.size();
        for (const std::int32_t iID : rLoss.aIDS) {
            if (rNote.aIDS.size() < T_NOTE_D::MOST_PLACES) rNote.aIDS.push_back(iID);
        }
    }
}
