// From the lines of a deck to groups of lines, one group a card.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "reader/DeckObserver.h"
#include "reader/LineGroup.h"
#include "reader/NastranStrParser.h"
#include "reader/PlainFields.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t MOST_LINES = 1000; // tested before a line is added, so a card can have one more

/// The format of one line: the lines of a card may differ.
E_FORMAT FindFormat(std::string_view sText) {
    if (CNastranStrParser::SliceColumns(1, 10, sText).find_first_of(",=") != std::string_view::npos) return FORMAT_FREE;
    const std::string_view sFirst = CNastranStrParser::SplitFirstField(sText);
    if (sFirst[0] == ' ' || sFirst[0] == '+') return FORMAT_SMALL;
    return sFirst.find('*') == std::string_view::npos ? FORMAT_SMALL : FORMAT_LARGE;
}

void TestLength(std::size_t nText, std::int32_t nLongest, std::int32_t iLine) {
    if (nText > static_cast<std::size_t>(nLongest)) throw CRunError(FAILURE_LINE_TOO_LONG, iLine, nLongest);
}

/// A quick test of a card on a small field line of nText characters, false if it takes a closer look: most lines end
/// before the first field that is watched or wasn't read.
bool IsSurelyQuiet(const T_QUIET_D& rQuiet, const T_DATA_D& rCard, std::size_t nText) {
    const T_QUIET_D::T_WATCH_D& rWatch = rQuiet.aWATCHES[static_cast<std::size_t>(rCard.iKEYWORD)];
    return !rCard.pUSE->bTELL && !rQuiet.bTELLALL && nText <= rWatch.nCOLUMNS &&
           nText <= T_LINE_D::ColumnsBefore(rCard.pUSE->nREACHED);
}

} // namespace

/// Fills the line behind the group with the next one of the deck, normalized; null at the end of the deck. Throws
/// CRunError if its text is longer than nLongest.
T_LINE_D* CConvertNastran::FetchLine(std::int32_t nLongest) {
    std::string_view sRaw;
    if (!m_fp.Read(sRaw)) return nullptr;
    const std::int32_t iLine = NextLine(m_iLineNo);
    if (m_fp.HasSpecialBytes()) {
        if (const std::size_t iCtrlZ = sRaw.find(CTRL_Z); iCtrlZ != std::string_view::npos) {
            m_nFileLines = std::min<std::int64_t>(m_nFileLines, iCtrlZ > 0 ? iLine : m_iLineNo);
        }
        sRaw = sRaw.substr(0, sRaw.find('\0'));
    }
    TestLength(sRaw.size(), nLongest, iLine);
    T_LINE_D& rLine = m_aLines.Next();
    CNastranStrParser::NormalizeLine(sRaw, rLine);
    return &rLine;
}

/// Assembles and dispatches the group in hand, and tells what came of it. Nearly all groups take the way down to the
/// end, which is kept short: the others have functions of their own, which aren't to be inlined into it.
inline void CConvertNastran::TakeObservedGroup(CDeckObserver& rObserver) {
    if (m_fp.HasReadMore()) rObserver.OnBytesRead(m_fp.GetBytesRead());
    if (!IsPlainSmallLine(m_aLines)) return TakeToldGroup();
    m_fieldUse.bTELL = false;
    AssembleCard();
    if (m_card.iKEYWORD < 0) return LoseUnknown();
    m_fieldUse.nREACHED = 0;
    DispatchCard(m_card);
    if (!IsSurelyQuiet(*m_pQuiet, m_card, m_aLines.First().nTEXT)) return TellCard();
    m_pQuiet->Count(m_card.iKEYWORD);
}

/// Reads m_fp to its end. Returns 1.
int CConvertNastran::ReadDeckFile() {
    m_iSection = 0;
    m_iLineNo = 0;
    m_nFileLines = std::numeric_limits<std::int64_t>::max();
    m_aLines.StartDeck();
    for (;;) {
        m_aLines.StartCard();
        if (PassRun()) continue;
        const int iResult = ReadCardGroup();
        if (iResult < 0) return 1;
        if (iResult == 0 || m_aLines.IsEmpty()) continue;
        if (m_iSection == 2) {
            if (m_options.pOBSERVER) {
                TakeObservedGroup(*m_options.pOBSERVER);
            } else if (AssembleCard()) {
                DispatchCard(m_card);
            }
        }
        // Lines count as in text mode, where a Ctrl-Z ends the file, and reading stops with the count.
        if (m_nFileLines <= m_iLineNo || (!m_aLines.IsPeeked() && m_fp.PeekByte() == CTRL_Z)) return 1;
    }
}

