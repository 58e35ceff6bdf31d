// Collects a scene from the rows of the target file.

#include "nas2zdt/picture/Scene.h"

#include "writer/rows/ConstraintRows.h"
#include "writer/rows/ElementRows.h"
#include "writer/rows/SpringRows.h"

#include <algorithm>

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
    rPart = {r.iEID, r.iPID, r.iMID, iKind, CELL_LINE};
    return FindCorners(rScene, std::array{r.iNODE1, r.iNODE2}, rPart);
}
bool MakePart(const T_SCEN_D& rScene, const T_PLATE_ROW& r, T_PART_D& rPart) {
    const E_KIND iKind = r.bPLANESTRESS ? KIND_PLANE_STRESS : KIND_PLATE;
    rPart = {r.iEID, r.iPID, r.iMID, iKind, r.nCORNERS == 3 ? CELL_TRIA : CELL_QUAD};
    return FindCorners(rScene, r.aNODES, rPart);
}
bool MakePart(const T_SCEN_D& rScene, const T_SOLID_ROW& r, T_PART_D& rPart) {
    const E_CELL iCell = r.nCORNERS == 4 ? CELL_TETRA : r.nCORNERS == 6 ? CELL_WEDGE : CELL_HEXA;
    rPart = {r.iEID, r.iPID, r.iMID, KIND_SOLID, iCell};
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
    void operator()(const T_MASS_ROW& r) const {
        AddPoint(KIND_MASS, r.iEID, 0, r.iNODE, {r.dMX, r.dMY, r.dMZ, r.dRMX, r.dRMY, r.dRMZ});
    }
    void operator()(const T_RIGIDLINK_ROW& r) const {
        for (const std::int32_t iSlave : r.aSLAVES) AddLine(KIND_RIGID, r.iEID, 0, r.iMASTER, iSlave);
    }
    void operator()(const T_EQUATION_ROW& r) const { AddLine(KIND_RIGID, 0, 0, r.iMASTER, r.iSLAVE); }
    void operator()(const T_ELASTICLINK_ROW& r) const {
        AddLine(KIND_ELASTIC, r.iEID, r.iPID, r.iNODE1, r.iNODE2, &r.dK);
    }
    void operator()(const T_GROUNDSPRING_ROW& r) const { AddPoint(KIND_SPRING, r.iEID, r.iPID, r.iNODE, r.dK); }
    void operator()(const T_SCALARLINK_ROW& r) const {
        AddLine(KIND_GENERAL, r.iEID, r.iGPROP, r.iNODE1, r.iNODE2, &r.dK);
    }
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
    void AddPoint(E_KIND iKind, std::int32_t iID, std::int32_t iPID, std::int32_t iNode,
                  const T_SIXVALUES& rValues) const {
        T_PART_D part{iID, iPID, 0, iKind, CELL_POINT};
        part.iVALUES = Keep(rValues);
        Add(part, FindCorners(m_rScene, std::array{iNode}, part));
    }
    void AddLine(E_KIND iKind, std::int32_t iID, std::int32_t iPID, std::int32_t iNode1, std::int32_t iNode2,
                 const T_SIXVALUES* pValues = nullptr) const {
        T_PART_D part{iID, iPID, 0, iKind, CELL_LINE};
        if (pValues) part.iVALUES = Keep(*pValues);
        Add(part, FindCorners(m_rScene, std::array{iNode1, iNode2}, part));
    }
    std::uint32_t Keep(const T_SIXVALUES& rValues) const {
        m_rScene.aVALUES.push_back(rValues);
        return static_cast<std::uint32_t>(m_rScene.aVALUES.size() - 1);
    }

    T_SCEN_D& m_rScene;
};

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

bool FindElement(const CDataPool& rDataPool, const T_SCEN_D& rScene, std::int32_t iEID, T_PART_D& rPart) {
    const auto pElement = rDataPool.ELEM.Find(iEID);
    bool bFound = false;
    const CRowVisitor visitor{
        [&](const auto& rRow) { bFound = MakePart(rScene, rRow, rPart); },
        IGNORE_LEFT,
    };
    if (pElement) VisitElement(rDataPool, iEID, *pElement, visitor);
    return bFound;
}
