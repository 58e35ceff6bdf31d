// From a group of lines to a card: cutting lines into fields.

#include "driver/CConvertNastran.h"

#include "reader/NastranStrParser.h"

#include <algorithm>
#include <array>

/// Makes m_card of m_aLines. Returns 1, or 0 if the first field isn't a keyword.
int CConvertNastran::AssembleCard() {
    m_card.iKEYWORD = -1;
    m_card.sWORD = {};
    m_card.aFIELDS.clear();
    m_card.aLINES.clear();
    for (std::size_t iLine = 0; iLine < m_nLines; ++iLine) {
        T_LINE_D& rLine = *m_aLines[iLine];
        std::string_view sFirst; // the keyword, or a continuation mark, which has no use
        if (!SplitLine(rLine, sFirst)) continue;
        if (!rLine.bCONT) {
            m_card.sWORD = sFirst;
            if (!KeywordToId(sFirst, m_card.iKEYWORD)) return 0;
        }
        m_card.aLINES.resize(m_card.aFIELDS.size(), rLine.iLINE);
    }
    return 1;
}

/// Cuts a line by its own format: the first piece goes to rFirst, the others behind the fields of m_card. Returns 0 if
/// there is no piece.
int CConvertNastran::SplitLine(T_LINE_D& rLine, std::string_view& rFirst) {
    if (rLine.iFORMAT == FORMAT_SMALL) return SplitSmallLine(rLine, rFirst);
    m_aPieces.clear();
    if (rLine.iFORMAT == FORMAT_LARGE) {
        SplitLargeLine(rLine);
    } else {
        SplitFreeLine(rLine);
    }
    for (std::string_view& rPiece : m_aPieces) {
        char* pPiece = rLine.aTEXT + (rPiece.data() - rLine.aTEXT);
        rPiece = CNastranStrParser::RemoveBlanks(pPiece, pPiece + rPiece.size());
    }
    if (m_aPieces.empty()) return 0;
    rFirst = m_aPieces[0];
    m_card.aFIELDS.insert(m_card.aFIELDS.end(), m_aPieces.begin() + 1, m_aPieces.end());
    return 1;
}

/// Nine pieces of eight columns, blank where the line ends before; columns past 72 aren't looked at.
int CConvertNastran::SplitSmallLine(T_LINE_D& rLine, std::string_view& rFirst) {
    const auto Field = [&](std::size_t iColumn) {
        char* pField = rLine.aTEXT + iColumn;
        return rLine.bTABBED ? CNastranStrParser::RemoveBlanks(pField, pField + 8)
                             : CNastranStrParser::RemoveBlanksOf8(pField);
    };
    rFirst = Field(0);
    const std::size_t nFields = m_card.aFIELDS.size();
    m_card.aFIELDS.resize(nFields + 8);
    for (std::size_t i = 0; i < 8; ++i) m_card.aFIELDS[nFields + i] = Field(8 * (i + 1));
    return 1;
}

/// A piece of eight columns and four of sixteen. Pieces that the line doesn't reach are left out, so the fields of a
/// later line move up.
int CConvertNastran::SplitLargeLine(T_LINE_D& rLine) {
    constexpr std::array<std::size_t, 6> COLUMNS = {0, 8, 24, 40, 56, 72};
    char* pText = rLine.aTEXT;
    for (std::size_t i = 0; i + 1 < COLUMNS.size(); ++i) {
        char* pBegin = pText + std::min<std::size_t>(COLUMNS[i], rLine.nTEXT);
        char* pEnd = pText + std::min<std::size_t>(COLUMNS[i + 1], rLine.nTEXT);
        if (i == 0) pEnd = std::remove(std::min(pBegin + 1, pEnd), pEnd, '*');
        if (rLine.bRETURN || rLine.bTABBED) {
            pEnd = std::remove_if(pBegin, pEnd, [](char c) { return c == '\r' || c == '\t'; });
        }
        if (pBegin < pEnd) m_aPieces.emplace_back(pBegin, static_cast<std::size_t>(pEnd - pBegin));
    }
    return 1;
}

/// Fields by commas or blanks. Whatever holds a "+" counts as a continuation mark and goes, but for the first field.
int CConvertNastran::SplitFreeLine(T_LINE_D& rLine) {
    CNastranStrParser::SplitFreeFields(rLine, m_aPieces);
    if (m_aPieces.empty()) return 1;
    const auto isMark = [](std::string_view sField) { return sField.find('+') != std::string_view::npos; };
    if (m_pObserver) TellDeletedFields(rLine.iLINE);
    m_aPieces.erase(std::remove_if(m_aPieces.begin() + 1, m_aPieces.end(), isMark), m_aPieces.end());
    return 1;
}
