// The third pass, the reference point of each line element, and what writers ask of an element's geometry.

#include "messages/MsgDll.h"
#include "platform/WorkPieces.h"
#include "store/DataPool.h"
#include "store/MathFunc.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace {

/// What is missing for an element's orientation.
enum E_ORIENTATION {
    ORIENTATION_GIVEN,
    ORIENTATION_NONE, // no orientation grid, for a type that needs none
    ORIENTATION_NO_FIRST_NODE,
    ORIENTATION_NO_SECOND_NODE,
    ORIENTATION_NO_GRID,
};

bool IsBeam(const T_ELEM_D& rElement) {
    return rElement.iTYPE == TYPE_BAR || rElement.iTYPE == TYPE_BEAM;
}

/// Whether a beam's vector is given in axes of end A, the frame iCD, that aren't the basic ones.
bool IsVectorTurned(const CDataPool& rPool, const T_ELEM_D& rBeam, std::int32_t iCD) {
    return rBeam.bVECTOR != 0 && rBeam.bVECTOR != BASIC_VECTOR && IsBeam(rBeam) && rPool.TurnsVectors(iCD);
}

bool IsReported(E_ORIENTATION eOrientation) {
    return eOrientation >= ORIENTATION_NO_FIRST_NODE;
}

/// The nodes rpFrom, at dFrom, and dTo of a line element, and the point dR that its orientation aims at.
E_ORIENTATION FindOrientation(const CDataPool& rPool, const T_ELEM_D& rElement, std::optional<T_NODS_D>& rpFrom,
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

bool IsZero(const double (&dV)[3]) {
    return dV[0] == 0.0 && dV[1] == 0.0 && dV[2] == 0.0;
}

/// The angle of a cosine in degrees, and dMore degrees. A not-a-number stays as it is.
double DegreesOf(double dCosine, double dMore) {
    const double dAngle = CMathFunc::ArcCosine(dCosine);
    return std::isnan(dAngle) ? dAngle : dAngle * 180.0 / PI + dMore;
}

} // namespace

void CDataPool::ResolveElementOrientations() {
    struct T_PART_D {
        bool bREPORT = false;
        std::vector<T_LEFT_D> aLEFT;
    };
    constexpr std::size_t PART = std::size_t{1} << 14; // elements; a thread costs as much as some hundred
    const auto isLine = [](std::uint16_t nTraits) { return ShapeOfTraits(nTraits) == SHAPE_LINE; };
    const auto resolve = [&](std::size_t iPart, T_PART_D& rPart) {
        double dFrom[3], dTo[3], dR[3];
        std::optional<T_NODS_D> pFrom;
        ELEM.UpdatePart(iPart * PART, (iPart + 1) * PART, isLine, [&](std::int32_t iID, T_ELEM_D& rElement) {
            const E_ORIENTATION eOrientation = FindOrientation(*this, rElement, pFrom, dFrom, dTo, dR);
            rPart.bREPORT |= IsReported(eOrientation);
            if (eOrientation != ORIENTATION_GIVEN) return;
            if (pFrom->iCD != 0 && m_pLeftSink && IsVectorTurned(*this, rElement, pFrom->iCD)) {
                const char* const sKeyword = KeywordOf(rElement);
                rPart.aLEFT.push_back(
                    {.eREASON = LEFT_BEAM_AXES, .iID = iID, .iOTHER = pFrom->iCD, .sKEYWORD = sKeyword});
            }
            // The card's vector lies in plane 1; the target wants a point a quarter turn from it.
            double dVX = dR[0] - dFrom[0], dVY = dR[1] - dFrom[1], dVZ = dR[2] - dFrom[2];
            CMathFunc::RotateAboutAxis(90.0, dTo[0] - dFrom[0], dTo[1] - dFrom[1], dTo[2] - dFrom[2], dVX, dVY, dVZ);
            rElement.dX1 = dFrom[0] + dVX;
            rElement.dX2 = dFrom[1] + dVY;
            rElement.dX3 = dFrom[2] + dVZ;
            rElement.bVECTOR = 1;
        });
    };
    bool bReport = false;
    const auto take = [&](T_PART_D& rPart) {
        for (const T_LEFT_D& rLeft : rPart.aLEFT) TellLeft(rLeft);
        rPart.aLEFT.clear();
        bReport |= rPart.bREPORT;
    };
    MakePieces<T_PART_D>((ELEM.GetCount() + PART - 1) / PART, m_nThreads, resolve, take);
    if (!bReport) return;
    double dFrom[3], dTo[3], dR[3];
    std::optional<T_NODS_D> pFrom;
    // Only the lines of the log need store order.
    const auto lacks = [&](const T_ELEM_D& rElement) {
        return rElement.iSUBTYPE == SHAPE_LINE && IsReported(FindOrientation(*this, rElement, pFrom, dFrom, dTo, dR));
    };
    for (const auto& [iID, rElement] : ELEM.Walk(lacks)) {
        switch (FindOrientation(*this, rElement, pFrom, dFrom, dTo, dR)) {
        case ORIENTATION_NO_FIRST_NODE:
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_From_Grid_of_CBAR_is_not_proper"), {iID});
            break;
        case ORIENTATION_NO_SECOND_NODE:
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_To_Grid_of_CBAR_is_not_proper"), {iID});
            break;
        default:
            LogMessage(g_pfnLoadStr("IDS_NASTRAN_Reference_Grid_of_CBAR_is_not_proper"), {iID, rElement.iG0});
            TellLeft(
                {.eREASON = LEFT_BEAM_REFERENCE, .iID = iID, .iOTHER = rElement.iG0, .sKEYWORD = KeywordOf(rElement)});
            break;
        }
    }
}

