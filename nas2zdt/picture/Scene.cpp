// Collects a scene from the rows of the target file.

#include "nas2zdt/picture/Scene.h"

#include "writer/rows/ConstraintRows.h"
#include "writer/rows/ElementRows.h"
#include "writer/rows/LoadRows.h"
#include "writer/rows/SpringRows.h"

#include <algorithm>
#include <cmath>

namespace {

/// Fills in the corners. False if one of them doesn't exist.
template <class NODES>
bool FindCorners(const T_SCEN_D& rScene, const NODES& rNodes, T_PART_D& rPart) {
    bool bAll = true;
    const std::size_t nCorners = std::min<std::size_t>(CELL_CORNERS[rPart.iCELL], rNodes.size());
    for (std::size_t i = 0; i < nCorners; ++i) {
        rPart.aNODES[i] = rScene.index.Find(rNodes[i]);
        bAll = bAll && rPart.aNODES[i] != CKeyIndex::NONE;
    }
    return bAll;
}

/// Rows of elements: other rows have no material.
template <class ROW>
concept ELEMENT_ROW = requires(const ROW& r) {
    r.iMID;
};

/// Kind, cell and ids of a row of elements, and its corners. False if one of them doesn't exist.
template <ELEMENT_ROW ROW>
bool MakePart(const T_SCEN_D& rScene, const ROW& r, T_PART_D& rPart) {
    const E_KIND iKind = std::is_same_v<ROW, T_TRUSS_ROW> ? KIND_TRUSS : KIND_BEAM;
    rPart = {r.iEID, r.iPID, r.iMID, iKind, CELL_LINE, {}};
    return FindCorners(rScene, std::array{r.iNODE1, r.iNODE2}, rPart);
}
bool MakePart(const T_SCEN_D& rScene, const T_PLATE_ROW& r, T_PART_D& rPart) {
    const E_KIND iKind = r.bPLANESTRESS ? KIND_PLANE_STRESS : KIND_PLATE;
    rPart = {r.iEID, r.iPID, r.iMID, iKind, r.nCORNERS == 3 ? CELL_TRIA : CELL_QUAD, {}};
    return FindCorners(rScene, r.aNODES, rPart);
}
bool MakePart(const T_SCEN_D& rScene, const T_SOLID_ROW& r, T_PART_D& rPart) {
    const E_CELL iCell = r.nCORNERS == 4 ? CELL_TETRA : r.nCORNERS == 6 ? CELL_WEDGE : CELL_HEXA;
    rPart = {r.iEID, r.iPID, r.iMID, KIND_SOLID, iCell, {}};
    return FindCorners(rScene, r.aNODES, rPart);
}

class CPartCollector {
  public:
    explicit CPartCollector(T_SCEN_D& rScene) : m_rScene(rScene) {}

    void operator()(const T_NODE_ROW& r) const {
        m_rScene.index.Add(r.iNODE, static_cast<std::uint32_t>(m_rScene.aIDS.size()));
        m_rScene.aIDS.push_back(r.iNODE);
        m_rScene.aPOINTS.push_back({r.dX, r.dY, r.dZ});
    }
    template <ELEMENT_ROW ROW>
    void operator()(const ROW& r) const {
        T_PART_D part;
        Add(part, MakePart(m_rScene, r, part));
    }
    void operator()(const T_MASS_ROW& r) const { AddPoint(KIND_MASS, r.iEID, 0, r.iNODE); }
    void operator()(const T_RIGIDLINK_ROW& r) const {
        for (const std::int32_t iSlave : r.aSLAVES) AddLine(KIND_RIGID, r.iEID, 0, r.iMASTER, iSlave);
    }
    void operator()(const T_EQUATION_ROW& r) const { AddLine(KIND_RIGID, 0, 0, r.iMASTER, r.iSLAVE); }
    void operator()(const T_ELASTICLINK_ROW& r) const { AddLine(KIND_ELASTIC, r.iEID, r.iPID, r.iNODE1, r.iNODE2); }
    void operator()(const T_GROUNDSPRING_ROW& r) const { AddPoint(KIND_SPRING, r.iEID, r.iPID, r.iNODE); }
    void operator()(const T_POINTLINK_ROW& r) const { AddLine(KIND_GENERAL, r.iEID, r.iGPROP, r.iNODE1, r.iNODE2); }
    void operator()(const T_TURNEDLINK_ROW& r) const { AddLine(KIND_GENERAL, r.iEID, r.iGPROP, r.iNODE1, r.iNODE2); }
    void operator()(const T_LEFT_D& rLeft) const {
        if (rLeft.eREASON == LEFT_RBE2_MASTER || rLeft.eREASON == LEFT_RBE2_SLAVE) {
            ++m_rScene.aCOUNTS[KIND_RIGID].nWITHOUTNODES;
        } else if (!rLeft.bELSEWHERE && !ReasonOf(rLeft.eREASON).bWRITTEN) {
            m_rScene.nFORMLESS += rLeft.nCOUNT;
        }
    }

