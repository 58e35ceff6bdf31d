#pragma once
// The faces and lines of a picture, as few as show the model.

#include "nas2zdt/picture/Scene.h"

#include <array>
#include <compare>
#include <cstdint>
#include <vector>

/// A face of three or four corners, a line, or a dot.
struct T_SHAP_D {
    E_KIND iKIND = KIND_NODE;
    std::uint8_t nCORNERS = 0;
    std::array<std::uint32_t, 4> aCORNERS = {}; // places among the nodes
    auto operator<=>(const T_SHAP_D&) const = default;
};

/// Shapes of all lines, plates and solids whose corners have a place in aPlaces, which holds that of each node in the
/// picture. Of solids only outer faces that are turned to the eye. Adds the parts without a place to rNowhere.
std::vector<T_SHAP_D> MakeShapes(const T_SCEN_D& rScene, const std::vector<T_VECT_D>& aPlaces, std::size_t& rNowhere);

/// Draws near corners together until there are at most nMost shapes (a few more at most: a kind that stands alone keeps
/// a dot). Returns the distance in pixels below which corners became one, 0 if nothing was changed.
double Simplify(std::vector<T_SHAP_D>& rShapes, const std::vector<T_VECT_D>& aPlaces, std::size_t nMost);
