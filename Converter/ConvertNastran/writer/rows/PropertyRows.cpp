// The values of sections.

#include "writer/rows/PropertyRows.h"

#include <cmath>

T_STIFFNESS_D RodStiffness(const T_PROP_D& rProperty) {
    const double dA = rProperty.dVAL[SLOT_A];
    return {.dSIDE = std::sqrt(dA),
            .dA = dA,
            .dAS1 = 0.0,
            .dAS2 = 0.0,
            .dJ = rProperty.dVAL[SLOT_J],
            .dI1 = 0.0,
            .dI2 = 0.0};
}

T_STIFFNESS_D EndStiffness(const T_PROP_D& rProperty, std::size_t iEnd) {
    const auto& rValues = rProperty.dVAL;
    const double dA = rValues[iEnd + SLOT_A];
    return {.dSIDE = std::sqrt(dA),
            .dA = dA,
            .dAS1 = rValues[iEnd + SLOT_K1] * dA,
            .dAS2 = rValues[iEnd + SLOT_K2] * dA,
            .dJ = rValues[iEnd + SLOT_J],
            .dI1 = rValues[iEnd + SLOT_I1],
            .dI2 = rValues[iEnd + SLOT_I2]};
}

T_SHAPESECTION_ROW TubeSection(std::int32_t iPID, const T_PROP_D& rProperty) {
    const double dOD = rProperty.dVAL[SLOT_OD];
    return {iPID, SECTION_PIPE, {dOD, 0.5 * (dOD - rProperty.dVAL[SLOT_ID])}};
}

E_LEFT ShapeLoss(const T_PROP_D& rProperty) {
    switch (rProperty.iSECTYPE) {
    case BAR_I1: // its four dimensions are others than the first four of an I
        return LEFT_PBARL_DIMENSIONS;
    case BAR_H: // these stand upright where the file's lie
    case BAR_CHAN2:
    case BAR_T1:
        return LEFT_PBARL_TURNED;
    default:
        return LEFT_COUNT;
    }
}

bool FindShapeSection(const T_PROP_D& rProperty, T_SHAPESECTION_ROW& rRow) {
    const auto Dim = [&](std::size_t i) { return rProperty.dVAL[SLOT_DIM1 + i - 1]; };
    const double d1 = Dim(1), d2 = Dim(2), d3 = Dim(3), d4 = Dim(4), d5 = Dim(5), d6 = Dim(6);
    const auto Is = [&](E_SECTION_SHAPE eShape, const std::array<double, 6>& rDim) {
        rRow.eSHAPE = eShape;
        rRow.dDIM = rDim;
        return true;
    };
    switch (rProperty.iSECTYPE) {
    case BAR_BAR:
        return Is(SECTION_RECTANGLE, {d2, d1});
    case BAR_BOX:
        return Is(SECTION_BOX, {d2, d1, d4, d3});
    case BAR_ROD:
        return Is(SECTION_ROUND, {2.0 * d1});
    case BAR_TUBE:
        return Is(SECTION_PIPE, {2.0 * d1, d1 - d2});
    case BAR_I:
    case BAR_I1:
        return Is(SECTION_I, {d1, d3, d4, d6, d2, d5});
    case BAR_H:
        return Is(SECTION_H, {d1 + d2, d3, d4, 0.5 * d2});
    case BAR_CHAN:
        return Is(SECTION_CHANNEL, {d2, d1, d3, d4});
    case BAR_CHAN1:
        return Is(SECTION_CHANNEL, {d4, d1 + d2, d2, 0.5 * (d4 - d3)});
    case BAR_CHAN2:
        return Is(SECTION_CHANNEL, {d4, d3, d2, d1});
    case BAR_T:
    case BAR_T2:
        return Is(SECTION_T, {d2, d1, d4, d3});
    case BAR_T1:
        return Is(SECTION_T, {d2 + d3, d1, d4, d3});
    default:
        return false;
    }
}
