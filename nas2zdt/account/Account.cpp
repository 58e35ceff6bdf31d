// Counts what became of every card.

#include "nas2zdt/account/Account.h"

#include "driver/CConvertNastran.h"
#include "reader/FieldParser.h"
#include "store/DataPool.h"
#include "writer/Numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

static_assert(T_KEYWORD_D::TABLE.size() < 256); // a keyword's id fits into a byte
static_assert(NOTE_UNKNOWN_WORD == static_cast<int>(LOSS_UNKNOWN_WORD));

CAccount::CAccount() {
    m_aDrops.reserve(m_aKnown.size());
    for (std::size_t i = 0; i < m_aKnown.size(); ++i) {
        m_aKnown[i].sNAME = T_KEYWORD_D::TABLE[i].sNAME;
        m_aDrops.emplace_back(T_KEYWORD_D::TABLE[i].sNAME);
        if (T_KEYWORD_D::TABLE[i].eACTION != CARD_PARSED) continue;
        std::uint32_t nFilled = 0, nValues = 0;
        m_aDrops[i].GetWatched(nFilled, nValues);
        m_quiet.aWATCHES[i].Set(nFilled, nValues);
    }
}

T_WORD_D& CAccount::Unknown(std::string_view sWord) {
    if (m_pUnknown && m_pUnknown->sNAME == sWord) return *m_pUnknown; // the same word often comes many times in a row
    auto pFound = m_mapUnknown.find(sWord);
    if (pFound == m_mapUnknown.end()) {
        pFound = m_mapUnknown.emplace(sWord, T_WORD_D()).first;
        pFound->second.sNAME = sWord;
    }
    m_pUnknown = &pFound->second;
    return *m_pUnknown;
}

T_NOTE_D& CAccount::FindNote(T_WORD_D& rWord, E_NOTE eNote, E_LOSS_CLASS eClass, std::string_view sText) {
    const auto find = [&] {
        return std::find_if(rWord.aNOTES.begin(), rWord.aNOTES.end(), [&](const T_NOTE_D& rNote) {
            return rNote.eNOTE == eNote && rNote.eCLASS == eClass && rNote.sTEXT == sText;
        });
    };
    auto pNote = find();
    const bool bFields = eNote == NOTE_FIELDS || eNote == NOTE_PAST_READ || eNote == NOTE_NOT_A_NUMBER;
    if (pNote == rWord.aNOTES.end() && bFields && rWord.aNOTES.size() >= T_WORD_D::MOST_NOTES) {
        sText = "other fields";
        pNote = find();
    }
    if (pNote == rWord.aNOTES.end()) {
        pNote = rWord.aNOTES.insert(pNote, {eNote, eClass, std::string(sText), {}, 0, {}, {}});
    }
    return *pNote;
}

void CAccount::Note(T_WORD_D& rWord, E_NOTE eNote, E_LOSS_CLASS eClass, const T_PLACE_D& rPlace, std::string_view sText,
                    std::uint64_t nCount) const {
    T_NOTE_D& rNote = FindNote(rWord, eNote, eClass, sText);
    rNote.nCOUNT += nCount;
    if (rNote.aPLACES.size() < m_nMostPlaces) rNote.aPLACES.push_back(rPlace);
    if (m_inHand.eMARKED == MARKED_NONE) return;
    rNote.eMARKED = m_inHand.eMARKED;
    rNote.aMARKED.push_back(m_inHand.iID);
}

void CAccount::OnDeckEnd(bool bBulk) {
    if (!bBulk) Note(Unknown(""), NOTE_NO_BULK, CLASS_MODEL, Place(0, 0));
    for (std::size_t i = 0; i < m_aKnown.size(); ++i) {
        const std::uint32_t nCount = std::exchange(m_quiet.aWATCHES[i].nCOUNT, 0);
        m_aKnown[i].nREAD += nCount;
        m_aKnown[i].nSTORED += nCount;
    }
    SetLast(nullptr);
}

/// The next card or loss comes behind one of pWord.
void CAccount::SetLast(T_WORD_D* pWord) {
    m_pLast = pWord;
    m_quiet.iLAST = -1;
    m_quiet.bTELLALL = m_bPart;
}

void CAccount::OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) {
    if (m_bMarks && !rCard.aFIELDS.empty()) {
        m_inHand = {MarkedByCard(Known(rCard.iKEYWORD).sNAME), FieldToInt(rCard.aFIELDS.front(), 0)};
    }
    TakeCard(rCard, rUse, iFirst, iLast);
    m_inHand = {};
}

