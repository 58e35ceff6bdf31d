#pragma once
// What the deck means and the target file doesn't say: things that are left out of it, and things that it holds
// otherwise. The passes and the functions of writer/rows/ tell each as they decide it, so nothing is lost in silence.

#include <cstdint>

/// What a thing's loss costs.
enum E_LOSS_CLASS {
    CLASS_MODEL,   // geometry, stiffness, supports, loads, temperatures: results change
    CLASS_MASS,    // masses and densities
    CLASS_CONTROL, // what is solved for and put out
    CLASS_NOTE,    // without influence on results
    CLASS_COUNT
};

/// What became of a thing. Code, class and words of each stand in the table of Left.cpp, in the same order. The id is
/// that of what the words name; "other" tells what T_LEFT_D::iOTHER is.
enum E_LEFT {
    // frames and grids
    LEFT_FRAME_OWN_KIND,   // other: RID
    LEFT_FRAME_NO_PARENT,  // other: RID
    LEFT_FRAME_POLAR,      // other: RID
    LEFT_FRAME_COPIED,     // other: RID
    LEFT_FRAME_GRID_MOVED, // other: the grid
    LEFT_FRAME_NO_GRID,    // other: the grid
    LEFT_FRAME_TWICE,
    LEFT_FRAME_CIRCLE,
    LEFT_FRAME_LINE,
    LEFT_GRID_FRAME, // other: CP
    LEFT_GRID_RENUMBERED,
    LEFT_GRID_AXES,        // other: CD
    LEFT_GRID_AXES_ORIGIN, // other: CD
    LEFT_GRID_AXES_POLAR,  // other: CD
    // elements
    LEFT_ELEMENT_FORM,
    LEFT_ELEMENT_GRID, // other: the first of them
    LEFT_ELEMENT_PID_BLANK,
    LEFT_ELEMENT_PROPERTY, // other: the property
    LEFT_ELEMENT_MATERIAL, // other: the material
    LEFT_TUBE_BEAM,
    LEFT_SHEAR_PLATE,
    LEFT_BEAM_REFERENCE, // other: the grid
    LEFT_BEAM_AXES,      // other: CD
    LEFT_CONM2,
    // properties
    LEFT_PROPERTY_MATERIAL, // other: the material
    LEFT_PROPERTY_UNUSED,
    LEFT_PBEND,
    LEFT_PCOMP,
    LEFT_PBARL_SHAPE, // other: E_BAR_SHAPE
    LEFT_PBARL_TYPE,
    LEFT_PBARL_DIMENSIONS,
    LEFT_PBARL_TURNED,
    LEFT_PLATE_THICKNESS,
    LEFT_PLATE_BENDING, // other: MID2
    // supports
    LEFT_SPC_SET,
    LEFT_SPC_GRID,
    LEFT_SPC_ZERO,
    LEFT_SPC_NOTHING,
    LEFT_GRID_HELD,
    // springs and links
    LEFT_CELAS1_DOF,   // its components differ
    LEFT_CELAS1_ENDS,  // neither end has both grid and component
    LEFT_CELAS1_GRID1, // other: the grid
    LEFT_CELAS1_GRID2, // other: the grid
    LEFT_CELAS1_PLACE, // on one grid, which is nowhere
    LEFT_CELAS1_PELAS, // other: the property
    LEFT_CELAS1_ZERO,  // other: the property
    LEFT_CELAS1_GE,
    LEFT_CELAS1_BOTH,
    LEFT_CELAS2_DOF,
    LEFT_CELAS2_ENDS,
    LEFT_CELAS2_GRID1,
    LEFT_CELAS2_GRID2,
    LEFT_CELAS2_PLACE,
    LEFT_CELAS2_ZERO,
    LEFT_CELAS2_GE,
    LEFT_CELAS2_BOTH,
    LEFT_LINK_GROUND,
    LEFT_LINK_AXES,     // other: CD
    LEFT_LINK_POSITION, // other: a node with a CP
    LEFT_LINK_ANGLE,
    LEFT_RBE2_MASTER, // other: the grid
    LEFT_RBE2_SLAVE,  // other: the grid
    LEFT_MPC_SET,
    LEFT_MPC_TERMS,
    LEFT_MPC_FACTORS,
    LEFT_MPC_COMPONENT, // of an equation that has its row
    LEFT_MPC_NO_COMPONENT,
    LEFT_MPC_GRID,      // other: the grid
    LEFT_MPC_ZERO_GRID, // a term on grid 0
    // loads
    LEFT_LOADCASE_ZERO,
    LEFT_FORCE_ZERO,
    LEFT_FORCE_GRID,
    LEFT_FORCE_NO_GRIDS,
    LEFT_FORCE_NO_DIRECTION,
    LEFT_MOMENT_ZERO,
    LEFT_MOMENT_GRID,
    LEFT_MOMENT_NO_GRIDS,
    LEFT_MOMENT_NO_DIRECTION,
    LEFT_PLOAD1_ELEMENT,
    LEFT_PLOAD1_TYPE,
    LEFT_PLOAD1_ERROR,
    LEFT_PLOAD1_LENGTH,
    LEFT_PLOAD1_ZERO,
    LEFT_PLOAD1_NO_ELEMENT, // of a load that has its row
    LEFT_PLOAD1_SCALE,
    LEFT_PLOAD1_POINT,
    LEFT_PLOAD2_ELEMENT,
    LEFT_PLOAD2_ZERO,
    LEFT_PLOAD2_FACE,
    LEFT_PLOAD4_ELEMENT,
    LEFT_PLOAD4_ZERO,
    LEFT_PLOAD4_NO_FACE,
    LEFT_PLOAD4_FACE, // other: the face of the file
    LEFT_TEMP_GRID,
    LEFT_TEMPD,
    LEFT_TEMPP1_MEAN,
    LEFT_TEMPP1_ELEMENT,
    LEFT_TEMPP1_GRADIENT,
    LEFT_SPCD_ZERO,
    LEFT_SPCD_GRID,
    LEFT_LOAD_SET,  // other: the load set
    LEFT_LOAD_LOAD, // other: the combination
    LEFT_EIGB,
    LEFT_EIGRL,
    LEFT_COUNT
};

/// A thing that the file doesn't hold, or holds otherwise.
struct T_LEFT_D {
    E_LEFT eREASON = LEFT_COUNT;
    std::int32_t iID = 0;    // of what sTEXT of the reason names
    std::int32_t iOTHER = 0; // where E_LEFT tells
    std::uint64_t nCOUNT = 1;
    bool bELSEWHERE = false;        // another section takes it, or tells itself that it is left out
    const char* sKEYWORD = nullptr; // of the card, where it isn't the reason's; a text that stays
};

/// Who is told, as it happens. An exception ends the run as one of the run's own does.
class CLeftSink {
  public:
    virtual ~CLeftSink() = default;
    virtual void OnLeft(const T_LEFT_D& rLeft) = 0;

    /// A record of a card of this keyword was replaced by another of its id, the same or not. Told while the card of
    /// the other is read.
    virtual void OnReplaced(const char* /*sKeyword*/, bool /*bSame*/) {}
};

/// What a reason says to people and programs.
struct T_REASON_D {
    E_LEFT eREASON;
    const char* sCODE; // its name for programs, which stays
    E_LOSS_CLASS eCLASS;
    bool bWRITTEN;        // whether the thing is in the file, otherwise than it is meant
    const char* sKEYWORD; // of the cards; the commonest where several make such records
    const char* sTEXT;    // with what the ids are
};
const T_REASON_D& ReasonOf(E_LEFT eReason);
