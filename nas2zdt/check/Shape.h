#pragma once
// Shapes of plates and solids by their corners.
//
// Quads are taken apart as by J. Robinson, "CRE method of element testing and the Jacobian shape parameters",
// Engineering Computations 4 (1987), 113-118: X1 and X2 join the middles of opposite sides, twice as long, and X12 is
// what the two diagonals lack to be a parallelogram's. The plane of X1 and X2 is the middle one, N = X1 x X2 is four
// times the area in it.

#include "nas2zdt/check/Totals.h"

#include <array>
#include <cstddef>

/// A shape is nothing if its area or volume is at most this share of the square or cube of its longest side.
constexpr double SLIGHT = 1e-9;

struct T_QUADSHAPE_D {
    T_VECTOR normal;  // N
    double dSHORTEST; // square of a side
    bool bFLAT;       // no area
    double dLEAST;    // Jacobian at the worst corner over the one in the middle
    double dWARP;     // square of the sine of the angle of the shortest side with the middle plane
    double dSKEW;     // square of the sine of the angle that X1 and X2 are off from the right one
    double dASPECT;   // square of the longer of X1 and X2 over the shorter
    double dTAPER;    // how far the Jacobian at a corner is off from the one in the middle, over that
};

struct T_TRIANGLESHAPE_D {
    double dSHORTEST; // square of a side
    bool bFLAT;
    double dANGLE;  // square of the cosine of the largest angle, negative if that is acute
    double dASPECT; // longest side over radius of the inner circle; 1 for equal sides
};

/// Of tetrahedra, wedges, hexahedra, pyramids.
struct T_SOLIDSHAPE_D {
    double dSHORTEST;               // square of an edge
    std::array<double, 8> dCORNERS; // Jacobians
    double dSLIGHT;                 // what is nothing of these
    double dSKEW;                   // square of the product of the edges at a corner over their volume, the worst one
};

/// pCorners are the positions of the corners, which go round.
T_QUADSHAPE_D MeasureQuad(const T_VECTOR* const* pCorners);

/// The Jacobian at a corner of a quad, as a share of the one in the middle.
double QuadCorner(const T_QUADSHAPE_D& rShape, const T_VECTOR* const* pCorners, std::size_t iCorner);

T_TRIANGLESHAPE_D MeasureTriangle(const T_VECTOR* const* pCorners);

/// Number of corners that have a Jacobian: all but the top of a pyramid; of a tetrahedron, where all are the same, one.
std::size_t CountSolidCorners(E_BODY eBody);

/// A pyramid's top has no Jacobian. The skew is 1 for right angles, of wedges for ends with equal sides, of pyramids
/// for equal edges.
T_SOLIDSHAPE_D MeasureSolid(E_BODY eBody, const T_VECTOR* const* pCorners);

/// Longest edge over radius of the inner sphere; 1 for equal edges.
double MeasureTetraAspect(const T_VECTOR* const* pCorners);
