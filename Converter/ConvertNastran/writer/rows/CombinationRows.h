#pragma once
// Rows of *LOADCOMB and *EIGEN-CTRL.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

#include <span>
#include <vector>

/// A load set and its factor in a combination.
struct T_SHARE_D {
    std::int32_t iSET;
    double dFACTOR;
};

/// A combination; the overall scale of its LOAD card has no place in the file.
struct T_COMBINATION_ROW {
    std::int32_t iSID;
    std::span<const T_SHARE_D> aSHARES; // at least one
};

/// A modal analysis.
struct T_EIGENCONTROL_ROW {
    std::int32_t nMODES;
};

/// By ascending id. Load sets that don't exist are left out, and combinations of which nothing is left.
template <class VISITOR>
void ForEachCombination(const CDataPool& rPool, const VISITOR& rVisitor) {
    std::vector<T_SHARE_D> aShares;
    for (const auto& [iSID, rCombination] : rPool.LDCB.Sorted()) {
        aShares.clear();
        auto pFactor = rCombination.aFACTORS.begin();
        for (const std::int32_t iSet : rCombination.aLOADS) {
            const double dFactor = *pFactor++;
            if (rPool.LOAD.Find(iSet)) {
                aShares.push_back({iSet, dFactor});
            } else {
                rVisitor(T_LEFT_D{rPool.LDCB.Find(iSet) ? LEFT_LOAD_LOAD : LEFT_LOAD_SET, iSID, iSet});
            }
        }
        if (!aShares.empty()) rVisitor(T_COMBINATION_ROW{iSID, aShares});
    }
}

/// The first EIGRL of the store. Nothing comes of EIGB.
template <class VISITOR>
void ForEachEigenControl(const CDataPool& rPool, const VISITOR& rVisitor) {
    for (const auto& [iSID, rRecord] : rPool.EIGB.Sorted()) rVisitor(T_LEFT_D{LEFT_EIGB, iSID});
    bool bFirst = true;
    for (const auto& [iSID, rRecord] : rPool.EIRL.Walk()) {
        if (bFirst) {
            rVisitor(T_EIGENCONTROL_ROW{rRecord.iND});
        } else {
            rVisitor(T_LEFT_D{LEFT_EIGRL, iSID});
        }
        bFirst = false;
    }
}
