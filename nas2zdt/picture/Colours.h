#pragma once
// The colours of the parts of a picture.

#include "nas2zdt/picture/ColourBy.h"
#include "nas2zdt/picture/Scene.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class CAccount;

/// Places in the table of colours. The first one wins where shapes are drawn as one.
enum E_PAINT : std::uint8_t { PAINT_LOST, PAINT_PALETTE };
constexpr std::size_t PALETTE_SIZE = 9;
constexpr std::uint8_t PAINT_OF_PROPERTY = PAINT_PALETTE + 2;        // of what has a loss by its property alone
constexpr std::uint8_t PAINT_NEUTRAL = PAINT_PALETTE + PALETTE_SIZE; // of what has no property or material, or no loss
constexpr std::size_t PAINTS = PAINT_NEUTRAL + 1;

/// A row of the legend of colours.
struct T_COLOURROW_D {
    std::uint8_t iPAINT = PAINT_LOST;
    std::string sTEXT;
    std::size_t nCOUNT = 0; // of parts, and of nodes with a loss
};

/// Parts or nodes in their order, each with the place of a loss that it has.
using T_LOSSES = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

struct T_COLOURS_D {
    E_COLOUR_BY eBY = BY_KIND;
    std::vector<std::uint8_t> aPAINTS;  // of each part; none by kind
    std::vector<T_COLOURROW_D> aROWS;   // of the legend
    bool bREPEATED = false;             // whether there are more ids than colours
    std::vector<T_COLOURROW_D> aLOSSES; // of model or mass, those too that nothing in the picture has
    T_LOSSES aPARTLOSSES, aNODELOSSES;
    std::size_t nELSEWHERE = 0; // number of those

    std::uint8_t PaintOf(std::size_t iPart) const { return aPAINTS.empty() ? PAINT_NEUTRAL : aPAINTS[iPart]; }
};

/// Chooses the colours. Losses are those of model and mass in pAccount, which keeps marks; otherwise it isn't asked
/// for.
T_COLOURS_D ChooseColours(const CDataPool& rDataPool, const T_SCEN_D& rScene, E_COLOUR_BY eBy,
                          const CAccount* pAccount);
