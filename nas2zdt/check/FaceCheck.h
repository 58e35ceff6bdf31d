#pragma once
// Whether the grids of a pressure name a face of its element.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/ReferenceKinds.h"

/// Looks at a PLOAD4 on a solid.
void CheckFace(const CCheckDeck& rDeck, const CCardFields& rCard, const T_CARDPLACE_D& rPlace, CFindings& rFindings);
