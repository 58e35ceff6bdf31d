// *STLDCASE and the static load cases: each load set is one, named after its id.

#include "driver/CConvertNastran.h"

int CConvertNastran::WriteStaticLoadCases(CFile& rFile) {
    if (m_pDataPool->LOAD.IsEmpty()) return 1;
    const CMap<T_LOAD_D>& rSets = m_pDataPool->LOAD;
    WriteLine(rFile, "*STLDCASE\n");
    for (const auto& [iSID, rSet] : rSets.Walk()) WriteLine(rFile, "STLD%d,  USER,  \n", iSID);
    WriteLine(rFile, "\n");
    for (const auto& [iSID, rSet] : rSets.Walk()) {
        WriteLine(rFile, "*USE-STLD, STLD%d\n\n", iSID);
        if (rSet.bGRAV) {
            WriteLine(rFile, "*SELFWEIGHT, %g, %g, %g\n", rSet.dGRAVX, rSet.dGRAVY, rSet.dGRAVZ);
            WriteLine(rFile, "\n");
        }
        WriteNodalForces(rFile, rSet);
        WriteNodalMoments(rFile, rSet);
        WriteBeamLoads(rFile, rSet);
        WritePressureLoads(rFile, rSet);
        WriteNodalTemperatures(rFile, rSet);
        WriteElementTemperatures(rFile, rSet);
        WriteTemperatureGradients(rFile, rSet);
        WriteSpecifiedDisplacements(rFile, rSet);
        WriteLine(rFile, "; End of data for load case [STLD%d] -------------------------\n\n", iSID);
    }
    return 1;
}
