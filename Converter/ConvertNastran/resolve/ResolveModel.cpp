// The order of the passes, and the fourth pass: the components of loads whose direction is given by grids.

#include "messages/ZdtMsgMgr.h"
#include "store/DataPool.h"
#include "store/MathFunc.h"

namespace {

using VECTOR = double[3];

/// The direction of a force or moment, not yet of length 1, and whether there are all grids that give it. Returns 0
/// for one that has its components.
int TakeDirection(const CDataPool& rPool, const T_MBLD_D& rLoad, VECTOR& rDirection, bool& rAllGrids) {
    if (rLoad.iFORM == FORM_TWO_GRIDS) {
        rAllGrids = rPool.GetNodeVector(rLoad.iG[0], rLoad.iG[1], rDirection);
        return 1;
    }
    if (rLoad.iFORM == FORM_CROSS) {
        VECTOR d12, d34;
        rAllGrids = rPool.GetNodeVector(rLoad.iG[0], rLoad.iG[1], d12);
        rAllGrids &= rPool.GetNodeVector(rLoad.iG[2], rLoad.iG[3], d34);
        CMathFunc::CrossProduct(d12, d34, rDirection);
        return 1;
    }
    return 0;
}

} // namespace

int CDataPool::ResolveModel() {
    if (m_pLeftSink) MeasureStretches();
    ResolveCoordinateSystems(); // from the cards alone
    ResolveGridPositions();     // needs the frames
    if (m_pLeftSink) TellFrames();
    ResolveElementOrientations(); // needs positions
    ResolveLoadDirections();      // needs positions
    ResolveNodeLocalAxes();       // needs the frames
    return 1;
}

int CDataPool::LogMessage(std::string_view sFormat, TEXT_ARGS aArgs) const {
    m_pMsgMgr->AddMessageF(sFormat, aArgs);
    return 0;
}

void CDataPool::ResolveLoadDirections() {
    CArray<std::int32_t> aIds;
    if (!GetSortedLoadIds(aIds)) return;
    const auto isNodal = [](std::int8_t iKind) { return iKind == LOAD_FORCE || iKind == LOAD_MOMENT; };
    VECTOR dUnit = {}; // kept over all sets: a direction without length takes the one before it
    const auto tell = [this](const T_MBLD_D& rLoad, E_LEFT eReason) {
        TellLeft({.eREASON = eReason, .iID = rLoad.iID, .sKEYWORD = KeywordOf(rLoad)});
    };
    const auto resolve = [&](T_MBLD_D& rLoad) {
        VECTOR dDirection;
        bool bAllGrids = false;
        if (!TakeDirection(*this, rLoad, dDirection, bAllGrids)) return;
        const bool bDirection = CMathFunc::Normalize(dDirection, dUnit) != 0;
        const bool bForce = rLoad.iKIND == LOAD_FORCE;
        if (!bAllGrids) {
            tell(rLoad, bForce ? LEFT_FORCE_NO_GRIDS : LEFT_MOMENT_NO_GRIDS);
        } else if (!bDirection) {
            tell(rLoad, bForce ? LEFT_FORCE_NO_DIRECTION : LEFT_MOMENT_NO_DIRECTION);
        }
        const double dMagnitude = rLoad.dV[0];
        for (std::size_t i = 0; i < 3; ++i) rLoad.dV[i] = dUnit[i] * dMagnitude;
    };
    for (const std::int32_t iID : aIds) {
        LOAD.Update(iID, [&](T_LOAD_D& rSet) { rSet.aMBLD.UpdateEach(isNodal, resolve); });
    }
}

int CDataPool::GetSortedLoadIds(CArray<std::int32_t>& rIds) const {
    rIds.RemoveAll();
    for (const auto& [iID, rSet] : LOAD.Sorted()) rIds.Add(iID);
    return rIds.IsEmpty() ? 0 : 1;
}
