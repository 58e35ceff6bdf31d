// Supports, loads and beam references of a picture.

#include "nas2zdt/picture/Scene.h"
#include "writer/rows/ConstraintRows.h"
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

void AddArrow(T_SCEN_D& rScene, E_KIND iKind, const T_VECT_D& at, const T_VECT_D& direction, double dSize) {
    if (IsFinite(at) && direction != T_VECT_D{}) rScene.aARROWS.push_back({iKind, at, direction, dSize});
}

void AddNodalLoad(T_SCEN_D& rScene, E_KIND iKind, const T_NODALLOAD_ROW& rRow) {
    const std::uint32_t iPlace = rScene.index.Find(rRow.iNODE);
    if (iPlace == CKeyIndex::NONE) {
        ++rScene.aCOUNTS[iKind].nWITHOUTNODES;
        return;
    }
    ++rScene.aCOUNTS[iKind].nPRESENT;
    const T_VECT_D value = {rRow.dX, rRow.dY, rRow.dZ};
    AddArrow(rScene, iKind, rScene.aPOINTS[iPlace], Unit(value), Largest(value));
}

/// Centre of some corners of a part.
template <class CORNERS>
T_VECT_D Centre(const T_SCEN_D& rScene, const T_PART_D& rPart, const CORNERS& rCorners, std::size_t nCorners) {
    T_VECT_D centre = {};
    for (std::size_t i = 0; i < nCorners; ++i) {
        const T_VECT_D& rPoint = rScene.aPOINTS[rPart.aNODES[rCorners[i]]];
        for (std::size_t k = 0; k < 3; ++k) centre[k] += rPoint[k] / static_cast<double>(nCorners);
    }
    return centre;
}

/// Normal of a face by its corners, by the right hand.
T_VECT_D Normal(const T_SCEN_D& rScene, const T_PART_D& rPart, const std::array<std::uint8_t, 4>& rCorners) {
    const auto Point = [&](std::size_t i) -> const T_VECT_D& { return rScene.aPOINTS[rPart.aNODES[rCorners[i]]]; };
    const T_VECT_D first = Unit(Minus(Point(2), Point(0)));
    const T_VECT_D second =
        rCorners[3] == NO_CORNER ? Unit(Minus(Point(2), Point(1))) : Unit(Minus(Point(3), Point(1)));
    return Unit(Cross(first, second));
}

constexpr std::array<std::uint8_t, 8> ALL_CORNERS = {0, 1, 2, 3, 4, 5, 6, 7};

/// Where the pressure on a solid points: into it, at the middle of its face.
void FindPush(const T_SCEN_D& rScene, const T_PART_D& rPart, std::int32_t iFace, T_VECT_D& rAt, T_VECT_D& rDirection) {
    const auto& rCorners = FacesOf(rPart.iCELL).aCORNERS[static_cast<std::size_t>(iFace - 1)];
    rAt = Centre(rScene, rPart, rCorners, rCorners[3] == NO_CORNER ? 3 : 4);
    rDirection = Normal(rScene, rPart, rCorners);
    const T_VECT_D inward = Minus(Centre(rScene, rPart, ALL_CORNERS, CELL_CORNERS[rPart.iCELL]), rAt);
    if (Dot(rDirection, inward) < 0.0) rDirection = Minus({}, rDirection);
}

/// A pressure goes along its direction, else along the normal of a plate or into a solid. iFace is 0 for a plate.
void AddPressure(const CDataPool& rDataPool, T_SCEN_D& rScene, const T_CORNERPRESSURE_ROW& rRow) {
    T_PART_D part;
    bool bFound = false;
    const CRowVisitor visitor{
        [&](const auto& rElement) { bFound = MakePart(rScene, rElement, part); },
        IGNORE_LEFT,
    };
    VisitElement(rDataPool, rRow.iEID, *rDataPool.ELEM.Find(rRow.iEID), visitor);
    T_CONT_D& rCount = rScene.aCOUNTS[KIND_PRESSURE];
    ++(bFound ? rCount.nPRESENT : rCount.nWITHOUTNODES);
    if (!bFound) return;

    T_VECT_D direction = {}, at = {};
    if (!rRow.bSOLID) {
        const std::size_t nCorners = CELL_CORNERS[part.iCELL];
        at = Centre(rScene, part, ALL_CORNERS, nCorners);
        direction = Normal(rScene, part, {0, 1, 2, nCorners == 3 ? NO_CORNER : std::uint8_t{3}});
    } else if (rRow.iFACE != 0) {
        FindPush(rScene, part, rRow.iFACE, at, direction);
    } else {
        ++rScene.nFACELESS;
        return;
    }
    if (rRow.bVECTOR) direction = Unit(rRow.dN);
    const auto& [p1, p2, p3, p4] = rRow.dP;
    if (p1 + p2 + p3 + p4 < 0.0) direction = Minus({}, direction); // one of mixed signs points where most of it points
    AddArrow(rScene, KIND_PRESSURE, at, direction, std::abs(p1) + std::abs(p2) + std::abs(p3) + std::abs(p4));
}

