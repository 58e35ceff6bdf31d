// What the rows of loads on elements hold.

#include "writer/rows/LoadRows.h"

namespace {

std::string_view DirectionWord(std::int8_t iDirection) {
    switch (iDirection) {
    case DIR_X:
        return "GX";
    case DIR_Y:
        return "GY";
    case DIR_Z:
        return "GZ";
    case DIR_XE:
        return "LX";
    case DIR_YE:
        return "LY";
    case DIR_ZE:
        return "LZ";
    default:
        return {};
    }
}

T_CORNERPRESSURE_ROW CornerPressure(const T_MBLD_D& rEntry, bool bSolid, std::int32_t iFace) {
    const auto& d = rEntry.dV;
    const bool bVector = rEntry.dN[0] != 0.0 || rEntry.dN[1] != 0.0 || rEntry.dN[2] != 0.0;
    return {rEntry.iID, bSolid, iFace, bVector, rEntry.dN, {d[0], d[1], d[2], d[3]}};
}

} // namespace

T_BEAMLOAD_ROW BeamLoad(const T_MBLD_D& rEntry, double dX1, double dX2) {
    const bool bPoint = rEntry.dV[2] == 0.0;
    const bool bForce = rEntry.iKIND == LOAD_BEAM_FORCE;
    const std::string_view sLoad = bPoint ? (bForce ? "CONLOAD" : "CONMOMENT") : (bForce ? "UNILOAD" : "UNIMOMENT");
    const std::string_view sProjected = rEntry.iSCALE == SCALE_LEPR || rEntry.iSCALE == SCALE_FPPR ? "YES" : "NO";
    return {rEntry.iID, sLoad, DirectionWord(rEntry.iDIR), sProjected, dX1, rEntry.dV[1], dX2, rEntry.dV[3]};
}

/// A tetrahedron's face is named by the corner opposite to it. A wedge takes one grid for its triangles and two for its
/// sides.
T_CORNERPRESSURE_ROW SolidPressure(const T_MBLD_D& rEntry, const T_ELEM_D& rSolid) {
    const std::int32_t iFace = rSolid.iSUBTYPE == SHAPE_TETRA
                                   ? rSolid.FindSolidFaceByNode(rEntry.iFACEG34)
                                   : rSolid.FindSolidFaceByNodes(rEntry.iFACEG1, rEntry.iFACEG34);
    return CornerPressure(rEntry, true, iFace);
}

/// Only a wedge can get another face than its grids name.
E_LEFT FaceLoss(const T_MBLD_D& rEntry, const T_ELEM_D& rSolid, std::int32_t iFace) {
    if (rEntry.iFORM != FORM_CORNERS) return LEFT_PLOAD2_FACE;
    if (iFace == 0) return LEFT_PLOAD4_NO_FACE;
    if (rSolid.iSUBTYPE != SHAPE_PENTA) return LEFT_COUNT;
    return iFace == rSolid.FindWedgeFace(rEntry.iFACEG1, rEntry.iFACEG34) ? LEFT_COUNT : LEFT_PLOAD4_FACE;
}

T_CORNERPRESSURE_ROW PlatePressure(const T_MBLD_D& rEntry) {
    return CornerPressure(rEntry, false, 0);
}
