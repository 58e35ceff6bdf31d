// *CONLOAD: forces and moments on nodes, each kind in a block of its own.

#include "driver/CConvertNastran.h"
#include "writer/LoadValues.h"

#include <cmath>

int CConvertNastran::WriteNodalForces(CFile& rFile, const T_LOAD_D& rSet) {
    return WriteNodalLoads(rFile, rSet, LOAD_FORCE);
}

int CConvertNastran::WriteNodalMoments(CFile& rFile, const T_LOAD_D& rSet) {
    return WriteNodalLoads(rFile, rSet, LOAD_MOMENT);
}

/// The block of one kind; its keyword stands also over entries that come to nothing.
int CConvertNastran::WriteNodalLoads(CFile& rFile, const T_LOAD_D& rSet, E_LOAD_KIND eKind) {
    const auto loads = rSet.aMBLD.Walk(eKind);
    if (loads.IsEmpty()) return 1;
    WriteLine(rFile, "*CONLOAD\n");
    for (const T_MBLD_D& rEntry : loads) {
        const auto& dV = rEntry.dV;
        if (!(std::abs(dV[0]) + std::abs(dV[1]) + std::abs(dV[2]) > NO_LOAD)) continue;
        const std::int32_t iNode = m_pDataPool->MapNodeId(rEntry.iID);
        if (eKind == LOAD_FORCE) {
            WriteLine(rFile, "%5d,  %g, %g, %g, %g, %g, %g\n", iNode, dV[0], dV[1], dV[2], 0.0, 0.0, 0.0);
        } else {
            WriteLine(rFile, "%5d,  %g, %g, %g, %g, %g, %g\n", iNode, 0.0, 0.0, 0.0, dV[0], dV[1], dV[2]);
        }
    }
    return WriteLine(rFile, "\n");
}
