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

/// Weights of corners and their derivatives at a point.
template <std::size_t COUNT>
struct T_WEIGHTS_D {
    std::array<double, COUNT> dN;
    std::array<std::array<double, COUNT>, 3> dD; // by each local coordinate
};

template <class VALUES>
T_VECTOR Combine(const VALUES& rWeights, const T_VECTOR* pCorners) {
    T_VECTOR sum = {};
    for (std::size_t i = 0; i < rWeights.size(); ++i) sum = Add(sum, Scale(pCorners[i], rWeights[i]));
    return sum;
}

constexpr T_WEIGHTS_D<4> QuadWeights(double dR, double dS) {
    constexpr double R[4] = {-1, 1, 1, -1}, S[4] = {-1, -1, 1, 1};
    T_WEIGHTS_D<4> weights = {};
    for (std::size_t i = 0; i < 4; ++i) {
        weights.dN[i] = (1 + R[i] * dR) * (1 + S[i] * dS) / 4;
        weights.dD[0][i] = R[i] * (1 + S[i] * dS) / 4;
        weights.dD[1][i] = S[i] * (1 + R[i] * dR) / 4;
    }
    return weights;
}

/// Corners 0 to 3 below, 4 to 7 above.
T_WEIGHTS_D<8> HexaWeights(double dR, double dS, double dT) {
    const T_WEIGHTS_D<4> quad = QuadWeights(dR, dS);
    T_WEIGHTS_D<8> weights = {};
    for (std::size_t i = 0; i < 8; ++i) {
        const double dSide = i < 4 ? -1.0 : 1.0, dLevel = (1 + dSide * dT) / 2;
        weights.dN[i] = quad.dN[i % 4] * dLevel;
        weights.dD[0][i] = quad.dD[0][i % 4] * dLevel;
        weights.dD[1][i] = quad.dD[1][i % 4] * dLevel;
        weights.dD[2][i] = quad.dN[i % 4] * dSide / 2;
    }
    return weights;
}

/// Corners 0 to 2 below, 3 to 5 above.
T_WEIGHTS_D<6> WedgeWeights(const std::array<double, 3>& rPoint, double dT) {
    constexpr double R[3] = {-1, 1, 0}, S[3] = {-1, 0, 1};
    T_WEIGHTS_D<6> weights = {};
    for (std::size_t i = 0; i < 6; ++i) {
        const double dSide = i < 3 ? -1.0 : 1.0, dLevel = (1 + dSide * dT) / 2;
        weights.dN[i] = rPoint[i % 3] * dLevel;
        weights.dD[0][i] = R[i % 3] * dLevel;
        weights.dD[1][i] = S[i % 3] * dLevel;
        weights.dD[2][i] = rPoint[i % 3] * dSide / 2;
    }
    return weights;
}

template <std::size_t COUNT>
double Jacobian(const T_WEIGHTS_D<COUNT>& rWeights, const T_VECTOR* pCorners) {
    return Dot(Cross(Combine(rWeights.dD[0], pCorners), Combine(rWeights.dD[1], pCorners)),
               Combine(rWeights.dD[2], pCorners));
}

T_VECTOR TriangleNormal(const T_VECTOR* pCorners) {
    return Cross(Subtract(pCorners[1], pCorners[0]), Subtract(pCorners[2], pCorners[0]));
}

/// Calls visit(weights of the corners, normal whose length is the point's share of the area) at each point.
template <class VISIT>
void VisitQuad(const T_VECTOR* pCorners, VISIT visit) {
    static constexpr std::array<std::array<double, 4>, 4> WEIGHTS = {
        QuadWeights(-GAUSS, -GAUSS).dN, QuadWeights(-GAUSS, GAUSS).dN, QuadWeights(GAUSS, -GAUSS).dN,
        QuadWeights(GAUSS, GAUSS).dN};
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

// Faces of the target file, by the corners of an element.
constexpr std::uint8_t TETRA_FACES[][3] = {{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
constexpr std::uint8_t WEDGE_ENDS[][3] = {{0, 1, 2}, {3, 4, 5}};
constexpr std::uint8_t WEDGE_SIDES[][4] = {{0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}};
constexpr std::uint8_t HEXA_FACES[][4] = {{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                          {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};

} // namespace

double MeasureBody(E_BODY eBody, const std::array<T_VECTOR, 8>& rCorners) {
    const T_VECTOR* p = rCorners.data();
    double dSum = 0.0;
    switch (eBody) {
    case BODY_LINE:
        return Length(Subtract(p[1], p[0]));
    case BODY_TRIANGLE:
        return Length(TriangleNormal(p)) / 2;
    case BODY_QUAD:
        VisitQuad(p, [&](const auto&, const T_VECTOR& rNormal) { dSum += Length(rNormal); });
        return dSum;
    case BODY_TETRA:
        return Dot(TriangleNormal(p), Subtract(rCorners[3], rCorners[0])) / 6;
    case BODY_WEDGE:
        for (const std::array<double, 3>& rPoint : TRIANGLE_POINTS) {
            for (const double dT : PLACES) dSum += Jacobian(WedgeWeights(rPoint, dT), p) / 6;
        }
        return dSum;
    case BODY_HEXA:
        for (std::size_t i = 0; i < 8; ++i) {
            dSum += Jacobian(HexaWeights(PLACES[i & 1], PLACES[i >> 1 & 1], PLACES[i >> 2]), p);
        }
        return dSum;
    case BODY_PYRAMID: // a hexahedron whose top is one point
        return MeasureBody(BODY_HEXA, {rCorners[0], rCorners[1], rCorners[2], rCorners[3], rCorners[4], rCorners[4],
                                       rCorners[4], rCorners[4]});
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
    const auto addPoint = [&](const auto& rWeights, const T_VECTOR& rNormal) {
        double dP = 0.0;
        for (std::size_t i = 0; i < rWeights.size(); ++i) dP += rWeights[i] * rLoad.dP[i];
        T_VECTOR force = Scale(rNormal, bTurned ? -dP : dP);
        if (rLoad.direction) {
            force = Scale(*rLoad.direction, dP * Length(rNormal) / Length(*rLoad.direction));
        }
        rResultant.AddForce(force, Combine(rWeights, pCorners));
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
