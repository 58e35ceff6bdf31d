// A frame from three points.

#include "resolve/UcsRect.h"

#include "resolve/MathFunc.h"

namespace {

void MakeUnit(double (&dV)[3]) {
    const double dLength = CMathFunc::Length(dV);
    if (dLength == 0.0) return;
    for (double& rValue : dV) rValue /= dLength;
}

} // namespace

int CUCSRect::SetByThreePoints(const double (&dA)[3], const double (&dB)[3], const double (&dC)[3]) {
    double dZ[3] = {dB[0] - dA[0], dB[1] - dA[1], dB[2] - dA[2]};
    const double dAC[3] = {dC[0] - dA[0], dC[1] - dA[1], dC[2] - dA[2]};
    double dX[3], dY[3];
    CMathFunc::CrossProduct(dZ, dAC, dY);
    CMathFunc::CrossProduct(dY, dZ, dX);
    MakeUnit(dX);
    MakeUnit(dY);
    MakeUnit(dZ);
    SetMatrix({dX[0], dX[1], dX[2], -dA[0], //
               dY[0], dY[1], dY[2], -dA[1], //
               dZ[0], dZ[1], dZ[2], -dA[2], //
               0.0, 0.0, 0.0, 1.0});
    return 1;
}
