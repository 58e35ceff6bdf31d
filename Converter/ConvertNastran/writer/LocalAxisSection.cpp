// *LOCALAXIS: the axes that nodes take from their CD.

#include "driver/CConvertNastran.h"

int CConvertNastran::WriteLocalAxisSection(CFile& rFile) {
    if (m_pDataPool->m_aLocalAxis.empty()) return 1;
    WriteLine(rFile, "*LOCALAXIS    ; Node Local Axis\n");
    WriteLine(rFile, "; NODE_LIST, iMETHOD, ANGLE-x, ANGLE-y, ANGLE-z                    ; iMETHOD=1\n");
    WriteLine(rFile, "; NODE_LIST, iMETHOD, P0X, P0Y, P0Z, P1X, P1Y, P1Z, P2X, P2Y, P2Z  ; iMETHOD=2\n");
    WriteLine(rFile, "; NODE_LIST, iMETHOD, V1X, V1Y, V1Z, V2X, V2Y, V2Z                 ; iMETHOD=3\n");
    for (const CLocalAxis& rAxis : m_pDataPool->m_aLocalAxis) {
        const auto& [dAX, dAY, dAZ] = rAxis.dANGLE;
        const auto& [dP0X, dP0Y, dP0Z] = rAxis.dP0;
        const auto& [dP1X, dP1Y, dP1Z] = rAxis.dP1;
        const auto& [dP2X, dP2Y, dP2Z] = rAxis.dP2;
        const auto& [dV1X, dV1Y, dV1Z] = rAxis.dV1;
        const auto& [dV2X, dV2Y, dV2Z] = rAxis.dV2;
        switch (rAxis.iMETHOD) {
        case 1:
            WriteLine(rFile, " %d, %d, %g, %g, %g\n", rAxis.iNODE, 1, dAX, dAY, dAZ);
            break;
        case 2:
            WriteLine(rFile, " %d, %d, %g, %g, %g, %g, %g, %g, %g, %g, %g\n", rAxis.iNODE, 2, dP0X, dP0Y, dP0Z, dP1X,
                      dP1Y, dP1Z, dP2X, dP2Y, dP2Z);
            break;
        case 3:
            WriteLine(rFile, " %d, %d, %g, %g, %g, %g, %g, %g\n", rAxis.iNODE, 3, dV1X, dV1Y, dV1Z, dV2X, dV2Y, dV2Z);
            break;
        default:
            break;
        }
    }
    return WriteLine(rFile, "\n");
}
