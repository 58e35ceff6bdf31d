#pragma once
// Vector operations. Sums go from left to right: the order decides the last digit and the sign of a zero.

#include <cmath>
#include <limits>

constexpr double PI = 3.141592653589793; // 4.0 * atan(1.0)
constexpr double RAD2DEG = 180.0 / PI;
constexpr double DEG2RAD = PI / 180.0;
constexpr double ZERO_TOL = 1e-15; // lengths, sines and cosines nearer to a round value than this count as it

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

    /// acos, with the same not-a-number on every platform: positive for a finite argument out of range, negative for an
    /// argument that is no number or infinite.
    static double ArcCosine(double d) {
        constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
        if (!std::isfinite(d)) return std::copysign(NOT_A_NUMBER, -1.0);
        return std::fabs(d) > 1.0 ? NOT_A_NUMBER : std::acos(d);
    }
};
