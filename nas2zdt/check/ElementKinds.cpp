#include "nas2zdt/check/ElementKinds.h"

#include <algorithm>
#include <array>

namespace {

// In the order of the alphabet.
constexpr std::array KINDS = {
    T_ELEMENTKIND_D{"CBAR", FORM_BEAM, BODY_LINE, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CBEAM", FORM_BEAM, BODY_LINE, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CBEND", FORM_BEAM, BODY_LINE, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CBUSH", FORM_LINK, BODY_LINK, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CBUSH1D", FORM_LINK, BODY_LINK, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CDAMP1", FORM_DAMPER, BODY_LINK, 1, 2, 2, 2, 2},
    T_ELEMENTKIND_D{"CDAMP2", FORM_DAMPER, BODY_LINK, 0, 2, 2, 2, 2},
    T_ELEMENTKIND_D{"CELAS1", FORM_SPRING, BODY_LINK, 1, 2, 2, 2, 2},
    T_ELEMENTKIND_D{"CELAS2", FORM_SPRING, BODY_LINK, 0, 2, 2, 2, 2},
    T_ELEMENTKIND_D{"CGAP", FORM_LINK, BODY_LINK, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CHEXA", FORM_HEXA, BODY_HEXA, 1, 2, 1, 8, 20},
    T_ELEMENTKIND_D{"CMASS1", FORM_SCALARMASS, BODY_LINK, 1, 2, 2, 2, 2},
    T_ELEMENTKIND_D{"CMASS2", FORM_SCALARMASS, BODY_LINK, 0, 2, 2, 2, 2},
    T_ELEMENTKIND_D{"CONROD", FORM_ROD, BODY_LINE, 0, 1, 1, 2, 2},
    T_ELEMENTKIND_D{"CPENTA", FORM_WEDGE, BODY_WEDGE, 1, 2, 1, 6, 15},
    T_ELEMENTKIND_D{"CPYRAM", FORM_PYRAMID, BODY_PYRAMID, 1, 2, 1, 5, 13},
    T_ELEMENTKIND_D{"CQUAD4", FORM_QUAD, BODY_QUAD, 1, 2, 1, 4, 4},
    T_ELEMENTKIND_D{"CQUAD8", FORM_QUAD, BODY_QUAD, 1, 2, 1, 4, 8},
    T_ELEMENTKIND_D{"CQUADR", FORM_QUAD, BODY_QUAD, 1, 2, 1, 4, 4},
    T_ELEMENTKIND_D{"CROD", FORM_ROD, BODY_LINE, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CSHEAR", FORM_SHEAR, BODY_QUAD, 1, 2, 1, 4, 4},
    T_ELEMENTKIND_D{"CTETRA", FORM_TETRA, BODY_TETRA, 1, 2, 1, 4, 10},
    T_ELEMENTKIND_D{"CTRIA3", FORM_TRIANGLE, BODY_TRIANGLE, 1, 2, 1, 3, 3},
    T_ELEMENTKIND_D{"CTRIA6", FORM_TRIANGLE, BODY_TRIANGLE, 1, 2, 1, 3, 6},
    T_ELEMENTKIND_D{"CTRIAR", FORM_TRIANGLE, BODY_TRIANGLE, 1, 2, 1, 3, 3},
    T_ELEMENTKIND_D{"CTUBE", FORM_ROD, BODY_LINE, 1, 2, 1, 2, 2},
    T_ELEMENTKIND_D{"CVISC", FORM_DAMPER, BODY_LINK, 1, 2, 1, 2, 2},
};
static_assert(std::ranges::all_of(KINDS, [](auto& r) { return r.nMOST <= MOST_ELEMENT_NODES; }));
static_assert(std::ranges::is_sorted(KINDS, {}, &T_ELEMENTKIND_D::sKEYWORD));

} // namespace

std::span<const T_ELEMENTKIND_D> GetElementKinds() {
    return KINDS;
}

const T_ELEMENTKIND_D* FindElementKind(std::string_view sKeyword) {
    if (!sKeyword.starts_with('C')) return nullptr;
    const auto pFound = std::ranges::lower_bound(KINDS, sKeyword, {}, &T_ELEMENTKIND_D::sKEYWORD);
    return pFound != KINDS.end() && pFound->sKEYWORD == sKeyword ? &*pFound : nullptr;
}
