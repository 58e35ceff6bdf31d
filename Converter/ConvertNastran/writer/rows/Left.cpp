// The reasons in words.

#include "writer/rows/Left.h"

#include <iterator>

namespace {

// clang-format off
constexpr T_REASON_D REASONS[] = {
    {LEFT_GRID_RENUMBERED, "GRID",   "grids whose new number no grid has (ids: grids)"},
    {LEFT_ELEMENT_FORM,    "CBEND",  "elements without a line (ids: elements)"},
    {LEFT_PBEND,           "PBEND",  "properties without a section (ids: properties)"},
    {LEFT_PCOMP,           "PCOMP",  "laminates without a section (ids: properties)"},
    {LEFT_PBARL_SHAPE,     "PBARL",  "sections of a shape that the file doesn't know (ids: properties)"},
    {LEFT_PLATE_THICKNESS, "PSHELL", "properties of plates without thickness (ids: properties)"},
    {LEFT_SPC_SET,         "SPC",    "grids of constraint sets that don't reach the file (ids: sets)"},
    {LEFT_GRID_HELD,       "GRID",   "permanent constraints of a deck without constraint sets"},
    {LEFT_GRID_AXES,       "GRID",   "output axes of a coordinate system that doesn't exist (ids: grids)"},
    {LEFT_CELAS1_DOF,      "CELAS1", "springs between different components (ids: elements)"},
    {LEFT_CELAS1_ENDS,     "CELAS1", "springs without an end of both grid and component (ids: elements)"},
    {LEFT_CELAS1_GRID1,    "CELAS1", "springs on a grid that doesn't exist (ids: elements)"},
    {LEFT_CELAS1_GRID2,    "CELAS1", "springs on a grid that doesn't exist (ids: elements)"},
    {LEFT_CELAS1_PLACE,    "CELAS1", "springs on a grid whose position is no number (ids: elements)"},
    {LEFT_CELAS1_PELAS,    "CELAS1", "springs whose property doesn't exist (ids: elements)"},
    {LEFT_CELAS1_ZERO,     "CELAS1", "springs without stiffness (ids: elements)"},
    {LEFT_CELAS2_DOF,      "CELAS2", "springs between different components (ids: elements)"},
    {LEFT_CELAS2_ENDS,     "CELAS2", "springs without an end of both grid and component (ids: elements)"},
    {LEFT_CELAS2_GRID1,    "CELAS2", "springs on a grid that doesn't exist (ids: elements)"},
    {LEFT_CELAS2_GRID2,    "CELAS2", "springs on a grid that doesn't exist (ids: elements)"},
    {LEFT_CELAS2_PLACE,    "CELAS2", "springs on a grid whose position is no number (ids: elements)"},
    {LEFT_CELAS2_ZERO,     "CELAS2", "springs without stiffness (ids: elements)"},
    {LEFT_RBE2_MASTER,     "RBE2",   "links whose independent grid doesn't exist (ids: elements)"},
    {LEFT_RBE2_SLAVE,      "RBE2",   "dependent grids that don't exist (ids: elements)"},
    {LEFT_MPC_SET,         "MPC",    "equations of sets that don't reach the file (ids: sets)"},
    {LEFT_MPC_TERMS,       "MPC",    "equations that make no rigid link (ids: places in the set)"},
    {LEFT_MPC_FACTORS,     "MPC",    "equations that make no rigid link (ids: places in the set)"},
    {LEFT_MPC_COMPONENT,   "MPC",    "second components that differ from the first (ids: places in the set)"},
    {LEFT_CONM2,           "CONM2",  "masses without values (ids: elements)"},
    {LEFT_FORCE_ZERO,      "FORCE",  "forces of zero (ids: grids)"},
    {LEFT_MOMENT_ZERO,     "MOMENT", "moments of zero (ids: grids)"},
    {LEFT_PLOAD1_ELEMENT,  "PLOAD1", "loads on no element (ids: elements)"},
    {LEFT_PLOAD1_TYPE,     "PLOAD1", "loads of unknown TYPE (ids: elements)"},
    {LEFT_PLOAD1_ERROR,    "PLOAD1", "loads on elements that can't be measured (ids: elements)"},
    {LEFT_PLOAD1_LENGTH,   "PLOAD1", "loads by length on elements without length (ids: elements)"},
    {LEFT_PLOAD1_ZERO,     "PLOAD1", "loads of zero (ids: elements)"},
    {LEFT_PLOAD2_ELEMENT,  "PLOAD2", "pressures on no plate or solid (ids: elements)"},
    {LEFT_PLOAD2_ZERO,     "PLOAD2", "pressures of zero (ids: elements)"},
    {LEFT_PLOAD4_ELEMENT,  "PLOAD4", "pressures on no plate or solid (ids: elements)"},
    {LEFT_PLOAD4_ZERO,     "PLOAD4", "pressures of zero (ids: elements)"},
    {LEFT_TEMPD,           "TEMPD",  "default temperatures that no grid takes (ids: sets)"},
    {LEFT_TEMPP1_MEAN,     "TEMPP1", "mean temperatures that aren't above zero (ids: elements)"},
    {LEFT_TEMPP1_GRADIENT, "TEMPP1", "gradients on no plate (ids: elements)"},
    {LEFT_SPCD_ZERO,       "SPCD",   "displacements of zero (ids: grids)"},
    {LEFT_LOAD_SET,        "LOAD",   "sets of a combination that don't exist (ids: combinations)"},
    {LEFT_EIGB,            "EIGB",   "records without a section (ids: sets)"},
    {LEFT_EIGRL,           "EIGRL",  "sets but the one that is written (ids: sets)"},
};
// clang-format on

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(REASONS); ++i) {
        if (REASONS[i].eREASON != static_cast<E_LEFT>(i)) return false;
    }
    return std::size(REASONS) == LEFT_COUNT;
}
static_assert(IsInOrder());

} // namespace

const T_REASON_D& ReasonOf(E_LEFT eReason) {
    return REASONS[eReason];
}
