#pragma once
// Square roots of which also the sign of a not-a-number is the same everywhere.

#include <cmath>
#include <limits>

/// The root; of a negative value the not-a-number with its sign set, which prints "-nan". Processors differ in it.
inline double SquareRoot(double dValue) {
    return dValue < 0.0 ? std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0) : std::sqrt(dValue);
}
