// Restates pressures and loads on beams.

#include "nas2zdt/restate/ElementLoadRules.h"

#include "nas2zdt/restate/FieldText.h"
#include "store/ElementRecords.h"

#include <algorithm>
#include <cmath>

namespace {

enum E_RULE {
    PRESSURE_LIST,
    PRESSURE_NOTHING,
    PRESSURE_ZERO,
    PRESSURE_DIRECTION,
    PRESSURE_UNKNOWN,
    PRESSURE_TURNING,
    PRESSURE_EDGE,
    PRESSURE_WEDGE,
    PRESSURE_WEDGE_FACE,
    PRESSURE_CORNERS,
    PATCH_PLATE,
    PATCH_FORCES,
    PATCH_GRIDS,
    BEAM_FORM,
    BEAM_POSITION,
    BEAM_ELEMENT,
};

/// The converter takes a corner of exactly 0 for a blank one. This is nothing in any unit.
constexpr double ZERO_PRESSURE = 1e-30;

/// Directions whose length differs less from 1 have it.
constexpr double SMALL = 1e-12;

constexpr std::size_t IDS_A_CARD = 6; // of a PLOAD2

/// The quadrilateral faces of a wedge by its corners, around the outward normal, and two corners by which the converter
/// finds the face. The last face has no diagonal that it finds: G3 and G1 stand for it.
struct T_WEDGEFACE_D {
    std::array<std::size_t, 4> iCORNERS;
    std::size_t iFIRST, iOTHER; // places in iCORNERS
};
constexpr T_WEDGEFACE_D WEDGE_FACES[] = {
    {{0, 1, 4, 3}, 1, 3},
    {{1, 2, 5, 4}, 1, 3},
    {{2, 0, 3, 5}, 0, 1},
};

bool IsProjected(const CCardFields& rCard) {
    return rCard.Is(3, "LEPR") || rCard.Is(3, "FRPR");
}

/// Whether TYPE is along the axes of the element, where nothing is projected.
bool IsInElementAxes(const CCardFields& rCard) {
    return rCard.Text(2).size() == 3;
}

/// A PLOAD1 at one point.
bool IsAtPoint(const CCardFields& rCard) {
    return rCard.IsBlank(6) || rCard.Real(6) == rCard.Real(4);
}

/// The forces of a pressure on a triangle, a third at each corner.
T_VECTOR ThirdOfTriangle(const T_VECTOR& rA, const T_VECTOR& rB, const T_VECTOR& rC, double dPressure) {
    return Scale(Cross(Subtract(rB, rA), Subtract(rC, rA)), dPressure / 6.0);
}

} // namespace

