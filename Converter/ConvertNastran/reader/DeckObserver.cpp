// Telling an observer what becomes of each group of lines.

#include "reader/DeckObserver.h"

#include "driver/CConvertNastran.h"

namespace {

/// What a group begins with. It must be asked for before fields are cut, which changes the text.
enum E_GROUP { GROUP_CARD, GROUP_CONTINUATION, GROUP_EMPTY };

E_GROUP ClassifyGroup(const CLineGroup& rLines) {
    const std::string_view sFirst = rLines.First().Text();
    const char c = sFirst[0];
    if (c == '*' || c == '+' || c == ' ' || c == ',') return GROUP_CONTINUATION;
    if (c > ' ') return GROUP_CARD;
    // In a deck with CR LF an empty line holds a carriage return, and lines may continue it all the same.
    if (sFirst.find_first_not_of(" \t\r") != std::string_view::npos) return GROUP_CARD;
    return rLines.GetCount() > 1 ? GROUP_CONTINUATION : GROUP_EMPTY;
}

/// rCard is the group as far as it could be assembled.
void TellLoss(CDeckObserver& rObserver, E_LOSS eLoss, E_GROUP eGroup, const CLineGroup& rLines, const T_DATA_D& rCard) {
    if (eGroup == GROUP_EMPTY) return;
    if (eGroup == GROUP_CONTINUATION) eLoss = LOSS_CUT_OFF;
    rObserver.OnLoss({eLoss, rCard.iKEYWORD, rCard.sWORD, rLines.First().iLINE, rLines.Last().iLINE});
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
    const E_GROUP eGroup = ClassifyGroup(m_aLines);
    if (AssembleCard() && m_card.iKEYWORD >= 0) {
        m_fieldUse.Clear();
        m_card.pUSE = &m_fieldUse;
        DispatchCard(m_card);
        rObserver.OnCard(m_card, m_fieldUse, m_aLines.First().iLINE, m_aLines.Last().iLINE);
    } else {
        TellLoss(rObserver, LOSS_UNKNOWN_WORD, eGroup, m_aLines, m_card);
    }
}

/// Tells that the group in hand, if it has lines, makes no card. It is cut into fields only for its first word.
void CConvertNastran::LoseGroup(E_LOSS eLoss) {
    if (!m_options.pOBSERVER || m_aLines.IsEmpty()) return;
    const E_GROUP eGroup = ClassifyGroup(m_aLines);
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
