// The third pass: the reference point of each line element.

#include "messages/MsgDll.h"
#include "resolve/MathFunc.h"
#include "store/DataPool.h"

namespace {

/// What an element's orientation lacks.
enum E_ORIENTATION {
    ORIENTATION_GIVEN,
    ORIENTATION_NONE, // no orientation grid where none is asked for
    ORIENTATION_NO_FIRST_NODE,
    ORIENTATION_NO_SECOND_NODE,
    ORIENTATION_NO_GRID,
};

bool IsBeam(const T_ELEM_D& rElement) {
    return rElement.iTYPE == TYPE_BAR || rElement.iTYPE == TYPE_BEAM;
}

bool IsReported(E_ORIENTATION eOrientation) {
    return eOrientation >= ORIENTATION_NO_FIRST_NODE;
}

/// The nodes rpFrom, at dFrom, and dTo of a line element, and the point dR that its orientation aims at.
E_ORIENTATION FindOrientation(const CDataPool& rPool, const T_ELEM_D& rElement, const T_NODS_D*& rpFrom,
                              double (&dFrom)[3], double (&dTo)[3], double (&dR)[3]) {
    rpFrom = rPool.NODS.Find(rElement.iNODE[0]);
    if (!rpFrom) return ORIENTATION_NO_FIRST_NODE;
    dFrom[0] = rpFrom->dGX;
    dFrom[1] = rpFrom->dGY;
    dFrom[2] = rpFrom->dGZ;
    if (!rPool.GetNodePosition(rElement.iNODE[1], dTo)) return ORIENTATION_NO_SECOND_NODE;
    if (rElement.bVECTOR != 0) {
        dR[0] = dFrom[0] + rElement.dX1;
        dR[1] = dFrom[1] + rElement.dX2;
        dR[2] = dFrom[2] + rElement.dX3;
        return ORIENTATION_GIVEN;
    }
    if (rPool.GetNodePosition(rElement.iG0, dR)) return ORIENTATION_GIVEN;
    return IsBeam(rElement) ? ORIENTATION_NO_GRID : ORIENTATION_NONE;
}

} // namespace

/// Tells of a beam whose vector is given in axes of end A that aren't the basic ones.
void CDataPool::TellVectorAxes(std::int32_t iID, const T_ELEM_D& rElement, std::int32_t iCD) const {
    if (rElement.bVECTOR == 0 || !IsBeam(rElement) || !TurnsVectors(iCD)) return;
    TellLeft({.eREASON = LEFT_BEAM_AXES, .iID = iID, .iOTHER = iCD, .sKEYWORD = KeywordOf(rElement)});
}

void CDataPool::ResolveElementOrientations() {
    double dFrom[3], dTo[3], dR[3];
    const T_NODS_D* pFrom = nullptr;
    bool bReport = false;
    const auto isLine = [](std::uint16_t nTraits) { return ShapeOfTraits(nTraits) == SHAPE_LINE; };
    ELEM.UpdateEach(isLine, [&](std::int32_t iID, T_ELEM_D& rElement) {
        const E_ORIENTATION eOrientation = FindOrientation(*this, rElement, pFrom, dFrom, dTo, dR);
        bReport |= IsReported(eOrientation);
        if (eOrientation != ORIENTATION_GIVEN) return;
        if (pFrom->iCD != 0 && m_pLeftSink) TellVectorAxes(iID, rElement, pFrom->iCD);
        // The card's vector lies in plane 1; the target's point stands a quarter turn from it.
        double dVX = dR[0] - dFrom[0], dVY = dR[1] - dFrom[1], dVZ = dR[2] - dFrom[2];
        CMathFunc::RotateAboutAxis(90.0, dTo[0] - dFrom[0], dTo[1] - dFrom[1], dTo[2] - dFrom[2], dVX, dVY, dVZ);
        rElement.dX1 = dFrom[0] + dVX;
        rElement.dX2 = dFrom[1] + dVY;
        rElement.dX3 = dFrom[2] + dVZ;
        rElement.bVECTOR = 1;
    });
    if (!bReport) return;
    // Only the lines of the log need store order. What was resolved above is not met again: it lacks nothing.
    const auto lacks = [&](const T_ELEM_D& rElement) {
        return rElement.iSUBTYPE == SHAPE_LINE && IsReported(FindOrientation(*this, rElement, pFrom, dFrom, dTo, dR));
    };
    for (const auto& [iID, rElement] : ELEM.Walk(lacks)) {
        switch (FindOrientation(*this, rElement, pFrom, dFrom, dTo, dR)) {
        case ORIENTATION_NO_FIRST_NODE:
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_From_Grid_of_CBAR_is_not_proper"), iID);
            break;
        case ORIENTATION_NO_SECOND_NODE:
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_To_Grid_of_CBAR_is_not_proper"), iID);
            break;
        default:
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_Reference_Grid_of_CBAR_is_not_proper"), iID, rElement.iG0);
            TellLeft(
                {.eREASON = LEFT_BEAM_REFERENCE, .iID = iID, .iOTHER = rElement.iG0, .sKEYWORD = KeywordOf(rElement)});
            break;
        }
    }
}
