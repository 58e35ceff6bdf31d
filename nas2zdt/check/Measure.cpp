// Integrates over elements.

#include "nas2zdt/check/Measure.h"

#include <cmath>

namespace {

constexpr double GAUSS = 0.5773502691896257; // 1 / sqrt(3): two points are exact to the third degree
constexpr std::array<double, 2> PLACES = {-GAUSS, GAUSS};

/// Three points inside a triangle, each with a third of its area: exact to the second degree.
constexpr std::array<std::array<double, 3>, 3> TRIANGLE_POINTS = {{
    {2.0 / 3, 1.0 / 6, 1.0 / 6},
    {1.0 / 6, 2.0 / 3, 1.0 / 6},
    {1.0 / 6, 1.0 / 6, 2.0 / 3},
}};

template <class VALUES>
T_VECTOR Combine(const VALUES& rWeights, const T_VECTOR* pCorners) {
    T_VECTOR sum = {};
    for (std::size_t i = 0; i < rWeights.size(); ++i) sum = Add(sum, Scale(pCorners[i], rWeights[i]));
    return sum;
}

constexpr std::array<double, 4> QuadWeights(double dR, double dS) {
    return {(1 - dR) * (1 - dS) / 4, (1 + dR) * (1 - dS) / 4, (1 + dR) * (1 + dS) / 4, (1 - dR) * (1 + dS) / 4};
}

using T_CORNERS = std::array<T_VECTOR, 8>; // of which a body has the first ones

double Volume(const T_VECTOR& a, const T_VECTOR& b, const T_VECTOR& c) {
    return Dot(Cross(a, b), c);
}

/// Corners 0 to 3 below, 4 to 7 above. With 8 dx/dr = r + s rs + t rt + s t rst and the like, terms of the Jacobian
/// that are odd in a coordinate integrate to nothing, and those with a vector twice are nothing: rst is in none of the
/// rest.
double HexaVolume(const T_CORNERS& p) {
    const T_VECTOR e01 = Subtract(p[1], p[0]), e32 = Subtract(p[2], p[3]), e45 = Subtract(p[5], p[4]),
                   e76 = Subtract(p[6], p[7]), e03 = Subtract(p[3], p[0]), e12 = Subtract(p[2], p[1]),
                   e47 = Subtract(p[7], p[4]), e56 = Subtract(p[6], p[5]), e04 = Subtract(p[4], p[0]),
                   e15 = Subtract(p[5], p[1]), e26 = Subtract(p[6], p[2]), e37 = Subtract(p[7], p[3]);
    const T_VECTOR below = Add(e01, e32), above = Add(e45, e76);
    const T_VECTOR r = Add(below, above), rt = Subtract(above, below);
    const T_VECTOR s = Add(Add(e03, e12), Add(e47, e56)), rs = Subtract(Add(e12, e56), Add(e03, e47));
    const T_VECTOR t = Add(Add(e04, e15), Add(e26, e37)), st = Subtract(Add(e26, e37), Add(e04, e15));
    return (Volume(r, s, t) + (Volume(r, rs, rt) + Volume(rs, s, st) + Volume(rt, st, t)) / 3) / 64;
}

/// A hexahedron whose top is one point.
double PyramidVolume(const T_CORNERS& p) {
    return HexaVolume({p[0], p[1], p[2], p[3], p[4], p[4], p[4], p[4]});
}

/// Corners 0 to 2 below, 3 to 5 above. The edges of the triangles change along the height, whose mean over a triangle
/// is the one from middle to middle.
double WedgeVolume(const T_CORNERS& p) {
    const T_VECTOR e01 = Subtract(p[1], p[0]), e02 = Subtract(p[2], p[0]), e34 = Subtract(p[4], p[3]),
                   e35 = Subtract(p[5], p[3]);
    const T_VECTOR height = Add(Add(Subtract(p[3], p[0]), Subtract(p[4], p[1])), Subtract(p[5], p[2]));
    return (Volume(Add(e01, e34), Add(e02, e35), height) + Volume(Subtract(e34, e01), Subtract(e35, e02), height) / 3) /
           24;
}

T_VECTOR TriangleNormal(const T_VECTOR* pCorners) {
    return Cross(Subtract(pCorners[1], pCorners[0]), Subtract(pCorners[2], pCorners[0]));
}

/// Calls visit(weights of the corners, normal whose length is the point's share of the area) at each point.
template <class VISIT>
void VisitQuad(const T_VECTOR* pCorners, VISIT visit) {
    static constexpr std::array<std::array<double, 4>, 4> WEIGHTS = {
        QuadWeights(-GAUSS, -GAUSS), QuadWeights(-GAUSS, GAUSS), QuadWeights(GAUSS, -GAUSS), QuadWeights(GAUSS, GAUSS)};
    // dX/dr = (along + s twist) / 4 and dX/ds = (across + r twist) / 4
    const T_VECTOR first = Subtract(pCorners[1], pCorners[0]), second = Subtract(pCorners[2], pCorners[3]);
    const T_VECTOR along = Add(first, second), twist = Subtract(second, first);
    const T_VECTOR across = Subtract(Add(pCorners[3], pCorners[2]), Add(pCorners[0], pCorners[1]));
    for (std::size_t i = 0; i < 2; ++i) {
        const T_VECTOR s = Add(across, Scale(twist, PLACES[i]));
        for (std::size_t k = 0; k < 2; ++k) {
            const T_VECTOR r = Add(along, Scale(twist, PLACES[k]));
            visit(WEIGHTS[2 * i + k], Scale(Cross(r, s), 1.0 / 16));
        }
    }
}
template <class VISIT>
void VisitTriangle(const T_VECTOR* pCorners, VISIT visit) {
    const T_VECTOR normal = Scale(TriangleNormal(pCorners), 1.0 / 6);
    for (const std::array<double, 3>& rPoint : TRIANGLE_POINTS) visit(rPoint, normal);
}

/// As VisitQuad has it, two points at a time.
double QuadArea(const T_CORNERS& p) {
    using T_PAIR = double __attribute__((vector_size(16)));
    const T_VECTOR first = Subtract(p[1], p[0]), second = Subtract(p[2], p[3]);
    const T_VECTOR along = Add(first, second), twist = Subtract(second, first);
    const T_VECTOR across = Subtract(Add(p[3], p[2]), Add(p[0], p[1]));
    const T_VECTOR middle = Cross(along, across), byS = Cross(along, twist), byR = Cross(twist, across);
    T_PAIR lower = {}, upper = {}; // squares of the normals
    for (std::size_t i = 0; i < 3; ++i) {
        const double dS = GAUSS * byS[i], dR = GAUSS * byR[i];
        const T_PAIR sides = {middle[i] - dS, middle[i] + dS}, step = {dR, dR};
        const T_PAIR low = sides - step, high = sides + step;
        lower += low * low;
        upper += high * high;
    }
    constexpr T_PAIR LEAST = {1e-280, 1e-280}, MOST = {1e280, 1e280};
    const auto plain = (lower > LEAST) & (lower < MOST) & (upper > LEAST) & (upper < MOST);
    if (plain[0] & plain[1]) {
        return (std::sqrt(lower[0]) + std::sqrt(lower[1]) + std::sqrt(upper[0]) + std::sqrt(upper[1])) / 16;
    }
    double dSum = 0.0; // squares that are no numbers, or lose digits
    VisitQuad(p.data(), [&](const auto&, const T_VECTOR& rNormal) { dSum += Length(rNormal); });
    return dSum;
}

// Faces of the target file, by the corners of an element.
constexpr std::uint8_t TETRA_FACES[][3] = {{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
constexpr std::uint8_t WEDGE_ENDS[][3] = {{0, 1, 2}, {3, 4, 5}};
constexpr std::uint8_t WEDGE_SIDES[][4] = {{0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}};
constexpr std::uint8_t HEXA_FACES[][4] = {{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                          {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};

} // namespace

double MeasureBody(E_BODY eBody, const std::array<T_VECTOR, 8>& rCorners) {
    const T_VECTOR* p = rCorners.data();
    switch (eBody) {
    case BODY_LINE:
        return Length(Subtract(p[1], p[0]));
    case BODY_TRIANGLE:
        return Length(TriangleNormal(p)) / 2;
    case BODY_QUAD:
        return QuadArea(rCorners);
    case BODY_TETRA:
        return Dot(TriangleNormal(p), Subtract(rCorners[3], rCorners[0])) / 6;
    case BODY_WEDGE:
        return WedgeVolume(rCorners);
    case BODY_HEXA:
        return HexaVolume(rCorners);
    case BODY_PYRAMID:
        return PyramidVolume(rCorners);
    default:
        return 0.0;
    }
}

std::span<const std::uint8_t> FaceCorners(E_BODY eBody, std::int32_t iFace) {
    if (eBody == BODY_TETRA && iFace >= 1 && iFace <= 4) return TETRA_FACES[iFace - 1];
    if (eBody == BODY_WEDGE && iFace >= 1 && iFace <= 2) return WEDGE_ENDS[iFace - 1];
    if (eBody == BODY_WEDGE && iFace >= 3 && iFace <= 5) return WEDGE_SIDES[iFace - 3];
    if (eBody == BODY_HEXA && iFace >= 1 && iFace <= 6) return HEXA_FACES[iFace - 1];
    return {};
}

void AddFaceLoad(T_RESULTANT_D& rResultant, const T_FACELOAD_D& rLoad) {
    const T_VECTOR* pCorners = rLoad.aCORNERS.data();
    const std::size_t nCorners = rLoad.aCORNERS.size();
    const std::span<const T_VECTOR> aCorners = rLoad.aCORNERS;
    const T_VECTOR normal = nCorners == 3
                                ? TriangleNormal(pCorners)
                                : Cross(Subtract(aCorners[2], aCorners[0]), Subtract(aCorners[3], aCorners[1]));
    const bool bTurned = rLoad.inside && Dot(normal, Subtract(*rLoad.inside, pCorners[0])) < 0.0;
    const T_VECTOR along = rLoad.direction ? Over(*rLoad.direction, Length(*rLoad.direction)) : T_VECTOR{};
    const auto addPoint = [&](const auto& rWeights, const T_VECTOR& rNormal) {
        double dP = 0.0;
        for (std::size_t i = 0; i < rWeights.size(); ++i) dP += rWeights[i] * rLoad.dP[i];
        const double dForce = dP * Length(rNormal);
        const T_VECTOR force = rLoad.direction ? Scale(along, dForce) : Scale(rNormal, bTurned ? -dP : dP);
        rResultant.AddForce(force, std::fabs(dForce), Combine(rWeights, pCorners));
    };
    if (nCorners == 3) {
        VisitTriangle(pCorners, addPoint);
    } else {
        VisitQuad(pCorners, addPoint);
    }
}

void AddLineLoad(T_RESULTANT_D& rResultant, const T_LINELOAD_D& rLoad) {
    const T_VECTOR along = Subtract(rLoad.dB, rLoad.dA);
    const double dWeight = Length(along) * (rLoad.dX2 - rLoad.dX1) / 2;
    for (const double dPlace : PLACES) {
        const double dShare = (1 + dPlace) / 2;
        const T_VECTOR load = Scale(rLoad.direction, dWeight * (rLoad.dP1 + dShare * (rLoad.dP2 - rLoad.dP1)));
        if (rLoad.bMOMENT) {
            rResultant.AddMoment(load);
        } else {
            const double dX = rLoad.dX1 + dShare * (rLoad.dX2 - rLoad.dX1);
            rResultant.AddForce(load, Add(rLoad.dA, Scale(along, dX)));
        }
    }
}
