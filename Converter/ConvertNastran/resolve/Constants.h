#pragma once
// Numbers of the geometry kit.

constexpr double PI = 3.141592653589793; // 4.0 * atan(1.0)
constexpr double RAD2DEG = 180.0 / PI;
constexpr double DEG2RAD = PI / 180.0;
constexpr double ZERO_TOL = 1e-15; // lengths, sines and cosines nearer to a round value than this count as it
