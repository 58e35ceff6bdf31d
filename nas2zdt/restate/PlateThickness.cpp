// Reads thicknesses of plates.

#include "nas2zdt/restate/PlateThickness.h"

#include <cmath>
#include <string_view>

namespace {

struct T_KEYWORDPLACES_D {
    std::string_view sKEYWORD;
    T_THICKNESS_D places;
};
constexpr T_KEYWORDPLACES_D PLACES[] = {
    {"CQUAD4", {10, 4, 9}}, {"CQUADR", {10, 4, 9}}, {"CQUAD8", {10, 4, 16}},
    {"CTRIA3", {10, 3, 9}}, {"CTRIAR", {10, 3, 9}}, {"CTRIA6", {10, 3, 13}},
};

} // namespace

T_THICKNESS_D ThicknessOf(std::string_view sKeyword) {
    for (const T_KEYWORDPLACES_D& rRow : PLACES) {
        if (rRow.sKEYWORD == sKeyword) return rRow.places;
    }
    return {};
}

bool HasThickness(const CCardFields& rCard, const T_THICKNESS_D& rPlaces) {
    for (std::size_t i = 0; i < rPlaces.nCORNERS; ++i) {
        if (!rCard.IsBlank(rPlaces.iFIRST + i)) return true;
    }
    return false;
}

double ReadThickness(const CCardFields& rCard, const T_THICKNESS_D& rPlaces, double dProperty) {
    if (!HasThickness(rCard, rPlaces)) return dProperty;
    const bool bPart = rCard.Int(rPlaces.iFLAG) == 1;
    const auto corner = [&](std::size_t i) {
        return bPart ? rCard.Real(rPlaces.iFIRST + i, 1.0) * dProperty : rCard.Real(rPlaces.iFIRST + i, dProperty);
    };
    const double dFirst = corner(0);
    for (std::size_t i = 1; i < rPlaces.nCORNERS; ++i) {
        if (corner(i) != dFirst) return 0.0;
    }
    return std::isfinite(dFirst) && dFirst > 0.0 ? dFirst : 0.0;
}
