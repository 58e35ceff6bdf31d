// *STLDCASE, the sections of each static load case, *LOADCOMB and *EIGEN-CTRL. In a load case, where nothing else is
// said, a keyword, and the empty line behind its section, come with the first entry, also if that is left out.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"
#include "writer/Pieces.h"
#include "writer/Section.h"
#include "writer/rows/LoadRows.h"

namespace {

void WriteCornerPressure(CTextSink& rSink, const T_CORNERPRESSURE_ROW& r) {
    const auto& [p1, p2, p3, p4] = r.dP;
    const auto& [n1, n2, n3] = r.dN;
    if (r.bSOLID && r.bVECTOR) {
        WriteLine(rSink, "%d, PRES , SOLID, %d, VECTOR, %g, %g, %g, NO, 0, %g, %g, %g, %g, \n", r.iEID, r.iFACE, n1, n2,
                  n3, p1, p2, p3, p4);
    } else if (r.bSOLID) {
        WriteLine(rSink, "%d, PRES , SOLID, %d, NORMAL, 0, 0, 0, NO, 0, %g, %g, %g, %g, \n", r.iEID, r.iFACE, p1, p2,
                  p3, p4);
    } else if (r.bVECTOR) {
        WriteLine(rSink, "%d, PRES , PLATE, FACE, VECTOR, %g, %g, %g, NO, 0, %g, %g, %g, %g, \n", r.iEID, n1, n2, n3,
                  p1, p2, p3, p4);
    } else {
        WriteLine(rSink, "%d, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 0, %g, %g, %g, %g, \n", r.iEID, p1, p2, p3, p4);
    }
}

} // namespace

int CConvertNastran::WriteStaticLoadCases(CFile& rFile) {
    if (GetDataPool().LOAD.IsEmpty()) return 1;
    WriteLine(rFile, "*STLDCASE\n");
    ForEachLoadCase(GetDataPool(), [&](const T_LOADCASE_ROW& r) {
        WriteLine(rFile, "STLD%d,  USER,  \n", r.iSID);
        if (r.iSID == 0) TellLeft({LEFT_LOADCASE_ZERO});
    });
    WriteLine(rFile, "\n");
    ForEachLoadCase(GetDataPool(), [&](const T_LOADCASE_ROW& rCase) {
        const T_LOAD_D& rSet = rCase.rSET;
        WriteLine(rFile, "*USE-STLD, STLD%d\n\n", rCase.iSID);
        ForEachGravity(
            rSet, [&](const T_GRAVITY_ROW& r) { WriteLine(rFile, "*SELFWEIGHT, %g, %g, %g\n\n", r.dX, r.dY, r.dZ); });
        WriteNodalForces(rFile, rSet);
        WriteNodalMoments(rFile, rSet);
        WriteBeamLoads(rFile, rSet);
        WritePressureLoads(rFile, rSet);
        WriteNodalTemperatures(rFile, rCase);
        WriteElementTemperatures(rFile, rSet);
        WriteTemperatureGradients(rFile, rSet);
        WriteSpecifiedDisplacements(rFile, rSet);
        WriteLine(rFile, "; End of data for load case [STLD%d] -------------------------\n\n", rCase.iSID);
    });
    return 1;
}

/// The section of the entries of a kind, if there are any. format is as for WriteRows.
template <class FORMAT>
int CConvertNastran::WriteEntries(CFile& rFile, const T_LOAD_D& rSet, E_LOAD_KIND eKind, std::string_view sHead,
                                  FORMAT format) {
    const auto entries = rSet.aMBLD.Walk(eKind);
    if (entries.IsEmpty()) return 1;
    rFile.Write(sHead);
    WriteRows(rFile, entries, m_nThreads, format, [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); });
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteNodalForces(CFile& rFile, const T_LOAD_D& rSet) {
    const auto format = [&](const auto& rPart, CTextSink& rSink, const auto& tell) {
        const CRowVisitor visitor{
            [&](const T_NODALLOAD_ROW& r) {
                WriteLine(rSink, "%5d,  %g, %g, %g, 0, 0, 0\n", r.iNODE, r.dX, r.dY, r.dZ);
            },
            tell,
        };
        ForEachNodalLoad(GetDataPool(), rPart, LOAD_FORCE, visitor);
    };
    return WriteEntries(rFile, rSet, LOAD_FORCE, "*CONLOAD\n", format);
}

int CConvertNastran::WriteNodalMoments(CFile& rFile, const T_LOAD_D& rSet) {
    const auto format = [&](const auto& rPart, CTextSink& rSink, const auto& tell) {
        const CRowVisitor visitor{
            [&](const T_NODALLOAD_ROW& r) {
                WriteLine(rSink, "%5d,  0, 0, 0, %g, %g, %g\n", r.iNODE, r.dX, r.dY, r.dZ);
            },
            tell,
        };
        ForEachNodalLoad(GetDataPool(), rPart, LOAD_MOMENT, visitor);
    };
    return WriteEntries(rFile, rSet, LOAD_MOMENT, "*CONLOAD\n", format);
}

