#pragma once
// Constraint sets.

#include "store/Array.h"

#include <array>
#include <cstdint>

/// A constrained grid.
struct T_CNND_D {
    std::int32_t iNODE = 0;
    std::array<bool, 6> bDOF = {}; // bDOF1 to bDOF6
};

/// A term of a multipoint equation.
struct T_EQNCN_D {
    std::int32_t iNODE = 0;
    std::int32_t iCOMP = 0;
    double dCOEF = 0.0;
};

/// A multipoint equation.
struct T_CNEQ_D {
    std::int32_t iEQ = 0; // its place in the set, from 1
    CArray<T_EQNCN_D> aTERMS;
};

/// A constraint set. Key: the SID.
struct T_CNST_D {
    CArray<T_CNND_D> aCNND;
    CArray<T_CNEQ_D> aCNEQ;
};
