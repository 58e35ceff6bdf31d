#pragma once
// Rows of *CONSTRAINT and *LOCALAXIS.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

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
            for (const T_CNND_D& r : rSet.aCNND) {
                const T_CONSTRAINT_ROW row{rPool.MapNodeId(r.iNODE), r.bDOF};
                rVisitor(row);
                const auto Tell = [&](E_LEFT eReason) {
                    rVisitor(T_LEFT_D{.eREASON = eReason, .iID = r.iNODE, .sKEYWORD = r.bSPC1 ? "SPC1" : "SPC"});
                };
                if (rPool.IsGridMissing(row.iNODE)) Tell(LEFT_SPC_GRID);
                if (r.bZERO) {
                    Tell(LEFT_SPC_ZERO);
                } else if (r.bDOF == std::array<bool, 6>{}) {
                    Tell(LEFT_SPC_NOTHING);
                }
            }
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
}
