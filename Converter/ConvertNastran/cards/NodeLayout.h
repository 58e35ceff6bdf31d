#pragma once
// Which slot of an element each node of its card goes to.

#include "reader/FieldCursor.h"
#include "store/ElementRecords.h"

#include <cstddef>
#include <span>

/// A family and shape of element, and the slots of its nodes in card order.
struct T_LAYT_D {
    E_ELEMENT_TYPE eTYPE;
    E_ELEMENT_SHAPE eSHAPE;
    std::span<const std::size_t> aSLOTS;
};

/// Reads PID and the nodes into an element of this layout. A node that isn't given leaves 0 in its slot.
inline void ReadElement(CFieldCursor& rFields, T_ELEM_D& rElement, const T_LAYT_D& rLayout) {
    rElement.iTYPE = rLayout.eTYPE;
    rElement.iSUBTYPE = rLayout.eSHAPE;
    rElement.iPID = rFields.Int();
    for (const std::size_t iSlot : rLayout.aSLOTS) rElement.iNODE.Set(iSlot, rFields.Int());
}
