#pragma once
// Projects points into a picture.

#include "nas2zdt/geometry/Vector.h"

#include <vector>

/// A rectangle of a picture, in pixels; y goes down.
struct T_FRAM_D {
    double dLEFT = 0.0, dTOP = 0.0, dWIDTH = 0.0, dHEIGHT = 0.0;
};

/// Parallel projection seen from (1, -1, 1): the three axes have equal lengths, Z goes up.
class CIsometricView {
  public:
    /// Fits the finite ones of aPoints into rFrame, centred.
    CIsometricView(const std::vector<T_VECTOR>& aPoints, const T_FRAM_D& rFrame);

    /// Components of a vector to the right, upwards and towards the eye.
    static T_VECTOR Turn(const T_VECTOR& v);

    /// Place of a point: x, y, and the distance towards the eye, all in pixels. Not-a-number if the point isn't finite.
    T_VECTOR Project(const T_VECTOR& point) const;

  private:
    double m_dUnit = 1.0;   // largest coordinate, divided by which nothing overflows
    T_VECTOR m_centre = {}; // of the turned points
    double m_dScale = 1.0;  // pixels
    double m_dX = 0.0, m_dY = 0.0;
};
