// What the rows of springs, bushes and gaps hold.

#include "writer/rows/SpringRows.h"

#include "store/MathFunc.h"

#include <cmath>

namespace {

double Dot(const double (&dA)[3], const double (&dB)[3]) {
    return dA[0] * dB[0] + dA[1] * dB[1] + dA[2] * dB[2];
}

/// Whether a grid isn't where its card's coordinates are in the basic frame.
bool IsMoved(const T_NODS_D& rNode) {
    return rNode.dX1 != rNode.dGX || rNode.dX2 != rNode.dGY || rNode.dX3 != rNode.dGZ;
}

/// The direction of a link's own Z axis that its orientation means. False if it has none: without length, or with an
/// orientation that is zero or lies along it.
bool FindLinkZ(const CDataPool& rPool, const T_ELEM_D& rElement, const T_NODS_D& rFrom, const T_NODS_D& rTo,
               double (&dZ)[3]) {
    const double dE[3] = {rTo.dGX - rFrom.dGX, rTo.dGY - rFrom.dGY, rTo.dGZ - rFrom.dGZ};
    double dV[3] = {rElement.dX1, rElement.dX2, rElement.dX3};
    if (rElement.iTYPE == TYPE_BUSH && rElement.iG0 != 0 && !rPool.GetNodePosition(rElement.iG0, dV)) return false;
    if (rElement.bVECTOR != 0 || rElement.iG0 != 0) { // a point: the orientation grid, or the resolved reference point
        dV[0] -= rFrom.dGX;
        dV[1] -= rFrom.dGY;
        dV[2] -= rFrom.dGZ;
    }
    double dC[3];
    CMathFunc::CrossProduct(dE, dV, dC);
    if (rElement.iTYPE == TYPE_GAP && rElement.bVECTOR != 0) { // the reference point lies in the plane of X and Z
        CMathFunc::CrossProduct(dC, dE, dZ);
    } else {
        for (std::size_t i = 0; i < 3; ++i) dZ[i] = dC[i];
    }
    return CMathFunc::Normalize(dZ, dZ) != 0;
}

} // namespace

bool AreCoincident(const CDataPool& rPool, std::int32_t iNode1, std::int32_t iNode2) {
    double a[3], b[3];
    rPool.GetNodePosition(iNode1, a);
    rPool.GetNodePosition(iNode2, b);
    return std::abs(a[0] - b[0]) < 1e-05 && std::abs(a[1] - b[1]) < 1e-05 && std::abs(a[2] - b[2]) < 1e-05;
}

T_SIXVALUES ComponentValues(std::int32_t iC1, std::int32_t iC2, double dValue) {
    T_SIXVALUES dValues = {};
    for (const std::int32_t i : {iC1, iC2}) {
        if (i >= 1 && i <= 6) dValues[static_cast<std::size_t>(i - 1)] = dValue;
    }
    return dValues;
}

double LinkAngle(const CDataPool& rPool, const T_ELEM_D& rElement) {
    double dVector[3] = {rElement.dX1, rElement.dX2, rElement.dX3};
    if (rElement.iTYPE == TYPE_BUSH && rElement.iG0 != 0) {
        rPool.GetNodeVector(rElement.iNODE[0], rElement.iG0, dVector);
    }
    double dAngle = 0.0;
    rPool.ComputeBetaAngle(rElement.iNODE[0], rElement.iNODE[1], dVector[0], dVector[1], dVector[2], dAngle);
    return dAngle;
}

std::int32_t FindVectorAxes(const CDataPool& rPool, const T_ELEM_D& rElement) {
    if (rElement.iG0 != 0 || (rElement.dX1 == 0.0 && rElement.dX2 == 0.0 && rElement.dX3 == 0.0)) return 0;
    const auto pNode = rPool.NODS.Find(rElement.iNODE[0]);
    return pNode && pNode->iCD != 0 && rPool.TurnsVectors(pNode->iCD) ? pNode->iCD : 0;
}

E_LEFT AngleLoss(const CDataPool& rPool, const T_ELEM_D& rElement, double dAngle) {
    const auto p1 = rPool.NODS.Find(rElement.iNODE[0]);
    const auto p2 = rPool.NODS.Find(rElement.iNODE[1]);
    double dZ[3];
    if (!p1 || !p2 || !FindLinkZ(rPool, rElement, *p1, *p2, dZ)) return LEFT_COUNT;
    // The target counts from the axes that a link has by itself: Y level and Z upwards, or Z along the global X axis
    // if the link stands upright.
    const double dE[3] = {p2->dGX - p1->dGX, p2->dGY - p1->dGY, p2->dGZ - p1->dGZ};
    const bool bUpright = std::abs(dE[0]) < 0.0001 && std::abs(dE[1]) < 0.0001;
    const double dX[3] = {1.0, 0.0, 0.0};
    double dY0[3] = {-dE[1], dE[0], 0.0};
    double dZ0[3];
    if (bUpright) CMathFunc::CrossProduct(dX, dE, dY0);
    CMathFunc::CrossProduct(dE, dY0, dZ0);
    CMathFunc::Normalize(dY0, dY0);
    CMathFunc::Normalize(dZ0, dZ0);
    const double dMeant = std::atan2(-Dot(dZ, dY0), Dot(dZ, dZ0)) * RAD2DEG;
    constexpr double SAME_ANGLE = 0.01; // degrees
    if (std::abs(std::remainder(dAngle - dMeant, 360.0)) < SAME_ANGLE) return LEFT_COUNT;
    return IsMoved(*p1) || IsMoved(*p2) ? LEFT_LINK_POSITION : LEFT_LINK_ANGLE;
}

T_BUSHPROPERTY_ROW BushProperty(std::int32_t iPID, const T_PROP_D& rProperty) {
    T_BUSHPROPERTY_ROW row{iPID, {}, {}};
    for (std::size_t i = 0; i < 6; ++i) {
        row.dK[i] = rProperty.dVAL[SLOT_BUSH_K + i];
        row.dB[i] = rProperty.dVAL[SLOT_BUSH_B + i];
    }
    return row;
}

T_GAPPROPERTY_ROW GapProperty(std::int32_t iPID, const T_PROP_D& rProperty) {
    const auto& rValues = rProperty.dVAL;
    T_GAPPROPERTY_ROW row{iPID, {rValues[SLOT_KA], rValues[SLOT_KT], rValues[SLOT_KT]}, {}};
    for (std::size_t i = 0; i < 6; ++i) {
        if (row.dK[i] != 0.0) {
            row.dOPEN[i] = rValues[SLOT_U0];
        } else {
            row.dK[i] = 0.0; // the card's zero may have a sign
        }
    }
    return row;
}

std::int32_t MaxPropertyId(const CDataPool& rPool) {
    std::int32_t iMax = 0;
    rPool.PROP.ForEach([&](std::int32_t iPID, const T_PROP_D&) { iMax = std::max(iMax, iPID); });
    return iMax;
}
