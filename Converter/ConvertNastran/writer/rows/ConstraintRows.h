#pragma once
// Rows of *CONSTRAINT and *LOCALAXIS.

#include "store/DataPool.h"
#include "writer/rows/Left.h"

#include <array>

/// Components of a grid that are held.
struct T_CONSTRAINT_ROW {
    std::int32_t iNODE;
    std::array<bool, 6> bDOF;
};

/// The grids of SPC and SPC1 in card order, then those that PS of their GRID holds, in store order. The first set of
/// the store stands for all; without any set PS is lost, too.
template <class VISITOR>
void ForEachConstraint(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isHeld = [](std::uint16_t nTraits) { return (nTraits & NODE_HELD) != 0; };
    if (rPool.CNST.IsEmpty()) {
        for (const auto& [iID, rNode] : rPool.NODS.Sorted(isHeld)) rVisitor(T_LEFT_D{LEFT_GRID_HELD, iID});
        return;
    }
    bool bFirst = true;
    for (const auto& [iSID, rSet] : rPool.CNST.Walk()) {
        if (bFirst) {
            for (const T_CNND_D& r : rSet.aCNND) rVisitor(T_CONSTRAINT_ROW{rPool.MapNodeId(r.iNODE), r.bDOF});
        } else if (!rSet.aCNND.IsEmpty()) {
            rVisitor(T_LEFT_D{.eREASON = LEFT_SPC_SET, .iID = iSID, .nCOUNT = rSet.aCNND.GetSize()});
        }
        bFirst = false;
    }
    for (const auto& [iID, rNode] : rPool.NODS.Walk(isHeld)) {
        rVisitor(T_CONSTRAINT_ROW{rPool.MapNodeId(iID), rNode.bPS});
    }
}

/// The axes that nodes take from their CD, each a CLocalAxis, in the order in which they were resolved.
template <class VISITOR>
void ForEachLocalAxis(const CDataPool& rPool, const VISITOR& rVisitor) {
    for (const CLocalAxis& rAxis : rPool.m_aLocalAxis) rVisitor(rAxis);
    const auto withAxes = [](std::uint16_t nTraits) { return (nTraits & NODE_WITH_AXES) != 0; };
    if (rPool.NODS.Count(withAxes) == rPool.m_aLocalAxis.size()) return;
    for (const auto& [iID, rNode] : rPool.NODS.Sorted(withAxes)) {
        if (!rPool.FindFrame(rNode.iCD)) rVisitor(T_LEFT_D{LEFT_GRID_AXES, iID, rNode.iCD});
    }
}
