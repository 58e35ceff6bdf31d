#pragma once
// What the slots of T_PROP_D::dVAL hold.

#include <cstddef>

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

/// PBARL: nine dimensions of whatever shape, in card order, and the last value of the card.
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
