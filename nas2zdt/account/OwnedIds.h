#pragma once
// Which fields of a card are ids, and of what table.

#include <cstddef>
#include <string_view>

/// Tables in which a later record replaces an earlier one of its id.
enum E_OWNED {
    OWNED_NODES,
    OWNED_ELEMENTS,
    OWNED_CONRODS,
    OWNED_CELAS1,
    OWNED_CELAS2,
    OWNED_RBE2,
    OWNED_PROPERTIES,
    OWNED_MATERIALS,
    OWNED_CORD1R,
    OWNED_CORD1C,
    OWNED_CORD1S,
    OWNED_CORD2R,
    OWNED_CORD2C,
    OWNED_CORD2S,
    OWNED_GRAVITY,      // one vector a load set
    OWNED_TEMPERATURES, // one default a load set
    OWNED_EIGB,
    OWNED_EIGRL,
    OWNED_COUNT, // also: none
};

/// Where the ids of a card stand: in field 0 and, if nSTEP isn't 0, in each field that is nSTEP further on, as far as
/// it is one of the first nFIELDS and isn't 0.
struct T_OWNS_D {
    E_OWNED eTABLE = OWNED_COUNT;
    std::size_t nSTEP = 0;
    std::size_t nFIELDS = 1;
};

/// The ids of a keyword's cards; none for most that aren't elements, properties or materials.
T_OWNS_D FindOwnedIds(std::string_view sKeyword);