  private:
    void Add(const T_PART_D& rPart, bool bNodes) const {
        T_CONT_D& rCount = m_rScene.aCOUNTS[rPart.iKIND];
        ++(bNodes ? rCount.nPRESENT : rCount.nWITHOUTNODES);
        if (bNodes) m_rScene.aPARTS.push_back(rPart);
    }
    void AddPoint(E_KIND iKind, std::int32_t iID, std::int32_t iPID, std::int32_t iNode) const {
        T_PART_D part{iID, iPID, 0, iKind, CELL_POINT, {}};
        Add(part, FindCorners(m_rScene, std::array{iNode}, part));
    }
    void AddLine(E_KIND iKind, std::int32_t iID, std::int32_t iPID, std::int32_t iNode1, std::int32_t iNode2) const {
        T_PART_D part{iID, iPID, 0, iKind, CELL_LINE, {}};
        Add(part, FindCorners(m_rScene, std::array{iNode1, iNode2}, part));
    }

    T_SCEN_D& m_rScene;
};

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

void AddArrow(T_SCEN_D& rScene, E_KIND iKind, const T_VECTOR& at, const T_VECTOR& direction, double dSize) {
    if (IsFinite(at) && direction != T_VECTOR{}) rScene.aARROWS.push_back({iKind, at, direction, dSize});
}

void AddNodalLoad(T_SCEN_D& rScene, E_KIND iKind, const T_NODALLOAD_ROW& rRow) {
    const std::uint32_t iPlace = rScene.index.Find(rRow.iNODE);
    if (iPlace == CKeyIndex::NONE) {
        ++rScene.aCOUNTS[iKind].nWITHOUTNODES;
        return;
    }
    ++rScene.aCOUNTS[iKind].nPRESENT;
    const T_VECTOR value = {rRow.dX, rRow.dY, rRow.dZ};
    AddArrow(rScene, iKind, rScene.aPOINTS[iPlace], Unit(value), Largest(value));
}

/// Normal of a face, by the right hand rule. Diagonals are of length 1, so that large coordinates don't overflow.
T_VECTOR Normal(const T_SHAP_D& rFace, const std::vector<T_VECTOR>& aPoints) {
    const auto Point = [&](std::size_t i) -> const T_VECTOR& { return aPoints[rFace.aCORNERS[i]]; };
    const T_VECTOR first = Unit(Subtract(Point(2), Point(0)));
    return Unit(Cross(first, Unit(Subtract(Point(rFace.nCORNERS - 1u), Point(1)))));
}

/// A pressure goes along its direction, else along the normal of a plate or into a solid.
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
    AddArrow(rScene, KIND_PRESSURE, at, direction, std::abs(p1) + std::abs(p2) + std::abs(p3) + std::abs(p4));
}

