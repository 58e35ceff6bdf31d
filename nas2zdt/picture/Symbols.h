#pragma once
// Marks of a picture that have a size of their own: masses, supports, loads.

#include "nas2zdt/picture/IsometricView.h"
#include "nas2zdt/picture/Scene.h"

#include <vector>

/// A mark at a place of the picture.
struct T_SYMB_D {
    E_KIND iKIND = KIND_MASS;
    double dX = 0.0, dY = 0.0;
    T_VECT_D direction = {}; // turned: right, up, towards the eye; of length 1, zero for a mark without direction
    double dSIZE = 0.0;      // a load's share of the largest of its kind
};

/// Marks of all masses, grounded springs, links without length, supports, loads and beam references. aPlaces holds the
/// place of each node.
std::vector<T_SYMB_D> MakeSymbols(const T_SCEN_D& rScene, const CIsometricView& rView,
                                  const std::vector<T_VECT_D>& aPlaces);

/// Of marks of one kind that are near to each other and point alike, leaves the largest, until no kind has more than
/// nMost. Returns whether any went.
bool ThinOut(std::vector<T_SYMB_D>& rSymbols, std::size_t nMost);
