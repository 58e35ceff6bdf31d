// Cutting lines into fields as NASTRAN does.

#include "nas2zdt/restate/CardText.h"

#include <algorithm>

namespace {

constexpr std::size_t FIELD_WIDTH = 8;
constexpr std::size_t FREE_COLUMNS = 10; // a comma in these makes a line free field

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view Trim(std::string_view sText) {
    while (!sText.empty() && IsBlank(sText.front())) sText.remove_prefix(1);
    while (!sText.empty() && IsBlank(sText.back())) sText.remove_suffix(1);
    return sText;
}

/// The text up to the comma and takes it off rText, with the comma. rMore tells whether there was one.
std::string_view TakePiece(std::string_view& rText, bool& rMore) {
    const std::size_t iComma = rText.find(',');
    rMore = iComma != std::string_view::npos;
    const std::string_view sPiece = Trim(rText.substr(0, iComma));
    rText.remove_prefix(rMore ? iComma + 1 : rText.size());
    return sPiece;
}

/// Field 1 of a free field line.
std::string_view FirstPiece(std::string_view sText) {
    bool bMore = false;
    return TakePiece(sText, bMore);
}

bool LooksLikeNumber(std::string_view sField) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::any_of(sField.begin(), sField.end(), isDigit) && std::all_of(sField.begin(), sField.end(), [&](char c) {
               return isDigit(c) || std::string_view(".+-EDed").find(c) != std::string_view::npos;
           });
}

/// Whether the last field of a line that ends early is its mark. A number with a sign is a field, unless the next line
/// begins with the very same.
bool IsEarlyMark(std::string_view sField, std::string_view sNextFirst, bool bLarge) {
    if (sField.starts_with('*')) return bLarge;
    return sField.starts_with('+') && (!LooksLikeNumber(sField) || sField == sNextFirst);
}

} // namespace

std::string_view BareMark(std::string_view sMark) {
    if (sMark.starts_with('+') || sMark.starts_with('*')) sMark.remove_prefix(1);
    return Trim(sMark);
}

void CCardText::Read(std::span<const std::string_view> aLines) {
    m_sKeyword = {};
    m_aFields.clear();
    m_aLines.clear();
    for (std::size_t i = 0; i < aLines.size(); ++i) {
        T_CARDLINE_D& rLine = m_aLines.emplace_back();
        const std::size_t iComment = aLines[i].find('$');
        rLine.bCOMMENTED = iComment != std::string_view::npos;
        std::string_view sText = aLines[i].substr(0, iComment);
        rLine.bTABBED = sText.find('\t') != std::string_view::npos;
        rLine.bFREE = sText.substr(0, FREE_COLUMNS).find(',') != std::string_view::npos;
        if (rLine.bFREE) {
            CutFree(sText, i + 1 < aLines.size() ? FirstPiece(aLines[i + 1]) : std::string_view(), rLine);
        } else {
            CutColumns(rLine.bTABBED ? ExpandTabs(sText, i, aLines.size()) : sText, rLine);
        }
        m_aFields.insert(m_aFields.end(), rLine.aFIELDS.begin(),
                         rLine.aFIELDS.begin() + static_cast<std::ptrdiff_t>(rLine.GetFieldCount()));
    }
    if (m_aLines.empty()) return;
    m_sKeyword = m_aLines[0].sFIRST;
    if (m_sKeyword.size() > 1 && m_sKeyword.ends_with('*'))
        m_sKeyword = Trim(m_sKeyword.substr(0, m_sKeyword.size() - 1));
}

/// Pieces between commas: field 1, the data fields, the mark. A line that ends before its mark may have it earlier.
void CCardText::CutFree(std::string_view sText, std::string_view sNextFirst, T_CARDLINE_D& rLine) {
    bool bMore = false;
    rLine.sFIRST = TakePiece(sText, bMore);
    rLine.bLARGE = rLine.sFIRST.starts_with('*') || rLine.sFIRST.ends_with('*');
    const std::size_t nFields = rLine.GetFieldCount();
    std::size_t nTaken = 0;
    while (bMore && nTaken < nFields) rLine.aFIELDS[nTaken++] = TakePiece(sText, bMore);
    rLine.bSHORT = nTaken < nFields;
    if (bMore) {
        rLine.sMARK = TakePiece(sText, bMore);
        rLine.bPASTMARK = bMore;
    } else if (nTaken > 0 && IsEarlyMark(rLine.aFIELDS[nTaken - 1], sNextFirst, rLine.bLARGE)) {
        std::swap(rLine.sMARK, rLine.aFIELDS[nTaken - 1]);
        rLine.bSHORT = true;
    }
}

/// Eight columns, then eight fields of eight or four of sixteen, then the mark in columns 73 to 80.
void CCardText::CutColumns(std::string_view sText, T_CARDLINE_D& rLine) {
    const auto field = [&](std::size_t iColumn, std::size_t nWidth) {
        return iColumn < sText.size() ? Trim(sText.substr(iColumn, nWidth)) : std::string_view();
    };
    rLine.sFIRST = field(0, FIELD_WIDTH);
    rLine.bLARGE =
        rLine.sFIRST.find('*') != std::string_view::npos && !rLine.sFIRST.starts_with('+') && !rLine.IsReplication();
    const std::size_t nFields = rLine.GetFieldCount();
    const std::size_t nWidth = 8 * FIELD_WIDTH / nFields;
    for (std::size_t i = 0; i < nFields; ++i) rLine.aFIELDS[i] = field(FIELD_WIDTH + nWidth * i, nWidth);
    rLine.bSHORT = sText.size() <= FIELD_WIDTH + nWidth * (nFields - 1);
    rLine.sMARK = field(9 * FIELD_WIDTH, FIELD_WIDTH);
}

/// The first 80 columns of a line, where a tab goes on to the next column 9, 17, 25 and so on.
std::string_view CCardText::ExpandTabs(std::string_view sText, std::size_t iLine, std::size_t nLines) {
    if (m_aExpanded.size() < COLUMNS * nLines) m_aExpanded.resize(COLUMNS * nLines); // once a card: views stay valid
    char* pColumns = m_aExpanded.data() + COLUMNS * iLine;
    std::size_t nColumns = 0;
    for (const char c : sText) {
        if (nColumns == COLUMNS) break;
        if (c != '\t') {
            pColumns[nColumns++] = c;
            continue;
        }
        const std::size_t iStop = (nColumns / FIELD_WIDTH + 1) * FIELD_WIDTH;
        while (nColumns < iStop) pColumns[nColumns++] = ' ';
    }
    return {pColumns, nColumns};
}