void AddGravity(T_SCEN_D& rScene, const T_GRAVITY_ROW& rRow) {
    ++rScene.aCOUNTS[KIND_GRAVITY].nPRESENT;
    const T_VECTOR direction = Unit({rRow.dX, rRow.dY, rRow.dZ});
    std::vector<T_VECTOR>& rKnown = rScene.aGRAVITY;
    constexpr std::size_t MOST_DIRECTIONS = 6; // as many as fit into the picture
    if (direction == T_VECTOR{} || rKnown.size() == MOST_DIRECTIONS) return;
    if (std::find(rKnown.begin(), rKnown.end(), direction) == rKnown.end()) rKnown.push_back(direction);
}

/// From the middle of a beam to its reference point, at a right angle.
void AddReference(T_SCEN_D& rScene, const T_BEAM_ROW& rRow) {
    T_PART_D part;
    if (!MakePart(rScene, rRow, part)) return;
    const T_VECTOR& rFrom = rScene.aPOINTS[part.aNODES[0]];
    const T_VECTOR& rTo = rScene.aPOINTS[part.aNODES[1]];
    const T_VECTOR axis = Unit(Subtract(rTo, rFrom));
    const T_VECTOR reference = Unit(Subtract({rRow.dX, rRow.dY, rRow.dZ}, rFrom));
    const T_VECTOR side = Unit(Cross(Unit(Cross(axis, reference)), axis));
    const T_VECTOR middle = {rFrom[0] / 2 + rTo[0] / 2, rFrom[1] / 2 + rTo[1] / 2, rFrom[2] / 2 + rTo[2] / 2};
    AddArrow(rScene, KIND_REFERENCE, middle, side, 0.0);
}

} // namespace

T_SHAP_D FaceOfPart(const T_PART_D& rPart, std::size_t iFace) {
    T_SHAP_D shape{rPart.iKIND, 0, {}};
    for (const std::uint8_t iCorner : FACES[rPart.iCELL].aCORNERS[iFace]) {
        if (iCorner != NO_CORNER) shape.aCORNERS[shape.nCORNERS++] = rPart.aNODES[iCorner];
    }
    return shape;
}

std::vector<bool> T_SCEN_D::FindUsed() const {
    std::vector<bool> aUsed(aIDS.size());
    for (const T_PART_D& rPart : aPARTS) {
        for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) aUsed[rPart.aNODES[i]] = true;
    }
    return aUsed;
}

T_SCEN_D CollectParts(const CDataPool& rDataPool) {
    T_SCEN_D scene;
    scene.aIDS.reserve(rDataPool.NODS.GetCount());
    scene.aPOINTS.reserve(rDataPool.NODS.GetCount());
    scene.aPARTS.reserve(rDataPool.ELEM.GetCount());
    const CPartCollector collector(scene);
    ForEachNode(rDataPool, collector);
    ForEachElement(rDataPool, collector);
    ForEachGeneralLink(rDataPool, collector);
    ForEachMass(rDataPool, collector);
    ForEachConrod(rDataPool, collector);
    ForEachRigidLink(rDataPool, collector);
    ForEachEquation(rDataPool, collector);
    ForEachElasticLink(rDataPool, rDataPool.CEL1, collector);
    ForEachElasticLink(rDataPool, rDataPool.CEL2, collector);
    ForEachScalarLink(rDataPool, collector);
    for (const bool bUsed : scene.FindUsed()) scene.aCOUNTS[KIND_NODE].nPRESENT += !bUsed;
    return scene;
}

void CollectSupports(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    rScene.aHELD.assign(rScene.aIDS.size(), 0);
    const auto hold = [&](const T_CONSTRAINT_ROW& r) { Hold(rScene, r.iNODE, r.bDOF); };
    ForEachConstraint(rDataPool, CRowVisitor{hold, IGNORE_LEFT});
    for (const std::uint8_t nHeld : rScene.aHELD) {
        if (nHeld != 0) ++rScene.aCOUNTS[nHeld == 0x3F ? KIND_FIXED : KIND_SUPPORT].nPRESENT;
    }
}

void CollectLoads(const CDataPool& rDataPool, T_SCEN_D& rScene) {
    CollectSupports(rDataPool, rScene);
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
