#pragma once
// Grids at the same place.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/Connectivity.h"
#include "nas2zdt/check/GeometryTold.h"

/// Tells each grid that is within dTolerance of one before it in the deck that links don't join with it. A grid that
/// is told, or joined with one so close, stands for no others: in a row of grids that are close to the next one each,
/// every other may stay untold. A tolerance of less than 0 is made out of the model's size and dEdge, a mean of
/// short edges, 0 if there are none.
void TellCoincident(const CCheckDeck& rDeck, CConnectivity& rConnectivity, double dTolerance, double dEdge,
                    CGeometryTold& rTold);
