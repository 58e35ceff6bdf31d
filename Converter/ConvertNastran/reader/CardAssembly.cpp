// From a group of lines to a card: cutting lines into fields.

#include "driver/CConvertNastran.h"
#include "platform/TextWord.h"
#include "reader/DeckObserver.h"
#include "reader/NastranStrParser.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t SMALL_FIELDS = 8; // behind the first

/// The field at a column of a line whose bWORDS holds: no byte's highest bit is set.
std::string_view WordAt(const T_LINE_D& rLine, std::size_t iColumn) {
    const char* const pField = rLine.aTEXT + iColumn;
    const TEXTWORD nOther = LoadWord(pField) ^ RepeatInWord(' ');
    if (nOther == 0) return {pField, pField};
    const TEXTWORD nFilled = (nOther + RepeatInWord(0x7F)) & RepeatInWord('\x80');
    // not the functions of <bit>, which look for 0 first
    const unsigned nFirst = static_cast<unsigned>(__builtin_ctzll(nFilled)) / 8;
    const unsigned nLast = (63U - static_cast<unsigned>(__builtin_clzll(nFilled))) / 8;
    return {pField + nFirst, nLast - nFirst + 1};
}

} // namespace

/// The same as AssembleCard of one small field line whose bWORDS holds.
int CConvertNastran::AssembleWords(const T_LINE_D& rLine) {
    m_card.aFIELDS.resize(SMALL_FIELDS);
    m_card.aLINES.assign(SMALL_FIELDS, rLine.iLINE);
    for (std::size_t i = 0; i < SMALL_FIELDS; ++i) m_card.aFIELDS[i] = WordAt(rLine, T_LINE_D::ColumnsBefore(i));
    m_card.sWORD = WordAt(rLine, 0);
    m_card.iKEYWORD = -1;
    return KeywordToId(m_card.sWORD, m_card.iKEYWORD);
}

/// Makes m_card of m_aLines. Returns 1, or 0 if the first field isn't a keyword.
int CConvertNastran::AssembleCard() {
    if (const T_LINE_D& rLine = m_aLines.First();
        rLine.bWORDS && rLine.iFORMAT == FORMAT_SMALL && m_aLines.GetCount() == 1) {
        return AssembleWords(rLine);
    }
    std::vector<std::string_view>& rFields = m_card.aFIELDS;
    m_card.iKEYWORD = -1;
    m_card.sWORD = {};
    m_card.aLINES.clear();
    rFields.clear();
    for (std::size_t iLine = 0; iLine < m_aLines.GetCount(); ++iLine) {
        T_LINE_D& rLine = m_aLines[iLine];
        std::string_view sFirst; // the keyword, or a continuation mark, which isn't looked at
        if (rLine.iFORMAT == FORMAT_SMALL) {
            SplitSmallLine(rLine, sFirst);
        } else {
            const std::size_t nBefore = rFields.size();
            if (rLine.iFORMAT == FORMAT_LARGE) {
                SplitLargeLine(rLine);
            } else {
                SplitFreeLine(rLine);
            }
            if (rFields.size() == nBefore) continue;
            const auto pFirst = rFields.begin() + static_cast<std::ptrdiff_t>(nBefore);
            std::for_each(pFirst, rFields.end(), [&](std::string_view& rPiece) {
                char* pPiece = rLine.aTEXT + (rPiece.data() - rLine.aTEXT);
                rPiece = CNastranStrParser::RemoveBlanks(pPiece, pPiece + rPiece.size());
            });
            sFirst = *pFirst;
            rFields.erase(pFirst);
        }
        if (!rLine.bCONT) {
            m_card.sWORD = sFirst;
            if (!KeywordToId(sFirst, m_card.iKEYWORD)) return 0;
        }
        m_card.aLINES.resize(rFields.size(), rLine.iLINE);
    }
    return 1;
}

/// Nine pieces of eight columns, blank where the line ends before; columns past 72 aren't looked at. The first goes to
/// rFirst, the others behind the fields of m_card.
int CConvertNastran::SplitSmallLine(T_LINE_D& rLine, std::string_view& rFirst) {
    const auto Field = [&](std::size_t iColumn) {
        char* pField = rLine.aTEXT + iColumn;
        return rLine.bTABBED ? CNastranStrParser::RemoveBlanks(pField, pField + 8)
                             : CNastranStrParser::RemoveBlanksOf8(pField, [&] { TellJoining(rLine); });
    };
    rFirst = Field(0);
    const std::size_t nFields = m_card.aFIELDS.size();
    m_card.aFIELDS.resize(nFields + SMALL_FIELDS);
    for (std::size_t i = 0; i < SMALL_FIELDS; ++i) {
        m_card.aFIELDS[nFields + i] = Field(T_LINE_D::ColumnsBefore(i));
    }
    return 1;
}

/// A piece of eight columns and four of sixteen, behind the fields of m_card. Pieces that the line doesn't reach are
/// left out, so the fields of a later line move up.
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
        if (pBegin < pEnd) m_card.aFIELDS.emplace_back(pBegin, static_cast<std::size_t>(pEnd - pBegin));
    }
    return 1;
}

/// Pieces between commas or blanks, behind the fields of m_card. All but the first are taken for a continuation mark if
/// they hold a "+", and dropped.
int CConvertNastran::SplitFreeLine(T_LINE_D& rLine) {
    std::vector<std::string_view>& rFields = m_card.aFIELDS;
    const std::size_t nBefore = rFields.size();
    CNastranStrParser::SplitFreeFields(rLine, rFields);
    if (rFields.size() == nBefore) return 1;
    const auto pSecond = rFields.begin() + static_cast<std::ptrdiff_t>(nBefore) + 1;
    if (m_options.pOBSERVER) TellDeletedFields(*m_options.pOBSERVER, {pSecond, rFields.end()}, rLine.iLINE);
    const auto isMark = [](std::string_view sField) { return sField.find('+') != std::string_view::npos; };
    rFields.erase(std::remove_if(pSecond, rFields.end(), isMark), rFields.end());
    return 1;
}