int CConvertNastran::WriteBeamLoads(CFile& rFile, const T_LOAD_D& rSet) {
    CSection section(rFile, "*BEAMLOAD\n");
    const CRowVisitor visitor{
        [&](const T_BEAMLOAD_ROW& r) {
            section.Line("%5d, BEAM, %10s, %5s, %5s,   %5g, %5g, %5g, %5g,     0,     0,     0,     0\n", r.iEID,
                         r.sLOAD, r.sDIRECTION, r.sPROJECTED, r.dX1, r.dP1, r.dX2, r.dP2);
        },
        [&](const T_LEFT_D& rLeft) {
            if (rLeft.eREASON != LEFT_PLOAD1_TYPE) section.Begin();
            TellLeft(rLeft);
        },
    };
    ForEachBeamLoad(GetDataPool(), rSet, visitor);
    return section.End();
}

int CConvertNastran::WritePressureLoads(CFile& rFile, const T_LOAD_D& rSet) {
    const auto format = [&](const auto& rPart, CTextSink& rSink, const auto& tell) {
        const CRowVisitor visitor{
            [&](const T_UNIFORMPRESSURE_ROW& r) {
                WriteLine(rSink, "%d, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, %g, 0, 0, 0, 0, \n", r.iEID, r.dP);
            },
            [&](const T_CORNERPRESSURE_ROW& r) { WriteCornerPressure(rSink, r); },
            tell,
        };
        ForEachPressure(GetDataPool(), rPart, visitor);
    };
    return WriteEntries(rFile, rSet, LOAD_PRESSURE, "*PRESSURE\n", format);
}

/// The keyword comes also with a default temperature that no grid takes.
int CConvertNastran::WriteNodalTemperatures(CFile& rFile, const T_LOADCASE_ROW& rCase) {
    CSection section(rFile, "*NDTEMPER    ; Nodal Temperatures\n");
    const CRowVisitor visitor{
        [&](const T_NODETEMPERATURE_ROW& r) { section.Line("%5d,  %g,\n", r.iNODE, r.dT); },
        [&](const T_LEFT_D& rLeft) {
            section.Begin();
            TellLeft(rLeft);
        },
    };
    ForEachNodeTemperature(GetDataPool(), rCase, visitor);
    return section.End();
}

/// The keyword comes with the first line, the empty line with any entry.
int CConvertNastran::WriteElementTemperatures(CFile& rFile, const T_LOAD_D& rSet) {
    if (rSet.aETLD.IsEmpty()) return 1;
    CSection section(rFile, "*ELTEMPER    ; Element Temperatures\n"
                            "; ELEM_LIST, TEMPER, GROUP\n");
    const CRowVisitor visitor{
        [&](const T_ELEMENTTEMPERATURE_ROW& r) { section.Line("%5d,  %g,\n", r.iEID, r.dT); },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachElementTemperature(GetDataPool(), rSet, visitor);
    return WriteLine(rFile, "\n");
}

/// The keyword comes with the first gradient, even on no plate, the empty line with any entry.
int CConvertNastran::WriteTemperatureGradients(CFile& rFile, const T_LOAD_D& rSet) {
    if (rSet.aETLD.IsEmpty()) return 1;
    CSection section(rFile, "*THERGRAD    ; Temperature Gradient\n"
                            "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, TY, bUSEHY, HY, GROUP\n"
                            "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, GROUP\n");
    const CRowVisitor visitor{
        [&](const T_GRADIENT_ROW& r) { section.Line("%5d, 2, %g, YES, 0,\n", r.iEID, r.dTZ); },
        [&](const T_LEFT_D& rLeft) {
            section.Begin();
            TellLeft(rLeft);
        },
    };
    ForEachGradient(GetDataPool(), rSet, visitor);
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteSpecifiedDisplacements(CFile& rFile, const T_LOAD_D& rSet) {
    CSection section(rFile, "*SPDISP    ; Specified Displacement of Supports\n");
    const CRowVisitor visitor{
        [&](const T_DISPLACEMENT_ROW& r) {
            const auto& d = r.dD;
            section.Line("%5d,  %s, %g, %g, %g, %g, %g, %g\n", r.iNODE, TextOf(r.aMOVED), d[0], d[1], d[2], d[3], d[4],
                         d[5]);
        },
        [&](const T_LEFT_D& rLeft) {
            section.Begin();
            TellLeft(rLeft);
        },
    };
    ForEachDisplacement(GetDataPool(), rSet, visitor);
    return section.End();
}

int CConvertNastran::WriteLoadCombinations(CFile& rFile) {
    if (GetDataPool().LDCB.IsEmpty()) return 1;
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
