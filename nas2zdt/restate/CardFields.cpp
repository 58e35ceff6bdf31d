// Values of the fields of a card.

#include "nas2zdt/restate/CardFields.h"

#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/text/Words.h"

void CCardFields::Read(const T_SOURCECARD_D& rCard) {
    m_origin = rCard.origin;
    m_iBroken = NOWHERE;
    m_bIntegerForReal = false;
    m_bColumns = rCard.bCOLUMNS;
    if (m_bColumns) return ReadColumns(rCard.Text());
    m_aLines.clear();
    for (std::string_view sRest = rCard.Text(); !sRest.empty();) {
        const std::size_t iFeed = sRest.find('\n');
        m_aLines.push_back(sRest.substr(0, iFeed));
        sRest.remove_prefix(iFeed + 1);
    }
    m_text.Read(m_aLines);
    m_nKeyword = 0;
    m_sKeyword.clear();
    for (const char c : m_text.GetKeyword()) m_sKeyword += ToUpper(c);
    m_nFields = m_text.GetFields().size();
    while (m_nFields > 0 && Text(m_nFields - 1).empty()) --m_nFields;
}

void CCardFields::ReadColumns(std::string_view sText) {
    m_columns.Read(sText);
    m_nFields = m_columns.GetCount();
    const T_COLUMNS_D keyword = m_columns.GetKeyword();
    if (keyword.nWORD == m_nKeyword) return; // most cards stand among others of their kind
    m_nKeyword = keyword.nWORD;
    m_sKeyword.clear();
    for (const char c : keyword.Text()) m_sKeyword += ToUpper(c);
}

bool CCardFields::Is(std::size_t i, std::string_view sUpper) const {
    return Text(i).size() == sUpper.size() && StartsWithoutCase(Text(i), sUpper);
}

std::int32_t CCardFields::Int(std::size_t i, std::int32_t iDefault) const {
    std::int32_t iValue = 0;
    if (i >= m_nFields) return iDefault;
    if (m_bColumns) {
        const TEXTWORD nColumns = m_columns.Load(i);
        if (nColumns == BLANK_COLUMNS) return iDefault;
        if (ReadLeftInt(nColumns, iValue) || ReadShortInt(m_columns.Cut(i).Short(), iValue)) return iValue;
    }
    const std::string_view sField = Text(i);
    if (sField.empty()) return iDefault;
    if (ReadInteger(sField, iValue)) return iValue;
    Complain(i);
    return iDefault;
}

double CCardFields::Real(std::size_t i, double dDefault) const {
    double dValue = 0.0;
    if (i >= m_nFields) return dDefault;
    if (m_bColumns) {
        const T_COLUMNS_D field = m_columns.Cut(i);
        if (field.nTEXT == 0) return dDefault;
        if (ReadShortReal(field.Short(), dValue)) {
            m_bIntegerForReal |= !field.HasPoint();
            return dValue;
        }
    }
    const std::string_view sField = Text(i);
    if (sField.empty()) return dDefault;
    if (ReadReal(sField, dValue)) {
        m_bIntegerForReal = m_bIntegerForReal || (sField.find('.') == std::string_view::npos && !IsReal(sField));
        return dValue;
    }
    Complain(i);
    return dDefault;
}

std::uint8_t CCardFields::Components(std::size_t i) const {
    std::uint8_t nBits = 0;
    if (!ReadComponents(Text(i), nBits)) Complain(i);
    return nBits;
}

bool CCardFields::HasInt(std::size_t i) const {
    std::int32_t iValue = 0;
    return ReadInteger(Text(i), iValue);
}

bool CCardFields::HasReal(std::size_t i) const {
    return IsReal(Text(i));
}
