// Collects the supports and loads of a scene from the rows of the target file.

#include "nas2zdt/picture/Scene.h"

#include "writer/rows/ConstraintRows.h"
#include "writer/rows/ElementRows.h"
#include "writer/rows/LoadRows.h"

#include <algorithm>
#include <cmath>

namespace {

void Hold(T_SCEN_D& rScene, std::int32_t iNode, const std::array<bool, 6>& rComponents) {
    std::uint8_t nHeld = 0;
    for (std::size_t i = 0; i < rComponents.size(); ++i) {
        if (rComponents[i]) nHeld = static_cast<std::uint8_t>(nHeld | 1u << i);
    }
    if (nHeld == 0) return;
    const std::uint32_t iPlace = rScene.index.Find(iNode);
    if (iPlace == CKeyIndex::NONE) {
        ++rScene.aCOUNTS[KIND_SUPPORT].nWITHOUTNODES;
    } else {
        rScene.aHELD[iPlace] |= nHeld;
    }
}

void AddArrow(T_SCEN_D& rScene, const T_ARRW_D& rArrow) {
    if (IsFinite(rArrow.at) && rArrow.direction != T_VECTOR{}) rScene.aARROWS.push_back(rArrow);
}

void AddNodalLoad(T_SCEN_D& rScene, E_KIND iKind, std::int32_t iCase, const T_NODALLOAD_ROW& rRow) {
    const std::uint32_t iPlace = rScene.index.Find(rRow.iNODE);
    if (iPlace == CKeyIndex::NONE) {
        ++rScene.aCOUNTS[iKind].nWITHOUTNODES;
        return;
    }
    ++rScene.aCOUNTS[iKind].nPRESENT;
    const T_VECTOR value = {rRow.dX, rRow.dY, rRow.dZ};
    AddArrow(rScene, {iKind,
                      rScene.aPOINTS[iPlace],
                      Unit(value),
                      Largest(value),
                      rRow.iNODE,
                      iCase,
                      {value[0], value[1], value[2], 0.0}});
}

/// Normal of a face, by the right hand rule. Diagonals are of length 1, so that large coordinates don't overflow.
T_VECTOR Normal(const T_SHAP_D& rFace, const std::vector<T_VECTOR>& aPoints) {
    const auto Point = [&](std::size_t i) -> const T_VECTOR& { return aPoints[rFace.aCORNERS[i]]; };
    const T_VECTOR first = Unit(Subtract(Point(2), Point(0)));
    return Unit(Cross(first, Unit(Subtract(Point(rFace.nCORNERS - 1u), Point(1)))));
}

/// A pressure goes along its direction, else along the normal of a plate or into a solid.
void AddPressure(const CDataPool& rDataPool, T_SCEN_D& rScene, std::int32_t iCase, const T_CORNERPRESSURE_ROW& rRow) {
    T_PART_D part;
    const bool bFound = FindElement(rDataPool, rScene, rRow.iEID, part);
    T_CONT_D& rCount = rScene.aCOUNTS[KIND_PRESSURE];
    ++(bFound ? rCount.nPRESENT : rCount.nWITHOUTNODES);
    if (!bFound) return;
    if (rRow.bSOLID && rRow.iFACE == 0) {
        ++rScene.nFACELESS;
        return;
    }
    const T_SHAP_D face = FaceOfPart(part, rRow.bSOLID ? static_cast<std::size_t>(rRow.iFACE - 1) : 0);
    const T_VECTOR at = Middle(face.aCORNERS, face.nCORNERS, rScene.aPOINTS);
    T_VECTOR direction = Normal(face, rScene.aPOINTS);
    if (rRow.bSOLID) {
        const T_VECTOR inward = Subtract(Middle(part.aNODES, CELL_CORNERS[part.iCELL], rScene.aPOINTS), at);
        if (Dot(direction, inward) < 0.0) direction = Subtract({}, direction);
    }
    if (rRow.bVECTOR) direction = Unit(rRow.dN);
    const auto& [p1, p2, p3, p4] = rRow.dP;
    if (p1 + p2 + p3 + p4 < 0.0) direction = Subtract({}, direction); // mixed signs: by their sum
    const double dSize = std::abs(p1) + std::abs(p2) + std::abs(p3) + std::abs(p4);
    AddArrow(rScene, {KIND_PRESSURE, at, direction, dSize, rRow.iEID, iCase, rRow.dP});
}

void AddGravity(T_SCEN_D& rScene, std::int32_t iCase, const T_GRAVITY_ROW& rRow) {
    ++rScene.aCOUNTS[KIND_GRAVITY].nPRESENT;
    const T_VECTOR direction = Unit({rRow.dX, rRow.dY, rRow.dZ});
    std::vector<T_ARRW_D>& rKnown = rScene.aGRAVITY;
    constexpr std::size_t MOST_DIRECTIONS = 6; // as many as fit into the picture
    if (direction == T_VECTOR{} || rKnown.size() == MOST_DIRECTIONS) return;
    const bool bNew = std::none_of(rKnown.begin(), rKnown.end(),
                                   [&](const T_ARRW_D& rOther) { return rOther.direction == direction; });
    if (bNew) rKnown.push_back({KIND_GRAVITY, {}, direction, 1.0, 0, iCase, {rRow.dX, rRow.dY, rRow.dZ, 0.0}});
}

/// From the middle of a beam to its reference point, at a right angle.
void AddReference(T_SCEN_D& rScene, const T_BEAM_ROW& rRow) {
    const std::uint32_t iFrom = rScene.index.Find(rRow.iNODE1), iTo = rScene.index.Find(rRow.iNODE2);
    if (iFrom == CKeyIndex::NONE || iTo == CKeyIndex::NONE) return;
    const T_VECTOR& rFrom = rScene.aPOINTS[iFrom];
    const T_VECTOR& rTo = rScene.aPOINTS[iTo];
    const T_VECTOR axis = Unit(Subtract(rTo, rFrom));
    const T_VECTOR reference = Unit(Subtract({rRow.dX, rRow.dY, rRow.dZ}, rFrom));
    const T_VECTOR side = Unit(Cross(Unit(Cross(axis, reference)), axis));
    const T_VECTOR middle = {rFrom[0] / 2 + rTo[0] / 2, rFrom[1] / 2 + rTo[1] / 2, rFrom[2] / 2 + rTo[2] / 2};
    AddArrow(rScene, {KIND_REFERENCE, middle, side, 0.0, rRow.iEID});
}

} // namespace

