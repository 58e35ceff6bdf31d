#pragma once
// Reals as the target file shows them, so that a test sees what counts: six digits and the sign of zero.

#include "writer/Numbers.h"

#include <string>

inline std::string Text(double dValue) {
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dValue)};
}

inline std::string Text(double dX, double dY, double dZ) {
    return Text(dX) + " " + Text(dY) + " " + Text(dZ);
}
