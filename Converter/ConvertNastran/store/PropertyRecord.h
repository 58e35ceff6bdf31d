#pragma once
// A property of any kind.

#include "store/SlotArray.h"

#include <cstdint>

/// Kinds of property, T_PROP_D::iPROPTYPE.
enum E_PROPERTY_TYPE : std::int32_t {
    PROP_ROD = 1,
    PROP_BAR = 2, // PBAR and PBARL
    PROP_TUBE = 3,
    PROP_BEAM = 5,
    PROP_ELAS = 6,
    PROP_BEND = 8,
    PROP_GAP = 9,
    PROP_MEMBRANE = 13, // PSHEAR, and a PSHELL with MID1 alone
    PROP_BENDING = 15,  // a PSHELL with MID2 alone
    PROP_SHELL = 17,    // a PSHELL with both or neither
    PROP_COMP = 21,
    PROP_MASS = 27, // of a CONM2, under minus its EID
    PROP_SOLID = 31,
    PROP_BUSH = 41,
};

/// One record for every property card. Key: the PID.
struct T_PROP_D {
    static constexpr std::size_t SLOTS = 200;

    std::int32_t iMID = 0;                   // key into MATL, 0 for none
    std::int32_t iPROPTYPE = 0;              // E_PROPERTY_TYPE
    std::int32_t bTAPERED = 0;               // PBEAM: 1 if its ends differ
    std::int32_t iSECTYPE = 0;               // PBARL: shape code, 0 for a TYPE that isn't known
    std::int32_t iMID2 = 0;                  // PSHELL: material of bending
    bool bSHAPE = false;                     // whether it is a PBARL
    std::int32_t iNPLY = 90;                 // PCOMP: number of plies; meaningless in any other kind
    CSlotArray<std::int32_t, SLOTS> iPLYMID; // PCOMP: material of each ply
    CSlotArray<double, SLOTS> dVAL;          // the values; what a slot holds depends on the kind
};

/// Keyword of the card that a property with a material and a section or thickness of its own comes from, or of a
/// PSOLID; null for any other. A PSHEAR is kept as a PSHELL.
const char* KeywordOf(const T_PROP_D& rProperty);