const std::vector<T_RULE_D> CElementLoadRules::RULES = {
    {"pressure-list", CLASS_NOTE, "PLOAD2 PLOAD4", "THRU, lists over lines",
     "restated: the elements that there are by their ids", "thru fields-past-read"},
    {"pressure-nothing", CLASS_MODEL, "PLOAD2 PLOAD4", "a THRU without any plate of the deck",
     "left out: pressures on plates that the deck lacks"},
    {"pressure-zero", CLASS_NOTE, "PLOAD4", "a corner of 0.0", "restated: corners of 0.0 as 1.E-30", "meaning"},
    {"pressure-direction", CLASS_NOTE, "PLOAD4", "a CID, a direction of another length than 1, SORL SURF",
     "restated: a direction of length 1 in basic axes, or none", "fields"},
    {"pressure-unknown", CLASS_MODEL, "PLOAD4", "a direction in a CID that is no frame",
     "left out: pressures whose direction isn't known"},
    {"pressure-turning", CLASS_MODEL, "PLOAD4", "a direction in a cylindrical or spherical CID",
     "a direction that turns over the element is that at its centre"},
    {"pressure-edge", CLASS_MODEL, "PLOAD4", "SORL LINE", "left out: loads on the edges of plates"},
    {"pressure-wedge", CLASS_NOTE, "PLOAD4", "a face of a CPENTA",
     "restated: a face by the grids that the converter finds it by", "pload4-face"},
    {"pressure-wedge-face", CLASS_MODEL, "PLOAD4", "a face of a CPENTA with grids at one place",
     "left out: pressures on faces that the converter doesn't find"},
    {"pressure-corners", CLASS_MODEL, "PLOAD4", "corners of a solid's face that differ",
     "the pressures of a solid's corners go in the order of the card: whether the file means them so isn't known"},
    {"patch-plate", CLASS_NOTE, "PLOAD", "a pressure on the grids of a plate", "restated: a PLOAD4 on the plate",
     "skipped"},
    {"patch-forces", CLASS_NOTE, "PLOAD", "a pressure between grids", "restated: forces on the grids", "skipped"},
    {"patch-grids", CLASS_MODEL, "PLOAD", "grids that the deck lacks", "left out: pressures between unknown grids"},
    {"beam-form", CLASS_NOTE, "PLOAD1", "blank P2, X2 as X1, SCALE FRPR",
     "restated: P2, X2 and SCALE as the converter reads them", "meaning pload1-scale pload1-concentrated"},
    {"beam-position", CLASS_MODEL, "PLOAD1", "X2 in front of X1, or FRPR on an element without length",
     "left out: loads whose stretch isn't known"},
    {"beam-element", CLASS_MODEL, "PLOAD1", "an element that the deck lacks",
     "left out: loads on elements that the deck lacks"},
};

std::vector<T_CARDRULES_D> CElementLoadRules::GetCards() {
    return {
        {"PLOAD",
         [this](const CCardFields&, std::uint32_t) {
             m_bPatches = true;
             return NEED_ALWAYS;
         },
         [this](CRestateCard& rCard) { RestatePLOAD(rCard); }},
        {"PLOAD1", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherPLOAD1(rCard, iCard); },
         [this](CRestateCard& rCard) { RestatePLOAD1(rCard); }},
        {"PLOAD2", [this](const CCardFields& rCard, std::uint32_t) { return GatherPLOAD2(rCard); },
         [this](CRestateCard& rCard) { RestatePLOAD2(rCard); }},
        {"PLOAD4", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherPLOAD4(rCard, iCard); },
         [this](CRestateCard& rCard) { RestatePLOAD4(rCard); }},
    };
}

std::uint8_t CElementLoadRules::GatherPLOAD1(const CCardFields& rCard, std::uint32_t iCard) {
    const bool bForm = IsAtPoint(rCard) ? rCard.IsBlank(6) && rCard.IsBlank(7) && !IsProjected(rCard)
                                        : rCard.Real(6) > rCard.Real(4) && !rCard.IsBlank(7) && !rCard.Is(3, "FRPR") &&
                                              !(IsProjected(rCard) && IsInElementAxes(rCard));
    if (!bForm) return NEED_ALWAYS;
    m_aLater.push_back({iCard, rCard.Int(1), false, false});
    return NEED_NOTHING;
}

/// Six ids at most, of which none is missing, are read as they stand.
std::uint8_t CElementLoadRules::GatherPLOAD2(const CCardFields& rCard) {
    bool bList = rCard.GetCount() > 2 + IDS_A_CARD;
    for (std::size_t i = 2; i < rCard.GetCount(); ++i) bList = bList || !rCard.HasInt(i);
    return bList ? NEED_ALWAYS : NEED_NOTHING;
}

std::uint8_t CElementLoadRules::GatherPLOAD4(const CCardFields& rCard, std::uint32_t iCard) {
    if (rCard.GetCount() > 8 || rCard.Is(6, "THRU")) return NEED_ALWAYS;
    bool bVaries = false;
    for (std::size_t i = 3; i < 6; ++i) {
        if (rCard.IsBlank(i)) continue;
        if (rCard.Real(i) == 0.0 && rCard.Real(2) != 0.0) return NEED_ALWAYS;
        bVaries = bVaries || rCard.Real(i) != rCard.Real(2);
    }
    if (!rCard.IsBlank(6)) m_aLater.push_back({iCard, rCard.Int(1), true, bVaries});
    return NEED_NOTHING;
}

