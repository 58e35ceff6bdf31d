// MAT1, MAT4 and MAT8. Nothing completes E, G and NU from one another.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstdint>

int CConvertNastran::ParseMAT1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iMID = fields.Int();
    T_MATL_D material;
    material.iMATTYPE = MAT_ISOTROPIC;
    material.dE = fields.Real();
    material.dG = fields.Real();
    material.dNU = fields.Real();
    material.dRHO = fields.Real();
    material.dALPHA = fields.Real();
    material.dTREF = fields.Real();
    material.dGE = fields.Real();
    material.dST = fields.Real();
    material.dSC = fields.Real();
    material.dSS = fields.Real();
    fields.Skip("MCSID");
    return m_pDataPool->SetMATL(iMID, material);
}

int CConvertNastran::ParseMAT4(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iMID = fields.Int();
    T_MATL_D material;
    material.iMATTYPE = MAT_THERMAL;
    material.dK = fields.Real();
    material.dCP = fields.Real();
    fields.Skip("RHO", "H", "MU", "HGEN", "REFENTH", "TCH", "TDELTA", "QLAT"); // a thermal material has no density
    return m_pDataPool->SetMATL(iMID, material);
}

int CConvertNastran::ParseMAT8(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iMID = fields.Int();
    T_MATL_D material;
    material.iMATTYPE = MAT_ORTHOTROPIC;
    material.dE = fields.Real();
    material.dE2 = fields.Real();
    material.dNU = fields.Real();
    material.dG = fields.Real();
    material.dG1Z = fields.Real();
    material.dG2Z = fields.Real();
    material.dRHO = fields.Real();
    material.dALPHA = fields.Real();
    material.dALPHA2 = fields.Real();
    material.dTREF = fields.Real();
    material.dST = fields.Real(); // Xt
    material.dSC = fields.Real(); // Xc
    material.dYT = fields.Real();
    material.dYC = fields.Real();
    material.dSS = fields.Real();
    material.dGE = fields.Real();
    material.dF12 = fields.Real();
    material.bSTRN = fields.Real() == 1.0 ? 1 : 0;
    return m_pDataPool->SetMATL(iMID, material);
}
