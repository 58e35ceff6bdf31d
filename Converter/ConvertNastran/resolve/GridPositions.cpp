// The second and the fifth pass: the position of each grid in the basic frame, and the output axes of grids.

#include "messages/MsgDll.h"
#include "messages/RunError.h"
#include "store/DataPool.h"

#include <cmath>

namespace {

// Two values of pi, neither of them PI: the output depends on them to the byte.
constexpr double CORD1C_PI = 3.141592;
constexpr double POLAR_PI = 3.1415926535;

using POINT = double[3];

/// From R, THETA in degrees, Z.
void TurnCylinder(POINT& rPoint, double dPi) {
    const double dA = rPoint[1] * dPi / 180.0;
    const double dR = rPoint[0];
    rPoint[0] = dR * std::cos(dA);
    rPoint[1] = dR * std::sin(dA);
}

/// From R, THETA in degrees from the Z axis, PHI in degrees.
void TurnSphere(POINT& rPoint) {
    const double dA = rPoint[2] * POLAR_PI / 180.0;
    const double dB = rPoint[1] * POLAR_PI / 180.0;
    const double dR = rPoint[0];
    const double dS = dR * std::sin(dB);
    rPoint[0] = dS * std::cos(dA);
    rPoint[1] = dS * std::sin(dA);
    rPoint[2] = dR * std::cos(dB);
}

} // namespace

/// Carries a point out of a frame. Throws CRunError if the limit on frames is passed.
void CDataPool::CarryOut(const CUCSBase& rFrame, double (&rPoint)[3]) {
    m_nCarried += static_cast<std::int64_t>(rFrame.GetFrameCount());
    if (m_nCarried > m_nMostCarried) throw CRunError(FAILURE_LIMIT_FRAMES, 0, m_nMostCarried);
    rFrame.ToGlobal(rPoint[0], rPoint[1], rPoint[2]);
}

void CDataPool::ResolveGridPositions() {
    // Turns the point and carries it out of the frame of a system, if there is one.
    const auto carry = [this](const auto* pSystem, POINT& rPoint, auto turn) {
        if (!pSystem) return false;
        turn(rPoint);
        CarryOut(pSystem->frame, rPoint);
        return true;
    };
    const auto keep = [](POINT&) {};
    const auto turnCord1C = [](POINT& rPoint) { TurnCylinder(rPoint, CORD1C_PI); };
    const auto turnCord2C = [](POINT& rPoint) { TurnCylinder(rPoint, POLAR_PI); };
    bool bAllFound = true;
    const auto inFrame = [](std::uint16_t nTraits) { return (nTraits & NODE_IN_FRAME) != 0; };
    NODS.UpdateEach(inFrame, [&](std::int32_t, T_NODS_D& rNode) {
        double dP[3] = {rNode.dX1, rNode.dX2, rNode.dX3};
        // Every table is tried, also after a hit: systems that share an id apply one after the other.
        bool bFound = carry(CD1R.Find(rNode.iCP), dP, keep);
        bFound |= carry(CD2R.Find(rNode.iCP), dP, keep);
        bFound |= carry(CD1C.Find(rNode.iCP), dP, turnCord1C);
        bFound |= carry(CD1S.Find(rNode.iCP), dP, TurnSphere);
        bFound |= carry(CD2C.Find(rNode.iCP), dP, turnCord2C);
        bFound |= carry(CD2S.Find(rNode.iCP), dP, TurnSphere);
        if (bFound) {
            rNode.dGX = dP[0];
            rNode.dGY = dP[1];
            rNode.dGZ = dP[2];
        }
        bAllFound &= bFound;
    });
    if (bAllFound) return;
    // Grids don't depend on each other, so only the lines of the log need store order, and few decks have any.
    const auto isLost = [this](const T_NODS_D& rNode) { return rNode.iCP != 0 && !FindFrame(rNode.iCP); };
    for (const auto& [iID, rNode] : NODS.Walk(isLost)) {
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_UCS_in_GRID_is_not_exit"), {iID, rNode.iCP});
        TellLeft({LEFT_GRID_FRAME, iID, rNode.iCP});
    }
}

namespace {

/// Axes of a CD, and what is wrong with them: LEFT_COUNT for nothing, and while nobody is to be told.
struct T_AXES_D {
    CLocalAxis axis;
    E_LEFT eLOSS = LEFT_COUNT;
};

} // namespace

/// What is wrong with the axes that a node gets from a coordinate system, LEFT_COUNT if nothing is.
E_LEFT CDataPool::FindAxesLoss(std::int32_t iCD, const CUCSBase& rFrame) const {
    if (IsPolarFrame(iCD)) return LEFT_GRID_AXES_POLAR;
    double dOrigin[3] = {};
    rFrame.ToGlobal(dOrigin[0], dOrigin[1], dOrigin[2]);
    return dOrigin[0] != 0.0 || dOrigin[1] != 0.0 || dOrigin[2] != 0.0 ? LEFT_GRID_AXES_ORIGIN : LEFT_COUNT;
}

void CDataPool::ResolveNodeLocalAxes() {
    CMap<T_AXES_D> known{101}; // by CD: the points don't depend on the node
    const auto withAxes = [](std::uint16_t nTraits) { return (nTraits & NODE_WITH_AXES) != 0; };
    for (const auto& [iID, rNode] : NODS.Walk(withAxes)) {
        const T_AXES_D* const pKnown = known.Find(rNode.iCD);
        T_AXES_D axes;
        CLocalAxis& axis = axes.axis;
        if (pKnown) {
            axes = *pKnown;
        } else {
            const CUCSBase* const pFrame = FindFrame(rNode.iCD);
            if (!pFrame) {
                TellLeft({LEFT_GRID_AXES, iID, rNode.iCD});
                continue;
            }
            axis.iMETHOD = 2;
            // The first point stays at the basic origin though the others get the frame's origin added, and the axes of
            // a cylinder or sphere are those of its rectangular frame: the output depends on both.
            axis.dP1[0] = axis.dP2[0] = axis.dP2[1] = 1.0;
            CarryOut(*pFrame, axis.dP1);
            CarryOut(*pFrame, axis.dP2);
            if (m_pLeftSink) axes.eLOSS = FindAxesLoss(rNode.iCD, *pFrame);
            known.SetAt(rNode.iCD, axes);
        }
        if (axes.eLOSS != LEFT_COUNT) TellLeft({axes.eLOSS, iID, rNode.iCD});
        axis.iNODE = iID;
        m_aLocalAxis.push_back(axis);
    }
}
