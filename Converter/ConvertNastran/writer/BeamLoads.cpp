// *BEAMLOAD: forces and moments along line elements.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "writer/LoadValues.h"

#include <cmath>

namespace {

constexpr std::array<std::string_view, 7> DIRECTIONS = {"", "GX", "GY", "GZ", "LX", "LY", "LZ"}; // by iDIR

/// A second position makes a load of a stretch out of one at a point.
std::string_view LoadWord(const T_MBLD_D& rEntry) {
    const bool bPoint = rEntry.dV[2] == 0.0;
    if (rEntry.iKIND == LOAD_BEAM_FORCE) return bPoint ? "CONLOAD" : "UNILOAD";
    return bPoint ? "CONMOMENT" : "UNIMOMENT";
}

} // namespace

int CConvertNastran::WriteBeamLoads(CFile& rFile, const T_LOAD_D& rSet) {
    const auto isBeamLoad = [](std::int8_t iKind) { return iKind == LOAD_BEAM_MOMENT || iKind == LOAD_BEAM_FORCE; };
    const auto loads = rSet.aMBLD.Walk(isBeamLoad);
    if (loads.IsEmpty()) return 1;
    WriteLine(rFile, "*BEAMLOAD\n");
    for (const T_MBLD_D& rEntry : loads) WriteBeamLoad(rFile, rEntry);
    return WriteLine(rFile, "\n");
}

/// One line. The target takes positions as fractions of the element's length; an entry that gives lengths on an element
/// without one is logged and passed over, whether or not it comes to anything.
int CConvertNastran::WriteBeamLoad(CFile& rFile, const T_MBLD_D& rEntry) {
    double dX1 = rEntry.dV[0];
    double dX2 = rEntry.dV[2];
    if (rEntry.iSCALE == SCALE_LE || rEntry.iSCALE == SCALE_LEPR) {
        double dLength = 0.0;
        if (!m_pDataPool->ComputeElementLength(rEntry.iID, dLength)) {
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_Distributed_load_of_1Dim_element_is_in_error"), rEntry.iID);
            return 1;
        }
        if (!(dLength > 0.0)) {
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_Length_of_1Dim_element_is_in_error"), rEntry.iID);
            return 1;
        }
        dX1 /= dLength;
        dX2 /= dLength;
    }
    const double dP1 = rEntry.dV[1];
    const double dP2 = rEntry.dV[3];
    if (std::abs(dP1) + std::abs(dP2) <= NO_LOAD) return 1;
    const std::string_view sDirection = DIRECTIONS[static_cast<std::uint8_t>(rEntry.iDIR)];
    const std::string_view sProjected = rEntry.iSCALE == SCALE_LEPR || rEntry.iSCALE == SCALE_FPPR ? "YES" : "NO";
    return WriteLine(rFile, "%5d, BEAM, %10s, %5s, %5s,   %5g, %5g, %5g, %5g, %5g, %5g, %5g, %5g\n", rEntry.iID,
                     LoadWord(rEntry), sDirection, sProjected, dX1, dP1, dX2, dP2, 0.0, 0.0, 0.0, 0.0);
}
