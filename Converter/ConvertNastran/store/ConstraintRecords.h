#pragma once
// Constraint sets.

#include "store/Array.h"

#include <array>
#include <cstdint>

/// A constrained grid.
struct T_CNND_D {
    std::int32_t iNODE = 0;
    std::array<bool, 6> bDOF = {}; // bDOF1 to bDOF6
    bool bZERO = false;            // whether component 0 stands for them
    bool bSPC1 = false;            // whether an SPC1 says so
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
    bool bLOST = false;   // whether a term without a grid was passed over
    CArray<T_EQNCN_D> aTERMS;
};

/// A constraint set. Key: the SID.
struct T_CNST_D {
    CArray<T_CNND_D> aCNND;
    CArray<T_CNEQ_D> aCNEQ;
};
