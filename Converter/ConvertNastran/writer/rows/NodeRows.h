#pragma once
// Rows of *NODE.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

/// A grid at its position in the basic frame.
struct T_NODE_ROW {
    std::int32_t iNODE;
    double dX, dY, dZ;
};

/// By ascending id of the deck.
template <class VISITOR>
void ForEachNode(const CDataPool& rPool, const VISITOR& rVisitor) {
    for (const auto& [iID, rNode] : rPool.NODS.Sorted()) {
        const std::int32_t iOut = rPool.MapNodeId(iID);
        const T_NODS_D* pNode = iOut == iID ? &rNode : rPool.NODS.Find(iOut);
        if (pNode) {
            rVisitor(T_NODE_ROW{iOut, pNode->dGX, pNode->dGY, pNode->dGZ});
        } else {
            rVisitor(T_LEFT_D{LEFT_GRID_RENUMBERED, iID});
        }
    }
}
