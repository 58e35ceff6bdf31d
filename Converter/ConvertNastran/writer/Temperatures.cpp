// *NDTEMPER, *ELTEMPER, *THERGRAD: temperatures of nodes and elements.

#include "driver/CConvertNastran.h"
#include "writer/LoadValues.h"

#include <algorithm>

/// The nodes' own temperatures, then the default one for all others.
int CConvertNastran::WriteNodalTemperatures(CFile& rFile, const T_LOAD_D& rSet) {
    if (rSet.aNTLD.IsEmpty() && !rSet.bTEMPD) return 1;
    WriteLine(rFile, "*NDTEMPER    ; Nodal Temperatures\n");
    std::vector<std::int32_t> aGiven;
    if (rSet.bTEMPD) aGiven.reserve(rSet.aNTLD.GetSize());
    for (const T_NTLD_D& rEntry : rSet.aNTLD) {
        const std::int32_t iNode = m_pDataPool->MapNodeId(rEntry.iNODE);
        WriteLine(rFile, "%5d,  %g,\n", iNode, rEntry.dTEMP);
        if (rSet.bTEMPD) aGiven.push_back(iNode);
    }
    if (rSet.bTEMPD) {
        std::sort(aGiven.begin(), aGiven.end());
        for (const auto& [iID, rNode] : m_pDataPool->NODS.Sorted()) {
            const std::int32_t iNode = m_pDataPool->MapNodeId(iID);
            if (std::binary_search(aGiven.begin(), aGiven.end(), iNode)) continue;
            WriteLine(rFile, "%5d,  %g,\n", iNode, rSet.dTEMPD);
        }
    }
    return WriteLine(rFile, "\n");
}

/// Only mean temperatures above 0 go out. The closing line stands even if none does.
int CConvertNastran::WriteElementTemperatures(CFile& rFile, const T_LOAD_D& rSet) {
    if (rSet.aETLD.IsEmpty()) return 1;
    bool bAny = false;
    for (const T_ETLD_D& rEntry : rSet.aETLD) {
        if (!(rEntry.dTBAR > 0.0)) continue;
        if (!bAny) {
            WriteLine(rFile, "*ELTEMPER    ; Element Temperatures\n");
            WriteLine(rFile, "; ELEM_LIST, TEMPER, GROUP\n");
        }
        bAny = true;
        WriteLine(rFile, "%5d,  %g,\n", rEntry.iELEM, rEntry.dTBAR);
    }
    return WriteLine(rFile, "\n");
}

/// The keyword stands over the first gradient, of whatever element; lines are of plates alone. The closing line stands
/// in any case.
int CConvertNastran::WriteTemperatureGradients(CFile& rFile, const T_LOAD_D& rSet) {
    if (rSet.aETLD.IsEmpty()) return 1;
    bool bAny = false;
    for (const T_ETLD_D& rEntry : rSet.aETLD) {
        if (rEntry.dT1 == rEntry.dT2) continue;
        if (!bAny) {
            WriteLine(rFile, "*THERGRAD    ; Temperature Gradient\n");
            WriteLine(rFile, "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, TY, bUSEHY, HY, GROUP\n");
            WriteLine(rFile, "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, GROUP\n");
        }
        bAny = true;
        const T_ELEM_D* pElement = m_pDataPool->ELEM.Find(rEntry.iELEM);
        if (!pElement || !IsPlateType(pElement->iTYPE)) continue;
        WriteLine(rFile, "%5d, 2, %g, YES, 0,\n", rEntry.iELEM, rEntry.dT2 - rEntry.dT1);
    }
    return WriteLine(rFile, "\n");
}
