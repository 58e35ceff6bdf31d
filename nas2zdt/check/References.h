#pragma once
// Whether all that a deck refers to is there, and whether its fields have values that they may have.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/Findings.h"

#include <span>

/// What CheckReferences may tell.
std::span<const T_FINDINGKIND_D> GetReferenceKinds();

/// Looks at what the cards of rDeck refer to, at their fields and values, at the sets that case control asks for, and
/// at text that is no card. Elements with one id aren't told.
void CheckReferences(const CCheckDeck& rDeck, CFindings& rFindings);
