// Frames from points, and points through a chain of frames.

#include "store/Frames.h"

#include "store/MathFunc.h"

#include <unordered_set>
#include <vector>

namespace {

/// rX, rY, rZ = the upper three rows of dM times (x, y, z, 1).
void Carry(const double (&dM)[4][4], double& rX, double& rY, double& rZ) {
    const double dX = rX, dY = rY, dZ = rZ;
    rX = dM[0][0] * dX + dM[0][1] * dY + dM[0][2] * dZ + dM[0][3];
    rY = dM[1][0] * dX + dM[1][1] * dY + dM[1][2] * dZ + dM[1][3];
    rZ = dM[2][0] * dX + dM[2][1] * dY + dM[2][2] * dZ + dM[2][3];
}

void MakeUnit(double (&dV)[3]) {
    const double dLength = CMathFunc::Length(dV);
    if (dLength == 0.0) return;
    for (double& rValue : dV) rValue /= dLength;
}

} // namespace

void CUCSBase::SetMatrix(const double (&dMatrix)[16]) {
    for (std::size_t i = 0; i < 16; ++i) m_dMat[i / 4][i % 4] = dMatrix[i];
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) m_dInv[i][j] = m_dMat[j][i];
        m_dInv[i][3] = -m_dMat[i][3];
        m_dInv[3][i] = 0.0;
    }
    m_dInv[3][3] = -m_dMat[3][3];
}

/// Number of frames from this one outward, each counted once.
std::size_t CUCSBase::CountFrames() const {
    std::unordered_set<const CUCSBase*> frames;
    for (const CUCSBase* pFrame = this; pFrame && frames.insert(pFrame).second;) pFrame = pFrame->m_pParent;
    return frames.size();
}

void CUCSBase::MeasureChain() {
    if (IsMeasured()) return;
    if (!m_pParent || m_pParent->IsMeasured()) { // as in decks that define the outer frame first
        m_nFrames = m_pParent ? m_pParent->m_nFrames + 1 : 1;
        m_bCircle = m_pParent && m_pParent->m_bCircle;
        m_pMeasured = this;
        return;
    }
    std::vector<CUCSBase*> aPath; // frames that aren't measured; each counts as measured with its place in the path
    CUCSBase* pFrame = this;
    for (; pFrame && !pFrame->IsMeasured(); pFrame = pFrame->m_pParent) {
        pFrame->m_pMeasured = pFrame;
        pFrame->m_nFrames = aPath.size();
        aPath.push_back(pFrame);
    }
    std::size_t nFrames = pFrame ? pFrame->m_nFrames : 0;
    bool bCircle = pFrame && pFrame->m_bCircle;
    if (pFrame && nFrames < aPath.size() && aPath[nFrames] == pFrame) { // the path closes a circle
        const std::size_t iEntry = nFrames;
        nFrames = aPath.size() - iEntry;
        bCircle = true;
        for (std::size_t i = iEntry; i < aPath.size(); ++i) {
            aPath[i]->m_nFrames = nFrames;
            aPath[i]->m_bCircle = true;
        }
        aPath.resize(iEntry);
    }
    for (; !aPath.empty(); aPath.pop_back()) {
        aPath.back()->m_nFrames = ++nFrames;
        aPath.back()->m_bCircle = bCircle;
    }
}

void CUCSBase::ToGlobal(double& rX, double& rY, double& rZ) const {
    const CUCSBase* pFrame = this;
    for (std::size_t nLeft = GetFrameCount(); nLeft > 0; --nLeft) {
        Carry(pFrame->m_dInv, rX, rY, rZ);
        pFrame = pFrame->m_pParent;
    }
}

void CUCSBase::ToLocal(double& rX, double& rY, double& rZ) const {
    std::vector<const CUCSBase*> aChain(GetFrameCount());
    const CUCSBase* pFrame = this;
    for (const CUCSBase*& rpLink : aChain) {
        rpLink = pFrame;
        pFrame = pFrame->m_pParent;
    }
    for (std::size_t i = aChain.size(); i-- > 0;) Carry(aChain[i]->m_dMat, rX, rY, rZ);
}

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
