#pragma once
// Load sets, their entries, and load combinations.

#include "store/Array.h"

#include <array>
#include <cstdint>

/// Kinds of an entry, T_MBLD_D::iKIND.
enum E_LOAD_KIND : std::int8_t {
    LOAD_FORCE = 1,
    LOAD_MOMENT = 2,
    LOAD_DISPLACEMENT = 3,
    LOAD_BEAM_MOMENT = 40,
    LOAD_BEAM_FORCE = 41,
    LOAD_PRESSURE = 42,
};

/// How an entry gives its values, T_MBLD_D::iFORM.
enum E_LOAD_FORM : std::int8_t {
    FORM_PLAIN = 0,     // components of a force or moment; any entry that isn't named below
    FORM_TWO_GRIDS = 1, // FORCE1, MOMENT1: a magnitude along a line of two grids
    FORM_CROSS = 2,     // FORCE2, MOMENT2: a magnitude normal to two lines of two grids
    FORM_CORNERS = 1,   // PLOAD4: a pressure at each corner
};

/// Codes of PLOAD1's SCALE, T_MBLD_D::iSCALE.
enum E_LOAD_SCALE : std::int8_t {
    SCALE_LE = 0,   // positions are lengths
    SCALE_FR = 1,   // positions are fractions of the element's length
    SCALE_LEPR = 2, // lengths, and the load is projected
    SCALE_FPPR = 3, // fractions, and the load is projected
};

/// An entry of a load set on a grid or an element. Only the members of its kind are filled.
struct T_MBLD_D {
    std::int32_t iID = 0; // grid, or element of PLOAD1, PLOAD2, PLOAD4
    // A load set may have millions of entries, so codes are as narrow as they can be.
    std::int8_t iKIND = 0;                  // E_LOAD_KIND, 0 for a PLOAD1 of unknown TYPE
    std::int8_t iFORM = 0;                  // E_LOAD_FORM
    std::int8_t iSCALE = 0;                 // PLOAD1: E_LOAD_SCALE
    std::int8_t iDIR = 0;                   // PLOAD1: 1 to 3 along X, Y, Z of the basic frame, 4 to 6 of the element
    std::int32_t iCID = 0;                  // frame of the card, 0 basic
    std::int32_t iFACEG1 = 0, iFACEG34 = 0; // PLOAD4: grids that name a solid's face
    std::array<std::int32_t, 4> iG = {};    // FORM_TWO_GRIDS, FORM_CROSS: grids of the direction
    std::array<double, 6> dV = {};          // dV1 to dV6: the values
    std::array<double, 3> dN = {};          // PLOAD4: direction
};

/// A nodal temperature.
struct T_NTLD_D {
    std::int32_t iNODE = 0;
    double dTEMP = 0.0;
};

/// An element temperature.
struct T_ETLD_D {
    std::int32_t iELEM = 0;
    double dTBAR = 0.0;          // mean
    double dT2 = 0.0, dT1 = 0.0; // at the two faces
};

/// A load set, which is also a static load case. Key: the SID.
struct T_LOAD_D {
    std::int32_t iGRAVCID = 0;
    double dTEMPD = 0.0;                             // default temperature
    std::int32_t bTEMPD = 0;                         // 1 if it was given
    std::int32_t bGRAV = 0;                          // 1 if the gravity vector was given
    double dGRAVX = 0.0, dGRAVY = 0.0, dGRAVZ = 0.0; // acceleration, scale included
    CArray<T_MBLD_D> aMBLD;
    CArray<T_NTLD_D> aNTLD;
    CArray<T_ETLD_D> aETLD;
};

/// A load combination. Key: the SID of the LOAD card.
struct T_LDCB_D {
    double dSCALE = 0.0;
    CArray<std::int32_t> aLOADS; // load sets
    CArray<double> aFACTORS;     // their factors, in step
};
