#pragma once
// The rectangular frame.

#include "resolve/UcsBase.h"

/// The frame of every coordinate card: polar coordinates are turned into rectangular ones before they get here.
class CUCSRect : public CUCSBase {
  public:
    int SetByThreePoints(const double (&dA)[3], const double (&dB)[3], const double (&dC)[3]) override;
};
