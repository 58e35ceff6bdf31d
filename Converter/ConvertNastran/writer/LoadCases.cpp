// *STLDCASE, the frames of the static load cases, *LOADCOMB and *EIGEN-CTRL.

#include "driver/CConvertNastran.h"
#include "writer/Section.h"
#include "writer/rows/CombinationRows.h"
#include "writer/rows/LoadRows.h"

int CConvertNastran::WriteStaticLoadCases(CFile& rFile) {
    if (m_pDataPool->LOAD.IsEmpty()) return 1;
    WriteLine(rFile, "*STLDCASE\n");
    ForEachLoadCase(GetDataPool(), [&](const T_LOADCASE_ROW& r) {
        WriteLine(rFile, "STLD%d,  USER,  \n", r.iSID);
        if (r.iSID == 0) TellLeft({LEFT_LOADCASE_ZERO});
    });
    WriteLine(rFile, "\n");
    ForEachLoadCase(GetDataPool(), [&](const T_LOADCASE_ROW& rCase) {
        WriteLine(rFile, "*USE-STLD, STLD%d\n\n", rCase.iSID);
        ForEachGravity(rCase.rSET, [&](const T_GRAVITY_ROW& r) {
            WriteLine(rFile, "*SELFWEIGHT, %g, %g, %g\n\n", r.dX, r.dY, r.dZ);
        });
        WriteNodalForces(rFile, rCase.rSET);
        WriteNodalMoments(rFile, rCase.rSET);
        WriteBeamLoads(rFile, rCase.rSET);
        WritePressureLoads(rFile, rCase.rSET);
        WriteNodalTemperatures(rFile, rCase);
        WriteElementTemperatures(rFile, rCase.rSET);
        WriteTemperatureGradients(rFile, rCase.rSET);
        WriteSpecifiedDisplacements(rFile, rCase.rSET);
        WriteLine(rFile, "; End of data for load case [STLD%d] -------------------------\n\n", rCase.iSID);
    });
    return 1;
}

int CConvertNastran::WriteLoadCombinations(CFile& rFile) {
    if (m_pDataPool->LDCB.IsEmpty()) return 1;
    WriteLine(rFile, "*LOADCOMB    ; Combinations\n");
    const CRowVisitor visitor{
        [&](const T_COMBINATION_ROW& r) {
            WriteLine(rFile, "  NAME=LCB%d, GEN, ACTIVE, 0, \n", r.iSID);
            WriteLine(rFile, " ST, STLD%d, %g", r.aSHARES[0].iSET, r.aSHARES[0].dFACTOR);
            for (const auto& [iSet, dFactor] : r.aSHARES.subspan(1)) {
                WriteLine(rFile, ", ST, STLD%d, %g", iSet, dFactor);
            }
            WriteLine(rFile, "\n");
        },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachCombination(GetDataPool(), visitor);
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteEigenControl(CFile& rFile) {
    const CRowVisitor visitor{
        [&](const T_EIGENCONTROL_ROW& r) {
            WriteLine(rFile, "*EIGEN-CTRL    ; Eigenvalue Analysis Control\n");
            WriteLine(rFile, "; TYPE, iFREQ, iITER, iDIM, TOL          ; TYPE=EIGEN\n");
            WriteLine(rFile, "; TYPE, bINCNL, iGNUM                    ; TYPE=RITZ(line 1)\n");
            WriteLine(rFile, ";       KIND1, CASE1/GROUND1, iNOG1, ... ; TYPE=RITZ(from line2)\n");
            WriteLine(rFile, "  EIGEN, %d, 20, 0, 1e-010\n\n", r.nMODES);
        },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachEigenControl(GetDataPool(), visitor);
    return 1;
}
