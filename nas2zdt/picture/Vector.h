#pragma once
// Points and directions in space.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

using T_VECT_D = std::array<double, 3>;

inline T_VECT_D Minus(const T_VECT_D& a, const T_VECT_D& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

inline T_VECT_D Over(const T_VECT_D& a, double d) {
    return {a[0] / d, a[1] / d, a[2] / d};
}

inline double Dot(const T_VECT_D& a, const T_VECT_D& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline T_VECT_D Cross(const T_VECT_D& a, const T_VECT_D& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

inline bool IsFinite(const T_VECT_D& a) {
    return std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[2]);
}

inline double Largest(const T_VECT_D& a) {
    return std::max({std::abs(a[0]), std::abs(a[1]), std::abs(a[2])});
}

/// The direction of a with length 1, however large or small its components are. Zero if a is zero or isn't finite.
inline T_VECT_D Unit(const T_VECT_D& a) {
    const double dLargest = Largest(a);
    if (!IsFinite(a) || dLargest == 0.0) return {};
    const T_VECT_D scaled = Over(a, dLargest);
    return Over(scaled, std::sqrt(Dot(scaled, scaled)));
}

/// The middle of the points that the first nCorners of rCorners name.
template <class CORNERS>
T_VECT_D Middle(const CORNERS& rCorners, std::size_t nCorners, const std::vector<T_VECT_D>& aPoints) {
    T_VECT_D middle = {};
    for (std::size_t i = 0; i < nCorners; ++i) {
        for (std::size_t k = 0; k < 3; ++k) middle[k] += aPoints[rCorners[i]][k] / static_cast<double>(nCorners);
    }
    return middle;
}
