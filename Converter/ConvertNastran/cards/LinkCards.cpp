// CELAS1, CELAS2, CBUSH, CGAP.

#include "cards/LineOrientation.h"
#include "driver/CConvertNastran.h"

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
    element.iTYPE = TYPE_BUSH;
    element.iSUBTYPE = SHAPE_LINE;
    element.iPID = fields.Int();
    element.iNODE.Set(0, fields.Int());
    element.iNODE.Set(1, fields.Int());
    ReadOrientation(fields, element); // bVECTOR stays 0: a bush's vector isn't made a reference point
    return m_pDataPool->SetELEM(iEID, std::move(element)); // CID, S, OCID and S1 to S3 have no use here
}

int CConvertNastran::ParseCGAP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    element.iTYPE = TYPE_GAP;
    element.iSUBTYPE = SHAPE_LINE;
    element.iPID = fields.Int();
    element.iNODE.Set(0, fields.Int());
    element.iNODE.Set(1, fields.Int());
    element.bVECTOR = ReadOrientation(fields, element) ? 1 : 0;
    return m_pDataPool->SetELEM(iEID, std::move(element)); // CID has no use here
}