/// Reads a line and, in the bulk section, those that continue it. Returns 1 with the group in m_aLines, 0 if there is
/// nothing to dispatch, -1 if reading of the deck ends.
int CConvertNastran::ReadCardGroup() {
    for (;;) {
        if (!m_aLines.TakePeeked() && !FetchLine(LONGEST_LINE)) return -1;
        T_LINE_D& rLine = m_aLines.Next();
        m_iLineNo = NextLine(m_iLineNo);
        if (rLine.bCOMMENT) return 0;
        const std::string_view sText = rLine.Text();
        if (CNastranStrParser::IsBlankLine(sText)) {
            LoseGroup(LOSS_BLANK_LINE);
            return 0;
        }
        if (SwitchSection(sText)) {
            if (m_options.pOBSERVER) m_options.pOBSERVER->OnControlLine(sText, m_iLineNo);
            return 0;
        }
        if (rLine.bENDING && sText.find("ENDDATA") != std::string_view::npos) {
            LoseGroup(LOSS_END_OF_DECK);
            if (m_options.pOBSERVER) m_options.pOBSERVER->OnControlLine(sText, m_iLineNo);
            return -1;
        }
        if (m_aLines.GetCount() > MOST_LINES) {
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_Error_Data_Line_Connectivity"),
                       {LineText(m_aLines.First().iLINE), LineText(m_iLineNo)});
            LoseGroup(LOSS_TOO_MANY_LINES);
            return 0;
        }
        rLine.iLINE = m_iLineNo;
        rLine.bCONT = !m_aLines.IsEmpty();
        m_aLines.AddNext();
        if (m_iSection != 2) {
            if (m_options.pOBSERVER) m_options.pOBSERVER->OnControlLine(sText, m_iLineNo);
            rLine.iFORMAT = m_iSection == 0 ? FORMAT_EXECUTIVE : FORMAT_CASE_CONTROL;
            return 1;
        }
        TestLength(sText.size(), LONGEST_BULK_LINE, m_iLineNo);
        rLine.iFORMAT = rLine.bMARKED ? FindFormat(sText) : FORMAT_SMALL;
        const int iNext = PeekNextLine();
        if (iNext < 0) LoseGroup(LOSS_END_OF_DECK);
        if (iNext <= 0) return iNext < 0 ? -1 : 1;
    }
}

/// Looks at the next line. Returns 1 if it continues the card, 0 if not, -1 at the end of the deck.
int CConvertNastran::PeekNextLine() {
    const T_LINE_D* pLine = FetchLine(LONGEST_BULK_LINE);
    if (!pLine) return -1;
    m_aLines.SetPeeked();
    if (pLine->bCOMMENT || pLine->nTEXT == 0) return 0;
    const std::string_view sText = pLine->Text();
    if (const char c = sText[0]; c == '*' || c == '+' || c == ' ' || c == ',') return 1;
    if (!pLine->bMARKED) return 0;
    if (const std::size_t iStar = sText.find('*'); iStar != std::string_view::npos) {
        std::int32_t iKeyword = 0;
        if (KeywordToId(sText.substr(0, iStar), iKeyword)) return 0;
    } else if (sText.find('=') == std::string_view::npos) {
        return 0;
    }
    LogMessage(g_pfnLoadStr("IDS_NASTRAN_AutoGenerate_Line_Cammand_is_ignored"), {LineText(m_iLineNo)});
    if (m_options.pOBSERVER) m_options.pOBSERVER->OnSaidIgnored(NextLine(m_iLineNo)); // the log names the line before
    return 0;
}

/// Obeys a section marker, which counts in any section. Returns 1 if the line, which isn't empty, is one. The first
/// letter is tested first, as this is called for every line.
int CConvertNastran::SwitchSection(std::string_view sText) {
    if (sText[0] == 'C' && sText.starts_with("CEND")) {
        m_iSection = 1;
    } else if (sText[0] == 'B' && sText.starts_with("BEGIN BULK")) {
        m_iSection = 2;
    } else {
        return 0;
    }
    return 1;
}
