// Reads cards of grids and elements.

#include "nas2zdt/check/RowReader.h"

#include "nas2zdt/check/FieldCheck.h"
#include "nas2zdt/check/ValueRules.h"
#include "nas2zdt/restate/PlateThickness.h"

#include <algorithm>
#include <string>

namespace {

bool IsFrame(std::string_view sKeyword, char cKind) {
    return sKeyword.size() == 6 && sKeyword.starts_with("CORD") && sKeyword[4] == cKind &&
           (sKeyword[5] == 'R' || sKeyword[5] == 'C' || sKeyword[5] == 'S');
}

/// The place behind the last grid, or of the first field if others stand before and between the grids.
std::size_t FirstBehindGrids(const T_ELEMENTKIND_D& rKind) {
    return rKind.nSTEP > 1 || rKind.iPROPERTY == 0 ? 1 : rKind.iFIRST + rKind.nMOST;
}

} // namespace

bool HasOrientation(std::string_view sKeyword) {
    return sKeyword == "CBAR" || sKeyword == "CBEAM" || sKeyword == "CBEND";
}

/// OFFT "B" stands for a basic vector.
T_ORIENTATION_D ReadOrientation(const CCardFields& rCard, std::size_t iFirst) {
    T_ORIENTATION_D read;
    read.bBASIC = !rCard.IsBlank(iFirst + 3) && ToUpper(rCard.Text(iFirst + 3)[0]) == 'B';
    if (rCard.HasInt(iFirst) && rCard.IsBlank(iFirst + 1) && rCard.IsBlank(iFirst + 2)) {
        read.iG0 = rCard.Int(iFirst);
    } else if (!rCard.IsBlank(iFirst) || !rCard.IsBlank(iFirst + 1) || !rCard.IsBlank(iFirst + 2)) {
        read.vector = {rCard.Real(iFirst), rCard.Real(iFirst + 1), rCard.Real(iFirst + 2)};
    }
    return read;
}

CRowReader::T_KEYWORD_D CRowReader::FindKeyword(std::string_view sKeyword) {
    if (sKeyword == "GRID") return {TABLE_GRIDS};
    if (const T_ELEMENTKIND_D* pKind = FindElementKind(sKeyword)) return {TABLE_ELEMENTS, pKind};
    if (IsFrame(sKeyword, '1')) return {TABLE_FRAMES_BY_GRIDS};
    if (IsFrame(sKeyword, '2')) return {TABLE_FRAMES_BY_POINTS};
    const bool bDefaults = sKeyword == "GRDSET" || sKeyword == "BAROR" || sKeyword == "BEAMOR";
    return {bDefaults ? TABLE_DEFAULTS : TABLE_NONE};
}

T_READCARD_D CRowReader::Read(const T_SOURCECARD_D& rCard, bool bAnyway, bool bOneLine) {
    if (rCard.bCOLUMNS) {
        if (bOneLine) {
            m_columns.ReadLine(rCard.Text().substr(0, rCard.nTEXT - 1));
        } else {
            m_columns.Read(rCard.Text());
        }
        const T_COLUMNS_D keyword = m_columns.GetKeyword();
        if (keyword.nWORD != m_nKeyword) { // most cards stand among others of their kind
            std::string sKeyword(keyword.Text());
            std::transform(sKeyword.begin(), sKeyword.end(), sKeyword.begin(), &ToUpper);
            m_nKeyword = keyword.nWORD;
            m_keyword = FindKeyword(sKeyword);
        }
        if (m_keyword.eTABLE == TABLE_NONE && !bAnyway) return {};
        if (ReadAtOnce(rCard)) return {m_keyword.eTABLE};
    }
    m_card.Read(rCard);
    const T_KEYWORD_D keyword = FindKeyword(m_card.GetKeyword());
    T_READCARD_D read{keyword.eTABLE};
    if (read.eTABLE == TABLE_GRIDS) TakeGRID(read, bAnyway);
    if (read.eTABLE == TABLE_ELEMENTS) TakeElement(read, *keyword.pKIND, bAnyway);
    return read;
}

