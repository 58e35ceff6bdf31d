// Adds up the loads of a load case.

#include "nas2zdt/picture/CaseLoads.h"

#include "nas2zdt/picture/Picture.h"
#include "writer/rows/LoadRows.h"

#include <algorithm>

std::vector<std::int32_t> FindLoadCases(const CDataPool& rDataPool) {
    std::vector<std::int32_t> aIds;
    ForEachLoadCase(rDataPool, [&](const T_LOADCASE_ROW& r) { aIds.push_back(r.iSID); });
    std::sort(aIds.begin(), aIds.end());
    return aIds;
}

CKeyIndex FindSurfaces(const T_SCEN_D& rScene) {
    CKeyIndex surfaces;
    for (std::uint32_t i = 0; i < rScene.aPARTS.size(); ++i) {
        const T_PART_D& rPart = rScene.aPARTS[i];
        if (rPart.iKIND >= KIND_PLANE_STRESS && rPart.iKIND <= KIND_SOLID) surfaces.Add(rPart.iID, i);
    }
    return surfaces;
}

std::vector<T_VECTOR> SumNodalLoads(const CDataPool& rDataPool, const T_SCEN_D& rScene, const T_LOAD_D& rSet,
                                    E_LOAD_KIND eKind) {
    std::vector<T_VECTOR> aSums;
    const CRowVisitor visitor{
        [&](const T_NODALLOAD_ROW& r) {
            const std::uint32_t iPlace = rScene.index.Find(r.iNODE);
            if (iPlace == CKeyIndex::NONE) return;
            if (aSums.empty()) aSums.resize(rScene.aIDS.size());
            aSums[iPlace] = Add(aSums[iPlace], {r.dX, r.dY, r.dZ});
        },
        IGNORE_LEFT,
    };
    ForEachNodalLoad(rDataPool, rSet, eKind, visitor);
    return aSums;
}

std::vector<double> SumPressures(const CDataPool& rDataPool, const T_SCEN_D& rScene, const CKeyIndex& rSurfaces,
                                 const T_LOAD_D& rSet) {
    std::vector<double> aSums;
    const auto AddTo = [&](std::int32_t iEID, double dPressure) {
        const std::uint32_t iPart = rSurfaces.Find(iEID);
        if (iPart == CKeyIndex::NONE) return;
        if (aSums.empty()) aSums.resize(rScene.aPARTS.size());
        aSums[iPart] += dPressure;
    };
    const CRowVisitor visitor{
        [&](const T_UNIFORMPRESSURE_ROW& r) { AddTo(r.iEID, r.dP); },
        [&](const T_CORNERPRESSURE_ROW& r) {
            const std::uint32_t iPart = rSurfaces.Find(r.iEID);
            if (iPart == CKeyIndex::NONE) return;
            const T_FACES_D& rFaces = FACES[rScene.aPARTS[iPart].iCELL];
            const std::size_t iFace = r.bSOLID && r.iFACE > 0 ? static_cast<std::size_t>(r.iFACE - 1) : 0;
            const bool bThree = rFaces.aCORNERS[iFace][3] == NO_CORNER;
            const auto& [p1, p2, p3, p4] = r.dP;
            AddTo(r.iEID, bThree ? (p1 + p2 + p3) / 3.0 : (p1 + p2 + p3 + p4) / 4.0);
        },
        IGNORE_LEFT,
    };
    ForEachPressure(rDataPool, rSet, visitor);
    return aSums;
}
