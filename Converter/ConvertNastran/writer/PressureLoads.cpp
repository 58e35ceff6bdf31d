// *PRESSURE: pressures on plates and on faces of solids.

#include "driver/CConvertNastran.h"
#include "writer/LoadValues.h"

#include <cmath>

namespace {

/// A pressure is normal to the surface unless the card gives it a direction.
bool HasDirection(const T_MBLD_D& rEntry) {
    return rEntry.dN[0] != 0.0 || rEntry.dN[1] != 0.0 || rEntry.dN[2] != 0.0;
}

/// Number of the face that the entry names by grids, 0 if there is none. A wedge takes one grid for its triangles and
/// two for its sides.
std::int32_t FaceOfEntry(const T_ELEM_D& rSolid, const T_MBLD_D& rEntry) {
    return rSolid.iSUBTYPE == SHAPE_TETRA ? rSolid.FindSolidFaceByNode(rEntry.iFACEG34)
                                          : rSolid.FindSolidFaceByNodes(rEntry.iFACEG1, rEntry.iFACEG34);
}

} // namespace

int CConvertNastran::WritePressureLoads(CFile& rFile, const T_LOAD_D& rSet) {
    constexpr std::size_t AHEAD = 8; // entries; their elements lie anywhere, and memory takes long to answer
    bool bAny = false;
    const std::size_t nEntries = rSet.aMBLD.GetSize();
    for (std::size_t i = 0; i < nEntries; ++i) {
        const T_MBLD_D& rEntry = rSet.aMBLD[i];
        if (i + AHEAD < nEntries) m_pDataPool->ELEM.Prefetch(rSet.aMBLD[i + AHEAD].iID);
        if (rEntry.iKIND != LOAD_PRESSURE) continue;
        if (!bAny) WriteLine(rFile, "*PRESSURE\n");
        bAny = true;
        const auto& dV = rEntry.dV;
        if (std::abs(dV[0]) + std::abs(dV[1]) + std::abs(dV[2]) + std::abs(dV[3]) <= NO_LOAD) continue;
        const T_ELEM_D* pElement = m_pDataPool->ELEM.Find(rEntry.iID);
        if (!pElement) continue;
        if (IsPlateType(pElement->iTYPE)) WritePlatePressure(rFile, rEntry);
        if (pElement->iTYPE == TYPE_SOLID) WriteSolidPressure(rFile, rEntry, FaceOfEntry(*pElement, rEntry));
    }
    if (bAny) WriteLine(rFile, "\n");
    return 1;
}

/// PLOAD2 gives one value for the whole plate, PLOAD4 one for each corner.
int CConvertNastran::WritePlatePressure(CFile& rFile, const T_MBLD_D& rEntry) {
    const auto& dV = rEntry.dV;
    const auto& dN = rEntry.dN;
    if (rEntry.iFORM != FORM_CORNERS) {
        return WriteLine(rFile, "%d, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, %g, 0, 0, 0, 0, \n", rEntry.iID, dV[0]);
    }
    if (HasDirection(rEntry)) {
        return WriteLine(rFile, "%d, PRES , PLATE, FACE, VECTOR, %g, %g, %g, NO, 0, %g, %g, %g, %g, \n", rEntry.iID,
                         dN[0], dN[1], dN[2], dV[0], dV[1], dV[2], dV[3]);
    }
    return WriteLine(rFile, "%d, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 0, %g, %g, %g, %g, \n", rEntry.iID, dV[0], dV[1],
                     dV[2], dV[3]);
}

int CConvertNastran::WriteSolidPressure(CFile& rFile, const T_MBLD_D& rEntry, std::int32_t iFace) {
    const auto& dV = rEntry.dV;
    const auto& dN = rEntry.dN;
    if (HasDirection(rEntry)) {
        return WriteLine(rFile, "%d, PRES , SOLID, %d, VECTOR, %g, %g, %g, NO, 0, %g, %g, %g, %g, \n", rEntry.iID,
                         iFace, dN[0], dN[1], dN[2], dV[0], dV[1], dV[2], dV[3]);
    }
    return WriteLine(rFile, "%d, PRES , SOLID, %d, NORMAL, 0, 0, 0, NO, 0, %g, %g, %g, %g, \n", rEntry.iID, iFace,
                     dV[0], dV[1], dV[2], dV[3]);
}
