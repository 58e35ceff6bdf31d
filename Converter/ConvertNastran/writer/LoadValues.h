#pragma once
// What the load sections share.

#include <cstdint>

/// Components of a load whose absolute values sum up to this or less count as no load.
constexpr double NO_LOAD = 1e-20;

/// Whether a T_ELEM_D::iTYPE is of a plate.
constexpr bool IsPlateType(std::int32_t iType) {
    return iType >= 11 && iType <= 18;
}
