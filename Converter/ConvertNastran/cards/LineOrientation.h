#pragma once
// The orientation of an element on two grids.

#include "reader/FieldCursor.h"
#include "store/ElementRecords.h"

/// Reads the orientation that starts at the next field: with a "." in that field a vector of three reals into dX1 to
/// dX3, without one, or past the end of the card, a grid into iG0, which has the place of X1. Returns whether it was a
/// vector; bVECTOR is the caller's. So a vector typed as integers counts as a grid.
inline bool ReadOrientation(CFieldCursor& rFields, T_ELEM_D& rElement) {
    if (rFields.Peek().find('.') == std::string_view::npos) {
        rElement.iG0 = rFields.Int();
        rFields.Skip("X2", "X3");
        return false;
    }
    rElement.dX1 = rFields.Real();
    rElement.dX2 = rFields.Real();
    rElement.dX3 = rFields.Real();
    return true;
}
