// Cards of a long deck that are read before their turn, by several threads.

#include "driver/CConvertNastran.h"
#include "reader/DeckObserver.h"
#include "reader/Keywords.h"
#include "reader/NastranStrParser.h"
#include "reader/PlainFields.h"
#include "store/DataPool.h"

#include <cstring>
#include <limits>
#include <utility>

namespace {

constexpr std::uint64_t LONG_DECK = std::uint64_t{1} << 21; // a thread costs as much as some hundred lines

/// Whether a line ends the card before it without a word: it begins a card, or what is taken for one.
bool BeginsCard(const T_LINE_D& rLine) {
    return !rLine.bCOMMENT && !rLine.bMARKED && rLine.nTEXT > 0 && rLine.aTEXT[0] >= 'A' && rLine.aTEXT[0] <= 'Z';
}

/// Whether such a line, if it is a card, is no more than small fields of one word.
bool IsPlain(const T_LINE_D& rLine) {
    return BeginsCard(rLine) && rLine.bWORDS && !rLine.bENDING && IsEndBlank(rLine);
}

} // namespace

/// Has the deck that was just opened read by several threads, if it is long.
void CConvertNastran::ShareDeck() {
    if (m_nThreads < 2 || m_fp.GetSize() < LONG_DECK) return;
    while (m_aTakers.size() < CDeckChunks::CountSlots(m_nThreads)) {
        auto pTaker = std::make_unique<CConvertNastran>(m_rDialogs);
        pTaker->m_pQuiet = m_pQuiet;
        pTaker->m_card.pUSE = m_pQuiet ? &pTaker->m_fieldUse : nullptr;
        m_aTakers.push_back(std::move(pTaker));
    }
    m_fp.Share(m_nThreads, [this](std::size_t iSlot, T_CHUNK_D& rChunk) { m_aTakers[iSlot]->LookAhead(rChunk); });
}

/// Finds the runs of a chunk, which is bulk data or not: those of other sections aren't passed.
void CConvertNastran::LookAhead(T_CHUNK_D& rChunk) {
    rChunk.aRUNS.clear();
    rChunk.taken.Clear();
    if (rChunk.bSPECIAL) return;
    m_pDataPool->m_pTaken = &rChunk.taken;
    const char* const pBytes = rChunk.pBYTES.get();
    T_LINE_D aLines[2];
    T_LINE_D *pLine = &aLines[0], *pBefore = &aLines[1];
    bool bPlain = false;    // whether the line before may be a card alone
    std::size_t iBegin = 0; // of that line
    for (std::size_t i = 0; i < rChunk.nBYTES;) {
        const auto* const pFeed = static_cast<const char*>(std::memchr(pBytes + i, '\n', rChunk.nBYTES - i));
        if (!pFeed) break;
        const auto nText = static_cast<std::size_t>(pFeed - pBytes) - i;
        const bool bShort = nText <= LONGEST_BULK_LINE;
        if (bShort) CNastranStrParser::NormalizeLine({pBytes + i, nText}, *pLine);
        if (bPlain && bShort && BeginsCard(*pLine)) TakeAhead(rChunk, *pBefore, iBegin, i);
        bPlain = bShort && IsPlain(*pLine);
        std::swap(pLine, pBefore);
        iBegin = i;
        i += nText + 1;
    }
}