int CDataPool::ComputeBetaAngle(std::int32_t iNode1, std::int32_t iNode2, double dVX, double dVY, double dVZ,
                                double& rAngle) const {
    rAngle = 0.0;
    const double dV[3] = {dVX, dVY, dVZ};
    if (IsZero(dV)) return 1;
    double dP1[3], dP2[3];
    GetCardPosition(iNode1, dP1);
    if (!GetCardPosition(iNode2, dP2)) std::copy(dP1, dP1 + 3, dP2);

    const double dE[3] = {dP2[0] - dP1[0], dP2[1] - dP1[1], dP2[2] - dP1[2]};
    double dC[3], dD[3];
    CMathFunc::CrossProduct(dE, dV, dC);
    CMathFunc::CrossProduct(dC, dE, dD);
    if (IsZero(dD) || IsZero(dC)) return 1;

    // The angle counts from the global X axis for a vertical element, from the global Z axis for a level one, and for
    // the rest from the level direction across the element. Each branch has its range: 90 to 270, 0 to 180,
    // -90 to 90.
    if (std::fabs(dP1[0] - dP2[0]) < 0.0001 && std::fabs(dP1[1] - dP2[1]) < 0.0001) {
        rAngle = DegreesOf(dD[0] / CMathFunc::Length(dD), 90.0);
    } else if (std::fabs(dE[2]) < 0.0001) {
        rAngle = DegreesOf(dC[2] / CMathFunc::Length(dC), 0.0);
    } else {
        const double dH = (-dE[1] * dD[0] + dE[0] * dD[1]) / std::sqrt(dE[0] * dE[0] + dE[1] * dE[1]);
        rAngle = DegreesOf(dH / CMathFunc::Length(dD), -90.0);
    }
    return 1;
}

int CDataPool::ComputeElementLength(std::int32_t iElement, double& rLength) const {
    const auto pElement = ELEM.Find(iElement);
    double d[3];
    GetNodeVector(pElement ? pElement->iNODE[0] : 0, pElement ? pElement->iNODE[1] : 0, d);
    rLength = std::sqrt(d[2] * d[2] + (d[0] * d[0] + d[1] * d[1]));
    return 1;
}
