#pragma once
// Values that a card must have for others that it has.

#include "nas2zdt/check/ReferenceKinds.h"
#include "nas2zdt/restate/CardFields.h"

constexpr std::size_t CONROD_AREA = 4;

/// Whether a rod has an area, or else a stiffness against turning, which is in the next field.
bool HasStiffness(const CCardFields& rCard, std::size_t iArea);

/// Looks at the values of properties and materials that depend on each other, and at the words of loads on bars.
void CheckValues(const CCardFields& rCard, const T_CARDPLACE_D& rPlace, CFindings& rFindings);
