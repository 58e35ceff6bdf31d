// Values of the fields of a card.

#include "nas2zdt/restate/CardFields.h"

#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/text/Words.h"

void CCardFields::Read(const T_SOURCECARD_D& rCard) {
    m_aLines.clear();
    m_bColumns = rCard.bPLAIN;
    for (std::string_view sRest = rCard.Text(); !sRest.empty();) {
        const std::size_t iFeed = sRest.find('\n');
        m_aLines.push_back(sRest.substr(0, iFeed));
        sRest.remove_prefix(iFeed + 1);
        m_bColumns = m_bColumns && m_aLines.back().substr(0, LINE_FIELDS).find('*') == std::string_view::npos;
    }
    m_sKeyword.clear();
    if (m_bColumns) {
        m_nFields = LINE_FIELDS * m_aLines.size();
        for (const char c : TrimText(m_aLines[0].substr(0, LINE_FIELDS))) m_sKeyword += ToUpper(c);
    } else {
        m_text.Read(m_aLines);
        m_nFields = m_text.GetFields().size();
        for (const char c : m_text.GetKeyword()) m_sKeyword += ToUpper(c);
    }
    while (m_nFields > 0 && Text(m_nFields - 1).empty()) --m_nFields;
    m_origin = rCard.origin;
    m_iBroken = NOWHERE;
}

bool CCardFields::Is(std::size_t i, std::string_view sUpper) const {
    return Text(i).size() == sUpper.size() && StartsWithoutCase(Text(i), sUpper);
}

std::int32_t CCardFields::Int(std::size_t i, std::int32_t iDefault) const {
    if (IsBlank(i)) return iDefault;
    std::int32_t iValue = 0;
    if (ReadInteger(Text(i), iValue)) return iValue;
    Complain(i);
    return iDefault;
}

double CCardFields::Real(std::size_t i, double dDefault) const {
    if (IsBlank(i)) return dDefault;
    double dValue = 0.0;
    if (ReadReal(Text(i), dValue)) return dValue;
    Complain(i);
    return dDefault;
}

std::uint8_t CCardFields::Components(std::size_t i) const {
    std::uint8_t nBits = 0;
    for (const char c : Text(i)) {
        if (c >= '1' && c <= '6') {
            nBits |= static_cast<std::uint8_t>(1u << (c - '1'));
        } else if (c != '0') {
            Complain(i);
        }
    }
    return nBits;
}

bool CCardFields::HasInt(std::size_t i) const {
    std::int32_t iValue = 0;
    return ReadInteger(Text(i), iValue);
}

bool CCardFields::HasReal(std::size_t i) const {
    return IsReal(Text(i));
}
