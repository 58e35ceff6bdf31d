// *CONSTRAINT, *LOCALAXIS and *RIGIDLINK.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"
#include "writer/Section.h"
#include "writer/rows/ConstraintRows.h"

namespace {

constexpr std::string_view RIGIDLINK_HEAD = "*RIGIDLINK    ; Rigid Link\n"
                                            "; M-NODE, DOF, S-NODE LIST, GROUP\n";

void WriteRigidLink(CFile& rFile, const T_RIGIDLINK_ROW& r) {
    WriteLine(rFile, "%d, %s,", r.iMASTER, TextOf(DofText(r.bDOF)));
    int nOnLine = 0;
    for (const std::int32_t iSlave : r.aSLAVES) {
        WriteLine(rFile, "%d ", iSlave);
        if (nOnLine == 14) { // so the first line holds 15 and the others, which start from 1, hold 14
            WriteLine(rFile, "\\\n");
            nOnLine = 0;
        }
        ++nOnLine;
    }
    WriteLine(rFile, ", \n");
}

/// Nothing for a component that doesn't exist.
std::string_view ComponentText(std::int32_t iComponent) {
    constexpr std::string_view TEXTS[] = {"", "100000", "010000", "001000", "000100", "000010", "000001"};
    return iComponent >= 1 && iComponent <= 6 ? TEXTS[iComponent] : TEXTS[0];
}

} // namespace

/// The PS of grids alone doesn't make the section: without sets the walk tells that they are lost.
int CConvertNastran::WriteConstraintSection(CFile& rFile) {
    const bool bSets = !GetDataPool().CNST.IsEmpty();
    if (!bSets && !m_options.pOBSERVER) return 1;
    if (bSets) WriteLine(rFile, "*CONSTRAINT\n");
    const CRowVisitor visitor{
        [&](const T_CONSTRAINT_ROW& r) { WriteLine(rFile, "%5d, %s\n", r.iNODE, TextOf(DofText(r.bDOF))); },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachConstraint(GetDataPool(), visitor);
    return bSets ? WriteLine(rFile, "\n") : 1;
}

int CConvertNastran::WriteLocalAxisSection(CFile& rFile) {
    if (GetDataPool().m_aLocalAxis.empty()) return 1;
    WriteLine(rFile, "*LOCALAXIS    ; Node Local Axis\n");
    WriteLine(rFile, "; NODE_LIST, iMETHOD, ANGLE-x, ANGLE-y, ANGLE-z                    ; iMETHOD=1\n");
    WriteLine(rFile, "; NODE_LIST, iMETHOD, P0X, P0Y, P0Z, P1X, P1Y, P1Z, P2X, P2Y, P2Z  ; iMETHOD=2\n");
    WriteLine(rFile, "; NODE_LIST, iMETHOD, V1X, V1Y, V1Z, V2X, V2Y, V2Z                 ; iMETHOD=3\n");
    ForEachLocalAxis(GetDataPool(), [&](const CLocalAxis& r) {
        const auto& [a, p0, p1, p2, v1, v2] = std::tie(r.dANGLE, r.dP0, r.dP1, r.dP2, r.dV1, r.dV2);
        switch (r.iMETHOD) {
        case 1:
            WriteLine(rFile, " %d, 1, %g, %g, %g\n", r.iNODE, a[0], a[1], a[2]);
            break;
        case 2:
            WriteLine(rFile, " %d, 2, %g, %g, %g, %g, %g, %g, %g, %g, %g\n", r.iNODE, p0[0], p0[1], p0[2], p1[0], p1[1],
                      p1[2], p2[0], p2[1], p2[2]);
            break;
        case 3:
            WriteLine(rFile, " %d, 3, %g, %g, %g, %g, %g, %g\n", r.iNODE, v1[0], v1[1], v1[2], v2[0], v2[1], v2[2]);
            break;
        default:
            break;
        }
    });
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteRbe2Links(CFile& rFile) {
    if (GetDataPool().RBE2.IsEmpty()) return 1;
    rFile.Write(RIGIDLINK_HEAD);
    const CRowVisitor visitor{
        [&](const T_RIGIDLINK_ROW& r) { WriteRigidLink(rFile, r); },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachRigidLink(GetDataPool(), visitor);
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteMpcLinks(CFile& rFile) {
    CSection section(rFile, RIGIDLINK_HEAD);
    const CRowVisitor visitor{
        [&](const T_EQUATION_ROW& r) { section.Line(" %d, %s, %d,\n", r.iMASTER, ComponentText(r.iCOMP), r.iSLAVE); },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachEquation(GetDataPool(), visitor);
    return section.End();
}
