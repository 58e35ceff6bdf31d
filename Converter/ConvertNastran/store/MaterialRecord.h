#pragma once
// A material of any kind.

#include <cstdint>

/// Kinds of material, T_MATL_D::iMATTYPE.
enum E_MATERIAL_TYPE : std::int32_t {
    MAT_ISOTROPIC = 0,   // MAT1
    MAT_ORTHOTROPIC = 1, // MAT8
    MAT_THERMAL = 7,     // MAT4
};

/// One record for every material card. Key: the MID.
struct T_MATL_D {
    std::int32_t iMATTYPE = 0; // E_MATERIAL_TYPE
    std::int32_t bSTRN = 0;    // MAT8: 1 if STRN is exactly 1.0
    double dE = 0.0, dE2 = 0.0;
    double dG = 0.0, dG1Z = 0.0, dG2Z = 0.0;
    double dNU = 0.0;
    double dALPHA = 0.0, dALPHA2 = 0.0;
    double dK = 0.0, dCP = 0.0; // MAT4: conductivity, heat capacity
    double dRHO = 0.0, dGE = 0.0, dTREF = 0.0;
    double dST = 0.0, dYT = 0.0, dSC = 0.0, dYC = 0.0, dSS = 0.0, dF12 = 0.0; // strengths
};
