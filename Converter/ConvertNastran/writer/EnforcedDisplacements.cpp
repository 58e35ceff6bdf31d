// *SPDISP: enforced displacements.

#include "driver/CConvertNastran.h"
#include "writer/LoadValues.h"

#include <cmath>

int CConvertNastran::WriteSpecifiedDisplacements(CFile& rFile, const T_LOAD_D& rSet) {
    const auto displacements = rSet.aMBLD.Walk(LOAD_DISPLACEMENT);
    if (displacements.IsEmpty()) return 1;
    WriteLine(rFile, "*SPDISP    ; Specified Displacement of Supports\n");
    for (const T_MBLD_D& rEntry : displacements) {
        const auto& dV = rEntry.dV;
        char aFlags[6]; // which components are moved
        double dSum = 0.0;
        for (std::size_t i = 0; i < 6; ++i) {
            aFlags[i] = dV[i] != 0.0 ? '1' : '0';
            dSum += std::abs(dV[i]);
        }
        if (!(dSum > NO_LOAD)) continue;
        WriteLine(rFile, "%5d,  %s, %g, %g, %g, %g, %g, %g\n", m_pDataPool->MapNodeId(rEntry.iID),
                  std::string_view(aFlags, 6), dV[0], dV[1], dV[2], dV[3], dV[4], dV[5]);
    }
    return WriteLine(rFile, "\n");
}
