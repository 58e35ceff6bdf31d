// Supports, loads and beam references of a picture.

#include "picture/Scene.h"
#include "writer/LoadValues.h"

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

/// The file holds the first set of the store, and what nodes hold by themselves as long as there is a set.
void CollectSupports(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    if (rDataPool.CNST.IsEmpty()) return;
    for (const auto& [iSet, rSet] : rDataPool.CNST.Walk()) {
        for (const T_CNND_D& rEntry : rSet.aCNND) Hold(rScene, rEntry.iNODE, rEntry.bDOF);
        break;
    }
    for (const auto& [iID, rNode] : rDataPool.NODS.Sorted()) Hold(rScene, iID, rNode.bPS);
    for (const std::uint8_t nHeld : rScene.aHELD) {
        if (nHeld != 0) ++rScene.aCOUNTS[nHeld == 0x3F ? KIND_FIXED : KIND_SUPPORT].nPRESENT;
    }
}

void AddArrow(T_SCEN_D& rScene, E_KIND iKind, const T_VECT_D& at, const T_VECT_D& direction, double dSize) {
    if (IsFinite(at) && direction != T_VECT_D{}) rScene.aARROWS.push_back({iKind, at, direction, dSize});
}

void AddNodalLoad(T_SCEN_D& rScene, const T_MBLD_D& rEntry) {
    const T_VECT_D value = {rEntry.dV[0], rEntry.dV[1], rEntry.dV[2]};
    if (!(std::abs(value[0]) + std::abs(value[1]) + std::abs(value[2]) > NO_LOAD)) return;
    const E_KIND iKind = rEntry.iKIND == LOAD_FORCE ? KIND_FORCE : KIND_MOMENT;
    const std::uint32_t iPlace = rScene.index.Find(rEntry.iID);
    if (iPlace == CKeyIndex::NONE) {
        ++rScene.aCOUNTS[iKind].nWITHOUTNODES;
        return;
    }
    ++rScene.aCOUNTS[iKind].nPRESENT;
    const double dLargest = Largest(value);
    AddArrow(rScene, iKind, rScene.aPOINTS[iPlace], Unit(value), dLargest);
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

/// A pressure goes along its direction, else along the normal of a plate or into a solid.
void AddPressure(const CDataPool& rDataPool, T_SCEN_D& rScene, const T_MBLD_D& rEntry) {
    double dSum = 0.0;
    for (std::size_t i = 0; i < 4; ++i) dSum += std::abs(rEntry.dV[i]);
    const T_ELEM_D* pElement = rDataPool.ELEM.Find(rEntry.iID);
    if (dSum <= NO_LOAD || !pElement) return;
    T_PART_D part;
    const int iFound = FindCorners(rScene, *pElement, part);
    if (part.iKIND != KIND_PLANE_STRESS && part.iKIND != KIND_PLATE && part.iKIND != KIND_SOLID) return;
    if (iFound < 0) {
        ++rScene.aCOUNTS[KIND_PRESSURE].nWITHOUTNODES;
        return;
    }
    ++rScene.aCOUNTS[KIND_PRESSURE].nPRESENT;

    T_VECT_D direction = Unit({rEntry.dN[0], rEntry.dN[1], rEntry.dN[2]});
    T_VECT_D at = {};
    if (part.iKIND == KIND_SOLID) {
        const int iFace = part.iCELL == CELL_TETRA ? pElement->FindSolidFaceByNode(rEntry.iFACEG34)
                                                   : pElement->FindSolidFaceByNodes(rEntry.iFACEG1, rEntry.iFACEG34);
        if (iFace == 0) {
            ++rScene.nFACELESS;
            return;
        }
        const auto& rCorners = FacesOf(part.iCELL).aCORNERS[static_cast<std::size_t>(iFace - 1)];
        at = Centre(rScene, part, rCorners, rCorners[3] == NO_CORNER ? 3 : 4);
        if (direction == T_VECT_D{}) {
            direction = Normal(rScene, part, rCorners);
            const T_VECT_D inward = Minus(Centre(rScene, part, ALL_CORNERS, CELL_CORNERS[part.iCELL]), at);
            if (Dot(direction, inward) < 0.0) direction = Minus({}, direction);
        }
    } else {
        const std::size_t nCorners = CELL_CORNERS[part.iCELL];
        at = Centre(rScene, part, ALL_CORNERS, nCorners);
        if (direction == T_VECT_D{}) {
            direction = Normal(rScene, part, {0, 1, 2, nCorners == 3 ? NO_CORNER : std::uint8_t{3}});
        }
    }
    // A pressure of mixed signs points where most of it points.
    const double dNet = rEntry.dV[0] + rEntry.dV[1] + rEntry.dV[2] + rEntry.dV[3];
    if (dNet < 0.0) direction = Minus({}, direction);
    AddArrow(rScene, KIND_PRESSURE, at, direction, dSum);
}

void AddGravity(T_SCEN_D& rScene, const T_LOAD_D& rSet) {
    ++rScene.aCOUNTS[KIND_GRAVITY].nPRESENT;
    const T_VECT_D direction = Unit({rSet.dGRAVX, rSet.dGRAVY, rSet.dGRAVZ});
    std::vector<T_VECT_D>& rKnown = rScene.aGRAVITY;
    constexpr std::size_t MOST_DIRECTIONS = 6; // more than fit into the picture
    if (direction == T_VECT_D{} || rKnown.size() == MOST_DIRECTIONS) return;
    if (std::find(rKnown.begin(), rKnown.end(), direction) == rKnown.end()) rKnown.push_back(direction);
}

void CollectReferences(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    for (const T_PART_D& rPart : rScene.aPARTS) {
        if (rPart.iKIND != KIND_BEAM) continue;
        const T_ELEM_D* pElement = rDataPool.ELEM.Find(rPart.iID);
        if (!pElement || pElement->iTYPE == TYPE_TUBE) continue; // a tube's line has no reference point
        const T_VECT_D& rFrom = rScene.aPOINTS[rPart.aNODES[0]];
        const T_VECT_D& rTo = rScene.aPOINTS[rPart.aNODES[1]];
        const T_VECT_D axis = Unit(Minus(rTo, rFrom));
        const T_VECT_D reference = Unit(Minus({pElement->dX1, pElement->dX2, pElement->dX3}, rFrom));
        const T_VECT_D side = Unit(Cross(Unit(Cross(axis, reference)), axis));
        const T_VECT_D middle = {rFrom[0] / 2 + rTo[0] / 2, rFrom[1] / 2 + rTo[1] / 2, rFrom[2] / 2 + rTo[2] / 2};
        AddArrow(rScene, KIND_REFERENCE, middle, side, 0.0);
    }
}

} // namespace

void CollectLoads(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    rScene.aHELD.assign(rScene.aIDS.size(), 0);
    CollectSupports(rDataPool, rScene);
    for (const auto& [iSet, rSet] : rDataPool.LOAD.Walk()) {
        ++rScene.nCASES;
        if (rSet.bGRAV) AddGravity(rScene, rSet);
        for (const T_MBLD_D& rEntry : rSet.aMBLD) {
            if (rEntry.iKIND == LOAD_FORCE || rEntry.iKIND == LOAD_MOMENT) AddNodalLoad(rScene, rEntry);
            if (rEntry.iKIND == LOAD_PRESSURE) AddPressure(rDataPool, rScene, rEntry);
        }
    }
    CollectReferences(rDataPool, rScene);
}
