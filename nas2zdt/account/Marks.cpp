// Which things of a model a loss is of.

#include "nas2zdt/account/Marks.h"

namespace {

/// What the words of a reason end with.
struct T_IDS_D {
    std::string_view sEND;
    E_MARKED eMARKED;
};
constexpr T_IDS_D IDS[] = {
    {"(ids: grids)", MARKED_NODES},
    {"(ids: loaded grids)", MARKED_NODES},
    {"(ids: elements)", MARKED_ELEMENTS},
    {"(ids: properties)", MARKED_PROPERTIES},
};

} // namespace

E_MARKED MarkedByReason(const T_REASON_D& rReason) {
    if (rReason.eREASON == LEFT_GRID_HELD) return MARKED_NODES; // its words leave out that they are grids
    const std::string_view sText = rReason.sTEXT;
    for (const T_IDS_D& rIds : IDS) {
        if (sText.ends_with(rIds.sEND)) return rIds.eMARKED;
    }
    return MARKED_NONE;
}

E_MARKED MarkedByCard(std::string_view sKeyword) {
    if (sKeyword == "GRID") return MARKED_NODES;
    if (sKeyword == "RBE2" || (sKeyword.starts_with('C') && !sKeyword.starts_with("CORD"))) return MARKED_ELEMENTS;
    const bool bOther = sKeyword.starts_with("PLOAD") || sKeyword == "PARAM";
    return sKeyword.starts_with('P') && !bOther ? MARKED_PROPERTIES : MARKED_NONE;
}
