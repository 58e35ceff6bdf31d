// Measures shapes.

#include "nas2zdt/check/Shape.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

double Square(const T_VECTOR& a) {
    return Dot(a, a);
}

/// Corners that edges lead to from a corner, as the axes of the body go.
using T_EDGES_D = std::array<std::uint8_t, 3>;
constexpr T_EDGES_D TETRA_EDGES[] = {{1, 2, 3}};
constexpr T_EDGES_D WEDGE_EDGES[] = {{1, 2, 3}, {2, 0, 4}, {0, 1, 5}, {5, 4, 0}, {3, 5, 1}, {4, 3, 2}};
constexpr T_EDGES_D HEXA_EDGES[] = {{1, 3, 4}, {2, 0, 5}, {3, 1, 6}, {0, 2, 7},
                                    {7, 5, 0}, {4, 6, 1}, {5, 7, 2}, {6, 4, 3}};
constexpr T_EDGES_D PYRAMID_EDGES[] = {{1, 3, 4}, {2, 0, 4}, {3, 1, 4}, {0, 2, 4}};

std::span<const T_EDGES_D> SolidEdges(E_BODY eBody) {
    switch (eBody) {
    case BODY_TETRA:
        return TETRA_EDGES;
    case BODY_WEDGE:
        return WEDGE_EDGES;
    case BODY_HEXA:
        return HEXA_EDGES;
    default:
        return PYRAMID_EDGES;
    }
}

/// The square of the volume of three edges of length 1 at a corner of the best shape.
double BestCorner(E_BODY eBody) {
    return eBody == BODY_WEDGE ? 3.0 / 4 : eBody == BODY_HEXA ? 1.0 : 1.0 / 2;
}

} // namespace

T_QUADSHAPE_D MeasureQuad(const T_VECTOR* const* p) {
    const std::span<const T_VECTOR* const, 4> corners(p, 4);
    const T_VECTOR bottom = Subtract(*corners[1], *corners[0]), right = Subtract(*corners[2], *corners[1]),
                   top = Subtract(*corners[2], *corners[3]), left = Subtract(*corners[3], *corners[0]);
    const T_VECTOR x1 = Add(bottom, top), x2 = Add(right, left), x12 = Subtract(top, bottom);
    T_QUADSHAPE_D shape;
    shape.normal = Cross(x1, x2);
    const double dBottom = Square(bottom), dRight = Square(right), dTop = Square(top), dLeft = Square(left);
    shape.dSHORTEST = std::min(std::min(dBottom, dTop), std::min(dRight, dLeft));
    const double dLongest = std::max(std::max(dBottom, dTop), std::max(dRight, dLeft));
    const double dNormal = Square(shape.normal);
    shape.bFLAT = !(dNormal > 16.0 * SLIGHT * SLIGHT * dLongest * dLongest);
    // The tangents at a corner are (X1 +- X12) / 4 and (X2 +- X12) / 4, with all pairs of signs.
    shape.dTAPER =
        (std::abs(Dot(Cross(x1, x12), shape.normal)) + std::abs(Dot(Cross(x12, x2), shape.normal))) / dNormal;
    shape.dLEAST = 1.0 - shape.dTAPER;
    // Corners are X12 N / 4 |N| above the plane and below it in turn.
    const double dHeight = Dot(x12, shape.normal), dSquare1 = Square(x1), dSquare2 = Square(x2), dAcross = Dot(x1, x2);
    shape.dWARP = dHeight * dHeight / (4.0 * dNormal * shape.dSHORTEST);
    shape.dSKEW = dAcross * dAcross / (dSquare1 * dSquare2);
    shape.dASPECT = std::max(dSquare1, dSquare2) / std::min(dSquare1, dSquare2);
    return shape;
}

double QuadCorner(const T_QUADSHAPE_D& rShape, const T_VECTOR* const* p, std::size_t iCorner) {
    const T_VECTOR next = Subtract(*p[(iCorner + 1) % 4], *p[iCorner]),
                   last = Subtract(*p[(iCorner + 3) % 4], *p[iCorner]);
    return 4.0 * Dot(Cross(next, last), rShape.normal) / Square(rShape.normal);
}

