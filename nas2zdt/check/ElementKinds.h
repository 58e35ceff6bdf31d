#pragma once
// The kinds of elements, as a table.

#include "nas2zdt/check/Totals.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// Where a card has its grids, and what its element is. Places count from 0, where the id is.
struct T_ELEMENTKIND_D {
    std::string_view sKEYWORD;
    E_FORM eFORM;
    E_BODY eBODY;           // BODY_LINK for what isn't measured
    std::uint8_t iPROPERTY; // place of the property id, 0 for none
    std::uint8_t iFIRST;    // place of the first grid
    std::uint8_t nSTEP;     // from a grid to the next one
    std::uint8_t nCORNERS;  // grids at corners; links may lack the second
    std::uint8_t nMOST;     // with those between corners, which may be blank
};

constexpr std::size_t MOST_ELEMENT_NODES = 20; // of any kind

std::span<const T_ELEMENTKIND_D> GetElementKinds();

/// Null for a keyword of no element. sKeyword is in upper case.
const T_ELEMENTKIND_D* FindElementKind(std::string_view sKeyword);
