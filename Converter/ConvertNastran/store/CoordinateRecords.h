#pragma once
// Coordinate systems. Rectangular, cylindrical or spherical is told by the table alone.

#include "store/Frames.h"

#include <cstdint>

/// CORD1R, CORD1C, CORD1S. Key: the CID.
struct T_CD1_D {
    std::int32_t iG1 = 0, iG2 = 0, iG3 = 0;    // grids: origin, on Z, in the XZ plane
    double dA[3] = {}, dB[3] = {}, dC[3] = {}; // their points, once coordinate systems are resolved
    CUCSRect frame;
};
struct T_CD1R_D : T_CD1_D {};
struct T_CD1C_D : T_CD1_D {};
struct T_CD1S_D : T_CD1_D {};

/// CORD2R, CORD2C, CORD2S. Key: the CID.
struct T_CD2_D {
    std::int32_t iRID = 0;                     // reference frame, 0 basic
    double dA[3] = {}, dB[3] = {}, dC[3] = {}; // points: origin, on Z, in the XZ plane
    CUCSRect frame;
};
struct T_CD2R_D : T_CD2_D {};
struct T_CD2C_D : T_CD2_D {};
struct T_CD2S_D : T_CD2_D {};
