#pragma once
// Grids, coordinate systems and constraint sets.

#include "store/Array.h"
#include "store/Frames.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Which of the components 1 to 6 a text names, at places 0 to 5: each digit from 1 to 6 names its own, anything else
/// is passed over.
constexpr std::array<bool, 6> Components(std::string_view sText) {
    std::array<bool, 6> bDOF = {};
    for (const char c : sText) {
        if (c >= '1' && c <= '6') bDOF[static_cast<std::size_t>(c - '1')] = true;
    }
    return bDOF;
}

/// The same, and the text "0" names all six.
constexpr std::array<bool, 6> ComponentsOrAll(std::string_view sText) {
    return Components(sText == "0" ? "123456" : sText);
}

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

    bool operator==(const T_NODS_D&) const = default;
};
inline const char* KeywordOf(const T_NODS_D&) {
    return "GRID";
}

/// CORD1R, CORD1C, CORD1S. Key: the CID.
struct T_CD1_D {
    std::int32_t iG1 = 0, iG2 = 0, iG3 = 0;    // grids: origin, on Z, in the XZ plane
    double dA[3] = {}, dB[3] = {}, dC[3] = {}; // their points, once coordinate systems are resolved
    CUCSRect frame;

    bool operator==(const T_CD1_D& r) const { return iG1 == r.iG1 && iG2 == r.iG2 && iG3 == r.iG3; }
};
struct T_CD1R_D : T_CD1_D {};
struct T_CD1C_D : T_CD1_D {};
struct T_CD1S_D : T_CD1_D {};

/// CORD2R, CORD2C, CORD2S. Key: the CID.
struct T_CD2_D {
    std::int32_t iRID = 0;                     // reference frame, 0 basic
    double dA[3] = {}, dB[3] = {}, dC[3] = {}; // points: origin, on Z, in the XZ plane
    CUCSRect frame;

    bool operator==(const T_CD2_D& r) const {
        const auto isSame = [](const double(&a)[3], const double(&b)[3]) { return std::equal(a, a + 3, b); };
        return iRID == r.iRID && isSame(dA, r.dA) && isSame(dB, r.dB) && isSame(dC, r.dC);
    }
};
struct T_CD2R_D : T_CD2_D {};
struct T_CD2C_D : T_CD2_D {};
struct T_CD2S_D : T_CD2_D {};

inline const char* KeywordOf(const T_CD1R_D&) {
    return "CORD1R";
}
inline const char* KeywordOf(const T_CD1C_D&) {
    return "CORD1C";
}
inline const char* KeywordOf(const T_CD1S_D&) {
    return "CORD1S";
}
inline const char* KeywordOf(const T_CD2R_D&) {
    return "CORD2R";
}
inline const char* KeywordOf(const T_CD2C_D&) {
    return "CORD2C";
}
inline const char* KeywordOf(const T_CD2S_D&) {
    return "CORD2S";
}

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
