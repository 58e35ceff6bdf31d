// EIGB, EIGRL.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstdint>

int CConvertNastran::ParseEIGB(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_EIGB_D buckling;
    buckling.iMETHOD = fields.Text() == "SINV" ? 1 : 0;
    buckling.dL1 = fields.Real();
    buckling.dL2 = fields.Real();
    buckling.iNEP = fields.Int();
    fields.Skip("NDP"); // NDN takes its place, a blank one too
    buckling.iNDN = fields.Int();
    fields.Skip("-");
    buckling.iNORM = fields.Text() == "POINT" ? 1 : 0;
    buckling.iG = fields.Int();
    buckling.iC = fields.Int();
    return m_pDataPool->SetEIGB(iSID, buckling);
}

int CConvertNastran::ParseEIGRL(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_EIRL_D modes;
    modes.dV1 = fields.Real();
    modes.dV2 = fields.Real();
    modes.iND = fields.Int();
    modes.iMSGLVL = fields.Int();
    modes.iMAXSET = fields.Int();
    modes.dSHFSCL = fields.Real();
    modes.iNORM = fields.Text() == "MAX" ? 1 : 0;
    return m_pDataPool->SetEIRL(iSID, modes);
}
