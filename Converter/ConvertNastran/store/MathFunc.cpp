// Vector operations.

#include "store/MathFunc.h"

namespace {

/// A sine or cosine that is nearly 0, 1 or -1 becomes that, so that quarter turns are exact.
double SnapToUnit(double d) {
    if (std::fabs(d) < ZERO_TOL) d = 0.0;
    if (std::fabs(d - 1.0) < ZERO_TOL) d = 1.0;
    if (std::fabs(d + 1.0) < ZERO_TOL) d = -1.0;
    return d;
}

void SnapToZero(double& rX, double& rY, double& rZ) {
    if (std::fabs(rX) < 1e-10) rX = 0.0;
    if (std::fabs(rY) < 1e-10) rY = 0.0;
    if (std::fabs(rZ) < 1e-10) rZ = 0.0;
}

/// (x, y, z, 1) = (x, y, z, 1) times dM. The terms that are zero count too: they turn -0 into 0.
void MultiplyRow(const double (&dM)[4][4], double& rX, double& rY, double& rZ) {
    const double dX = rX, dY = rY, dZ = rZ;
    rX = dX * dM[0][0] + dY * dM[1][0] + dZ * dM[2][0] + dM[3][0];
    rY = dX * dM[0][1] + dY * dM[1][1] + dZ * dM[2][1] + dM[3][1];
    rZ = dX * dM[0][2] + dY * dM[1][2] + dZ * dM[2][2] + dM[3][2];
}

} // namespace

void CMathFunc::CrossProduct(const double (&dA)[3], const double (&dB)[3], double (&dOut)[3]) {
    dOut[0] = dA[1] * dB[2] - dA[2] * dB[1];
    dOut[1] = dA[2] * dB[0] - dA[0] * dB[2];
    dOut[2] = dA[0] * dB[1] - dA[1] * dB[0];
}

double CMathFunc::Length(const double (&dV)[3]) {
    return std::sqrt(dV[0] * dV[0] + dV[1] * dV[1] + dV[2] * dV[2]);
}

int CMathFunc::Normalize(const double (&dIn)[3], double (&dOut)[3]) {
    const double dLength = Length(dIn);
    if (dLength < ZERO_TOL) return 0;
    for (int i = 0; i < 3; ++i) dOut[i] = dIn[i] / dLength;
    return 1;
}

void CMathFunc::RotateAboutX(double dAngle, double& rX, double& rY, double& rZ) {
    const double dCos = SnapToUnit(std::cos(DEG2RAD * dAngle));
    const double dSin = SnapToUnit(std::sin(DEG2RAD * dAngle));
    const double dTurn[4][4] = {{1, 0, 0, 0}, {0, dCos, dSin, 0}, {0, -dSin, dCos, 0}, {0, 0, 0, 1}};
    MultiplyRow(dTurn, rX, rY, rZ);
    SnapToZero(rX, rY, rZ);
}

void CMathFunc::RotateAboutY(double dAngle, double& rX, double& rY, double& rZ) {
    const double dCos = SnapToUnit(std::cos(DEG2RAD * dAngle));
    const double dSin = SnapToUnit(std::sin(DEG2RAD * dAngle));
    const double dTurn[4][4] = {{dCos, 0, -dSin, 0}, {0, 1, 0, 0}, {dSin, 0, dCos, 0}, {0, 0, 0, 1}};
    MultiplyRow(dTurn, rX, rY, rZ);
    SnapToZero(rX, rY, rZ);
}

void CMathFunc::RotateAboutAxis(double dAngle, double dAX, double dAY, double dAZ, double& rX, double& rY, double& rZ) {
    if (dAngle == 0.0) return;
    // Two tilts bring the axis onto Z.
    const double dAcross = std::sqrt(dAZ * dAZ + dAY * dAY);
    double dTiltX = 0.0;
    if (!(dAcross < ZERO_TOL)) {
        dTiltX = std::asin(dAY / dAcross) * RAD2DEG;
        if (dAZ < 0.0) dTiltX = 180.0 - dTiltX;
    }
    const double dLength = std::sqrt(dAX * dAX + dAY * dAY + dAZ * dAZ);
    const double dTiltY = dLength < ZERO_TOL ? 0.0 : std::asin(dAX / dLength) * RAD2DEG;
    if (dTiltX != 0.0) RotateAboutX(dTiltX, rX, rY, rZ);
    if (dTiltY != 0.0) RotateAboutY(-dTiltY, rX, rY, rZ);

    const double dCos = SnapToUnit(std::cos(DEG2RAD * dAngle));
    const double dSin = SnapToUnit(std::sin(DEG2RAD * dAngle));
    const double dX = rX;
    rX = dX * dCos - rY * dSin;
    rY = dX * dSin + rY * dCos;
    SnapToZero(rX, rY, rZ);

    if (dTiltY != 0.0) RotateAboutY(dTiltY, rX, rY, rZ);
    if (dTiltX != 0.0) RotateAboutX(-dTiltX, rX, rY, rZ);
    SnapToZero(rX, rY, rZ);
}
