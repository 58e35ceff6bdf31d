// CBAR, CBEAM, CBEND, CROD, CTUBE and CONROD.

#include "cards/LineOrientation.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

namespace {

/// Reads PID and the two grids.
void ReadLine(CFieldCursor& rFields, T_ELEM_D& rElement, E_ELEMENT_TYPE eType) {
    rElement.iTYPE = eType;
    rElement.iSUBTYPE = SHAPE_LINE;
    rElement.iPID = rFields.Int();
    rElement.iNODE.Set(0, rFields.Int());
    rElement.iNODE.Set(1, rFields.Int());
}

/// A line element with an orientation. Offsets, end releases and what else stands behind it have no use here.
int StoreBeam(CDataPool& rDataPool, const T_DATA_D& rCard, E_ELEMENT_TYPE eType) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadLine(fields, element, eType);
    element.bVECTOR = ReadOrientation(fields, element) ? 1 : 0;
    return rDataPool.SetELEM(iEID, std::move(element));
}

int StoreTruss(CDataPool& rDataPool, const T_DATA_D& rCard, E_ELEMENT_TYPE eType) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadLine(fields, element, eType);
    return rDataPool.SetELEM(iEID, std::move(element));
}

} // namespace

int CConvertNastran::ParseCBAR(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, TYPE_BAR);
}

int CConvertNastran::ParseCBEAM(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, TYPE_BEAM);
}

int CConvertNastran::ParseCBEND(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, TYPE_BEND);
}

int CConvertNastran::ParseCROD(const T_DATA_D& rCard) {
    return StoreTruss(*m_pDataPool, rCard, TYPE_ROD);
}

int CConvertNastran::ParseCTUBE(const T_DATA_D& rCard) {
    return StoreTruss(*m_pDataPool, rCard, TYPE_TUBE);
}

int CConvertNastran::ParseCONROD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_CNRD_D rod;
    rod.iG1 = fields.Int();
    rod.iG2 = fields.Int();
    rod.iMID = fields.Int();
    rod.dA = fields.Real();
    rod.dJ = fields.Real();
    rod.dC = fields.Real();
    rod.dNSM = fields.Real();
    return m_pDataPool->SetCNRD(iEID, rod);
}
