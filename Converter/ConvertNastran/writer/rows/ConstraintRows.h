#pragma once
// Rows of *CONSTRAINT, *LOCALAXIS and *RIGIDLINK, which is written twice: from RBE2, and from the equations of MPC that
// are such links.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

#include <array>
#include <span>
#include <vector>

/// Components of a grid that are held.
struct T_CONSTRAINT_ROW {
    std::int32_t iNODE;
    std::array<bool, 6> bDOF;
};

/// The grids of SPC and SPC1 in card order, then those that PS of their GRID holds, in store order. Only the first
/// set of the store is taken; without any set PS is lost, too.
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

/// RBE2.
struct T_RIGIDLINK_ROW {
    std::int32_t iEID; // in no line
    std::int32_t iMASTER;
    std::array<bool, 6> bDOF;
    std::span<const std::int32_t> aSLAVES; // may be none at all
};

/// MPC: a component of a node that equals the one of another.
struct T_EQUATION_ROW {
    std::int32_t iMASTER;
    std::int32_t iCOMP; // any number
    std::int32_t iSLAVE;
};

/// In store order. Grids that don't exist are left out, and links without their master.
template <class VISITOR>
void ForEachRigidLink(const CDataPool& rPool, const VISITOR& rVisitor) {
    std::vector<std::int32_t> aSlaves;
    for (const auto& [iEID, rLink] : rPool.RBE2.Walk()) {
        if (!rPool.NODS.Has(rLink.iGN)) {
            rVisitor(T_LEFT_D{LEFT_RBE2_MASTER, iEID, rLink.iGN});
            continue;
        }
        aSlaves.clear();
        for (const std::int32_t iGM : rLink.aGM) {
            if (rPool.NODS.Has(iGM)) {
                aSlaves.push_back(rPool.MapNodeId(iGM));
            } else {
                rVisitor(T_LEFT_D{LEFT_RBE2_SLAVE, iEID, iGM});
            }
        }
        rVisitor(T_RIGIDLINK_ROW{iEID, rPool.MapNodeId(rLink.iGN), Components(rLink.sCM), aSlaves});
    }
}

/// The equations of two terms with the coefficients -1 and 1, in card order, of the set that the last SPC or MPC card
/// named. The second term's component has no place in the file.
template <class VISITOR>
void ForEachEquation(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto hasEquations = [](const T_CNST_D& rSet) { return !rSet.aCNEQ.IsEmpty(); };
    for (const auto& [iSID, rSet] : rPool.CNST.Sorted(hasEquations)) {
        if (iSID != rPool.m_iLastCNST) {
            rVisitor(T_LEFT_D{.eREASON = LEFT_MPC_SET, .iID = iSID, .nCOUNT = rSet.aCNEQ.GetSize()});
            continue;
        }
        for (const T_CNEQ_D& rEquation : rSet.aCNEQ) {
            const auto& rTerms = rEquation.aTERMS;
            if (rEquation.bLOST) rVisitor(T_LEFT_D{LEFT_MPC_ZERO_GRID, rEquation.iEQ});
            if (rTerms.GetSize() != 2) {
                rVisitor(T_LEFT_D{LEFT_MPC_TERMS, rEquation.iEQ});
            } else if (rTerms[0].dCOEF != -1.0 || rTerms[1].dCOEF != 1.0) {
                rVisitor(T_LEFT_D{LEFT_MPC_FACTORS, rEquation.iEQ});
            } else {
                rVisitor(T_EQUATION_ROW{rTerms[1].iNODE, rTerms[0].iCOMP, rTerms[0].iNODE});
                std::int32_t iMissing = 0;
                if (rPool.FindMissingGrid(std::array{rTerms[0].iNODE, rTerms[1].iNODE}, iMissing)) {
                    rVisitor(T_LEFT_D{LEFT_MPC_GRID, rEquation.iEQ, iMissing});
                }
                if (rTerms[0].iCOMP < 1 || rTerms[0].iCOMP > 6) {
                    rVisitor(T_LEFT_D{LEFT_MPC_NO_COMPONENT, rEquation.iEQ});
                } else if (rTerms[0].iCOMP != rTerms[1].iCOMP) {
                    rVisitor(T_LEFT_D{LEFT_MPC_COMPONENT, rEquation.iEQ});
                }
            }
        }
    }
}
