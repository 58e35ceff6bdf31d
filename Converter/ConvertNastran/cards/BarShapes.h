#pragma once
// The words for the cross section shapes of a PBARL.

#include "store/PropertyRecord.h"

#include <string_view>

/// The TYPE of a PBARL and its shape.
struct T_BSHP_D {
    std::string_view sTYPE;
    E_BAR_SHAPE eSHAPE;
};

constexpr T_BSHP_D BAR_SHAPES[] = {
    {"BAR", BAR_BAR},     {"BOX", BAR_BOX},     {"ROD", BAR_ROD},   {"TUBE", BAR_TUBE}, {"HEXA", BAR_HEXA},
    {"I", BAR_I},         {"CHAN", BAR_CHAN},   {"T", BAR_T},       {"Z", BAR_Z},       {"HAT", BAR_HAT},
    {"CROSS", BAR_CROSS}, {"H", BAR_H},         {"T1", BAR_T1},     {"T2", BAR_T2},     {"I1", BAR_I1},
    {"CHAN1", BAR_CHAN1}, {"CHAN2", BAR_CHAN2}, {"BOX1", BAR_BOX1}, {"HAT1", BAR_HAT1},
};

/// Shape of a TYPE, which the reader has made upper case; BAR_UNKNOWN for any that isn't in the table.
constexpr E_BAR_SHAPE FindBarShape(std::string_view sType) {
    for (const T_BSHP_D& rShape : BAR_SHAPES) {
        if (rShape.sTYPE == sType) return rShape.eSHAPE;
    }
    return BAR_UNKNOWN;
}
