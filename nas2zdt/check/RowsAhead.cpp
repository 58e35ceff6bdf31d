// Reads cards before their turn comes.

#include "nas2zdt/check/RowsAhead.h"

#include "nas2zdt/text/Columns.h"

#include <algorithm>

namespace {

/// Whether two cards of columns have the same keyword.
bool HaveOneKeyword(std::string_view sText, std::size_t iFirst, std::size_t iSecond) {
    return LoadColumns(sText.substr(iFirst), 0) == LoadColumns(sText.substr(iSecond), 0);
}

} // namespace

void AppendWithoutReturns(std::string& rText, std::string_view sLines) {
    while (!sLines.empty()) {
        const std::size_t nLine = std::min(sLines.find('\n'), sLines.size());
        rText.append(WithoutEnd(sLines.substr(0, nLine))) += '\n';
        sLines.remove_prefix(std::min(nLine + 1, sLines.size()));
    }
}

/// Whether a card may stand in a run behind one of a line: a run of cards that are in no table has cards of a line
/// each, all alike, or a single one.
bool CRowsAhead::T_RUNROWS_D::TakesMore(const T_WHOLECARD_D& rCard) const {
    return !bROWS && first.nLINES == 1 && rCard.nLINES == 1 && first.bPLAIN == rCard.bPLAIN &&
           first.bCOLUMNS == rCard.bCOLUMNS && first.bRETURNS == rCard.bRETURNS;
}

T_READCARD_D CRowsAhead::T_SLOT_D::Read(std::string_view sLines, const T_WHOLECARD_D& rWhole, std::int32_t iLine) {
    T_SOURCECARD_D card;
    if (rWhole.bRETURNS) {
        sCARD.clear();
        AppendWithoutReturns(sCARD, sLines);
        sCARD.append(CTextStore::SLACK, '\0');
        sLines = std::string_view(sCARD).substr(0, sCARD.size() - CTextStore::SLACK);
    }
    card.pTEXT = sLines.data();
    card.nTEXT = static_cast<std::uint32_t>(sLines.size());
    card.origin.iLINE = iLine;
    card.bPLAIN = rWhole.bPLAIN;
    card.bCOLUMNS = rWhole.bCOLUMNS;
    return reader.Read(card, false, rWhole.nLINES == 1);
}

void CRowsAhead::Begin(std::size_t nSlots) {
    for (std::size_t i = 0; i < nSlots; ++i) m_aSlots.push_back(std::make_unique<T_SLOT_D>());
}

void CRowsAhead::Look(std::size_t iSlot, std::string_view sText, std::vector<T_LINERUN_D>& rRuns) {
    T_SLOT_D& rSlot = *m_aSlots[iSlot];
    rSlot.rows.Clear();
    rSlot.aRUNS.clear();
    T_WHOLECARD_D whole;
    for (std::size_t i = 0; i < sText.size(); i += whole.nBYTES) {
        if (!CutWholeCard(sText.substr(i), whole)) {
            const std::size_t iFeed = sText.find('\n', i);
            if (iFeed == std::string_view::npos) break;
            whole.nBYTES = iFeed + 1 - i; // the lines behind may begin a card
            continue;
        }
        const bool bNext = !rRuns.empty() && rRuns.back().iEND == i;
        const bool bNextRow = bNext && rSlot.aRUNS.back().bROWS;
        if (!bNextRow) rSlot.reader.BeginRun();
        const T_ROWCOUNTS_D before = bNextRow ? T_ROWCOUNTS_D() : rSlot.rows.Count();
        const std::string_view sLines = sText.substr(i, whole.nBYTES);
        const T_READCARD_D read = rSlot.Read(sLines, whole, bNextRow ? rRuns.back().nLINES : 0);
        if (read.bODD || read.bSIZED) continue;
        const bool bRow = read.eTABLE == TABLE_GRIDS || read.eTABLE == TABLE_ELEMENTS;
        if (!bRow && read.eTABLE != TABLE_NONE) continue;
        if (!(bRow ? bNextRow
                   : bNext && rSlot.aRUNS.back().TakesMore(whole) &&
                         (!whole.bCOLUMNS || HaveOneKeyword(sText, rRuns.back().iLAST, i)))) {
            rRuns.push_back({i, i, i, 0, static_cast<std::uint32_t>(iSlot), static_cast<std::uint32_t>(rRuns.size())});
            const T_ROWCOUNTS_D begin = bRow ? before : rSlot.rows.Count();
            rSlot.aRUNS.push_back({bRow, begin, {}, 0, whole});
        }
        rRuns.back().iEND = i + whole.nBYTES;
        rRuns.back().iLAST = i;
        rRuns.back().nLINES += whole.nLINES;
        ++rSlot.aRUNS.back().nCARDS;
    }
    T_ROWCOUNTS_D end = rSlot.rows.Count(); // rows of a run go on to those of the next one
    for (std::size_t i = rSlot.aRUNS.size(); i-- > 0;) {
        rSlot.aRUNS[i].end = end;
        end = rSlot.aRUNS[i].begin;
    }
}
