// Sections of PBAR, PBARL and PBEAM.

#include "cards/BarShapes.h"
#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "store/PropertySlots.h"
#include "writer/SectionLines.h"

namespace {

constexpr const char* I_LINE = "  %d, DBUSER, %s, CC, H, 2, %g, %g, %g, %g, %g, %g, 0, 0\n";
constexpr const char* CHANNEL_LINE = "  %d, DBUSER, %s, CC, C, 2, %g, %g, %g, %g, 0, 0, 0, 0\n";
constexpr const char* T_LINE = "  %d, DBUSER, %s, CC, T, 2, %g, %g, %g, %g, 0, 0, 0, 0\n";

} // namespace

/// A shape goes out with its dimensions in the order of the target's shapes; one that has no like there is refused and
/// logged. Without a shape the section is one of values, also for a PBARL of an unknown TYPE.
int CConvertNastran::WriteBarSection(CFile& rFile, std::int32_t iPID, const T_PROP_D& rProperty) {
    const std::string sName = SectionName(iPID);
    const auto Dim = [&](std::size_t i) { return rProperty.dVAL[SLOT_DIM1 + i - 1]; };
    const double d1 = Dim(1), d2 = Dim(2), d3 = Dim(3), d4 = Dim(4), d5 = Dim(5), d6 = Dim(6);
    switch (rProperty.iSECTYPE) {
    case BAR_UNKNOWN:
        WriteValueSection(rFile, iPID, EndStiffness(rProperty, 0));
        return 1;
    case BAR_BAR:
        return WriteLine(rFile, "  %d, DBUSER, %s, CC, SB, 2, %g, %g, 0, 0, 0, 0, 0, 0\n", iPID, sName, d2, d1);
    case BAR_BOX:
        return WriteLine(rFile, "  %d, DBUSER, %s, CC, B, 2, %g, %g, %g, %g, 0, 0, 0, 0\n", iPID, sName, d2, d1, d4,
                         d3);
    case BAR_ROD:
        return WriteLine(rFile, "  %d, DBUSER, %s, CC, SR, 2, %g, 0, 0, 0, 0, 0, 0, 0\n", iPID, sName, 2.0 * d1);
    case BAR_TUBE:
        return WriteLine(rFile, PIPE_LINE, iPID, sName, 2.0 * d1, d1 - d2);
    case BAR_I:
    case BAR_I1:
        return WriteLine(rFile, I_LINE, iPID, sName, d1, d3, d4, d6, d2, d5);
    case BAR_H:
        return WriteLine(rFile, "  %d, DBUSER, %s, CC, H, 2, %g, %g, %g, %g, 0, 0, 0, 0\n", iPID, sName, d1 + d2, d3,
                         d4, 0.5 * d2);
    case BAR_CHAN:
        return WriteLine(rFile, CHANNEL_LINE, iPID, sName, d2, d1, d3, d4);
    case BAR_CHAN1:
        return WriteLine(rFile, CHANNEL_LINE, iPID, sName, d4, d1 + d2, d2, 0.5 * (d4 - d3));
    case BAR_CHAN2:
        return WriteLine(rFile, CHANNEL_LINE, iPID, sName, d4, d3, d2, d1);
    case BAR_T:
    case BAR_T2:
        return WriteLine(rFile, T_LINE, iPID, sName, d2, d1, d4, d3);
    case BAR_T1:
        return WriteLine(rFile, T_LINE, iPID, sName, d2 + d3, d1, d4, d3);
    case BAR_HEXA:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_HEXA_Section"), iPID);
        return 1;
    case BAR_Z:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Z_Section"), iPID);
        return 1;
    case BAR_HAT:
    case BAR_HAT1:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Hat_Section"), iPID);
        return 1;
    case BAR_CROSS:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Cross_Section"), iPID);
        return 1;
    case BAR_BOX1:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Support_Box1_Section"), iPID);
        return 1;
    }
    return 1;
}

int CConvertNastran::WriteBeamSection(CFile& rFile, std::int32_t iPID, const T_PROP_D& rProperty) {
    if (rProperty.bTAPERED == 1) {
        WriteTaperedSection(rFile, iPID, EndStiffness(rProperty, 0), EndStiffness(rProperty, SLOT_END_B));
    } else {
        WriteValueSection(rFile, iPID, EndStiffness(rProperty, 0));
    }
    return 1;
}
