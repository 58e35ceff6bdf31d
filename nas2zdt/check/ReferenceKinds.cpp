#include "nas2zdt/check/ReferenceKinds.h"

#include "nas2zdt/check/References.h"

#include <array>

namespace {

constexpr std::array<T_FINDINGKIND_D, REFERENCE_COUNT> KINDS = {{
    {"no-grid", SEVERITY_ERROR, "a grid or scalar point that doesn't exist"},
    {"no-property", SEVERITY_ERROR, "a property that doesn't exist"},
    {"property-kind", SEVERITY_ERROR, "a property that isn't one for the element"},
    {"no-material", SEVERITY_ERROR, "a material that doesn't exist"},
    {"no-frame", SEVERITY_ERROR, "a coordinate system that doesn't exist"},
    {"no-element", SEVERITY_ERROR, "an element of a load that doesn't exist"},
    {"element-kind", SEVERITY_ERROR, "an element that the load isn't for"},
    {"no-face", SEVERITY_ERROR, "grids of a pressure that name no face of its element"},
    {"no-set", SEVERITY_ERROR, "a set that is asked for and that no card makes"},
    {"set-of-sets", SEVERITY_WARNING, "a sum of sets in another sum, which NASTRAN doesn't take"},
    {"no-supports", SEVERITY_WARNING, "a set of supports that is asked for and holds nothing"},
    {"no-loads", SEVERITY_WARNING, "a set of loads none of which acts: they are 0, or on nothing"},
    {"frame-ring", SEVERITY_ERROR, "coordinate systems that are defined by each other"},
    {"frame-line", SEVERITY_ERROR, "a coordinate system whose three points are on a line"},
    {"blank", SEVERITY_ERROR, "a blank field that must have a value"},
    {"not-a-number", SEVERITY_ERROR, "a field with a text that isn't the number or word that it should be"},
    {"real-for-integer", SEVERITY_ERROR, "a real number where an integer belongs"},
    {"integer-for-real", SEVERITY_ERROR, "an integer where a real number belongs, such as 1 for 1.0"},
    {"too-large", SEVERITY_ERROR, "a number that is too large for any computer"},
    {"bad-id", SEVERITY_ERROR, "an id or integer out of its range: negative, zero or of more than eight digits"},
    {"bad-components", SEVERITY_ERROR, "components that aren't different digits from 1 to 6"},
    {"zero", SEVERITY_ERROR, "a thickness, area or stiffness of 0"},
    {"negative", SEVERITY_ERROR, "a thickness, area or stiffness below 0"},
    {"no-section", SEVERITY_WARNING, "a bar without an area"},
    {"twice", SEVERITY_ERROR, "an id that a second card of its kind has"},
    {"twice-same", SEVERITY_WARNING, "a grid or coordinate system that is there twice, the same both times"},
    {"behind-enddata", SEVERITY_WARNING, "cards behind ENDDATA, which nobody reads"},
    {"no-keyword", SEVERITY_ERROR, "lines of the bulk section that begin with no keyword"},
    {"no-include", SEVERITY_ERROR, "an INCLUDE that leads nowhere"},
}};
static_assert(KINDS.back().sCODE); // a kind for each

} // namespace

const T_FINDINGKIND_D& GetKind(E_REFERENCE eKind) {
    return KINDS[eKind];
}

std::span<const T_FINDINGKIND_D> GetReferenceKinds() {
    return KINDS;
}
