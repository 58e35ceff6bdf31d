// Telling what the file doesn't say: the observer learns all of it, the log some.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "messages/ZdtMsgMgr.h"
#include "reader/DeckObserver.h"
#include "store/DataPool.h"
#include "writer/Section.h"

namespace {

/// Key of the message of a shape that the file doesn't know; null for one that isn't logged.
const char* KeyOfShape(std::int32_t iShape) {
    switch (iShape) {
    case BAR_HEXA:
        return "IDS_NASTRAN_Not_Support_HEXA_Section";
    case BAR_Z:
        return "IDS_NASTRAN_Not_Support_Z_Section";
    case BAR_HAT:
    case BAR_HAT1:
        return "IDS_NASTRAN_Not_Support_Hat_Section";
    case BAR_CROSS:
        return "IDS_NASTRAN_Not_Support_Cross_Section";
    case BAR_BOX1:
        return "IDS_NASTRAN_Not_Support_Box1_Section";
    default:
        return nullptr;
    }
}

} // namespace

void CConvertNastran::TellLeft(const T_LEFT_D& rLeft) {
    if (m_options.pOBSERVER && !rLeft.bELSEWHERE) m_options.pOBSERVER->OnLeft(rLeft);
    LogLeft(*m_pMsgMgr, GetDataPool(), rLeft);
}

// clang-format off
void LogLeft(CZdtMsgMgr& rLog, const CDataPool& rPool, const T_LEFT_D& rLeft) {
    const std::int32_t iID = rLeft.iID;
    const std::int32_t iOther = rLeft.iOTHER;
    const auto log = [&](const char* sKey, TEXT_ARGS aArgs) { rLog.AddMessageF(g_pfnLoadStr(sKey), aArgs); };
    switch (rLeft.eREASON) {
    case LEFT_PBARL_SHAPE:
        if (const char* sKey = KeyOfShape(iOther)) log(sKey, {iID});
        return;
    case LEFT_CELAS1_DOF:
        return log("IDS_NASTRAN_C1_and_C2_of_CELAS1_is_different", {iID});
    case LEFT_CELAS1_ENDS: {
        const T_CEL1_D& r = *rPool.CEL1.Find(iID);
        return log("IDS_NASTRAN_CELAS1_C_G_Data_is_not_correct", {iID, r.iG1, r.iC1, r.iG2, r.iC2});
    }
    case LEFT_CELAS1_GRID1:
        return log("IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS1", {iID, iOther});
    case LEFT_CELAS1_GRID2:
        return log("IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS1", {iID, iOther});
    case LEFT_CELAS1_PELAS:
        return log("IDS_NASTRAN_Not_Existing_PELAS_is_assigned_to_CELAS1", {iID, iOther});
    case LEFT_CELAS1_ZERO:
        return log("IDS_NASTRAN_Stiffness_of_PELAS_for_CELEAS1_is_zero_value", {iID, iOther});
    case LEFT_CELAS2_DOF:
        return log("IDS_NASTRAN_C1_and_C2_of_CELAS2_is_different", {iID});
    case LEFT_CELAS2_ENDS: {
        const T_CEL2_D& r = *rPool.CEL2.Find(iID);
        return log("IDS_NASTRAN_CELAS2_C_G_Data_is_not_correct", {iID, r.iG1, r.iC1, r.iG2, r.iC2});
    }
    case LEFT_CELAS2_GRID1:
        return log("IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS2", {iID, iOther});
    case LEFT_CELAS2_GRID2:
        return log("IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS2", {iID, iOther});
    case LEFT_CELAS2_ZERO:
        return log("IDS_NASTRAN_Stiffness_of_CELEAS2_is_zero_value", {iID});
    case LEFT_RBE2_MASTER:
    case LEFT_RBE2_SLAVE:
        return log("IDS_NASTRAN_Not_Existing_grid_is_assigned_grid_pt_of_COMMAND", {iOther, "RBE2", iID});
    case LEFT_MPC_TERMS:
        return log("IDS_NASTRAN_Cannot_read_mutipoint_constraint", {});
    case LEFT_PLOAD1_ERROR:
        return log("IDS_NASTRAN_Distributed_load_of_1Dim_element_is_in_error", {iID});
    case LEFT_PLOAD1_ELEMENT:
    case LEFT_PLOAD1_LENGTH:
        return log("IDS_NASTRAN_Length_of_1Dim_element_is_in_error", {iID});
    default:
        return;
    }
}
// clang-format on