void CAccount::TakeCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) {
    T_WORD_D& rWord = Known(rCard.iKEYWORD);
    const T_PLACE_D place = Place(iFirst, iLast);
    if (m_textLosses.HasText(iFirst)) {
        NoteText(m_textLosses.FindInCard(rCard, rUse, iFirst, m_nDeletedFields > 0), rWord, LastWord(), place);
    }
    if (m_bPart || m_iSaidIgnored == iFirst) NoteOutsider(rWord, rCard.iKEYWORD, place);
    SetLast(&rWord);
    ++rWord.nREAD;
    const E_CARD_ACTION eAction = T_KEYWORD_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)].eACTION;
    if (m_nDeletedFields > 0) Note(rWord, NOTE_PLUS_SIGN, CLASS_MODEL, place);
    m_nDeletedFields = 0;
    if (eAction == CARD_REPORTED) {
        ++rWord.nREPORTED;
        return NoteCard(rWord, NOTE_REPORTED, place);
    }
    if (eAction == CARD_SKIPPED) {
        ++rWord.nSKIPPED;
        m_caseControl.AddCard(rCard);
        return NoteCard(rWord, NOTE_SKIPPED, place);
    }
    ++rWord.nSTORED;
    if (eAction == CARD_INCLUDED) m_aIncludesPart.push_back(m_bPart);
    if (eAction != CARD_PARSED) return;
    NoteReplaced(place);
    m_aDropped.clear();
    m_aThrus.clear();
    m_aDrops[static_cast<std::size_t>(rCard.iKEYWORD)].Find(rCard, rUse, m_aDropped, m_aThrus);
    for (const T_DROPPED_D& rDropped : m_aDropped) {
        Note(rWord, rDropped.eNOTE, rDropped.eCLASS, place, rDropped.sTEXT);
    }
    for (const T_THRU_D& rThru : m_aThrus) m_aRanges.push_back({&rWord, place, rThru});
}

/// Notes the records that the card in hand replaced, by the keywords of their cards.
void CAccount::NoteReplaced(const T_PLACE_D& rPlace) {
    for (const T_REPLACED_D& rReplaced : m_aReplaced) {
        std::int32_t iEarlier = 0;
        if (!rReplaced.sKEYWORD || !CConvertNastran::KeywordToId(rReplaced.sKEYWORD, iEarlier)) continue;
        T_WORD_D& rWord = Known(iEarlier);
        ++rWord.nREPLACED;
        if (rReplaced.bSAME) {
            Note(rWord, NOTE_DUPLICATE, CLASS_NOTE, rPlace);
        } else {
            NoteCard(rWord, NOTE_REPLACED, rPlace);
        }
    }
    m_aReplaced.clear();
}

void CAccount::OnLoss(const T_LOSS_D& rLoss) {
    m_nDeletedFields = 0;
    const T_PLACE_D place = Place(rLoss.iFIRST, rLoss.iLAST);
    const std::vector<T_TEXTLOSS_D>& aTextLosses = m_textLosses.FindInLoss(rLoss);
    if (rLoss.eLOSS == LOSS_CUT_OFF) {
        T_WORD_D& rWord = LastWord() ? *LastWord() : Unknown("");
        ++rWord.nCUTOFF;
        return NoteCard(rWord, NOTE_CUT_OFF, place);
    }
    T_WORD_D& rWord = rLoss.iKEYWORD >= 0 ? Known(rLoss.iKEYWORD) : Unknown(rLoss.sWORD);
    if (m_textLosses.BeginsPart()) m_bPart = true;
    NoteText(aTextLosses, rWord, LastWord(), place);
    SetLast(&rWord);
    ++rWord.nREAD;
    ++(rLoss.eLOSS == LOSS_UNKNOWN_WORD ? rWord.nUNKNOWN : rWord.nLOST);
    NoteCard(rWord, static_cast<E_NOTE>(rLoss.eLOSS), place);
}

void CAccount::EndRun(const CDataPool& rPool) {
    NoteRanges(rPool, false);
    NoteRanges(rPool, true);
    NoteDeck(rPool);
}

/// Notes the ids of THRUs that the deck has, of its elements or its grids.
void CAccount::NoteRanges(const CDataPool& rPool, bool bElements) {
    std::vector<std::int32_t> aIds;
    const auto keep = [&](std::int32_t iID, const auto&) { aIds.push_back(iID); };
    for (const T_RANGE_D& rRange : m_aRanges) {
        if (rRange.thru.bELEMENTS != bElements) continue;
        if (aIds.empty()) {
            bElements ? rPool.ELEM.ForEach(keep) : rPool.NODS.ForEach(keep);
            std::sort(aIds.begin(), aIds.end());
        }
        const auto pFirst = std::upper_bound(aIds.begin(), aIds.end(), rRange.thru.iAFTER);
        const auto pEnd = std::upper_bound(pFirst, aIds.end(), rRange.thru.iLAST);
        const E_NOTE eNote = bElements ? NOTE_THRU_ELEMENTS : NOTE_THRU_GRIDS;
        const auto nCount = static_cast<std::uint64_t>(pEnd - pFirst);
        if (nCount > 0) Note(*rRange.pWORD, eNote, CLASS_MODEL, rRange.place, {}, nCount);
    }
}

