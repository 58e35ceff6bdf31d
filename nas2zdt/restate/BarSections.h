#pragma once
// Sections of bars by the names of their shapes.

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a section stands for. Y is upwards and Z to the left where a shape is drawn; I1 is of bending in the XY plane.
struct T_SECTIONVALUES_D {
    double dA = 0.0, dI1 = 0.0, dI2 = 0.0, dI12 = 0.0, dJ = 0.0;
};

/// A section by the name of a shape and its dimensions.
struct T_SECTIONSHAPE_D {
    std::string sTYPE;
    std::vector<double> aDIM;
};

/// Number of dimensions of a shape, 0 for a name that isn't known.
std::size_t CountDimensions(std::string_view sType);

/// The shape as one that the file has as it is meant; none for shapes that it hasn't.
std::optional<T_SECTIONSHAPE_D> ShapeOfFile(const T_SECTIONSHAPE_D& rShape);

/// Area and moments of inertia are exact but for rounded corners; J is that of thin walls, but of solid and closed
/// shapes. None if the name isn't known, or if the dimensions make no section.
std::optional<T_SECTIONVALUES_D> ValuesOf(const T_SECTIONSHAPE_D& rShape);