void CElementLoadRules::Close() {
    for (const T_LATER_D& rLater : m_aLater) {
        const bool bSolid = rLater.bPRESSURE && m_elements.GetKind(rLater.iEID) == ELEMENT_SOLID;
        const bool bReason = rLater.bPRESSURE
                                 ? bSolid && (rLater.bVARIES || m_elements.GetKeyword(rLater.iEID) == "CPENTA")
                                 : !m_rModel.m_elements.Has(rLater.iEID);
        if (bReason) m_rCards[rLater.iCARD].nNEEDS = NEED_ALWAYS;
    }
}

void CElementLoadRules::Begin() {
    if (!m_bPatches) return;
    for (const auto& [iEID, iPlace] : m_rModel.m_elements.GetRows()) {
        if (m_elements.GetKind(iEID) != ELEMENT_PLATE) continue;
        const std::vector<std::int32_t> aCorners = m_elements.GetCorners(iEID);
        T_PLATE_D plate{iEID, {}};
        std::copy(aCorners.begin(), aCorners.end(), plate.iCORNERS.begin());
        T_CORNERS sorted = plate.iCORNERS;
        std::sort(sorted.begin(), sorted.end());
        m_mapPlates.try_emplace(sorted, plate);
    }
}

/// A pressure on the very grids of a plate is one on that, to the side that the order of the grids tells.
void CElementLoadRules::RestatePLOAD(CRestateCard& rCard) {
    const T_CORNERS corners = {rCard.Int(2), rCard.Int(3), rCard.Int(4), rCard.Int(5)};
    T_CORNERS sorted = corners;
    std::sort(sorted.begin(), sorted.end());
    const auto pPlate = m_mapPlates.find(sorted);
    if (pPlate != m_mapPlates.end()) {
        const T_CORNERS& rPlate = pPlate->second.iCORNERS;
        const std::size_t nCorners = rPlate[3] == 0 ? 3 : 4;
        const auto iFirst =
            static_cast<std::size_t>(std::find(rPlate.begin(), rPlate.end(), corners[0]) - rPlate.begin());
        const auto isSame = [&](std::size_t nStep) {
            for (std::size_t i = 0; i < nCorners; ++i) {
                if (corners[i] != rPlate[(iFirst + i * nStep) % nCorners]) return false;
            }
            return true;
        };
        const bool bAlong = isSame(1);
        if (bAlong || isSame(nCorners - 1)) {
            rCard.Write("PLOAD4", {rCard.Int(0), pPlate->second.iEID, rCard.Real(1) * (bAlong ? 1.0 : -1.0)});
            return rCard.Tell(RULES[PATCH_PLATE]);
        }
    }
    if (!SpreadPressure(rCard, corners)) {
        rCard.Drop();
        rCard.Tell(RULES[PATCH_GRIDS]);
    }
}

/// A quadrilateral is cut into triangles along both diagonals, each with half the pressure. False if a grid isn't
/// known.
bool CElementLoadRules::SpreadPressure(CRestateCard& rCard, const T_CORNERS& rCorners) {
    const std::size_t nCorners = rCorners[3] == 0 ? 3 : 4;
    std::array<T_VECTOR, 4> positions, forces = {};
    for (std::size_t i = 0; i < nCorners; ++i) {
        const T_VECTOR* pPosition = m_rModel.FindPosition(rCorners[i]);
        if (!pPosition) return false;
        positions[i] = *pPosition;
    }
    const double dPressure = rCard.Real(1);
    const std::size_t nTriangles = nCorners == 3 ? 1 : 4;
    for (std::size_t i = 0; i < nTriangles; ++i) {
        const std::size_t iB = (i + 1) % nCorners, iC = (i + 2) % nCorners;
        const T_VECTOR third =
            ThirdOfTriangle(positions[i], positions[iB], positions[iC], nTriangles == 1 ? dPressure : dPressure / 2.0);
        for (const std::size_t k : {i, iB, iC}) forces[k] = Add(forces[k], third);
    }
    for (std::size_t i = 0; i < nCorners; ++i) {
        if (!IsFinite(forces[i])) return false;
    }
    for (std::size_t i = 0; i < nCorners; ++i) {
        rCard.Write("FORCE", {rCard.Int(0), rCorners[i], {}, 1.0, forces[i][0], forces[i][1], forces[i][2]});
    }
    rCard.Tell(RULES[PATCH_FORCES]);
    return true;
}