void CAccount::AddRounding(const CDataPool& rPool) {
    std::uint64_t nRounded = 0;
    double dLargest = 0.0;
    rPool.NODS.ForEach([&](std::int32_t, const T_NODS_D& rNode) {
        for (const double d : {rNode.dGX, rNode.dGY, rNode.dGZ}) {
            const double dError = std::fabs(RoundReal(d) - d);
            if (!(dError > 0.0)) continue;
            ++nRounded;
            dLargest = std::max(dLargest, dError);
        }
    });
    if (nRounded == 0) return;
    std::int32_t iKeyword = 0;
    CConvertNastran::KeywordToId("GRID", iKeyword);
    char aLargest[LONGEST_REAL];
    const std::string sLargest(aLargest, PutReal(aLargest, dLargest));
    FindNote(Known(iKeyword), NOTE_ROUNDED, CLASS_NOTE, "by at most " + sLargest).nCOUNT = nRounded;
}

void CAccount::AddRestated(const std::vector<T_TOLD_D>& rTold, const std::vector<std::string>& rFiles) {
    m_pSources = &rFiles;
    for (const T_TOLD_D& rEntry : rTold) {
        std::int32_t iKeyword = 0;
        const bool bKnown = CConvertNastran::KeywordToId(rEntry.sKEYWORD, iKeyword) != 0;
        std::string sText = rEntry.pRULE->sGIVES;
        if (!rEntry.sDETAIL.empty()) sText += " (" + rEntry.sDETAIL + ")";
        T_NOTE_D& rNote =
            FindNote(bKnown ? Known(iKeyword) : Unknown(rEntry.sKEYWORD), NOTE_RULE, rEntry.pRULE->eCLASS, sText);
        rNote.sREASON = rEntry.pRULE->sNAME;
        rNote.nCOUNT += rEntry.nCOUNT;
        for (const T_ORIGINLINE_D& rPlace : rEntry.aPLACES) {
            if (rPlace.iLINE > 0)
                rNote.aPLACES.push_back({T_PLACE_D::SOURCE + rPlace.iFILE, rPlace.iLINE, rPlace.iLINE});
        }
    }
}

/// Reasons of one text make one note. One is often told many times in a row.
void CAccount::OnLeft(const T_LEFT_D& rLeft) {
    if (rLeft.eREASON != m_left.eREASON || rLeft.sKEYWORD != m_left.sKEYWORD) {
        const T_REASON_D& rReason = ReasonOf(rLeft.eREASON);
        std::int32_t iKeyword = 0;
        CConvertNastran::KeywordToId(rLeft.sKEYWORD ? rLeft.sKEYWORD : rReason.sKEYWORD, iKeyword);
        T_WORD_D& rWord = Known(iKeyword);
        const E_NOTE eNote = rReason.bWRITTEN ? NOTE_ALTERED : NOTE_UNWRITTEN;
        T_NOTE_D& rFound = FindNote(rWord, eNote, rReason.eCLASS, rReason.sTEXT);
        rFound.sREASON = rReason.sCODE;
        rFound.eMARKED = m_bMarks ? MarkedByReason(rReason) : MARKED_NONE;
        m_left = {rLeft.eREASON, rLeft.sKEYWORD, &rWord, static_cast<std::size_t>(&rFound - rWord.aNOTES.data())};
    }
    T_NOTE_D& rNote = m_left.pWORD->aNOTES[m_left.iNOTE];
    rNote.nCOUNT += rLeft.nCOUNT;
    if (rNote.eMARKED != MARKED_NONE) rNote.aMARKED.push_back(rLeft.iID);
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

CAccount::CLASS_COUNTS CAccount::GetLossCounts() const {
    CLASS_COUNTS aCounts = {};
    for (const T_WORD_D* pWord : GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) aCounts[rNote.eCLASS] += rNote.nCOUNT;
    }
    return aCounts;
}

T_ORIGIN_D CAccount::GetOrigin(const T_PLACE_D& rPlace) const {
    if (rPlace.iDECK >= T_PLACE_D::SOURCE) return {(*m_pSources)[rPlace.iDECK - T_PLACE_D::SOURCE], rPlace.iFIRST};
    if (m_pLines) return m_pLines->Find(rPlace.iFIRST);
    return {m_aDecks[rPlace.iDECK], rPlace.iFIRST};
}
