// Telling an observer what becomes of each group of lines.

#include "reader/DeckObserver.h"

#include "driver/CConvertNastran.h"
#include "reader/PlainFields.h"
#include "store/DataPool.h"

#include <algorithm>
#include <bit>
#include <utility>

/// What a group begins with. It must be asked for before fields are cut, which changes the text; but it doesn't change
/// how a small field line begins.
enum E_GROUP : std::int32_t { GROUP_CARD, GROUP_CONTINUATION, GROUP_EMPTY };

namespace {

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

bool HasFieldToTell(const T_QUIET_D& rQuiet, const T_DATA_D& rCard) {
    const T_QUIET_D::T_WATCH_D& rWatch = rQuiet.aWATCHES[static_cast<std::size_t>(rCard.iKEYWORD)];
    if (rWatch.nFILLED == T_QUIET_D::EVERY_CARD) return true;
    const std::vector<std::string_view>& rFields = rCard.aFIELDS;
    for (std::size_t i = rCard.pUSE->nREACHED; i < rFields.size(); ++i) {
        if (!rFields[i].empty()) return true;
    }
    const auto anyField = [&](std::uint32_t nFields, auto holds) {
        for (; nFields != 0; nFields &= nFields - 1) {
            const auto iField = static_cast<std::size_t>(std::countr_zero(nFields));
            if (iField < rFields.size() && holds(rFields[iField])) return true;
        }
        return false;
    };
    const auto isFilled = [](std::string_view s) { return !s.empty(); };
    return anyField(rWatch.nFILLED, isFilled) || anyField(rWatch.nVALUES, &HoldsValue);
}

void TellDeletedFields(CDeckObserver& rObserver, std::span<const std::string_view> aFields, std::int32_t iLine) {
    std::size_t nDeleted = 0;
    for (std::size_t i = 0; i < aFields.size(); ++i) {
        const bool bMark = i + 1 == aFields.size() && aFields[i].starts_with('+');
        if (!bMark && aFields[i].find('+') != std::string_view::npos) ++nDeleted;
    }
    if (nDeleted > 0) rObserver.OnFieldsDeleted(nDeleted, iLine);
}

/// Assembles and dispatches the group in hand, which isn't one plain line, and tells what came of it: whether NASTRAN
/// cuts it alike takes a closer look.
[[gnu::noinline]] void CConvertNastran::TakeToldGroup() {
    const E_GROUP eGroup = ClassifyGroup(m_aLines);
    TellText();
    m_fieldUse.bTELL = true;
    AssembleCard();
    if (m_card.iKEYWORD < 0) return TellLoss(*m_options.pOBSERVER, LOSS_UNKNOWN_WORD, eGroup, m_aLines, m_card);
    m_fieldUse.nREACHED = 0;
    DispatchCard(m_card);
    TellCard();
}

/// Tells of the card in hand, if there is anything to tell.
[[gnu::noinline]] void CConvertNastran::TellCard() {
    if (m_fieldUse.bTELL || m_pQuiet->bTELLALL || HasFieldToTell(*m_pQuiet, m_card)) {
        m_options.pOBSERVER->OnCard(m_card, m_fieldUse, m_aLines.First().iLINE, m_aLines.Last().iLINE);
        m_fieldUse.Clear();
    } else {
        m_pQuiet->Count(m_card.iKEYWORD);
    }
}

/// Tells that the plain line in hand, which is assembled, begins with a word that isn't in the vocabulary.
[[gnu::noinline]] void CConvertNastran::LoseUnknown() {
    TellLoss(*m_options.pOBSERVER, LOSS_UNKNOWN_WORD, ClassifyGroup(m_aLines), m_aLines, m_card);
}

/// Tells the text of a plain small field line before the first of its fields is joined: NASTRAN doesn't join it.
void CConvertNastran::TellJoining(const T_LINE_D& rLine) {
    if (!m_card.pUSE || std::exchange(m_fieldUse.bTELL, true) || !m_options.pOBSERVER) return;
    const T_RAWLINE_D text{rLine.Text().substr(0, T_LINE_D::SMALL_COLUMNS)};
    m_options.pOBSERVER->OnText({&text, 1}, rLine.iLINE);
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
    m_fieldUse.bTELL = true; // its text is told
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
