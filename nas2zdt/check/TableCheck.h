#pragma once
// What grids and elements refer to.

#include "nas2zdt/check/CardCheck.h"

/// Frames of grids, and grids with one id.
void CheckGrids(const CCheckDeck& rDeck, CCardCheck& rCheck, CFindings& rFindings);

/// Grids, properties, frames and so on of elements; thicknesses that neither the property nor the element has.
void CheckElements(const CCheckDeck& rDeck, const CDeckIds& rIds, CCardCheck& rCheck, CFindings& rFindings);