/// The converter takes a load without X2 for one at a point, and knows projected loads by length alone.
void CElementLoadRules::RestatePLOAD1(CRestateCard& rCard) {
    const std::int32_t iEID = rCard.Int(1);
    const double dX1 = rCard.Real(4), dP1 = rCard.Real(5), dX2 = rCard.Real(6);
    rCard.Real(7);
    const auto drop = [&](E_RULE eRule) {
        rCard.Drop();
        rCard.Tell(RULES[eRule]);
    };
    if (!m_rModel.m_elements.Has(iEID)) return drop(BEAM_ELEMENT);
    const bool bPoint = IsAtPoint(rCard);
    if (!bPoint && !(dX2 > dX1)) return drop(BEAM_POSITION);
    if (bPoint) {
        rCard.Set(6, {});
        rCard.Set(7, {});
    } else if (rCard.IsBlank(7)) {
        rCard.Set(7, dP1);
    }
    if (IsProjected(rCard) && (bPoint || IsInElementAxes(rCard))) {
        rCard.Set(3, rCard.Text(3).substr(0, 2));
    } else if (rCard.Is(3, "FRPR")) {
        const double dLength = GetLength(iEID);
        if (!(dX2 * dLength > 0.0) || !std::isfinite(dX2 * dLength)) return drop(BEAM_POSITION);
        rCard.Set(3, "LEPR");
        rCard.Set(4, dX1 * dLength);
        rCard.Set(6, dX2 * dLength);
    }
    rCard.Tell(RULES[BEAM_FORM]);
}

/// Zero if it isn't known.
double CElementLoadRules::GetLength(std::int32_t iEID) {
    const std::vector<std::int32_t> aGrids = m_elements.GetCorners(iEID);
    if (aGrids.size() != 2) return 0.0;
    const T_VECTOR *pA = m_rModel.FindPosition(aGrids[0]), *pB = m_rModel.FindPosition(aGrids[1]);
    return pA && pB ? Length(Subtract(*pB, *pA)) : 0.0;
}

void CElementLoadRules::RestatePLOAD2(CRestateCard& rCard) {
    const std::vector<std::int32_t> aIds = m_elements.ReadList(rCard, 2, ELEMENT_PLATE);
    rCard.Drop();
    rCard.Tell(RULES[aIds.empty() ? PRESSURE_NOTHING : PRESSURE_LIST]);
    for (std::size_t i = 0; i < aIds.size(); i += IDS_A_CARD) {
        std::vector<CFieldValue> aFields = {rCard.Int(0), rCard.Real(1)};
        aFields.insert(aFields.end(), aIds.begin() + static_cast<std::ptrdiff_t>(i),
                       aIds.begin() + static_cast<std::ptrdiff_t>(std::min(i + IDS_A_CARD, aIds.size())));
        rCard.Write("PLOAD2", std::move(aFields));
    }
}

