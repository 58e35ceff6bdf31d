#pragma once
// Reading of property cards.

#include "reader/FieldCursor.h"
#include "store/PropertyRecord.h"
#include "store/PropertySlots.h"

#include <cstddef>
#include <initializer_list>

/// Reads reals into the slots named.
inline void ReadSlots(CFieldCursor& rFields, T_PROP_D& rProperty, std::initializer_list<std::size_t> aSlots) {
    for (const std::size_t iSlot : aSlots) rProperty.dVAL.Set(iSlot, rFields.Real());
}

/// Reads nSlots reals into the slots from iFirst on.
inline void ReadSlotRow(CFieldCursor& rFields, T_PROP_D& rProperty, std::size_t iFirst, std::size_t nSlots) {
    for (std::size_t i = 0; i < nSlots; ++i) rProperty.dVAL.Set(iFirst + i, rFields.Real());
}
