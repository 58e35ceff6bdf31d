#pragma once
// A node.

#include <array>
#include <cstdint>

/// What walks over the nodes ask for, a bit each.
enum E_NODE_TRAIT : std::uint16_t {
    NODE_IN_FRAME = 1,  // has a CP
    NODE_WITH_AXES = 2, // has a CD
    NODE_HELD = 4,      // has permanent constraints
};

/// GRID. Key: the grid id.
struct T_NODS_D {
    std::int32_t iCP = 0;                   // frame of the coordinates, 0 basic
    std::int32_t iCD = 0;                   // frame of the output axes, 0 none
    std::array<bool, 6> bPS = {};           // bPS1 to bPS6: the components that PS holds down
    double dX1 = 0.0, dX2 = 0.0, dX3 = 0.0; // as on the card, in frame iCP
    double dGX = 0.0, dGY = 0.0, dGZ = 0.0; // position in the basic frame once grid positions are resolved

    /// Its E_NODE_TRAIT bits.
    std::uint16_t Traits() const {
        bool bHeld = false;
        for (const bool bComponent : bPS) bHeld |= bComponent;
        const int iTraits = (iCP != 0 ? NODE_IN_FRAME : 0) | (iCD != 0 ? NODE_WITH_AXES : 0) | (bHeld ? NODE_HELD : 0);
        return static_cast<std::uint16_t>(iTraits);
    }
};
