// Geometry of elements that writers ask for.

#include "store/DataPool.h"

#include <array>
#include <cmath>
#include <limits>

namespace {

using VECTOR = std::array<double, 3>;

constexpr double PI = 3.141592653589793;

VECTOR Cross(const VECTOR& a, const VECTOR& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Length(const VECTOR& a) {
    return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]);
}

bool IsZero(const VECTOR& a) {
    return a[0] == 0.0 && a[1] == 0.0 && a[2] == 0.0;
}

/// In degrees. Out of its range a not-a-number without a sign on every platform, since its sign is printed.
double ArcCosine(double dValue) {
    if (std::abs(dValue) > 1.0) return std::numeric_limits<double>::quiet_NaN();
    return std::acos(dValue) * 180.0 / PI;
}

VECTOR CardPoint(const T_NODS_D& rNode) {
    return {rNode.dX1, rNode.dX2, rNode.dX3};
}

} // namespace

int CDataPool::ComputeBetaAngle(std::int32_t iNode1, std::int32_t iNode2, double dX, double dY, double dZ,
                                double& rAngle) const {
    rAngle = 0.0;
    const VECTOR v = {dX, dY, dZ};
    if (IsZero(v)) return 1;
    const T_NODS_D* pNode1 = NODS.Find(iNode1);
    const T_NODS_D* pNode2 = NODS.Find(iNode2);
    const VECTOR p1 = pNode1 ? CardPoint(*pNode1) : VECTOR{};
    const VECTOR p2 = pNode2 ? CardPoint(*pNode2) : p1;
    const VECTOR e = {p2[0] - p1[0], p2[1] - p1[1], p2[2] - p1[2]};
    const VECTOR c = Cross(e, v);
    const VECTOR d = Cross(c, e);
    if (IsZero(d) || IsZero(c)) return 1;
    // The reference direction goes by the slope: X for a vertical link, Z for a level one, else the level normal.
    if (std::abs(e[0]) < 0.0001 && std::abs(e[1]) < 0.0001) {
        rAngle = ArcCosine(d[0] / Length(d)) + 90.0;
    } else if (std::abs(e[2]) < 0.0001) {
        rAngle = ArcCosine(c[2] / Length(c));
    } else {
        const double h = (-e[1] * d[0] + e[0] * d[1]) / std::sqrt(e[0] * e[0] + e[1] * e[1]);
        rAngle = ArcCosine(h / Length(d)) - 90.0;
    }
    return 1;
}
