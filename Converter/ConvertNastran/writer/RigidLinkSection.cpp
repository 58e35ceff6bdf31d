// *RIGIDLINK, written twice: from RBE2, and from the equations of MPC that are such links.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "writer/DofText.h"

namespace {

/// Components as typed on an RBE2.
std::string RigidDofText(std::string_view sCM) {
    std::array<bool, 6> bDOF = {};
    for (const char c : sCM) {
        if (c >= '1' && c <= '6') bDOF[static_cast<std::size_t>(c - '1')] = true;
    }
    return DofText(bDOF);
}

/// The one component of an equation; nothing if there is no such component.
std::string EquationDofText(std::int32_t iCOMP) {
    if (iCOMP < 1 || iCOMP > 6) return {};
    std::array<bool, 6> bDOF = {};
    bDOF[static_cast<std::size_t>(iCOMP - 1)] = true;
    return DofText(bDOF);
}

} // namespace

int CConvertNastran::WriteRbe2Links(CFile& rFile) {
    if (m_pDataPool->RBE2.IsEmpty()) return 1;
    const CMap<T_NODS_D>& rNodes = m_pDataPool->NODS;
    const char* const sNoGrid = g_pfnLoadStr("IDS_NASTRAN_Not_Existing_grid_is_assigned_grid_pt_of_COMMAND");
    WriteLine(rFile, "*RIGIDLINK    ; Rigid Link\n");
    WriteLine(rFile, "; M-NODE, DOF, S-NODE LIST, GROUP\n");
    for (const auto& [iID, rLink] : m_pDataPool->RBE2.Walk()) {
        if (!rNodes.Find(rLink.iGN)) {
            LogMessage(sNoGrid, rLink.iGN, "RBE2", iID);
            continue;
        }
        WriteLine(rFile, "%d, %s,", m_pDataPool->MapNodeId(rLink.iGN), RigidDofText(rLink.sCM));
        int nOnLine = 0;
        for (const std::int32_t iGM : rLink.aGM) {
            if (!rNodes.Find(iGM)) {
                LogMessage(sNoGrid, iGM, "RBE2", iID);
                continue;
            }
            WriteLine(rFile, "%d ", m_pDataPool->MapNodeId(iGM));
            if (nOnLine == 14) { // so the first line holds 15 and the others, which start from 1, hold 14
                WriteLine(rFile, "\\\n");
                nOnLine = 0;
            }
            ++nOnLine;
        }
        WriteLine(rFile, ", \n");
    }
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteMpcLinks(CFile& rFile) {
    const T_CNST_D* pSet = m_pDataPool->CNST.Find(m_pDataPool->m_iLastCNST);
    if (!pSet) return 1;
    bool bHeader = false;
    for (const T_CNEQ_D& rEquation : pSet->aCNEQ) {
        if (rEquation.aTERMS.GetSize() != 2) {
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_Cannot_read_mutipoint_constraint"));
            continue;
        }
        const T_EQNCN_D& rSlave = rEquation.aTERMS[0];
        const T_EQNCN_D& rMaster = rEquation.aTERMS[1];
        if (rSlave.dCOEF != -1.0 || rMaster.dCOEF != 1.0) continue;
        if (!bHeader) {
            WriteLine(rFile, "*RIGIDLINK    ; Rigid Link\n");
            WriteLine(rFile, "; M-NODE, DOF, S-NODE LIST, GROUP\n");
            bHeader = true;
        }
        WriteLine(rFile, " %d, %s, %d,\n", rMaster.iNODE, EquationDofText(rSlave.iCOMP), rSlave.iNODE);
    }
    if (bHeader) WriteLine(rFile, "\n");
    return 1;
}
