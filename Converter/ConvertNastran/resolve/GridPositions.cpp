// The second pass: the position of each grid in the basic frame.

#include "driver/RunError.h"
#include "messages/MsgDll.h"
#include "store/DataPool.h"

#include <cmath>

namespace {

// Two values of pi, neither of them PI: output must match to the byte, and these are what it is made with.
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
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_UCS_in_GRID_is_not_exit"), iID, rNode.iCP);
        TellLeft({LEFT_GRID_FRAME, iID, rNode.iCP});
    }
}
