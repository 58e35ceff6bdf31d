// What writers ask of an element's geometry.

#include "store/DataPool.h"
#include "store/MathFunc.h"

#include <cmath>

namespace {

bool IsZero(const double (&dV)[3]) {
    return dV[0] == 0.0 && dV[1] == 0.0 && dV[2] == 0.0;
}

/// The angle of a cosine in degrees, and dMore degrees. A not-a-number stays as it is.
double DegreesOf(double dCosine, double dMore) {
    const double dAngle = CMathFunc::ArcCosine(dCosine);
    return std::isnan(dAngle) ? dAngle : dAngle * 180.0 / PI + dMore;
}

} // namespace

int CDataPool::ComputeBetaAngle(std::int32_t iNode1, std::int32_t iNode2, double dVX, double dVY, double dVZ,
                                double& rAngle) const {
    rAngle = 0.0;
    const double dV[3] = {dVX, dVY, dVZ};
    if (IsZero(dV)) return 1;
    const T_NODS_D* const pNode1 = NODS.Find(iNode1);
    const T_NODS_D* const pNode2 = NODS.Find(iNode2);
    const double dP1[3] = {pNode1 ? pNode1->dX1 : 0.0, pNode1 ? pNode1->dX2 : 0.0, pNode1 ? pNode1->dX3 : 0.0};
    const double dP2[3] = {pNode2 ? pNode2->dX1 : dP1[0], pNode2 ? pNode2->dX2 : dP1[1], pNode2 ? pNode2->dX3 : dP1[2]};

    const double dE[3] = {dP2[0] - dP1[0], dP2[1] - dP1[1], dP2[2] - dP1[2]};
    double dC[3], dD[3];
    CMathFunc::CrossProduct(dE, dV, dC);
    CMathFunc::CrossProduct(dC, dE, dD);
    if (IsZero(dD) || IsZero(dC)) return 1;

    // The angle counts from the global X axis for a vertical element, from the global Z axis for a level one, and for
    // the rest from the level direction across the element. Each branch keeps a range of its own: 90 to 270, 0 to 180,
    // -90 to 90.
    if (std::fabs(dP1[0] - dP2[0]) < 0.0001 && std::fabs(dP1[1] - dP2[1]) < 0.0001) {
        rAngle = DegreesOf(dD[0] / CMathFunc::Length(dD), 90.0);
    } else if (std::fabs(dE[2]) < 0.0001) {
        rAngle = DegreesOf(dC[2] / CMathFunc::Length(dC), 0.0);
    } else {
        const double dH = (-dE[1] * dD[0] + dE[0] * dD[1]) / std::sqrt(dE[0] * dE[0] + dE[1] * dE[1]);
        rAngle = DegreesOf(dH / CMathFunc::Length(dD), -90.0);
    }
    return 1;
}

int CDataPool::ComputeElementLength(std::int32_t iElement, double& rLength) const {
    const T_ELEM_D* const pElement = ELEM.Find(iElement);
    double dFrom[3], dTo[3];
    GetNodePosition(pElement ? pElement->iNODE[0] : 0, dFrom);
    GetNodePosition(pElement ? pElement->iNODE[1] : 0, dTo);
    const double dX = dTo[0] - dFrom[0], dY = dTo[1] - dFrom[1], dZ = dTo[2] - dFrom[2];
    rLength = std::sqrt(dZ * dZ + (dX * dX + dY * dY));
    return 1;
}
