#pragma once
// Thicknesses that plates have of their own.

#include "nas2zdt/restate/CardFields.h"

#include <cstddef>

/// Where a card has its corners' thicknesses and what they mean.
struct T_THICKNESS_D {
    std::size_t iFIRST = 0;
    std::size_t nCORNERS = 0; // 0 for cards without thicknesses
    std::size_t iFLAG = 0;
};

/// The places of a keyword.
T_THICKNESS_D ThicknessOf(std::string_view sKeyword);

/// Whether any corner has a thickness.
bool HasThickness(const CCardFields& rCard, const T_THICKNESS_D& rPlaces);

/// The thickness of a plate whose property has dProperty: a blank corner has that, and with TFLAG 1 corners have parts
/// of it. Zero if corners differ, or if it isn't a thickness.
double ReadThickness(const CCardFields& rCard, const T_THICKNESS_D& rPlaces, double dProperty);
