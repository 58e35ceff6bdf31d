// *PRESSURE: pressures on plates and on faces of solids.

#include "driver/CConvertNastran.h"
#include "writer/LoadValues.h"

#include <array>
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
    const auto pressures = rSet.aMBLD.Walk(LOAD_PRESSURE);
    if (pressures.IsEmpty()) return 1;
    WriteLine(rFile, "*PRESSURE\n");
    // Elements lie anywhere: if many are asked for in a row, memory answers for all of them at once.
    constexpr std::size_t BATCH = 16;
    std::array<const T_MBLD_D*, BATCH> aEntries;
    std::array<std::int32_t, BATCH> aTypes; // 0 without an element
    for (auto position = pressures.begin(); position != pressures.end();) {
        std::size_t nEntries = 0;
        for (; nEntries < BATCH && position != pressures.end(); ++position, ++nEntries) {
            aEntries[nEntries] = &*position;
            aTypes[nEntries] = TypeOfTraits(m_pDataPool->ELEM.TraitsOf((*position).iID));
        }
        for (std::size_t i = 0; i < nEntries; ++i) WritePressureLoad(rFile, *aEntries[i], aTypes[i]);
    }
    return WriteLine(rFile, "\n");
}

/// One line, if the entry comes to anything on an element of this type.
int CConvertNastran::WritePressureLoad(CFile& rFile, const T_MBLD_D& rEntry, std::int32_t iType) {
    const auto& dV = rEntry.dV;
    if (std::abs(dV[0]) + std::abs(dV[1]) + std::abs(dV[2]) + std::abs(dV[3]) <= NO_LOAD) return 1;
    if (IsPlateType(iType)) return WritePlatePressure(rFile, rEntry);
    if (iType != TYPE_SOLID) return 1;
    return WriteSolidPressure(rFile, rEntry, FaceOfEntry(*m_pDataPool->ELEM.Find(rEntry.iID), rEntry));
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