void AddGravity(T_SCEN_D& rScene, const T_GRAVITY_ROW& rRow) {
    ++rScene.aCOUNTS[KIND_GRAVITY].nPRESENT;
    const T_VECT_D direction = Unit({rRow.dX, rRow.dY, rRow.dZ});
    std::vector<T_VECT_D>& rKnown = rScene.aGRAVITY;
    constexpr std::size_t MOST_DIRECTIONS = 6; // more than fit into the picture
    if (direction == T_VECT_D{} || rKnown.size() == MOST_DIRECTIONS) return;
    if (std::find(rKnown.begin(), rKnown.end(), direction) == rKnown.end()) rKnown.push_back(direction);
}

/// From the middle of a beam to its reference point, at a right angle.
void AddReference(T_SCEN_D& rScene, const T_BEAM_ROW& rRow) {
    T_PART_D part;
    if (!MakePart(rScene, rRow, part)) return;
    const T_VECT_D& rFrom = rScene.aPOINTS[part.aNODES[0]];
    const T_VECT_D& rTo = rScene.aPOINTS[part.aNODES[1]];
    const T_VECT_D axis = Unit(Minus(rTo, rFrom));
    const T_VECT_D reference = Unit(Minus({rRow.dX, rRow.dY, rRow.dZ}, rFrom));
    const T_VECT_D side = Unit(Cross(Unit(Cross(axis, reference)), axis));
    const T_VECT_D middle = {rFrom[0] / 2 + rTo[0] / 2, rFrom[1] / 2 + rTo[1] / 2, rFrom[2] / 2 + rTo[2] / 2};
    AddArrow(rScene, KIND_REFERENCE, middle, side, 0.0);
}

} // namespace

void CollectLoads(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    rScene.aHELD.assign(rScene.aIDS.size(), 0);
    const auto hold = [&](const T_CONSTRAINT_ROW& r) { Hold(rScene, r.iNODE, r.bDOF); };
    ForEachConstraint(rDataPool, CRowVisitor{hold, IGNORE_LEFT});
    for (const std::uint8_t nHeld : rScene.aHELD) {
        if (nHeld != 0) ++rScene.aCOUNTS[nHeld == 0x3F ? KIND_FIXED : KIND_SUPPORT].nPRESENT;
    }
    const auto force = [&](const T_NODALLOAD_ROW& r) { AddNodalLoad(rScene, KIND_FORCE, r); };
    const auto moment = [&](const T_NODALLOAD_ROW& r) { AddNodalLoad(rScene, KIND_MOMENT, r); };
    const CRowVisitor pressure{
        [&](const T_CORNERPRESSURE_ROW& r) { AddPressure(rDataPool, rScene, r); },
        [&](const T_UNIFORMPRESSURE_ROW& r) {
            AddPressure(rDataPool, rScene, {r.iEID, false, 0, false, {}, {r.dP, 0.0, 0.0, 0.0}});
        },
        IGNORE_LEFT,
    };
    ForEachLoadCase(rDataPool, [&](const T_LOADCASE_ROW& rCase) {
        ++rScene.nCASES;
        ForEachGravity(rCase.rSET, [&](const T_GRAVITY_ROW& r) { AddGravity(rScene, r); });
        ForEachNodalLoad(rDataPool, rCase.rSET, LOAD_FORCE, CRowVisitor{force, IGNORE_LEFT});
        ForEachNodalLoad(rDataPool, rCase.rSET, LOAD_MOMENT, CRowVisitor{moment, IGNORE_LEFT});
        ForEachPressure(rDataPool, rCase.rSET, pressure);
    });
    const CRowVisitor references{
        [&](const T_BEAM_ROW& r) { AddReference(rScene, r); },
        [](const auto&) {},
    };
    ForEachElement(rDataPool, references);
}
