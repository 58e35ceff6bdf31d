// *NODE, *ELEMENT and *NODALMASS.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"
#include "writer/Pieces.h"
#include "writer/Section.h"
#include "writer/rows/ElementRows.h"

namespace {

void WriteTruss(CTextSink& rSink, const T_TRUSS_ROW& r) {
    WriteLine(rSink, "  %d, TRUSS, %d, %d, %d, %d, 0\n", r.iEID, r.iMID, r.iPID, r.iNODE1, r.iNODE2);
}

void WritePlate(CTextSink& rSink, const T_PLATE_ROW& r) {
    const auto& n = r.aNODES;
    if (r.bPLANESTRESS) {
        WriteLine(rSink, "%d, PLSTRS, %d, %d, %d, %d, %d, %d, 1\n", r.iEID, r.iMID, r.iPID, n[0], n[1], n[2], n[3]);
    } else {
        WriteLine(rSink, "%d, PLATE, %d, %d, %d, %d, %d, %d, 1\n", r.iEID, r.iMID, r.iPID, n[0], n[1], n[2], n[3]);
    }
}

} // namespace

int CConvertNastran::WriteNodeSection(CFile& rFile) {
    if (GetDataPool().NODS.IsEmpty()) return 1;
    WriteLine(rFile, "*NODE\n");
    const auto format = [&](const auto& rPart, CTextSink& rSink, const auto& tell) {
        const CRowVisitor visitor{
            [&](const T_NODE_ROW& r) { WriteLine(rSink, "  %d, %g, %g, %g\n", r.iNODE, r.dX, r.dY, r.dZ); },
            tell,
        };
        ForEachNode(GetDataPool(), rPart, visitor);
    };
    WriteRows(rFile, GetDataPool().NODS.Sorted(), m_nThreads, format, [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); });
    return WriteLine(rFile, "\n");
}

/// A model of masses alone has the keyword, too.
int CConvertNastran::WriteElementSection(CFile& rFile) {
    if (GetDataPool().ELEM.IsEmpty()) return 1;
    WriteLine(rFile, "*ELEMENT\n");
    const auto format = [&](const auto& rPart, CTextSink& rSink, const auto& tell) {
        const CRowVisitor visitor{
            [&](const T_TRUSS_ROW& r) { WriteTruss(rSink, r); },
            [&](const T_BEAM_ROW& r) {
                WriteLine(rSink, "  %d, BEAM, %d, %d, %d, %d, REF, %g, %g, %g\n", r.iEID, r.iMID, r.iPID, r.iNODE1,
                          r.iNODE2, r.dX, r.dY, r.dZ);
            },
            [&](const T_TUBE_ROW& r) {
                WriteLine(rSink, "  %d, BEAM, %d, %d, %d, %d\n", r.iEID, r.iMID, r.iPID, r.iNODE1, r.iNODE2);
            },
            [&](const T_PLATE_ROW& r) { WritePlate(rSink, r); },
            [&](const T_SOLID_ROW& r) {
                const auto& n = r.aNODES;
                WriteLine(rSink, "%d, SOLID, %d, 0, %d, %d, %d, %d, %d, %d, %d, %d\n", r.iEID, r.iMID, n[0], n[1], n[2],
                          n[3], n[4], n[5], n[6], n[7]);
            },
            tell,
        };
        ForEachElement(GetDataPool(), rPart, visitor);
    };
    WriteRows(rFile, SortElements(GetDataPool()), m_nThreads, format, [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); });
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteConrodSection(CFile& rFile) {
    if (GetDataPool().CNRD.IsEmpty()) return 1;
    WriteLine(rFile, "*ELEMENT\n");
    const CRowVisitor visitor{
        [&](const T_TRUSS_ROW& r) { WriteTruss(rFile, r); },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachConrod(GetDataPool(), visitor);
    return WriteLine(rFile, "\n");
}

/// A mass that is left out brings the keyword, too, and any element the empty line.
int CConvertNastran::WriteNodalMassSection(CFile& rFile) {
    if (GetDataPool().ELEM.IsEmpty()) return 1;
    CSection section(rFile, "*NODALMASS    ; Nodal Masses\n"
                            "; NODE_LIST, mX, mY, mZ, rmX, rmY, rmZ\n");
    const CRowVisitor visitor{
        [&](const T_MASS_ROW& r) {
            section.Line("  %d, %g, %g, %g, %g, %g, %g\n", r.iNODE, r.dMX, r.dMY, r.dMZ, r.dRMX, r.dRMY, r.dRMZ);
        },
        [&](const T_LEFT_D& rLeft) {
            section.Begin();
            TellLeft(rLeft);
        },
    };
    ForEachMass(GetDataPool(), visitor);
    return WriteLine(rFile, "\n");
}
