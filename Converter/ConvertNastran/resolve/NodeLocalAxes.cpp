// The fifth pass: node axes from the frames that CD names.

#include "store/DataPool.h"

void CDataPool::ResolveNodeLocalAxes() {
    CMap<CLocalAxis> axes{101}; // by CD: the points don't depend on the node
    const auto withAxes = [](std::uint16_t nTraits) { return (nTraits & NODE_WITH_AXES) != 0; };
    for (const auto& [iID, rNode] : NODS.Walk(withAxes)) {
        const CLocalAxis* pKnown = axes.Find(rNode.iCD);
        CLocalAxis axis;
        if (pKnown) {
            axis = *pKnown;
        } else {
            const CUCSBase* const pFrame = FindFrame(rNode.iCD);
            if (!pFrame) continue;
            axis.iMETHOD = 2;
            // The first point stays at the basic origin while the others are carried out of the frame with its origin,
            // and the axes of a cylinder or sphere are those of its rectangular frame. Both are what the target gets.
            axis.dP1[0] = axis.dP2[0] = axis.dP2[1] = 1.0;
            CarryOut(*pFrame, axis.dP1);
            CarryOut(*pFrame, axis.dP2);
            axes.SetAt(rNode.iCD, axis);
        }
        axis.iNODE = iID;
        m_aLocalAxis.push_back(axis);
    }
}
