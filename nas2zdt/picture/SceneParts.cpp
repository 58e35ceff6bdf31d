// Nodes, elements, links and masses of a picture.

#include "nas2zdt/picture/Scene.h"
#include "writer/rows/MassRows.h"
#include "writer/rows/NodeRows.h"
#include "writer/rows/RigidLinkRows.h"
#include "writer/rows/SpringRows.h"

namespace {

constexpr T_FACES_D NO_FACES = {};
constexpr T_FACES_D TETRA_FACES = {
    4, {{{0, 1, 2, NO_CORNER}, {0, 1, 3, NO_CORNER}, {1, 2, 3, NO_CORNER}, {2, 0, 3, NO_CORNER}}}};
constexpr T_FACES_D WEDGE_FACES = {
    5, {{{0, 1, 2, NO_CORNER}, {3, 4, 5, NO_CORNER}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}}}};
constexpr T_FACES_D HEXA_FACES = {
    6, {{{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}}}};

/// Fills in the corners. False if one of them doesn't exist.
template <class NODES>
bool FindCorners(const T_SCEN_D& rScene, const NODES& rNodes, T_PART_D& rPart) {
    bool bAll = true;
    for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) {
        rPart.aNODES[i] = rScene.index.Find(rNodes[i]);
        bAll = bAll && rPart.aNODES[i] != CKeyIndex::NONE;
    }
    return bAll;
}

template <class ROW>
bool MakeLine(const T_SCEN_D& rScene, E_KIND iKind, const ROW& r, T_PART_D& rPart) {
    rPart = {r.iEID, r.iPID, r.iMID, iKind, CELL_LINE, {}};
    return FindCorners(rScene, std::array{r.iNODE1, r.iNODE2}, rPart);
}

/// Rows of elements.
template <class ROW>
concept HasPart = requires(const T_SCEN_D& rScene, const ROW& rRow, T_PART_D& rPart) {
    MakePart(rScene, rRow, rPart);
};

class CPartCollector {
  public:
    explicit CPartCollector(T_SCEN_D& rScene) : m_rScene(rScene) {}

    void operator()(const T_NODE_ROW& r) const {
        m_rScene.index.Add(r.iNODE, static_cast<std::uint32_t>(m_rScene.aIDS.size()));
        m_rScene.aIDS.push_back(r.iNODE);
        m_rScene.aPOINTS.push_back({r.dX, r.dY, r.dZ});
    }
    template <HasPart ROW>
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

void CountFreeNodes(T_SCEN_D& rScene) {
    std::vector<bool> aUsed(rScene.aIDS.size());
    for (const T_PART_D& rPart : rScene.aPARTS) {
        for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) aUsed[rPart.aNODES[i]] = true;
    }
    for (const bool bUsed : aUsed) rScene.aCOUNTS[KIND_NODE].nPRESENT += !bUsed;
}

} // namespace

const T_FACES_D& FacesOf(E_CELL iCell) {
    switch (iCell) {
    case CELL_TETRA:
        return TETRA_FACES;
    case CELL_WEDGE:
        return WEDGE_FACES;
    case CELL_HEXA:
        return HEXA_FACES;
    default:
        return NO_FACES;
    }
}

bool MakePart(const T_SCEN_D& rScene, const T_TRUSS_ROW& rRow, T_PART_D& rPart) {
    return MakeLine(rScene, KIND_TRUSS, rRow, rPart);
}

bool MakePart(const T_SCEN_D& rScene, const T_BEAM_ROW& rRow, T_PART_D& rPart) {
    return MakeLine(rScene, KIND_BEAM, rRow, rPart);
}

bool MakePart(const T_SCEN_D& rScene, const T_TUBE_ROW& rRow, T_PART_D& rPart) {
    return MakeLine(rScene, KIND_BEAM, rRow, rPart);
}

bool MakePart(const T_SCEN_D& rScene, const T_PLATE_ROW& rRow, T_PART_D& rPart) {
    const E_KIND iKind = rRow.bPLANESTRESS ? KIND_PLANE_STRESS : KIND_PLATE;
    rPart = {rRow.iEID, rRow.iPID, rRow.iMID, iKind, rRow.nCORNERS == 3 ? CELL_TRIA : CELL_QUAD, {}};
    return FindCorners(rScene, rRow.aNODES, rPart);
}

bool MakePart(const T_SCEN_D& rScene, const T_SOLID_ROW& rRow, T_PART_D& rPart) {
    const E_CELL iCell = rRow.nCORNERS == 4 ? CELL_TETRA : rRow.nCORNERS == 6 ? CELL_WEDGE : CELL_HEXA;
    rPart = {rRow.iEID, rRow.iPID, rRow.iMID, KIND_SOLID, iCell, {}};
    return FindCorners(rScene, rRow.aNODES, rPart);
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
    CountFreeNodes(scene);
    return scene;
}
