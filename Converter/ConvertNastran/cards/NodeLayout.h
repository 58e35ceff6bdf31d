#pragma once
// Which slot of an element each node of its card goes to.

#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstddef>
#include <span>
#include <utility>

/// A family and shape of element, and the slots of its nodes in card order.
struct T_LAYT_D {
    E_ELEMENT_TYPE eTYPE;
    E_ELEMENT_SHAPE eSHAPE;
    std::span<const std::size_t> aSLOTS;
};

/// Both nodes of an element on a line.
inline constexpr std::size_t LINE_SLOTS[] = {0, 1};

/// Reads PID and the nodes into an element of this layout. A node that isn't given leaves 0 in its slot.
inline void ReadElement(CFieldCursor& rFields, T_ELEM_D& rElement, const T_LAYT_D& rLayout) {
    rElement.iTYPE = rLayout.eTYPE;
    rElement.iSUBTYPE = rLayout.eSHAPE;
    rElement.iPID = rFields.Int();
    for (const std::size_t iSlot : rLayout.aSLOTS) rElement.iNODE.Set(iSlot, rFields.Int());
}

/// Stores an element of which the card has nothing else that matters. Always 1.
inline int StoreElement(CDataPool& rDataPool, const T_DATA_D& rCard, const T_LAYT_D& rLayout) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, rLayout);
    return rDataPool.SetELEM(iEID, std::move(element));
}
