// CBAR, CBEAM, CBEND, CROD, CTUBE and CONROD.

#include "cards/LineOrientation.h"
#include "cards/NodeLayout.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstdint>
#include <utility>

namespace {

constexpr T_LAYT_D BAR = {TYPE_BAR, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYT_D BEAM = {TYPE_BEAM, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYT_D BEND = {TYPE_BEND, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYT_D ROD = {TYPE_ROD, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYT_D TUBE = {TYPE_TUBE, SHAPE_LINE, LINE_SLOTS};

/// A line element with an orientation. Offsets, end releases and what else stands behind it aren't read.
int StoreBeam(CDataPool& rDataPool, const T_DATA_D& rCard, const T_LAYT_D& rLayout) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, rLayout);
    element.bVECTOR = ReadOrientation(fields, element) ? 1 : 0;
    return rDataPool.SetELEM(iEID, std::move(element));
}

} // namespace

int CConvertNastran::ParseCBAR(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, BAR);
}

int CConvertNastran::ParseCBEAM(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, BEAM);
}

int CConvertNastran::ParseCBEND(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, BEND);
}

int CConvertNastran::ParseCROD(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, ROD);
}

int CConvertNastran::ParseCTUBE(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, TUBE);
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
