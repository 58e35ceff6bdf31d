// Telling an observer what becomes of each group of lines.

#include "reader/DeckObserver.h"

#include "driver/CConvertNastran.h"

namespace {

/// What a group begins with, seen before its fields are cut, which changes the text.
enum E_GROUP { GROUP_CARD, GROUP_CONTINUATION, GROUP_EMPTY };

E_GROUP ClassifyGroup(std::string_view sFirst, std::size_t nLines) {
    const char c = sFirst[0];
    if (c == '*' || c == '+' || c == ' ' || c == ',') return GROUP_CONTINUATION;
    if (c > ' ') return GROUP_CARD;
    // a carriage return alone is an empty line of a deck with CR LF, and yet may have lines that continue it
    if (sFirst.find_first_not_of(" \t\r") != std::string_view::npos) return GROUP_CARD;
    return nLines > 1 ? GROUP_CONTINUATION : GROUP_EMPTY;
}

} // namespace

/// Assembles and dispatches the group in hand, and tells which of the two came of it.
void CConvertNastran::TakeObservedGroup() {
    if (m_reader.GetBytesRead() != m_nBytesTold) {
        m_nBytesTold = m_reader.GetBytesRead();
        m_pObserver->OnBytesRead(m_nBytesTold);
    }
    const E_GROUP eGroup = ClassifyGroup(m_aLines[0]->Text(), m_nLines);
    if (AssembleCard() && m_card.iKEYWORD >= 0) {
        m_fieldUse.Clear();
        m_card.pUSE = &m_fieldUse;
        DispatchCard(m_card);
        m_pObserver->OnCard(m_card, m_fieldUse, m_aLines[0]->iLINE, m_aLines[m_nLines - 1]->iLINE);
    } else if (eGroup != GROUP_EMPTY) {
        TellAssembled(eGroup == GROUP_CARD ? LOSS_UNKNOWN_WORD : LOSS_CUT_OFF);
    }
}

/// Tells that the group in hand makes no card though it might. Cutting it into fields for its first word does no harm:
/// it is lost.
void CConvertNastran::TellLoss(E_LOSS eLoss) {
    const E_GROUP eGroup = ClassifyGroup(m_aLines[0]->Text(), m_nLines);
    if (eGroup == GROUP_EMPTY) return;
    AssembleCard();
    TellAssembled(eGroup == GROUP_CARD ? eLoss : LOSS_CUT_OFF);
}

/// Tells of a loss whose first word stands in m_card.
void CConvertNastran::TellAssembled(E_LOSS eLoss) {
    T_LOSS_D loss;
    loss.eLOSS = eLoss;
    loss.iFIRST = m_aLines[0]->iLINE;
    loss.iLAST = m_aLines[m_nLines - 1]->iLINE;
    loss.iKEYWORD = m_card.iKEYWORD;
    loss.sWORD = m_card.sWORD;
    m_pObserver->OnLoss(loss);
}

/// Tells of the fields in m_aPieces that a "+" is about to delete. The last field is a continuation mark if it begins
/// with one.
void CConvertNastran::TellDeletedFields(std::int32_t iLine) {
    std::size_t nDeleted = 0;
    for (std::size_t i = 1; i < m_aPieces.size(); ++i) {
        const bool bMark = i + 1 == m_aPieces.size() && m_aPieces[i].starts_with('+');
        if (!bMark && m_aPieces[i].find('+') != std::string_view::npos) ++nDeleted;
    }
    if (nDeleted > 0) m_pObserver->OnFieldsDeleted(nDeleted, iLine);
}

std::string CConvertNastran::LineText(std::int32_t iLine) const {
    return m_pObserver ? m_pObserver->LineText(iLine) : std::to_string(iLine);
}

std::string CConvertNastran::LineInfoText(const std::vector<std::int32_t>& aLines, const CDeckObserver* pObserver) {
    if (aLines.empty()) return "(Line:There is no Line Number Info.)";
    const auto name = [&](std::int32_t iLine) {
        return pObserver ? pObserver->LineText(iLine) : std::to_string(iLine);
    };
    if (aLines.size() == 1) return FormatText("(Line:%s)", {name(aLines[0])});
    return FormatText("(Line:%s~%s)", {name(aLines.front()), name(aLines.back())});
}
