// The order of the passes, and the fourth pass: the components of loads whose direction is given by grids.

#include "messages/ZdtMsgMgr.h"
#include "store/DataPool.h"
#include "store/MathFunc.h"

namespace {

using VECTOR = double[3];

/// The direction of a force or moment, not yet of length 1. Returns 0 for one that has its components.
int TakeDirection(const CDataPool& rPool, const T_MBLD_D& rLoad, VECTOR& rDirection) {
    if (rLoad.iFORM == FORM_TWO_GRIDS) {
        rPool.GetNodeVector(rLoad.iG[0], rLoad.iG[1], rDirection);
        return 1;
    }
    if (rLoad.iFORM == FORM_CROSS) {
        VECTOR d12, d34;
        rPool.GetNodeVector(rLoad.iG[0], rLoad.iG[1], d12);
        rPool.GetNodeVector(rLoad.iG[2], rLoad.iG[3], d34);
        CMathFunc::CrossProduct(d12, d34, rDirection);
        return 1;
    }
    return 0;
}

} // namespace

int CDataPool::ResolveModel() {
    ResolveCoordinateSystems();   // from the cards alone
    ResolveGridPositions();       // needs the frames
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
    const auto resolve = [&](T_MBLD_D& rLoad) {
        VECTOR dDirection;
        if (!TakeDirection(*this, rLoad, dDirection)) return;
        CMathFunc::Normalize(dDirection, dUnit);
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
