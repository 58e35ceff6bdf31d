// The fifth pass: node axes from the frames that CD names.

#include "store/DataPool.h"

void CDataPool::ResolveNodeLocalAxes() {
    const auto hasAxes = [this](const T_NODS_D& rNode) { return rNode.iCD != 0 && FindFrame(rNode.iCD); };
    const auto aNodes = NODS.Walk(hasAxes);
    m_aLocalAxis.reserve(m_aLocalAxis.size() + aNodes.GetCount());
    for (const auto& [iID, rNode] : aNodes) {
        const CUCSBase* const pFrame = FindFrame(rNode.iCD);
        CLocalAxis axis;
        axis.iNODE = iID;
        axis.iMETHOD = 2;
        // The first point stays at the basic origin while the others are carried out of the frame with its origin, and
        // the axes of a cylinder or sphere are those of its rectangular frame. Both are what the target gets.
        axis.dP1[0] = axis.dP2[0] = axis.dP2[1] = 1.0;
        pFrame->ToGlobal(axis.dP1[0], axis.dP1[1], axis.dP1[2]);
        pFrame->ToGlobal(axis.dP2[0], axis.dP2[1], axis.dP2[2]);
        m_aLocalAxis.push_back(axis);
    }
}
