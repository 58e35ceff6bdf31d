// CELAS1, CELAS2, CBUSH, CGAP.

#include "cards/LineOrientation.h"
#include "cards/NodeLayout.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstdint>
#include <utility>

namespace {

constexpr T_LAYT_D BUSH = {TYPE_BUSH, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYT_D GAP = {TYPE_GAP, SHAPE_LINE, LINE_SLOTS};

} // namespace

int CConvertNastran::ParseCELAS1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_CEL1_D spring;
    spring.iPID = fields.Int();
    spring.iG1 = fields.Int();
    spring.iC1 = fields.Int();
    spring.iG2 = fields.Int();
    spring.iC2 = fields.Int();
    return m_pDataPool->SetCEL1(iEID, spring);
}

int CConvertNastran::ParseCELAS2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_CEL2_D spring;
    spring.dK = fields.Real();
    spring.iG1 = fields.Int();
    spring.iC1 = fields.Int();
    spring.iG2 = fields.Int();
    spring.iC2 = fields.Int();
    spring.dGE = fields.Real();
    spring.dS = fields.Real();
    return m_pDataPool->SetCEL2(iEID, spring);
}

int CConvertNastran::ParseCBUSH(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, BUSH);
    ReadOrientation(fields, element); // bVECTOR stays 0: a bush's vector isn't made a reference point
    return m_pDataPool->SetELEM(iEID, std::move(element));
}

int CConvertNastran::ParseCGAP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, GAP);
    element.bVECTOR = ReadOrientation(fields, element) ? 1 : 0;
    fields.Skip("CID");
    return m_pDataPool->SetELEM(iEID, std::move(element));
}
