// Lengths and angles of elements.

#include "store/DataPool.h"

#include <cmath>

int CDataPool::ComputeElementLength(std::int32_t iElement, double& rLength) const {
    const T_ELEM_D* pElement = ELEM.Find(iElement);
    double dA[3], dB[3];
    GetNodePosition(pElement ? pElement->iNODE[0] : 0, dA);
    GetNodePosition(pElement ? pElement->iNODE[1] : 0, dB);
    const double dX = dB[0] - dA[0], dY = dB[1] - dA[1], dZ = dB[2] - dA[2];
    rLength = std::sqrt(dZ * dZ + (dX * dX + dY * dY));
    return 1;
}
