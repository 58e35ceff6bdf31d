#pragma once
// Coordinate systems in basic terms.

#include "nas2zdt/geometry/Vector.h"

#include <array>
#include <cstdint>

/// Sine and cosine of an angle in degrees, exact at whole quarters.
double SineOf(double dDegrees);
double CosineOf(double dDegrees);

enum E_FRAME : std::int32_t { FRAME_RECTANGULAR, FRAME_CYLINDRICAL, FRAME_SPHERICAL };

/// Axes of unit length at an origin, both basic. Coordinates are (x, y, z), (r, theta, z) or (r, theta, phi), where a
/// sphere's theta is from its Z axis; angles are in degrees.
struct T_FRAME_D {
    E_FRAME eKIND = FRAME_RECTANGULAR;
    T_VECTOR dORIGIN = {};
    std::array<T_VECTOR, 3> dAXES = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};

    /// The basic position of a point of the frame.
    T_VECTOR ToBasic(const T_VECTOR& rPoint) const;

    /// The axes at a basic position: the frame's own, or radial, tangential and the third. On the axis of a cylinder or
    /// sphere they are the frame's own.
    std::array<T_VECTOR, 3> AxesAt(const T_VECTOR& rPosition) const;

    /// The basic vector of components along the axes at a basic position.
    T_VECTOR VectorToBasic(const T_VECTOR& rComponents, const T_VECTOR& rPosition) const;

    /// Origin A, B on the Z axis, C in the XZ plane. False if the three are on a line.
    bool SetByThreePoints(const T_VECTOR& rA, const T_VECTOR& rB, const T_VECTOR& rC);
};