/// Takes what needs no second look: fields behind the grids of an element, and all that may be wrong, do.
bool CRowReader::ReadAtOnce(const T_SOURCECARD_D& rCard) {
    if (m_keyword.eTABLE == TABLE_GRIDS) {
        const T_GRIDCARD_D read = ReadGRID(m_columns);
        if (m_columns.HasOther() || !FitsIds(read)) return false;
        m_rRows.grids.Add(read.iID, read.dX, read.kind, rCard.origin);
        return true;
    }
    if (m_keyword.eTABLE != TABLE_ELEMENTS) return false;
    const T_ELEMENTKIND_D& rKind = *m_keyword.pKIND;
    if (HasOrientation(rKind.sKEYWORD) || m_columns.GetCount() > FirstBehindGrids(rKind)) return false;
    ReadElement(m_columns, rKind);
    if (m_columns.HasOther() || !FitsIds(rKind)) return false;
    AddElement(rCard.origin);
    return true;
}

template <class FIELDS>
CRowReader::T_GRIDCARD_D CRowReader::ReadGRID(const FIELDS& rCard) {
    T_GRIDCARD_D read;
    read.iID = rCard.Int(0);
    read.kind.iCP = rCard.Int(1);
    read.dX = {rCard.Real(2), rCard.Real(3), rCard.Real(4)};
    read.kind.iCD = rCard.Int(5);
    read.kind.nPS = rCard.Components(6);
    read.kind.nBLANKS = static_cast<std::uint8_t>(
        (rCard.IsBlank(1) ? BLANK_CP : 0) | (rCard.IsBlank(5) ? BLANK_CD : 0) | (rCard.IsBlank(6) ? BLANK_PS : 0));
    return read;
}

void CRowReader::TakeGRID(T_READCARD_D& rRead, bool bAnyway) {
    const T_GRIDCARD_D read = ReadGRID(m_card);
    rRead.bODD = !IsSound() || !FitsIds(read) || m_card.HasIntegerForReal();
    if (IsSound() && (bAnyway || !rRead.bODD)) m_rRows.grids.Add(read.iID, read.dX, read.kind, m_card.GetOrigin());
}

/// Fills m_element, whose rest stays as it was.
template <class FIELDS>
void CRowReader::ReadElement(const FIELDS& rCard, const T_ELEMENTKIND_D& rKind) {
    T_DECKELEMENT_D& rElement = m_element.element;
    rElement.iEID = rCard.Int(0);
    rElement.iPID = rKind.iPROPERTY == 0 ? 0 : rCard.Int(rKind.iPROPERTY, rElement.iEID);
    rElement.iKIND = static_cast<std::uint8_t>(&rKind - GetElementKinds().data());
    rElement.nNODES = rKind.nCORNERS;
    rElement.nENDS = 0;
    rElement.bMORE = false;
    m_element.bORIENTED = false;
    const std::size_t nCount = rKind.nMOST > rKind.nCORNERS ? rCard.GetCount() : 0;
    for (std::size_t i = 0; i < rKind.nMOST; ++i) {
        const std::size_t iField = rKind.iFIRST + i * rKind.nSTEP;
        if (i >= rKind.nCORNERS && iField >= nCount) break;
        m_element.aNODES[i] = rCard.Int(iField);
        if (i >= rKind.nCORNERS && m_element.aNODES[i] != 0) rElement.nNODES = static_cast<std::uint8_t>(i + 1);
        if (rKind.nSTEP == 2 && rCard.Int(iField + 1) != 0) rElement.nENDS |= static_cast<std::uint8_t>(1u << i);
    }
}

