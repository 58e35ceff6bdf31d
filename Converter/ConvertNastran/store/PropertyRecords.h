#pragma once
// Properties and materials of any kind.

#include "store/Array.h"

#include <atomic>
#include <cstddef>
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

/// Shapes of a PBARL, T_PROP_D::iSECTYPE.
enum E_BAR_SHAPE : std::int32_t {
    BAR_UNKNOWN = 0, // also every PBAR
    BAR_BAR = 1,
    BAR_BOX = 2,
    BAR_ROD = 5,
    BAR_TUBE = 6,
    BAR_HEXA = 7,
    BAR_I = 9,
    BAR_CHAN = 10,
    BAR_T = 12,
    BAR_Z = 13,
    BAR_HAT = 14,
    BAR_CROSS = 16,
    BAR_H = 17,
    BAR_T1 = 18,
    BAR_T2 = 19,
    BAR_I1 = 20,
    BAR_CHAN1 = 21,
    BAR_CHAN2 = 22,
    BAR_BOX1 = 23,
    BAR_HAT1 = 24,
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
    mutable bool bUSED = false;              // whether an element has it, which its line tells in an observed run
    std::int32_t iNPLY = 90;                 // PCOMP: number of plies; meaningless in any other kind
    CSlotArray<std::int32_t, SLOTS> iPLYMID; // PCOMP: material of each ply
    CSlotArray<double, SLOTS> dVAL;          // the values; what a slot holds depends on the kind

    bool operator==(const T_PROP_D&) const = default;

    /// Several threads may walk the elements, and all of them mark the same properties.
    void MarkUsed() const { std::atomic_ref(bUSED).store(true, std::memory_order_relaxed); }
    bool IsUsed() const { return std::atomic_ref(bUSED).load(std::memory_order_relaxed); }
};

/// Keyword of the card that a property comes from; null for that of a CONM2. A PSHEAR is kept as a PSHELL.
const char* KeywordOf(const T_PROP_D& rProperty);

/// Whether a property names a material for a section, a thickness or a solid.
bool HasMaterial(const T_PROP_D& rProperty);

/// Properties of line elements but PBARL and PTUBE. The second end of a PBEAM repeats the slots from SLOT_END_B on.
enum E_LINE_SLOT : std::size_t {
    SLOT_A = 0,
    SLOT_I1 = 1,
    SLOT_I2 = 2,
    SLOT_I12 = 3,
    SLOT_J = 4,
    SLOT_K1 = 5, // C of a PROD
    SLOT_K2 = 6,
    SLOT_NSM = 7, // of plates too
    SLOT_C1 = 8,  // C1 C2 D1 D2 E1 E2 F1 F2 follow one another
    SLOT_N1 = 16,
    SLOT_N2 = 17,
    SLOT_RB = 17, // of a PBEND
    SLOT_CW = 18,
    SLOT_END_B = 20,
};

/// PTUBE: the outer and the inner diameter.
enum E_TUBE_SLOT : std::size_t { SLOT_OD = 0, SLOT_ID = 1 };

/// PBARL: nine dimensions, in card order for every shape, and the last value of the card.
enum E_SHAPE_SLOT : std::size_t { SLOT_DIM1 = 0, SLOT_LAST = 10 };

/// PSHELL, and PSHEAR with T alone.
enum E_PLATE_SLOT : std::size_t {
    SLOT_T = 0,
    SLOT_Z1 = 8,
    SLOT_Z2 = 9,
    SLOT_BENDING = 10, // 12I/T**3
    SLOT_SHEAR = 11,   // TS/T
};

/// PCOMP: from SLOT_PLY on the thickness and the angle of each ply.
enum E_LAMINATE_SLOT : std::size_t { SLOT_Z0 = 0, SLOT_LAMINATE_NSM = 1, SLOT_SB = 2, SLOT_PLY = 3 };

/// PELAS.
enum E_SPRING_SLOT : std::size_t { SLOT_K = 0, SLOT_GE = 1, SLOT_S = 2 };

/// PBUSH: K and B of the six components follow one another, so do SA, ST, EA and ET.
enum E_BUSH_SLOT : std::size_t { SLOT_BUSH_K = 0, SLOT_BUSH_B = 6, SLOT_BUSH_GE = 12, SLOT_BUSH_RCV = 13 };

/// PGAP.
enum E_GAP_SLOT : std::size_t {
    SLOT_U0 = 0,
    SLOT_KB = 1,
    SLOT_KA = 2,
    SLOT_KT = 3,
    SLOT_MU1 = 4,
    SLOT_MU2 = 5,
    SLOT_F0 = 6,
    SLOT_TMAX = 11,
    SLOT_MAR = 12,
    SLOT_TRMIN = 13,
};

/// CONM2: the mass along each axis and the inertia about it.
enum E_MASS_SLOT : std::size_t {
    SLOT_I11 = 1,
    SLOT_I22 = 3,
    SLOT_I33 = 6,
    SLOT_MX = 7,
    SLOT_MY = 11,
    SLOT_MZ = 12,
};

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

    bool operator==(const T_MATL_D&) const = default;
};
inline const char* KeywordOf(const T_MATL_D& rMaterial) {
    return rMaterial.iMATTYPE == MAT_ISOTROPIC ? "MAT1" : rMaterial.iMATTYPE == MAT_THERMAL ? "MAT4" : "MAT8";
}
