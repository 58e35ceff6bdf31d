// Counting what became of every card.

#include "nas2zdt/account/Account.h"

#include "driver/CConvertNastran.h"
#include "reader/FieldParser.h"

#include <algorithm>

static_assert(T_KEYW_D::TABLE.size() < 256); // a keyword's id fits into a byte
static_assert(NOTE_UNKNOWN_WORD == static_cast<int>(LOSS_UNKNOWN_WORD));

CAccount::CAccount() {
    m_aDrops.reserve(m_aKnown.size());
    for (std::size_t i = 0; i < m_aKnown.size(); ++i) {
        m_aKnown[i].sNAME = T_KEYW_D::TABLE[i].sNAME;
        m_aOwns[i] = FindOwnedIds(T_KEYW_D::TABLE[i].sNAME);
        m_aDrops.emplace_back(T_KEYW_D::TABLE[i].sNAME);
    }
}

T_WORD_D& CAccount::Unknown(std::string_view sWord) {
    if (m_pUnknown && m_pUnknown->sNAME == sWord) return *m_pUnknown; // one word often comes many times in a row
    auto pFound = m_mapUnknown.find(sWord);
    if (pFound == m_mapUnknown.end()) {
        pFound = m_mapUnknown.emplace(sWord, T_WORD_D()).first;
        pFound->second.sNAME = sWord;
    }
    m_pUnknown = &pFound->second;
    return *m_pUnknown;
}

T_NOTE_D& CAccount::FindNote(T_WORD_D& rWord, E_NOTE eNote, std::string_view sText) {
    const auto find = [&] {
        return std::find_if(rWord.aNOTES.begin(), rWord.aNOTES.end(),
                            [&](const T_NOTE_D& rNote) { return rNote.eNOTE == eNote && rNote.sTEXT == sText; });
    };
    auto pNote = find();
    const bool bFields = eNote == NOTE_FIELDS || eNote == NOTE_PAST_READ;
    if (pNote == rWord.aNOTES.end() && bFields && rWord.aNOTES.size() >= T_WORD_D::MOST_NOTES) {
        sText = "other fields";
        pNote = find();
    }
    if (pNote == rWord.aNOTES.end()) pNote = rWord.aNOTES.insert(pNote, {eNote, std::string(sText), 0, {}, {}});
    return *pNote;
}

void CAccount::Note(T_WORD_D& rWord, E_NOTE eNote, const T_PLACE_D& rPlace, std::string_view sText) {
    T_NOTE_D& rNote = FindNote(rWord, eNote, sText);
    ++rNote.nCOUNT;
    if (rNote.aPLACES.size() < T_NOTE_D::MOST_PLACES) rNote.aPLACES.push_back(rPlace);
}

void CAccount::EndDeck(bool bBulk) {
    if (!bBulk) Note(Unknown(""), NOTE_NO_BULK, Place(0, 0));
    m_pLast = nullptr;
}

void CAccount::AddCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) {
    T_WORD_D& rWord = Known(rCard.iKEYWORD);
    m_pLast = &rWord;
    ++rWord.nREAD;
    const E_CARD_ACTION eAction = T_KEYW_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)].eACTION;
    const T_PLACE_D place = Place(iFirst, iLast);
    if (m_nDeletedFields > 0) Note(rWord, NOTE_PLUS_SIGN, place);
    m_nDeletedFields = 0;
    if (eAction == CARD_REPORTED) {
        ++rWord.nREPORTED;
        return Note(rWord, NOTE_REPORTED, place);
    }
    if (eAction == CARD_SKIPPED) {
        ++rWord.nSKIPPED;
        return Note(rWord, NOTE_SKIPPED, place);
    }
    ++rWord.nSTORED;
    if (eAction != CARD_PARSED) return;
    const T_OWNS_D& rOwns = m_aOwns[static_cast<std::size_t>(rCard.iKEYWORD)];
    if (rOwns.eTABLE != OWNED_COUNT) TakeOwnership(rOwns, rCard.iKEYWORD, rCard, place);
    const T_DROPPED_D dropped = m_aDrops[static_cast<std::size_t>(rCard.iKEYWORD)].Find(rCard, rUse);
    if (!dropped.sPASTREAD.empty()) Note(rWord, NOTE_PAST_READ, place, dropped.sPASTREAD);
    if (!dropped.sFIELDS.empty()) Note(rWord, NOTE_FIELDS, place, dropped.sFIELDS);
    if (dropped.bTHRU) Note(rWord, NOTE_THRU, place);
}

