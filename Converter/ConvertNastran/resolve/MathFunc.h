#pragma once
// Vector operations. Each sums from left to right: results are printed to six digits, and zeros with their sign.

#include <cmath>
#include <limits>

class CMathFunc {
  public:
    virtual ~CMathFunc() = default;

    /// dOut = dA cross dB; dOut is neither of them.
    static void CrossProduct(const double (&dA)[3], const double (&dB)[3], double (&dOut)[3]);

    static double Length(const double (&dV)[3]);

    /// dOut = dIn over its length. Returns 1, or 0 with dOut as it was if the length is below ZERO_TOL.
    static int Normalize(const double (&dIn)[3], double (&dOut)[3]);

    /// Right-handed turn about X or Y by dAngle degrees. Results below 1e-10 become 0.
    static void RotateAboutX(double dAngle, double& rX, double& rY, double& rZ);
    static void RotateAboutY(double dAngle, double& rX, double& rY, double& rZ);

    /// Right-handed turn by dAngle degrees about the axis (dAX, dAY, dAZ) through the origin; about Z if the axis is
    /// zero. Results below 1e-10 become 0. An angle of 0 changes nothing.
    static void RotateAboutAxis(double dAngle, double dAX, double dAY, double dAZ, double& rX, double& rY, double& rZ);

    /// sqrt and acos. A not-a-number prints with its sign, and that of an argument out of range differs between
    /// platforms unless it is told: negative for the root, positive for the angle.
    static double SquareRoot(double d) {
        return d < 0.0 ? std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0) : std::sqrt(d);
    }
    static double ArcCosine(double d) {
        return std::fabs(d) > 1.0 ? std::numeric_limits<double>::quiet_NaN() : std::acos(d);
    }
};
