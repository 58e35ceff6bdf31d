// What the rows of springs, bushes and gaps hold.

#include "writer/rows/SpringRows.h"

#include <cmath>

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
