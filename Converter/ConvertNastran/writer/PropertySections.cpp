// *MATERIAL, *SECTION and *THICKNESS.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"
#include "writer/Section.h"
#include "writer/rows/PropertyRows.h"

namespace {

/// The two lines that close a section, or an end of one: no stress points, no offsets.
void WriteClosingLines(CFile& rFile) {
    WriteLine(rFile, "    0, 0, 0, 0, 0, 0, 0, 0, 0, 0\n");
    WriteLine(rFile, "    0, 0, 0, 0, 0, 0, 0, 0\n");
}

/// A section given by its stiffness. The second line has three blanks more than in a tapered section.
void WriteValueSection(CFile& rFile, const T_VALUESECTION_ROW& r) {
    const auto& [dSide, dA, dAS1, dAS2, dJ, dI1, dI2] = r.stiffness;
    WriteLine(rFile, "  %d, VALUE, SECT%d, CC, SB, BUILT, %g, %g, 0, 0, 0, 0, 0, 0\n", r.iPID, r.iPID, dSide, dSide);
    WriteLine(rFile, "       %g, %g, %g, %g, %g, %g\n", dA, dAS1, dAS2, dJ, dI1, dI2);
    WriteClosingLines(rFile);
}

void WriteTaperedEnd(CFile& rFile, const T_STIFFNESS_D& rEnd) {
    const auto& [dSide, dA, dAS1, dAS2, dJ, dI1, dI2] = rEnd;
    WriteLine(rFile, "    %g, %g, 0, 0, 0, 0, 0, 0\n", dSide, dSide);
    WriteLine(rFile, "    %g, %g, %g, %g, %g, %g\n", dA, dAS1, dAS2, dJ, dI1, dI2);
    WriteClosingLines(rFile);
}

void WriteThickness(CFile& rFile, const T_THICKNESS_ROW& r) {
    if (r.bOUT) {
        WriteLine(rFile, "%5d, VALUE, YES, %g, %g\n", r.iPID, r.dIN, r.dOUT);
    } else {
        WriteLine(rFile, "%5d, VALUE, NO, %g, 0\n", r.iPID, r.dIN);
    }
}

} // namespace

/// Lines without blanks. The 1e-05 is a constant of the target format, not the card's value. Without materials the walk
/// tells which properties lack theirs.
int CConvertNastran::WriteMaterialSection(CFile& rFile) {
    const bool bMaterials = !GetDataPool().MATL.IsEmpty();
    if (!bMaterials && !m_options.pOBSERVER) return 1;
    if (bMaterials) WriteLine(rFile, "*MATERIAL\n");
    const CRowVisitor visitor{
        [&](const T_ISOTROPIC_ROW& r) {
            WriteLine(rFile, "%d,USER,MAT%d,0,0,2,%g,%g,%g,0\n", r.iMID, r.iMID, r.dE, r.dNU, r.dALPHA);
        },
        [&](const T_ORTHOTROPIC_ROW& r) {
            WriteLine(rFile, "%d,USER,MAT%d,0,0,3,%g,%g,1e-05,%g,%g,0,%g,%g,%g,%g,0,0,0\n", r.iMID, r.iMID, r.dE1,
                      r.dE2, r.dALPHA1, r.dALPHA2, r.dG12, r.dG1Z, r.dG2Z, r.dNU);
        },
        [&](const T_THERMAL_ROW& r) {
            WriteLine(rFile, "%d,USER,MAT%d,%g,%g,2,1e-05,0,0,0\n", r.iMID, r.iMID, r.dCP, r.dK);
        },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachMaterial(GetDataPool(), visitor);
    return bMaterials ? WriteLine(rFile, "\n") : 1;
}

/// Sections need another format level. Any property brings the version lines and the empty
/// lines, and a shape that is refused the keyword, too.
int CConvertNastran::WriteSectionAndThickness(CFile& rFile) {
    if (GetDataPool().PROP.IsEmpty()) return 1;
    WriteLine(rFile, "*VERSION\n  6.3.1\n\n");
    CSection section(rFile, "*SECTION\n");
    const CRowVisitor sections{
        [&](const T_VALUESECTION_ROW& r) {
            section.Begin();
            WriteValueSection(rFile, r);
        },
        [&](const T_TAPEREDSECTION_ROW& r) {
            section.Begin();
            WriteBeamSection(rFile, r);
        },
        [&](const T_SHAPESECTION_ROW& r) {
            section.Begin();
            WriteBarSection(rFile, r);
        },
        [&](const T_LEFT_D& rLeft) {
            if (rLeft.eREASON == LEFT_PBARL_SHAPE) section.Begin();
            TellLeft(rLeft);
        },
    };
    ForEachSection(GetDataPool(), sections);
    WriteLine(rFile, "\n");
    WriteFileVersion(rFile);

    CSection thickness(rFile, "*THICKNESS\n");
    const CRowVisitor thicknesses{
        [&](const T_THICKNESS_ROW& r) {
            thickness.Begin();
            WriteThickness(rFile, r);
        },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachThickness(GetDataPool(), thicknesses);
    return WriteLine(rFile, "\n");
}

/// A section given by a shape.
int CConvertNastran::WriteBarSection(CFile& rFile, const T_SHAPESECTION_ROW& rRow) {
    const std::int32_t i = rRow.iPID;
    const auto& d = rRow.dDIM;
    switch (rRow.eSHAPE) {
    case SECTION_RECTANGLE:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, SB, 2, %g, %g, 0, 0, 0, 0, 0, 0\n", i, i, d[0], d[1]);
    case SECTION_BOX:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, B, 2, %g, %g, %g, %g, 0, 0, 0, 0\n", i, i, d[0], d[1], d[2],
                         d[3]);
    case SECTION_ROUND:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, SR, 2, %g, 0, 0, 0, 0, 0, 0, 0\n", i, i, d[0]);
    case SECTION_PIPE:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, P, 2, %g, %g, 0, 0, 0, 0, 0, 0\n", i, i, d[0], d[1]);
    case SECTION_I:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, H, 2, %g, %g, %g, %g, %g, %g, 0, 0\n", i, i, d[0], d[1],
                         d[2], d[3], d[4], d[5]);
    case SECTION_H:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, H, 2, %g, %g, %g, %g, 0, 0, 0, 0\n", i, i, d[0], d[1], d[2],
                         d[3]);
    case SECTION_CHANNEL:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, C, 2, %g, %g, %g, %g, 0, 0, 0, 0\n", i, i, d[0], d[1], d[2],
                         d[3]);
    case SECTION_T:
        return WriteLine(rFile, "  %d, DBUSER, SECT%d, CC, T, 2, %g, %g, %g, %g, 0, 0, 0, 0\n", i, i, d[0], d[1], d[2],
                         d[3]);
    }
    return 1;
}

/// A section whose ends differ.
int CConvertNastran::WriteBeamSection(CFile& rFile, const T_TAPEREDSECTION_ROW& rRow) {
    WriteLine(rFile, "  %d, TAPERED, SECT%d, CC, SB,  1,  1, VALUE\n", rRow.iPID, rRow.iPID);
    WriteTaperedEnd(rFile, rRow.endA);
    WriteTaperedEnd(rFile, rRow.endB);
    return 1;
}