/// The card's records are its keyword's from now on; those that were another card's were replaced.
void CAccount::TakeOwnership(const T_OWNS_D& rOwns, std::int32_t iKeyword, const T_DATA_D& rCard,
                             const T_PLACE_D& rPlace) {
    CIdOwners& rOwners = m_aOwners[rOwns.eTABLE];
    for (std::size_t i = 0; i < rOwns.nFIELDS; i += rOwns.nSTEP) {
        const std::int32_t iID = i < rCard.aFIELDS.size() ? TextToInt(rCard.aFIELDS[i]) : 0;
        if (i > 0 && iID == 0) return;
        const std::int32_t iEarlier = rOwners.Take(iID, static_cast<std::uint8_t>(iKeyword));
        if (iEarlier != CIdOwners::NONE) {
            ++Known(iEarlier).nREPLACED;
            Note(Known(iEarlier), NOTE_REPLACED, rPlace);
        }
        if (rOwns.nSTEP == 0) return;
    }
}

void CAccount::AddLoss(const T_LOSS_D& rLoss) {
    m_nDeletedFields = 0;
    const T_PLACE_D place = Place(rLoss.iFIRST, rLoss.iLAST);
    if (rLoss.eLOSS == LOSS_CUT_OFF) {
        T_WORD_D& rWord = m_pLast ? *m_pLast : Unknown("");
        ++rWord.nCUTOFF;
        return Note(rWord, NOTE_CUT_OFF, place);
    }
    T_WORD_D& rWord = rLoss.iKEYWORD >= 0 ? Known(rLoss.iKEYWORD) : Unknown(rLoss.sWORD);
    m_pLast = &rWord;
    ++rWord.nREAD;
    ++(rLoss.eLOSS == LOSS_UNKNOWN_WORD ? rWord.nUNKNOWN : rWord.nLOST);
    Note(rWord, static_cast<E_NOTE>(rLoss.eLOSS), place);
}

void CAccount::AddDeletedFields(std::size_t nFields, std::int32_t) {
    m_nDeletedFields += nFields;
}

/// Reasons of one text make one note. One is often told many times in a row.
void CAccount::AddLeft(const T_LEFT_D& rLeft) {
    if (rLeft.eREASON != m_left.eREASON || rLeft.sKEYWORD != m_left.sKEYWORD) {
        const T_REASON_D& rReason = ReasonOf(rLeft.eREASON);
        std::int32_t iKeyword = 0;
        CConvertNastran::KeywordToId(rLeft.sKEYWORD ? rLeft.sKEYWORD : rReason.sKEYWORD, iKeyword);
        T_WORD_D& rWord = Known(iKeyword);
        const E_NOTE eNote = rReason.bWRITTEN ? NOTE_ALTERED : NOTE_UNWRITTEN;
        const T_NOTE_D& rFound = FindNote(rWord, eNote, rReason.sTEXT);
        m_left = {rLeft.eREASON, rLeft.sKEYWORD, &rWord, static_cast<std::size_t>(&rFound - rWord.aNOTES.data())};
    }
    T_NOTE_D& rNote = m_left.pWORD->aNOTES[m_left.iNOTE];
    rNote.nCOUNT += rLeft.nCOUNT;
    std::vector<std::int32_t>& rIds = rNote.aIDS;
    if (rIds.size() == T_NOTE_D::MOST_PLACES && rLeft.iID >= rIds.back()) return;
    rIds.insert(std::upper_bound(rIds.begin(), rIds.end(), rLeft.iID), rLeft.iID);
    if (rIds.size() > T_NOTE_D::MOST_PLACES) rIds.pop_back();
}

std::vector<const T_WORD_D*> CAccount::GetWords() const {
    std::vector<const T_WORD_D*> aWords;
    const auto add = [&](const T_WORD_D& rWord) {
        if (rWord.nREAD > 0 || !rWord.aNOTES.empty()) aWords.push_back(&rWord);
    };
    for (const T_WORD_D& rWord : m_aKnown) add(rWord);
    for (const auto& [sName, rWord] : m_mapUnknown) add(rWord);
    std::sort(aWords.begin(), aWords.end(),
              [](const T_WORD_D* pA, const T_WORD_D* pB) { return pA->sNAME < pB->sNAME; });
    return aWords;
}

std::uint64_t CAccount::GetLossCount() const {
    std::uint64_t nLosses = 0;
    for (const T_WORD_D* pWord : GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) nLosses += rNote.nCOUNT;
    }
    return nLosses;
}

T_ORIGIN_D CAccount::GetOrigin(const T_PLACE_D& rPlace) const {
    if (m_pLines) return m_pLines->Find(rPlace.iFIRST);
    return {m_aDecks[rPlace.iDECK], rPlace.iFIRST};
}