void CElementLoadRules::RestatePLOAD4(CRestateCard& rCard) {
    m_told.clear();
    if (rCard.Is(12, "LINE")) {
        rCard.Drop();
        return rCard.Tell(RULES[PRESSURE_EDGE]);
    }
    if (!rCard.Is(6, "THRU")) return WritePressure(rCard, rCard.Int(1), true);
    const std::vector<std::int32_t> aIds = m_elements.GetRange(rCard.Int(1), rCard.Int(7), ELEMENT_PLATE);
    rCard.Drop();
    rCard.Tell(RULES[aIds.empty() ? PRESSURE_NOTHING : PRESSURE_LIST]);
    for (const std::int32_t iEID : aIds) WritePressure(rCard, iEID, false);
}

/// Writes the card for one element. One that stands alone stays as it is if it can.
void CElementLoadRules::WritePressure(CRestateCard& rCard, std::int32_t iEID, bool bAlone) {
    std::vector<CFieldValue> aFields;
    for (std::size_t i = 0; i < std::max<std::size_t>(rCard.GetCount(), 12); ++i) aFields.emplace_back(rCard.Text(i));
    bool bVaries = false;
    for (std::size_t i = 3; i < 6; ++i) bVaries = rCard.Real(i, rCard.Real(2)) != rCard.Real(2) || bVaries;
    bool bChanged = !bAlone;
    if (!bAlone) {
        aFields[1] = iEID;
        aFields[6] = aFields[7] = {};
    }
    if (!SetDirection(rCard, iEID, aFields)) return rCard.Drop();
    if (bAlone && !rCard.IsBlank(6) && m_elements.GetKind(iEID) == ELEMENT_SOLID) {
        const bool bWedge = m_elements.GetKeyword(iEID) == "CPENTA";
        if (bWedge && !SetWedgeFace(rCard, m_elements.GetCorners(iEID), aFields)) return rCard.Drop();
        if (bVaries) rCard.Tell(RULES[PRESSURE_CORNERS]);
    }
    const auto valueOf = [&](std::size_t i) {
        double dValue = 0.0;
        ReadReal(aFields[i].GetText(), dValue);
        return dValue;
    };
    bool bZero = false;
    for (std::size_t i = 3; i < 6; ++i) {
        if (aFields[i].GetText().empty() || valueOf(i) != 0.0 || valueOf(2) == 0.0) continue;
        aFields[i] = ZERO_PRESSURE;
        bZero = true;
    }
    if (bZero) TellOnce(rCard, PRESSURE_ZERO);
    for (std::size_t i = 0; i < aFields.size(); ++i) {
        bChanged = bChanged || aFields[i].GetText() != CFieldValue(rCard.Text(i)).GetText();
    }
    if (bChanged) rCard.Write("PLOAD4", std::move(aFields));
}

/// Puts a direction into basic axes. False if it isn't known.
bool CElementLoadRules::SetDirection(CRestateCard& rCard, std::int32_t iEID, std::vector<CFieldValue>& rFields) {
    const T_VECTOR components = {rCard.Real(9), rCard.Real(10), rCard.Real(11)};
    const std::int32_t iCID = rCard.Int(8);
    const bool bNormal = IsZero(components);
    const bool bUnit = bNormal || std::fabs(Length(components) - 1.0) < SMALL;
    const bool bSurface = !rCard.IsBlank(12) || !rCard.IsBlank(13);
    if (iCID == 0 && bUnit && !bSurface) return true;
    for (std::size_t i = 8; i < rFields.size(); ++i) rFields[i] = {};
    if (bNormal) {
        TellOnce(rCard, PRESSURE_DIRECTION);
        return true;
    }
    const T_FRAME_D* pFrame = m_rModel.FindFrame(iCID);
    const bool bAxial = components[0] == 0.0 && components[1] == 0.0;
    const bool bTurns = pFrame && pFrame->eKIND != FRAME_RECTANGULAR && !(pFrame->eKIND == FRAME_CYLINDRICAL && bAxial);
    T_VECTOR centre = {};
    T_VECTOR direction = {};
    if (pFrame && (!bTurns || FindCentre(iEID, centre))) direction = pFrame->VectorToBasic(components, centre);
    if (!bUnit) direction = Unit(direction);
    const bool bKnown = IsFinite(direction) && !IsZero(direction);
    TellOnce(rCard, !bKnown ? PRESSURE_UNKNOWN : bTurns ? PRESSURE_TURNING : PRESSURE_DIRECTION);
    for (std::size_t i = 0; i < 3; ++i) rFields[9 + i] = direction[i];
    return bKnown;
}

