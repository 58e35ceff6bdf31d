#pragma once
// What the rows of elements tell of them.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

inline T_LEFT_D ElementLoss(E_LEFT eReason, std::int32_t iEID, const T_ELEM_D& rElement, std::int32_t iOther = 0) {
    return {.eREASON = eReason, .iID = iEID, .iOTHER = iOther, .sKEYWORD = KeywordOf(rElement)};
}

/// Tells of an element if one of its nodes doesn't exist.
template <class VISITOR>
void TellMissingGrid(const CDataPool& rPool, std::int32_t iEID, const T_ELEM_D& rElement,
                     std::span<const std::int32_t> aNodes, const VISITOR& rVisitor) {
    std::int32_t iMissing = 0;
    if (rPool.FindMissingGrid(aNodes, iMissing)) {
        rVisitor(ElementLoss(LEFT_ELEMENT_GRID, iEID, rElement, iMissing));
    }
}

/// Tells of an element that its property doesn't exist.
template <class VISITOR>
void TellMissingProperty(std::int32_t iEID, const T_ELEM_D& rElement, const VISITOR& rVisitor) {
    const E_LEFT eReason = rElement.iPID == 0 ? LEFT_ELEMENT_PID_BLANK : LEFT_ELEMENT_PROPERTY;
    rVisitor(ElementLoss(eReason, iEID, rElement, rElement.iPID));
}