void CollectSupports(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    rScene.aHELD.assign(rScene.aIDS.size(), 0);
    const auto hold = [&](const T_CONSTRAINT_ROW& r) { Hold(rScene, r.iNODE, r.bDOF); };
    ForEachConstraint(rDataPool, CRowVisitor{hold, IGNORE_LEFT});
    for (const std::uint8_t nHeld : rScene.aHELD) {
        if (nHeld != 0) ++rScene.aCOUNTS[nHeld == ALL_HELD ? KIND_FIXED : KIND_SUPPORT].nPRESENT;
    }
    const CRowVisitor references{
        [&](const T_BEAM_ROW& r) { AddReference(rScene, r); },
        [](const auto&) {},
    };
    ForEachElement(rDataPool, references);
}

void CollectLoads(const CDataPool& rDataPool, std::optional<std::int32_t> iCase, T_SCEN_D& rScene) {
    std::erase_if(rScene.aARROWS, [](const T_ARRW_D& r) { return r.iKIND != KIND_REFERENCE; });
    rScene.aGRAVITY.clear();
    rScene.iCASE = iCase;
    rScene.nCASES = rScene.nFACELESS = 0;
    for (const E_KIND iKind : {KIND_FORCE, KIND_MOMENT, KIND_PRESSURE, KIND_GRAVITY}) rScene.aCOUNTS[iKind] = {};
    ForEachLoadCase(rDataPool, [&](const T_LOADCASE_ROW& rCase) {
        const std::int32_t iSID = rCase.iSID;
        if (iCase && *iCase != iSID) return;
        const auto force = [&](const T_NODALLOAD_ROW& r) { AddNodalLoad(rScene, KIND_FORCE, iSID, r); };
        const auto moment = [&](const T_NODALLOAD_ROW& r) { AddNodalLoad(rScene, KIND_MOMENT, iSID, r); };
        const CRowVisitor pressure{
            [&](const T_CORNERPRESSURE_ROW& r) { AddPressure(rDataPool, rScene, iSID, r); },
            [&](const T_UNIFORMPRESSURE_ROW& r) {
                AddPressure(rDataPool, rScene, iSID, {r.iEID, false, 0, false, {}, {r.dP, r.dP, r.dP, r.dP}});
            },
            IGNORE_LEFT,
        };
        ++rScene.nCASES;
        ForEachGravity(rCase.rSET, [&](const T_GRAVITY_ROW& r) { AddGravity(rScene, iSID, r); });
        ForEachNodalLoad(rDataPool, rCase.rSET, LOAD_FORCE, CRowVisitor{force, IGNORE_LEFT});
        ForEachNodalLoad(rDataPool, rCase.rSET, LOAD_MOMENT, CRowVisitor{moment, IGNORE_LEFT});
        ForEachPressure(rDataPool, rCase.rSET, pressure);
    });
}
