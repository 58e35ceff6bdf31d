// The fifth pass: node axes from the frames that CD names.

#include "store/DataPool.h"

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
            // The first point stays at the basic origin while the others are carried out of the frame with its origin,
            // and the axes of a cylinder or sphere are those of its rectangular frame. Both are what the target gets.
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
