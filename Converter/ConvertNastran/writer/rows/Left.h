#pragma once
// What the store holds and the target file doesn't. The functions of this folder alone decide it: each walks what one
// section is made of and calls its visitor with a row for each line of the file, or a T_LEFT_D. Writers format the
// rows, pictures draw them, the account counts what is left out.

#include <cstdint>

/// Why something isn't in the file. What the reasons say stands in the table of Left.cpp, in the same order.
enum E_LEFT {
    LEFT_GRID_RENUMBERED,
    LEFT_ELEMENT_FORM,
    LEFT_PBEND,
    LEFT_PCOMP,
    LEFT_PBARL_SHAPE, // other: E_BAR_SHAPE
    LEFT_PLATE_THICKNESS,
    LEFT_SPC_SET,
    LEFT_GRID_HELD,
    LEFT_GRID_AXES,    // other: the coordinate system
    LEFT_CELAS1_DOF,   // its components differ
    LEFT_CELAS1_ENDS,  // neither end has both grid and component
    LEFT_CELAS1_GRID1, // other: the grid
    LEFT_CELAS1_GRID2, // other: the grid
    LEFT_CELAS1_PLACE, // on one grid, which is nowhere
    LEFT_CELAS1_PELAS, // other: the property
    LEFT_CELAS1_ZERO,  // other: the property
    LEFT_CELAS2_DOF,
    LEFT_CELAS2_ENDS,
    LEFT_CELAS2_GRID1,
    LEFT_CELAS2_GRID2,
    LEFT_CELAS2_PLACE,
    LEFT_CELAS2_ZERO,
    LEFT_RBE2_MASTER, // other: the grid
    LEFT_RBE2_SLAVE,  // other: the grid
    LEFT_MPC_SET,
    LEFT_MPC_TERMS,
    LEFT_MPC_FACTORS,
    LEFT_MPC_COMPONENT, // of an equation that has its row
    LEFT_CONM2,
    LEFT_FORCE_ZERO,
    LEFT_MOMENT_ZERO,
    LEFT_PLOAD1_ELEMENT,
    LEFT_PLOAD1_TYPE,
    LEFT_PLOAD1_ERROR,
    LEFT_PLOAD1_LENGTH,
    LEFT_PLOAD1_ZERO,
    LEFT_PLOAD2_ELEMENT,
    LEFT_PLOAD2_ZERO,
    LEFT_PLOAD4_ELEMENT,
    LEFT_PLOAD4_ZERO,
    LEFT_TEMPD,
    LEFT_TEMPP1_MEAN,
    LEFT_TEMPP1_GRADIENT,
    LEFT_SPCD_ZERO,
    LEFT_LOAD_SET, // other: the load set
    LEFT_EIGB,
    LEFT_EIGRL,
    LEFT_COUNT
};

/// A record, entry or value without a line.
struct T_LEFT_D {
    E_LEFT eREASON = LEFT_COUNT;
    std::int32_t iID = 0;    // of what sTEXT of the reason names
    std::int32_t iOTHER = 0; // where E_LEFT tells
    std::uint64_t nCOUNT = 1;
    bool bELSEWHERE = false; // another section takes it, or tells itself that it is left out
};

/// What a reason says to people.
struct T_REASON_D {
    E_LEFT eREASON;
    const char* sKEYWORD; // of the cards; the commonest where several make such records
    const char* sTEXT;    // with what the ids are
};
const T_REASON_D& ReasonOf(E_LEFT eReason);

/// A visitor made of functions: one for each type of row, and one for T_LEFT_D.
template <class... FUNCTIONS>
struct CRowVisitor : FUNCTIONS... {
    using FUNCTIONS::operator()...;
};
template <class... FUNCTIONS>
CRowVisitor(FUNCTIONS...) -> CRowVisitor<FUNCTIONS...>;

/// The function of a visitor that doesn't ask for what is left out.
constexpr auto IGNORE_LEFT = [](const T_LEFT_D&) {};
