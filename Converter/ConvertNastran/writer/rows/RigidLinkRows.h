#pragma once
// Rows of *RIGIDLINK, which is written twice: from RBE2, and from the equations of MPC that are such links.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

#include <array>
#include <span>
#include <vector>

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

/// Components as typed on an RBE2.
std::array<bool, 6> RigidComponents(std::string_view sCM);

/// In store order. Grids that don't exist are left out, and links without their master.
template <class VISITOR>
void ForEachRigidLink(const CDataPool& rPool, const VISITOR& rVisitor) {
    std::vector<std::int32_t> aSlaves;
    for (const auto& [iEID, rLink] : rPool.RBE2.Walk()) {
        if (!rPool.NODS.Find(rLink.iGN)) {
            rVisitor(T_LEFT_D{LEFT_RBE2_MASTER, iEID, rLink.iGN});
            continue;
        }
        aSlaves.clear();
        for (const std::int32_t iGM : rLink.aGM) {
            if (rPool.NODS.Find(iGM)) {
                aSlaves.push_back(rPool.MapNodeId(iGM));
            } else {
                rVisitor(T_LEFT_D{LEFT_RBE2_SLAVE, iEID, iGM});
            }
        }
        rVisitor(T_RIGIDLINK_ROW{iEID, rPool.MapNodeId(rLink.iGN), RigidComponents(rLink.sCM), aSlaves});
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