/// Takes the records of a line, the bytes from iBegin on before iEnd, if there is nothing else to its card, nor to be
/// told of it.
void CConvertNastran::TakeAhead(T_CHUNK_D& rChunk, const T_LINE_D& rLine, std::size_t iBegin, std::size_t iEnd) {
    if (!AssembleWords(rLine)) return;
    const T_KEYWORD_D& rKeyword = T_KEYWORD_D::TABLE[static_cast<std::size_t>(m_card.iKEYWORD)];
    if (!rKeyword.bALONE) return;
    const std::size_t iRecord = rChunk.taken.GetEnd(); // records without a run don't matter
    m_fieldUse.nREACHED = 0;
    (this->*rKeyword.pfnPARSE)(m_card);
    if (m_pQuiet && (m_fieldUse.bTELL || HasFieldToTell(*m_pQuiet, m_card))) return m_fieldUse.Clear();
    T_CARDRUN_D* pRun = rChunk.aRUNS.empty() ? nullptr : &rChunk.aRUNS.back();
    if (!pRun || pRun->iEND != iBegin || pRun->iKEYWORD != m_card.iKEYWORD || pRun->nLINES == T_CARDRUN_D::MOST_LINES) {
        pRun = &rChunk.aRUNS.emplace_back();
        pRun->iBEGIN = iBegin;
        pRun->iKEYWORD = m_card.iKEYWORD;
        pRun->eTAKEN = rChunk.taken.GetLast();
        pRun->iRECORDS = iRecord;
    }
    pRun->iEND = iEnd;
    pRun->iRECORDSEND = rChunk.taken.GetEnd();
    ++pRun->nLINES;
}

/// Stores the records of a run until an id is there already, since of that there is something to tell. Returns their
/// number; their lines count.
template <class RECORD>
std::int32_t CConvertNastran::PassRecords(CMap<RECORD>& rTable, const T_CARDRUN_D& rRun) {
    const CTakenRecords& rTaken = m_fp.GetTaken();
    std::size_t iPlace = rRun.iRECORDS;
    for (std::int32_t i = 0; i < rRun.nLINES; ++i) {
        if (!rTaken.Put(iPlace, rTable)) return i;
        ++m_iLineNo;
    }
    return rRun.nLINES;
}

/// Adds the entries of a run of loads, temperatures or supports to their sets. Returns the number of its lines, which
/// count.
std::int32_t CConvertNastran::PassEntries(const T_CARDRUN_D& rRun) {
    const CTakenRecords& rTaken = m_fp.GetTaken();
    for (std::size_t iPlace = rRun.iRECORDS; iPlace < rRun.iRECORDSEND;) {
        const std::int32_t iSID = rTaken.IdAt(iPlace);
        if (rRun.eTAKEN == TAKEN_LOAD) {
            rTaken.Put(iPlace, EnsureLoadSet(iSID).aMBLD);
        } else if (rRun.eTAKEN == TAKEN_TEMPERATURE) {
            rTaken.Put(iPlace, EnsureLoadSet(iSID).aNTLD);
        } else if (rTaken.Put(iPlace, m_pDataPool->CNST[iSID].aCNND)) {
            m_pDataPool->m_iLastCNST = iSID;
        }
    }
    m_iLineNo += rRun.nLINES;
    return rRun.nLINES;
}

/// Stores the records of the run that begins with the next line, and looks at the line behind it. False if no run does,
/// or its lines have to be read one by one.
bool CConvertNastran::PassRun() {
    const T_CARDRUN_D* const pRun = m_iSection == 2 ? m_fp.FindRun(m_aLines.IsPeeked()) : nullptr;
    if (!pRun || (m_pQuiet && m_pQuiet->bTELLALL)) return false;
    constexpr std::int32_t LAST = std::numeric_limits<std::int32_t>::max();
    if (m_iLineNo >= LAST - pRun->nLINES) return false; // where the count fails has its line
    CDataPool& rPool = *m_pDataPool;
    const std::int32_t nPassed = pRun->eTAKEN == TAKEN_GRID      ? PassRecords(rPool.NODS, *pRun)
                                 : pRun->eTAKEN == TAKEN_ELEMENT ? PassRecords(rPool.ELEM, *pRun)
                                                                 : PassEntries(*pRun);
    if (nPassed == 0) return false;
    if (m_pQuiet) m_pQuiet->Count(pRun->iKEYWORD, static_cast<std::uint32_t>(nPassed));
    m_fp.Pass(*pRun, nPassed);
    m_aLines.TakePeeked();
    FetchLine(LONGEST_BULK_LINE); // is in the chunk, and begins a card
    m_aLines.SetPeeked();
    if (m_options.pOBSERVER && m_fp.HasReadMore()) m_options.pOBSERVER->OnBytesRead(m_fp.GetBytesRead());
    return true;
}
