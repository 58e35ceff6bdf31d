#pragma once
// Whether the shapes and the joints of a deck's model are sound.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/Findings.h"

#include <cstdint>
#include <span>
#include <vector>

/// A measure of the shapes of one kind of body. The larger the worse.
struct T_QUALITY_D {
    const char* sNAME; // "warp of quads"
    double dLIMIT;
    double dWORST;
    std::int32_t iWORST;     // element
    std::uint64_t nMEASURED; // elements
    std::uint64_t nPAST;     // elements past the limit
};

std::span<const T_FINDINGKIND_D> GetGeometryKinds();

/// Adds what is wrong to rFindings and gives the measures of the bodies that there are. Grids that are closer than
/// dTolerance (in the deck's unit) coincide: 0 looks for none, less than 0 stands for a hundred thousandth of the
/// model's size, or for a hundredth of a mean of the elements' shortest edges if that is less.
std::vector<T_QUALITY_D> CheckGeometry(const CCheckDeck& rDeck, double dTolerance, CFindings& rFindings);
