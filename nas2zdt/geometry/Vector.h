#pragma once
// Points and directions in space.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

using T_VECTOR = std::array<double, 3>;

inline T_VECTOR Add(const T_VECTOR& a, const T_VECTOR& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

inline T_VECTOR Subtract(const T_VECTOR& a, const T_VECTOR& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

inline T_VECTOR Scale(const T_VECTOR& a, double d) {
    return {a[0] * d, a[1] * d, a[2] * d};
}

inline T_VECTOR Over(const T_VECTOR& a, double d) {
    return {a[0] / d, a[1] / d, a[2] / d};
}

inline double Dot(const T_VECTOR& a, const T_VECTOR& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline T_VECTOR Cross(const T_VECTOR& a, const T_VECTOR& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Exact to a rounding or two, whatever the components are.
inline double Length(const T_VECTOR& a) {
    const double dSquare = Dot(a, a);
    return dSquare > 1e-290 && dSquare < 1e290 ? std::sqrt(dSquare) : std::hypot(a[0], a[1], a[2]);
}

inline double Largest(const T_VECTOR& a) {
    return std::max({std::abs(a[0]), std::abs(a[1]), std::abs(a[2])});
}

inline bool IsZero(const T_VECTOR& a) {
    return a[0] == 0.0 && a[1] == 0.0 && a[2] == 0.0;
}

inline bool IsFinite(const T_VECTOR& a) {
    return std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[2]);
}

/// The direction of a with length 1, however large or small its components are. Zero if a is zero or isn't finite.
inline T_VECTOR Unit(const T_VECTOR& a) {
    if (IsZero(a) || !IsFinite(a)) return {};
    const double dLength = Length(a);
    if (dLength > 1e-300 && std::isfinite(dLength)) return Over(a, dLength);
    const T_VECTOR scaled = Over(a, Largest(a));
    return Over(scaled, Length(scaled));
}

/// The middle of the points that the first nCorners of rCorners name.
template <class CORNERS>
T_VECTOR Middle(const CORNERS& rCorners, std::size_t nCorners, const std::vector<T_VECTOR>& aPoints) {
    T_VECTOR middle = {};
    for (std::size_t i = 0; i < nCorners; ++i) {
        for (std::size_t k = 0; k < 3; ++k) middle[k] += aPoints[rCorners[i]][k] / static_cast<double>(nCorners);
    }
    return middle;
}
