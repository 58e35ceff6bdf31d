#pragma once
// Frames that aren't any: defined by each other, or by points on a line.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/DeckIds.h"

/// Also what frames refer to, and frames that are there twice.
void CheckFrames(const CCheckDeck& rDeck, const CDeckIds& rIds, CFindings& rFindings);
