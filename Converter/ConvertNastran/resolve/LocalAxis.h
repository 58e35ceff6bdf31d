#pragma once
// One node local axis.

#include <cstdint>

class CLocalAxis {
  public:
    virtual ~CLocalAxis() = default;

    std::int32_t iNODE = 0;
    std::int32_t iMETHOD = 0;                     // 1 by angles, 2 by three points, 3 by two vectors
    double dANGLE[3] = {};                        // method 1
    double dP0[3] = {}, dP1[3] = {}, dP2[3] = {}; // method 2
    double dV1[3] = {}, dV2[3] = {};              // method 3
};
