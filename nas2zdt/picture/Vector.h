#pragma once
// Points and directions in space.

#include <algorithm>
#include <array>
#include <cmath>

using T_VECT_D = std::array<double, 3>;

inline T_VECT_D Minus(const T_VECT_D& a, const T_VECT_D& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
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

/// The direction of a with length 1, however large or small its components are. Zero if a has no direction or isn't
/// finite.
inline T_VECT_D Unit(const T_VECT_D& a) {
    const double dLargest = Largest(a);
    if (!IsFinite(a) || dLargest == 0.0) return {};
    const T_VECT_D scaled = {a[0] / dLargest, a[1] / dLargest, a[2] / dLargest};
    const double dLength = std::sqrt(Dot(scaled, scaled));
    return {scaled[0] / dLength, scaled[1] / dLength, scaled[2] / dLength};
}
