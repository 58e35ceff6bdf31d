#pragma once
// Lengths, areas and volumes of elements, and loads spread over them, exact for straight edges: by the rules of Gauss
// for polynomials (O. C. Zienkiewicz, R. L. Taylor, The Finite Element Method, chapter on numerical integration).

#include "nas2zdt/check/Totals.h"

#include <array>
#include <optional>
#include <span>

/// Length, area or volume of a body, 0 for links. Corners go round as in the deck; a solid that is inside out has a
/// negative volume. A quad counts as the bilinear surface through its corners.
double MeasureBody(E_BODY eBody, const std::array<T_VECTOR, 8>& rCorners);

/// The corners of a solid's face in the numbering of the target file, which begins at 1; places of corners, going
/// round. Empty for a face that the body hasn't.
std::span<const std::uint8_t> FaceCorners(E_BODY eBody, std::int32_t iFace);

/// A pressure over a face of three or four corners.
struct T_FACELOAD_D {
    std::span<const T_VECTOR> aCORNERS;
    std::array<double, 4> dP;            // at the corners
    std::optional<T_VECTOR> direction;   // of any length but zero, else along the normal by the right hand rule
    std::optional<T_VECTOR> inside = {}; // a point on the side that a normal pressure of a solid goes to
};
void AddFaceLoad(T_RESULTANT_D& rResultant, const T_FACELOAD_D& rLoad);

/// A force or moment for each unit of length that goes from dP1 at dX1 to dP2 at dX2, fractions of the way from A to B.
struct T_LINELOAD_D {
    T_VECTOR dA, dB;
    T_VECTOR direction; // of unit length
    bool bMOMENT;
    double dX1, dP1, dX2, dP2;
};
void AddLineLoad(T_RESULTANT_D& rResultant, const T_LINELOAD_D& rLoad);
