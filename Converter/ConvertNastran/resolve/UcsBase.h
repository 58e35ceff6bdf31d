#pragma once
// A frame that carries points between its local axes and the frame above it.

/// Abstract base of frames. A frame owns nothing; copying one copies its parent link and both matrices.
class CUCSBase {
  public:
    CUCSBase() = default;
    CUCSBase(const CUCSBase&) = default;
    CUCSBase& operator=(const CUCSBase&) = default;
    virtual ~CUCSBase() = default;

  protected:
    CUCSBase* m_pParent = nullptr; // the frame that this one is defined in, null for the basic frame
    double m_dMat[4][4] = {};      // rows X, Y, Z, each with the negated origin behind
    double m_dInv[4][4] = {};      // the way back to the outer frame
};
