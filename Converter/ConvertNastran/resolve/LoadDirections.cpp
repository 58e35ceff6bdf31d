// The fourth pass: the components of loads whose direction is given by grids.

#include "resolve/MathFunc.h"
#include "store/DataPool.h"

namespace {

using VECTOR = double[3];

/// From grid iFrom to grid iTo; a missing grid counts as the origin. Returns whether there are both.
bool TakeVector(const CDataPool& rPool, std::int32_t iFrom, std::int32_t iTo, VECTOR& rVector) {
    VECTOR dFrom;
    const int bFrom = rPool.GetNodePosition(iFrom, dFrom);
    const int bTo = rPool.GetNodePosition(iTo, rVector);
    for (int i = 0; i < 3; ++i) rVector[i] -= dFrom[i];
    return bFrom && bTo;
}

/// The direction of a force or moment, not yet of length 1, and whether there are all grids that give it. Returns 0
/// for one that has its components.
int TakeDirection(const CDataPool& rPool, const T_MBLD_D& rLoad, VECTOR& rDirection, bool& rAllGrids) {
    if (rLoad.iFORM == FORM_TWO_GRIDS) {
        rAllGrids = TakeVector(rPool, rLoad.iG[0], rLoad.iG[1], rDirection);
        return 1;
    }
    if (rLoad.iFORM == FORM_CROSS) {
        VECTOR d12, d34;
        rAllGrids = TakeVector(rPool, rLoad.iG[0], rLoad.iG[1], d12);
        rAllGrids &= TakeVector(rPool, rLoad.iG[2], rLoad.iG[3], d34);
        CMathFunc::CrossProduct(d12, d34, rDirection);
        return 1;
    }
    return 0;
}

} // namespace

void CDataPool::ResolveLoadDirections() {
    CArray<std::int32_t> aIds;
    if (!GetSortedLoadIds(aIds)) return;
    const auto isNodal = [](std::int8_t iKind) { return iKind == LOAD_FORCE || iKind == LOAD_MOMENT; };
    VECTOR dUnit = {}; // lives over all sets: a direction without length takes the one before it
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
