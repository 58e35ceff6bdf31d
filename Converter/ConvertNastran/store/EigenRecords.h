#pragma once
// Eigenvalue extraction.

#include <cstdint>

/// EIGB. Key: the SID.
struct T_EIGB_D {
    std::int32_t iMETHOD = 0; // 0 INV, 1 SINV
    double dL1 = 0.0, dL2 = 0.0;
    std::int32_t iNEP = 0;
    std::int32_t iNDN = 0;
    std::int32_t iNORM = 0; // 0 MAX, 1 POINT
    std::int32_t iG = 0, iC = 0;
};

/// EIGRL. Key: the SID.
struct T_EIRL_D {
    double dV1 = 0.0, dV2 = 0.0;
    std::int32_t iND = 0;
    std::int32_t iMSGLVL = 0;
    std::int32_t iMAXSET = 0;
    double dSHFSCL = 0.0;
    std::int32_t iNORM = 0; // 0 MASS, 1 MAX
};
