#pragma once
// Load sets, load combinations, eigenvalue extraction.

#include "store/Array.h"
#include "store/LoadEntries.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

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
    CLoadEntries aMBLD;
    CArray<T_NTLD_D> aNTLD;
    CArray<T_ETLD_D> aETLD;
};

/// A load combination. Key: the SID of the LOAD card.
struct T_LDCB_D {
    double dSCALE = 0.0;
    CArray<std::int32_t> aLOADS; // load sets
    CArray<double> aFACTORS;     // their factors, in step
};

/// EIGB. Key: the SID.
struct T_EIGB_D {
    std::int32_t iMETHOD = 0; // 0 INV, 1 SINV
    double dL1 = 0.0, dL2 = 0.0;
    std::int32_t iNEP = 0;
    std::int32_t iNDN = 0;
    std::int32_t iNORM = 0; // 0 MAX, 1 POINT
    std::int32_t iG = 0, iC = 0;

    bool operator==(const T_EIGB_D&) const = default;
};
inline const char* KeywordOf(const T_EIGB_D&) {
    return "EIGB";
}

/// EIGRL. Key: the SID.
struct T_EIRL_D {
    double dV1 = 0.0, dV2 = 0.0;
    std::int32_t iND = 0;
    std::int32_t iMSGLVL = 0;
    std::int32_t iMAXSET = 0;
    double dSHFSCL = 0.0;
    std::int32_t iNORM = 0; // 0 MASS, 1 MAX

    bool operator==(const T_EIRL_D&) const = default;
};
inline const char* KeywordOf(const T_EIRL_D&) {
    return "EIGRL";
}
