// Axes and positions of coordinate systems.

#include "nas2zdt/restate/Frame.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double PI = 3.141592653589793;

/// Directions that differ by less than this, as a sine, are the same; lengths below this part of another are zero.
constexpr double SMALL = 1e-12;

} // namespace

double SineOf(double dDegrees) {
    const double d = std::remainder(dDegrees, 360.0); // exact
    if (std::fabs(d) > 90.0) return SineOf(std::copysign(180.0, d) - d);
    return std::fabs(d) == 90.0 ? std::copysign(1.0, d) : std::sin(d * (PI / 180.0));
}

double CosineOf(double dDegrees) {
    const double d = std::fabs(std::remainder(dDegrees, 360.0));
    if (d > 90.0) return -CosineOf(180.0 - d);
    return d == 90.0 ? 0.0 : std::cos(d * (PI / 180.0));
}

T_VECTOR T_FRAME_D::ToBasic(const T_VECTOR& rPoint) const {
    T_VECTOR local = rPoint;
    if (eKIND == FRAME_CYLINDRICAL) {
        local = {rPoint[0] * CosineOf(rPoint[1]), rPoint[0] * SineOf(rPoint[1]), rPoint[2]};
    } else if (eKIND == FRAME_SPHERICAL) {
        const double dAcross = rPoint[0] * SineOf(rPoint[1]);
        local = {dAcross * CosineOf(rPoint[2]), dAcross * SineOf(rPoint[2]), rPoint[0] * CosineOf(rPoint[1])};
    }
    T_VECTOR basic = dORIGIN;
    for (std::size_t i = 0; i < 3; ++i) basic = Add(basic, Scale(dAXES[i], local[i]));
    return basic;
}

std::array<T_VECTOR, 3> T_FRAME_D::AxesAt(const T_VECTOR& rPosition) const {
    if (eKIND == FRAME_RECTANGULAR) return dAXES;
    const T_VECTOR from = Subtract(rPosition, dORIGIN);
    const double dX = Dot(from, dAXES[0]), dY = Dot(from, dAXES[1]), dZ = Dot(from, dAXES[2]);
    const double dAcross = std::hypot(dX, dY);
    const double dSize = std::max({Length(rPosition), Length(dORIGIN), std::fabs(dZ)});
    if (!(dAcross > SMALL * dSize)) return dAXES;
    const T_VECTOR outward = Add(Scale(dAXES[0], dX / dAcross), Scale(dAXES[1], dY / dAcross));
    const T_VECTOR around = Add(Scale(dAXES[0], -dY / dAcross), Scale(dAXES[1], dX / dAcross));
    if (eKIND == FRAME_CYLINDRICAL) return {outward, around, dAXES[2]};
    const double dRadius = std::hypot(dAcross, dZ);
    const double dSine = dAcross / dRadius, dCosine = dZ / dRadius;
    return {Add(Scale(outward, dSine), Scale(dAXES[2], dCosine)), Add(Scale(outward, dCosine), Scale(dAXES[2], -dSine)),
            around};
}

T_VECTOR T_FRAME_D::VectorToBasic(const T_VECTOR& rComponents, const T_VECTOR& rPosition) const {
    const std::array<T_VECTOR, 3> axes = AxesAt(rPosition);
    T_VECTOR basic = {};
    for (std::size_t i = 0; i < 3; ++i) basic = Add(basic, Scale(axes[i], rComponents[i]));
    return basic;
}

bool T_FRAME_D::SetByThreePoints(const T_VECTOR& rA, const T_VECTOR& rB, const T_VECTOR& rC) {
    const T_VECTOR z = Subtract(rB, rA), xz = Subtract(rC, rA);
    const T_VECTOR y = Cross(z, xz);
    const double dZ = Length(z), dY = Length(y);
    if (!(dZ > 0.0) || !(dY > SMALL * dZ * Length(xz))) return false;
    dORIGIN = rA;
    dAXES[2] = Scale(z, 1.0 / dZ);
    dAXES[1] = Scale(y, 1.0 / dY);
    dAXES[0] = Cross(dAXES[1], dAXES[2]);
    return true;
}