void CRowReader::TakeElement(T_READCARD_D& rRead, const T_ELEMENTKIND_D& rKind, bool bAnyway) {
    constexpr std::size_t FIELD_ORIENTATION = 4, FIELD_OFFT = 7;
    ReadElement(m_card, rKind);
    T_DECKELEMENT_D& rElement = m_element.element;
    if (HasOrientation(rKind.sKEYWORD)) {
        m_element.bORIENTED = true;
        m_element.bar.orientation = ReadOrientation(m_card, FIELD_ORIENTATION);
        const bool bVector = m_element.bar.orientation.iG0 || m_element.bar.orientation.vector;
        m_element.bar.nBLANKS = static_cast<std::uint8_t>(
            (bVector ? 0 : BLANK_VECTOR) | (m_card.IsBlank(FIELD_OFFT) ? BLANK_OFFT : 0) |
            (m_card.IsBlank(rKind.iPROPERTY) ? BLANK_PID : 0) | (rKind.sKEYWORD == "CBEAM" ? OF_BEAM : 0));
    }
    const std::size_t nUses = m_rRows.aUSES.size();
    rElement.bMORE = m_card.GetCount() > FirstBehindGrids(rKind);
    const bool bMoreFits = !rElement.bMORE || ReadMore(rElement);
    const bool bSound = IsSound();
    rRead.bODD = !bSound || !FitsIds(rKind) || !bMoreFits || m_card.HasIntegerForReal();
    const bool bPlate = rKind.eFORM == FORM_TRIANGLE || rKind.eFORM == FORM_QUAD;
    const bool bThick = bPlate && HasThickness(m_card, ThicknessOf(rKind.sKEYWORD));
    rRead.bSIZED = bSound && (bThick || rKind.sKEYWORD == "CONROD");
    if (bSound && (bAnyway || (!rRead.bODD && !rRead.bSIZED))) {
        AddElement(m_card.GetOrigin());
    } else {
        m_rRows.aUSES.resize(nUses);
    }
}

/// Looks at the fields of the element's card that are in no table. Whether they are what they should be.
bool CRowReader::ReadMore(const T_DECKELEMENT_D& rElement) {
    const T_ELEMENTKIND_D& rKind = rElement.GetKind();
    const T_CARDFORMAT_D* pFormat = FindCardFormat(rKind.sKEYWORD);
    const bool bStiff = rKind.sKEYWORD != "CONROD" || HasStiffness(m_card, CONROD_AREA);
    const auto take = [&](E_REFERRED eTarget, std::int32_t iID) {
        if (eTarget == TARGET_POINT && rKind.nSTEP > 1) return; // a grid of the table
        const auto iRow = static_cast<std::uint32_t>(m_rRows.aELEMENTS.size());
        if (m_rRows.aUSES.size() == m_nUsesBefore) {
            m_rRows.aUSES.push_back({eTarget, iID, iRow});
        } else {
            m_rRows.AddUse(eTarget, iID, iRow);
        }
    };
    return FitsFormat(m_card, *pFormat, FirstBehindGrids(rKind), take) && bStiff;
}

void CRowReader::AddElement(const T_ORIGINLINE_D& rOrigin) {
    T_DECKELEMENT_D& rElement = m_element.element;
    if (m_element.bORIENTED) {
        m_element.bar.iEID = rElement.iEID;
        m_element.bar.iROW = static_cast<std::uint32_t>(m_rRows.aELEMENTS.size());
        m_rRows.aBARS.push_back(m_element.bar);
    }
    rElement.iFIRST = static_cast<std::uint32_t>(m_rRows.aNODES.size());
    rElement.origin = rOrigin;
    m_rRows.aELEMENTS.push_back(rElement);
    const auto pNodes = m_element.aNODES.begin();
    m_rRows.aNODES.insert(m_rRows.aNODES.end(), pNodes, pNodes + rElement.nNODES);
}

/// Whether the ids of the element in hand may be ids.
bool CRowReader::FitsIds(const T_ELEMENTKIND_D& rKind) const {
    const T_DECKELEMENT_D& rElement = m_element.element;
    bool bFits = IsId(rElement.iEID) && (rKind.iPROPERTY == 0 || IsId(rElement.iPID));
    for (std::size_t i = 0; i < rElement.nNODES; ++i) {
        const std::int32_t iNode = m_element.aNODES[i];
        bFits = bFits && (IsId(iNode) || (iNode == 0 && (i >= rKind.nCORNERS || rKind.eBODY == BODY_LINK)));
    }
    return bFits;
}

bool CRowReader::FitsIds(const T_GRIDCARD_D& rRead) {
    return IsId(rRead.iID) && rRead.kind.iCP >= 0 && rRead.kind.iCD >= -1;
}
