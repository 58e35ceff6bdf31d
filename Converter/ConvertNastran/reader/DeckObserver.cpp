// Telling an observer what becomes of each group of lines.

#include "reader/DeckObserver.h"

#include "driver/CConvertNastran.h"
#include "reader/PlainFields.h"
#include "store/DataPool.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

/// What a group begins with. It must be asked for before fields are cut, which changes the text.
enum E_GROUP { GROUP_CARD, GROUP_CONTINUATION, GROUP_EMPTY };

E_GROUP ClassifyGroup(std::string_view sFirst, std::size_t nLines) {
    const char c = sFirst[0];
    if (c == '*' || c == '+' || c == ' ' || c == ',') return GROUP_CONTINUATION;
    if (c > ' ') return GROUP_CARD;
    // In a deck with CR LF an empty line holds a carriage return, and lines may continue it all the same.
    if (sFirst.find_first_not_of(" \t\r") != std::string_view::npos) return GROUP_CARD;
    return nLines > 1 ? GROUP_CONTINUATION : GROUP_EMPTY;
}
E_GROUP ClassifyGroup(const CLineGroup& rLines) {
    return ClassifyGroup(rLines.First().Text(), rLines.GetCount());
}

/// rCard is the group as far as it could be assembled.
void TellLoss(CDeckObserver& rObserver, E_LOSS eLoss, E_GROUP eGroup, const CLineGroup& rLines, const T_DATA_D& rCard) {
    if (eGroup == GROUP_EMPTY) return;
    if (eGroup == GROUP_CONTINUATION) eLoss = LOSS_CUT_OFF;
    rObserver.OnLoss({eLoss, rCard.iKEYWORD, rCard.sWORD, rLines.First().iLINE, rLines.Last().iLINE});
}

/// Whether all fields of a card were read that aren't blank, and none of them is watched.
bool IsQuiet(const T_QUIET_D& rQuiet, const T_DATA_D& rCard) {
    const std::uint32_t nWatched = rQuiet.aWATCHED[static_cast<std::size_t>(rCard.iKEYWORD)];
    const T_FIELDUSE_D& rUse = *rCard.pUSE;
    if (nWatched == T_QUIET_D::EVERY_CARD || rQuiet.bTELLALL || rUse.HasNotes()) return false;
    const std::vector<std::string_view>& rFields = rCard.aFIELDS;
    for (std::size_t i = rUse.nREACHED; i < rFields.size(); ++i) {
        if (!rFields[i].empty()) return false;
    }
    const auto anyField = [&](std::uint32_t nFields, auto holds) {
        for (; nFields != 0; nFields &= nFields - 1) {
            const auto iField = static_cast<std::size_t>(std::countr_zero(nFields));
            if (iField < rFields.size() && holds(rFields[iField])) return true;
        }
        return false;
    };
    const auto isFilled = [](std::string_view s) { return !s.empty(); };
    const auto hasValue = [](std::string_view s) { return s.find_first_not_of("0.") != std::string_view::npos; };
    return !anyField(nWatched, isFilled) &&
           !anyField(rQuiet.aVALUES[static_cast<std::size_t>(rCard.iKEYWORD)], hasValue);
}

} // namespace

void TellDeletedFields(CDeckObserver& rObserver, std::span<const std::string_view> aFields, std::int32_t iLine) {
    std::size_t nDeleted = 0;
    for (std::size_t i = 0; i < aFields.size(); ++i) {
        const bool bMark = i + 1 == aFields.size() && aFields[i].starts_with('+');
        if (!bMark && aFields[i].find('+') != std::string_view::npos) ++nDeleted;
    }
    if (nDeleted > 0) rObserver.OnFieldsDeleted(nDeleted, iLine);
}

/// Assembles and dispatches the group in hand, and tells what came of it.
void CConvertNastran::TakeObservedGroup(CDeckObserver& rObserver) {
    if (m_fp.HasReadMore()) rObserver.OnBytesRead(m_fp.GetBytesRead());
    const T_LINE_D& rFirst = m_aLines.First();
    const std::size_t nReplaced = m_pDataPool->m_nReplaced;
    const bool bPlain = IsPlainSmallLine(m_aLines);
    E_GROUP eGroup = GROUP_CARD;
    if (bPlain) {
        std::memcpy(m_aKept.data(), rFirst.aTEXT, m_aKept.size()); // a field may be changed when it is cut
    } else {
        eGroup = ClassifyGroup(m_aLines);
        TellText();
    }
    const int bCard = AssembleCard();
    const bool bJoined = bPlain && rFirst.bJOINED;
    const T_RAWLINE_D kept{{m_aKept.data(), std::min<std::size_t>(rFirst.nTEXT, m_aKept.size())}};
    if (bJoined) rObserver.OnText({&kept, 1}, rFirst.iLINE);
    if (!bCard || m_card.iKEYWORD < 0) {
        if (bPlain) eGroup = ClassifyGroup(kept.sTEXT, 1);
        TellLoss(rObserver, LOSS_UNKNOWN_WORD, eGroup, m_aLines, m_card);
        return;
    }
    m_fieldUse.Clear();
    m_card.pUSE = &m_fieldUse;
    DispatchCard(m_card);
    if (m_pQuiet && bPlain && !bJoined && nReplaced == m_pDataPool->m_nReplaced && IsQuiet(*m_pQuiet, m_card)) {
        m_pQuiet->iLAST = m_card.iKEYWORD;
        ++m_pQuiet->aCOUNTS[static_cast<std::size_t>(m_card.iKEYWORD)];
    } else {
        rObserver.OnCard(m_card, m_fieldUse, rFirst.iLINE, m_aLines.Last().iLINE);
    }
}

/// Tells the text of the group in hand, which isn't cut yet, unless everybody cuts it alike.
void CConvertNastran::TellText() {
    if (HavePlainFields(m_aLines)) return;
    m_aRawLines.clear();
    for (std::size_t i = 0; i < m_aLines.GetCount(); ++i) m_aRawLines.push_back({m_aLines[i].Text(), m_aLines[i].bCUT});
    m_options.pOBSERVER->OnText(m_aRawLines, m_aLines.First().iLINE);
}

/// Tells that the group in hand, if it has lines, makes no card. It is cut into fields only for its first word.
void CConvertNastran::LoseGroup(E_LOSS eLoss) {
    if (!m_options.pOBSERVER || m_aLines.IsEmpty()) return;
    const E_GROUP eGroup = ClassifyGroup(m_aLines);
    if (eGroup == GROUP_EMPTY) return;
    TellText();
    AssembleCard();
    TellLoss(*m_options.pOBSERVER, eLoss, eGroup, m_aLines, m_card);
}

std::string CConvertNastran::LineText(std::int32_t iLine) const {
    return m_options.pOBSERVER ? m_options.pOBSERVER->LineText(iLine) : std::to_string(iLine);
}

/// The lines of a card for a message.
std::string CConvertNastran::LineInfoText(const std::vector<std::int32_t>& aLines) const {
    if (aLines.empty()) return "(Line:There is no Line Number Info.)";
    if (aLines.size() == 1) return "(Line:" + LineText(aLines[0]) + ")";
    return "(Line:" + LineText(aLines.front()) + "~" + LineText(aLines.back()) + ")";
}