T_TRIANGLESHAPE_D MeasureTriangle(const T_VECTOR* const* p) {
    const T_VECTOR ab = Subtract(*p[1], *p[0]), bc = Subtract(*p[2], *p[1]), ca = Subtract(*p[0], *p[2]);
    std::array<double, 3> dSides = {Square(ab), Square(bc), Square(ca)};
    if (dSides[0] > dSides[1]) std::swap(dSides[0], dSides[1]);
    if (dSides[1] > dSides[2]) std::swap(dSides[1], dSides[2]);
    if (dSides[0] > dSides[1]) std::swap(dSides[0], dSides[1]);
    const auto [dShort, dMiddle, dLong] = dSides;
    const double dDouble = std::sqrt(Square(Cross(ab, bc))); // area
    T_TRIANGLESHAPE_D shape;
    shape.dSHORTEST = dShort;
    shape.bFLAT = !(dDouble > 2.0 * SLIGHT * dLong);
    const double dCosine = dLong - dShort - dMiddle; // twice the product of the shorter sides in it, obtuse positive
    shape.dANGLE = dCosine * std::abs(dCosine) / (4.0 * dShort * dMiddle);
    const double dLongest = std::sqrt(dLong);
    const double dRadius = dDouble / (std::sqrt(dShort) + std::sqrt(dMiddle) + dLongest);
    shape.dASPECT = dLongest / dRadius / std::sqrt(12.0);
    return shape;
}

std::size_t CountSolidCorners(E_BODY eBody) {
    return SolidEdges(eBody).size();
}

T_SOLIDSHAPE_D MeasureSolid(E_BODY eBody, const T_VECTOR* const* p) {
    const std::span<const T_EDGES_D> aCorners = SolidEdges(eBody);
    T_SOLIDSHAPE_D shape = {};
    double dLongest = 0.0;
    shape.dSHORTEST = Square(Subtract(*p[1], *p[0]));
    for (std::size_t i = 0; i < aCorners.size(); ++i) {
        const auto [iX, iY, iZ] = aCorners[i];
        const T_VECTOR x = Subtract(*p[iX], *p[i]), y = Subtract(*p[iY], *p[i]), z = Subtract(*p[iZ], *p[i]);
        const double dX = Square(x), dY = Square(y), dZ = Square(z);
        const double dJacobian = Dot(Cross(x, y), z);
        shape.dCORNERS[i] = dJacobian;
        shape.dSHORTEST = std::min({shape.dSHORTEST, dX, dY, dZ});
        dLongest = std::max({dLongest, dX, dY, dZ});
        shape.dSKEW = std::max(shape.dSKEW, BestCorner(eBody) * dX * dY * dZ / (dJacobian * dJacobian));
    }
    shape.dSLIGHT = SLIGHT * dLongest * std::sqrt(dLongest);
    return shape;
}

double MeasureTetraAspect(const T_VECTOR* const* p) {
    constexpr std::uint8_t FACES[4][3] = {{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
    double dArea = 0.0, dLongest = 0.0;
    const std::span<const T_VECTOR* const, 4> corners(p, 4);
    for (const auto& [iA, iB, iC] : FACES) {
        const T_VECTOR ab = Subtract(*corners[iB], *corners[iA]), ac = Subtract(*corners[iC], *corners[iA]);
        dArea += std::sqrt(Square(Cross(ab, ac))) / 2;
        dLongest = std::max({dLongest, Square(ab), Square(ac)});
    }
    const T_VECTOR first = Subtract(*corners[1], *corners[0]), second = Subtract(*corners[2], *corners[0]);
    const double dVolume = std::abs(Dot(Cross(first, second), Subtract(*corners[3], *corners[0]))) / 6;
    return std::sqrt(dLongest / 24.0) * dArea / (3.0 * dVolume);
}
