// Cards of a long deck that are read before their turn, by several threads.

#include "driver/CConvertNastran.h"
#include "reader/DeckObserver.h"
#include "reader/Keywords.h"
#include "reader/NastranStrParser.h"
#include "reader/PlainFields.h"
#include "store/DataPool.h"

#include <cstring>
#include <limits>

namespace {

constexpr std::uint64_t LONG_DECK = std::uint64_t{1} << 21; // a thread costs as much as some hundred lines

/// Whether a line ends the card before it without a word: it begins a card, or what is taken for one.
bool BeginsCard(const T_LINE_D& rLine) {
    return !rLine.bCOMMENT && !rLine.bMARKED && rLine.nTEXT > 0 && rLine.aTEXT[0] >= 'A' && rLine.aTEXT[0] <= 'Z';
}

/// Whether such a line, if it is a card, is no more than small fields of one word.
bool IsPlain(const CLineGroup& rLines) {
    return BeginsCard(rLines.First()) && !rLines.First().bENDING && IsPlainSmallLine(rLines);
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
    m_aLines.StartDeck();
    const char* const pBytes = rChunk.pBYTES.get();
    std::size_t iBegin = 0; // of the line before, which is in the group if it may be a card alone
    for (std::size_t i = 0; i < rChunk.nBYTES;) {
        const auto* const pFeed = static_cast<const char*>(std::memchr(pBytes + i, '\n', rChunk.nBYTES - i));
        if (!pFeed) break;
        const auto nText = static_cast<std::size_t>(pFeed - pBytes) - i;
        T_LINE_D& rLine = m_aLines.Next();
        const bool bShort = nText <= LONGEST_BULK_LINE;
        if (bShort) CNastranStrParser::NormalizeLine({pBytes + i, nText}, rLine);
        if (!m_aLines.IsEmpty() && bShort && BeginsCard(rLine)) TakeAhead(rChunk, iBegin, i);
        m_aLines.SetPeeked();
        m_aLines.StartCard();
        m_aLines.TakePeeked();
        m_aLines.AddNext();
        if (!bShort || !IsPlain(m_aLines)) m_aLines.StartCard();
        iBegin = i;
        i += nText + 1;
    }
}

/// Takes the record of the line in hand, which ends at iEnd, if there is nothing else to its card, nor to be told of
/// it.
void CConvertNastran::TakeAhead(T_CHUNK_D& rChunk, std::size_t iBegin, std::size_t iEnd) {
    m_aLines[0].iFORMAT = FORMAT_SMALL;
    m_aLines[0].bCONT = false;
    if (!AssembleCard()) return m_fieldUse.Clear();
    if (!T_KEYWORD_D::TABLE[static_cast<std::size_t>(m_card.iKEYWORD)].bALONE) return m_fieldUse.Clear();
    const std::size_t iRecord = rChunk.taken.GetEnd(); // records without a run don't matter
    m_fieldUse.nREACHED = 0;
    DispatchCard(m_card);
    if (m_pQuiet && (m_fieldUse.bTELL || HasFieldToTell(*m_pQuiet, m_card))) return m_fieldUse.Clear();
    const bool bOn = !rChunk.aRUNS.empty() && rChunk.aRUNS.back().iEND == iBegin &&
                     rChunk.aRUNS.back().iKEYWORD == m_card.iKEYWORD &&
                     rChunk.aRUNS.back().nLINES < T_CARDRUN_D::MOST_LINES;
    if (!bOn) rChunk.aRUNS.push_back({iBegin, iBegin, 0, m_card.iKEYWORD, m_card.sWORD == "GRID", iRecord});
    rChunk.aRUNS.back().iEND = iEnd;
    ++rChunk.aRUNS.back().nLINES;
}

/// Stores the records of a run until an id is there already, since of that there is something to tell. Returns their
/// number; their lines count.
template <class RECORD>
std::int32_t CConvertNastran::PassRecords(CMap<RECORD>& rTable, const T_CARDRUN_D& rRun) {
    const CTakenRecords& rTaken = m_fp.GetTaken();
    std::size_t iPlace = rRun.iRECORDS;
    RECORD record;
    for (std::int32_t i = 0; i < rRun.nLINES; ++i) {
        const std::int32_t iID = rTaken.Take(iPlace, record);
        if (!rTable.Add(iID, record)) return i;
        ++m_iLineNo;
    }
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
    const std::int32_t nPassed = pRun->bGRIDS ? PassRecords(rPool.NODS, *pRun) : PassRecords(rPool.ELEM, *pRun);
    if (nPassed == 0) return false;
    if (m_pQuiet) m_pQuiet->Count(pRun->iKEYWORD, static_cast<std::uint32_t>(nPassed));
    m_fp.Pass(*pRun, nPassed);
    m_aLines.TakePeeked();
    FetchLine(LONGEST_BULK_LINE); // is in the chunk, and begins a card
    m_aLines.SetPeeked();
    if (m_options.pOBSERVER && m_fp.HasReadMore()) m_options.pOBSERVER->OnBytesRead(m_fp.GetBytesRead());
    return true;
}
