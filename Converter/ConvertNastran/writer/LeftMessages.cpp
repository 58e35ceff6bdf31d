// Telling what the file doesn't say: the observer learns all of it, the log some.

#include "cards/BarShapes.h"
#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "store/Left.h"

void CConvertNastran::TellLeft(const T_LEFT_D& rLeft) {
    if (m_pObserver && !rLeft.bELSEWHERE) m_pObserver->OnLeft(rLeft);
    LogLeft(rLeft);
}

// clang-format off
int CConvertNastran::LogLeft(const T_LEFT_D& rLeft) {
    const std::int32_t iID = rLeft.iID;
    const std::int32_t iOther = rLeft.iOTHER;
    switch (rLeft.eREASON) {
    case LEFT_PBARL_SHAPE:
        return LogShape(iID, iOther);
    case LEFT_CELAS1_DOF:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_C1_and_C2_of_CELAS1_is_different"), iID);
    case LEFT_CELAS1_ENDS: {
        const T_CEL1_D& r = *m_pDataPool->CEL1.Find(iID);
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_CELAS1_C_G_Data_is_not_correct"), iID, r.iG1, r.iC1, r.iG2, r.iC2);
    }
    case LEFT_CELAS1_GRID1:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS1"), iID, iOther);
    case LEFT_CELAS1_GRID2:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS1"), iID, iOther);
    case LEFT_CELAS1_PELAS:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_PELAS_is_assigned_to_CELAS1"), iID, iOther);
    case LEFT_CELAS1_ZERO:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Stiffness_of_PELAS_for_CELEAS1_is_zero_value"), iID, iOther);
    case LEFT_CELAS2_DOF:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_C1_and_C2_of_CELAS2_is_different"), iID);
    case LEFT_CELAS2_ENDS: {
        const T_CEL2_D& r = *m_pDataPool->CEL2.Find(iID);
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_CELAS2_C_G_Data_is_not_correct"), iID, r.iG1, r.iC1, r.iG2, r.iC2);
    }
    case LEFT_CELAS2_GRID1:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS2"), iID, iOther);
    case LEFT_CELAS2_GRID2:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS2"), iID, iOther);
    case LEFT_CELAS2_ZERO:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Stiffness_of_CELEAS2_is_zero_value"), iID);
    case LEFT_RBE2_MASTER:
    case LEFT_RBE2_SLAVE:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_grid_is_assigned_grid_pt_of_COMMAND"), iOther, "RBE2", iID);
    case LEFT_MPC_TERMS:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Cannot_read_mutipoint_constraint"));
    case LEFT_PLOAD1_ERROR:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Distributed_load_of_1Dim_element_is_in_error"), iID);
    case LEFT_PLOAD1_ELEMENT:
    case LEFT_PLOAD1_LENGTH:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Length_of_1Dim_element_is_in_error"), iID);
    default:
        return 0;
    }
}
// clang-format on

int CConvertNastran::LogShape(std::int32_t iPID, std::int32_t iShape) {
    switch (iShape) {
    case BAR_HEXA:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_HEXA_Section"), iPID);
    case BAR_Z:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Z_Section"), iPID);
    case BAR_HAT:
    case BAR_HAT1:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Hat_Section"), iPID);
    case BAR_CROSS:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Cross_Section"), iPID);
    case BAR_BOX1:
        return LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Box1_Section"), iPID);
    default:
        return 0;
    }
}
