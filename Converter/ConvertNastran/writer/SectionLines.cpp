// Value sections, with one end or two.

#include "writer/SectionLines.h"

#include "driver/CConvertNastran.h"
#include "store/PropertySlots.h"

#include <cmath>

namespace {

/// The two lines that close a section, or an end of one: no stress points, no offsets.
void WriteClosingLines(CFile& rFile) {
    CConvertNastran::WriteLine(rFile, "    0, 0, 0, 0, 0, 0, 0, 0, 0, 0\n");
    CConvertNastran::WriteLine(rFile, "    0, 0, 0, 0, 0, 0, 0, 0\n");
}

void WriteTaperedEnd(CFile& rFile, const T_STIF_D& rEnd) {
    const double dSide = std::sqrt(rEnd.dA);
    CConvertNastran::WriteLine(rFile, "    %g, %g, 0, 0, 0, 0, 0, 0\n", dSide, dSide);
    CConvertNastran::WriteLine(rFile, "    %g, %g, %g, %g, %g, %g\n", rEnd.dA, rEnd.dAS1, rEnd.dAS2, rEnd.dJ, rEnd.dI1,
                               rEnd.dI2);
    WriteClosingLines(rFile);
}

} // namespace

T_STIF_D EndStiffness(const T_PROP_D& rProperty, std::size_t iEnd) {
    const auto& rValues = rProperty.dVAL;
    const double dA = rValues[iEnd + SLOT_A];
    return {.dA = dA,
            .dAS1 = rValues[iEnd + SLOT_K1] * dA,
            .dAS2 = rValues[iEnd + SLOT_K2] * dA,
            .dJ = rValues[iEnd + SLOT_J],
            .dI1 = rValues[iEnd + SLOT_I1],
            .dI2 = rValues[iEnd + SLOT_I2]};
}

void WriteValueSection(CFile& rFile, std::int32_t iPID, const T_STIF_D& rStiffness) {
    const double dSide = std::sqrt(rStiffness.dA);
    CConvertNastran::WriteLine(rFile, "  %d, VALUE, %s, CC, SB, BUILT, %g, %g, 0, 0, 0, 0, 0, 0\n", iPID,
                               SectionName(iPID), dSide, dSide);
    // Three blanks more than in a tapered section.
    CConvertNastran::WriteLine(rFile, "       %g, %g, %g, %g, %g, %g\n", rStiffness.dA, rStiffness.dAS1,
                               rStiffness.dAS2, rStiffness.dJ, rStiffness.dI1, rStiffness.dI2);
    WriteClosingLines(rFile);
}

void WriteTaperedSection(CFile& rFile, std::int32_t iPID, const T_STIF_D& rEndA, const T_STIF_D& rEndB) {
    CConvertNastran::WriteLine(rFile, "  %d, TAPERED, %s, CC, SB,  %d,  %d, VALUE\n", iPID, SectionName(iPID), 1, 1);
    WriteTaperedEnd(rFile, rEndA);
    WriteTaperedEnd(rFile, rEndB);
}
