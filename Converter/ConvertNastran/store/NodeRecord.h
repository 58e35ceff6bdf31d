#pragma once
// A node.

#include <array>
#include <cstdint>

/// GRID. Key: the grid id.
struct T_NODS_D {
    std::int32_t iCP = 0;                   // frame of the coordinates, 0 basic
    std::int32_t iCD = 0;                   // frame of the output axes, 0 none
    std::array<bool, 6> bPS = {};           // bPS1 to bPS6: the components that PS holds down
    double dX1 = 0.0, dX2 = 0.0, dX3 = 0.0; // as on the card, in frame iCP
    double dGX = 0.0, dGY = 0.0, dGZ = 0.0; // position in the basic frame once grid positions are resolved
};
