#pragma once
// Frames, which carry points between their local axes and the frame above, and the axes of a node.

#include <cstddef>
#include <cstdint>

/// Abstract base of frames. A frame owns nothing; copying one copies its parent link and both matrices.
class CUCSBase {
  public:
    CUCSBase() = default;
    CUCSBase(const CUCSBase&) = default;
    CUCSBase& operator=(const CUCSBase&) = default;
    virtual ~CUCSBase() = default;

    /// The frame that this one is defined in, null for the basic frame; it must outlive the link. Returns it.
    virtual CUCSBase* SetParent(CUCSBase* pParent) {
        m_pMeasured = nullptr;
        return m_pParent = pParent;
    }

    /// Takes 16 values row by row, and makes the way back from them.
    virtual void SetMatrix(const double (&dMatrix)[16]);

    /// From local to basic: through this frame and then outward through its parents. Parents in a circle are
    /// applied once.
    virtual void ToGlobal(double& rX, double& rY, double& rZ) const;

    /// From basic to local: through the parents inward and through this frame last.
    virtual void ToLocal(double& rX, double& rY, double& rZ) const;

    /// Origin A, B on the Z axis, C in the XZ plane; the parent stays. Always 1: of collinear points the X and Y
    /// directions become zeros.
    virtual int SetByThreePoints(const double (&dA)[3], const double (&dB)[3], const double (&dC)[3]) = 0;

    /// Counts the frames of this chain once for all points. Frames on the way are counted, too, and not walked again,
    /// so all frames of a model together take a step or two each. No link of the chain may change afterwards.
    void MeasureChain();

    /// Whether the parents of a measured frame lead in a circle, which it may be part of or not.
    bool LeadsInCircle() const { return IsMeasured() && m_bCircle; }

    /// Number of frames that ToGlobal takes a point through: from this one outward, each counted once.
    std::size_t GetFrameCount() const { return IsMeasured() ? m_nFrames : CountFrames(); }

  protected:
    CUCSBase* m_pParent = nullptr; // the frame that this one is defined in, null for the basic frame
    // The last column is the bare negated origin, not turned into local axes, so ToLocal is the way back of ToGlobal
    // only for a frame at the origin or along the axes of the outer frame.
    double m_dMat[4][4] = {}; // rows X, Y, Z, each with the negated origin behind
    double m_dInv[4][4] = {}; // the way back to the outer frame

  private:
    bool IsMeasured() const { return m_pMeasured == this; }
    std::size_t CountFrames() const;

    const CUCSBase* m_pMeasured = nullptr; // this one if m_nFrames is of its chain: a copy has another
    std::size_t m_nFrames = 0;
    bool m_bCircle = false;
};

/// The frame of every coordinate card: polar coordinates are made rectangular before.
class CUCSRect : public CUCSBase {
  public:
    int SetByThreePoints(const double (&dA)[3], const double (&dB)[3], const double (&dC)[3]) override;
};

/// One node local axis.
class CLocalAxis {
  public:
    virtual ~CLocalAxis() = default;

    std::int32_t iNODE = 0;
    std::int32_t iMETHOD = 0;                     // 1 by angles, 2 by three points, 3 by two vectors
    double dANGLE[3] = {};                        // method 1
    double dP0[3] = {}, dP1[3] = {}, dP2[3] = {}; // method 2
    double dV1[3] = {}, dV2[3] = {};              // method 3
};