/// Tells of a card that is written for many elements.
void CElementLoadRules::TellOnce(CRestateCard& rCard, std::size_t iRule) {
    if (!m_told.insert(iRule).second) return;
    rCard.Tell(RULES[iRule]);
}

/// The middle of an element's corners. False if there is no such element, or one of its grids isn't known.
bool CElementLoadRules::FindCentre(std::int32_t iEID, T_VECTOR& rCentre) {
    const std::vector<std::int32_t> aCorners = m_elements.GetCorners(iEID);
    for (const std::int32_t iGrid : aCorners) {
        const T_VECTOR* pPosition = m_rModel.FindPosition(iGrid);
        if (!pPosition) return false;
        rCentre = Add(rCentre, Scale(*pPosition, 1.0 / static_cast<double>(aCorners.size())));
    }
    return !aCorners.empty();
}

/// Names a wedge's face by grids that the converter finds it by; the pressures go along with their corners. A name that
/// means no face stays. False if there are no such grids.
bool CElementLoadRules::SetWedgeFace(CRestateCard& rCard, const std::vector<std::int32_t>& rCorners,
                                     std::vector<CFieldValue>& rFields) {
    constexpr std::size_t SLOTS[] = {0, 1, 2, 4, 5, 6};
    T_ELEM_D wedge;
    wedge.iTYPE = TYPE_SOLID;
    wedge.iSUBTYPE = SHAPE_PENTA;
    for (std::size_t i = 0; i < rCorners.size(); ++i) wedge.iNODE.Set(SLOTS[i], rCorners[i]);
    const std::int32_t iG1 = rCard.Int(6), iG34 = rCard.Int(7);
    const int iFace = wedge.FindWedgeFace(iG1, iG34);
    if (iFace == 0 || wedge.FindSolidFaceByNodes(iG1, iG34) == iFace) return true;
    std::array<std::size_t, 4> corners = {3, 4, 5, 5}; // of the triangle whose last corner isn't found
    std::size_t nCorners = 3, iFirst = 0, iOther = 0;
    if (iFace > 2) {
        const T_WEDGEFACE_D& rFace = WEDGE_FACES[iFace - 3];
        corners = rFace.iCORNERS;
        nCorners = 4;
        iFirst = rFace.iFIRST;
        iOther = rFace.iOTHER;
    }
    const std::int32_t iNew = rCorners[corners[iFirst]], iNewOther = nCorners == 4 ? rCorners[corners[iOther]] : 0;
    std::size_t iOld = 0;
    while (iOld + 1 < nCorners && rCorners[corners[iOld]] != iG1) ++iOld;
    if (wedge.FindSolidFaceByNodes(iNew, iNewOther) != iFace) {
        rCard.Tell(RULES[PRESSURE_WEDGE_FACE]);
        return false;
    }
    rFields[6] = iNew;
    rFields[7] = nCorners == 4 ? CFieldValue(iNewOther) : CFieldValue();
    std::array<double, 4> pressures;
    for (std::size_t i = 0; i < 4; ++i) pressures[i] = rCard.Real(2 + i, rCard.Real(2));
    const bool bUniform = std::all_of(pressures.begin(), pressures.begin() + static_cast<std::ptrdiff_t>(nCorners),
                                      [&](double d) { return d == pressures[0]; });
    for (std::size_t i = 0; i < nCorners && !bUniform; ++i) {
        rFields[2 + i] = pressures[(iFirst + nCorners - iOld + i) % nCorners];
    }
    rCard.Tell(RULES[PRESSURE_WEDGE]);
    return true;
}
