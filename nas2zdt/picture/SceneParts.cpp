// Nodes, elements, links and masses of a picture.

#include "picture/Scene.h"

#include <cmath>

namespace {

constexpr T_FACES_D NO_FACES = {};
constexpr T_FACES_D TETRA_FACES = {
    4, {{{0, 1, 2, NO_CORNER}, {0, 1, 3, NO_CORNER}, {1, 2, 3, NO_CORNER}, {2, 0, 3, NO_CORNER}}}};
constexpr T_FACES_D WEDGE_FACES = {
    5, {{{0, 1, 2, NO_CORNER}, {3, 4, 5, NO_CORNER}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}}}};
constexpr T_FACES_D HEXA_FACES = {
    6, {{{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}}}};

/// Slots of the corners that the file keeps, by cell. A solid has the layout of a hexahedron.
constexpr std::array<std::array<std::uint8_t, 8>, CELLS> SLOTS = {{
    {0},
    {0, 1},
    {0, 1, 2},
    {0, 1, 2, 3},
    {0, 1, 2, 4},
    {0, 1, 2, 4, 5, 6},
    {0, 1, 2, 3, 4, 5, 6, 7},
}};

/// The form of an element in the file. False for one without.
bool FindForm(const T_ELEM_D& rElement, T_PART_D& rPart) {
    const auto Is = [&](E_KIND iKind, E_CELL iCell) {
        rPart.iKIND = iKind;
        rPart.iCELL = iCell;
        return true;
    };
    const std::int32_t iType = rElement.iTYPE;
    const auto Plate = [&](E_CELL iCell) {
        if (iType >= 11 && iType <= 14) return Is(KIND_PLANE_STRESS, iCell);
        return iType >= 15 && iType <= 18 && Is(KIND_PLATE, iCell);
    };
    switch (rElement.iSUBTYPE) {
    case SHAPE_LINE:
        if (iType == TYPE_ROD) return Is(KIND_TRUSS, CELL_LINE);
        if (iType == TYPE_BAR || iType == TYPE_BEAM || iType == TYPE_TUBE) return Is(KIND_BEAM, CELL_LINE);
        return (iType == TYPE_BUSH || iType == TYPE_GAP) && Is(KIND_GENERAL, CELL_LINE);
    case SHAPE_POINT:
        return iType == TYPE_MASS && Is(KIND_MASS, CELL_POINT);
    case SHAPE_TRIA3:
    case SHAPE_TRIA6:
        return Plate(CELL_TRIA);
    case SHAPE_QUAD4:
    case SHAPE_QUAD8:
        return Plate(CELL_QUAD);
    case SHAPE_TETRA:
        return iType == TYPE_SOLID && Is(KIND_SOLID, CELL_TETRA);
    case SHAPE_PENTA:
        return iType == TYPE_SOLID && Is(KIND_SOLID, CELL_WEDGE);
    case SHAPE_HEXA:
        return iType == TYPE_SOLID && Is(KIND_SOLID, CELL_HEXA);
    default:
        return false;
    }
}

class CPartCollector {
  public:
    CPartCollector(const CDataPool& rDataPool, T_SCEN_D& rScene) : m_rDataPool(rDataPool), m_rScene(rScene) {}

    void CollectNodes() {
        m_rScene.aIDS.reserve(m_rDataPool.NODS.GetCount());
        m_rScene.aPOINTS.reserve(m_rDataPool.NODS.GetCount());
        for (const auto& [iID, rNode] : m_rDataPool.NODS.Sorted()) {
            m_rScene.index.Add(iID, static_cast<std::uint32_t>(m_rScene.aIDS.size()));
            m_rScene.aIDS.push_back(m_rDataPool.MapNodeId(iID));
            m_rScene.aPOINTS.push_back({rNode.dGX, rNode.dGY, rNode.dGZ});
        }
    }

    void CollectElements() {
        m_rScene.aPARTS.reserve(m_rDataPool.ELEM.GetCount());
        for (const auto& [iID, rElement] : m_rDataPool.ELEM.Sorted()) {
            T_PART_D part;
            const int iFound = FindCorners(m_rScene, rElement, part);
            const T_PROP_D* pProperty = m_rDataPool.PROP.Find(rElement.iPID);
            if (iFound == 0 || (part.iKIND == KIND_MASS && !pProperty)) { // a mass lies in its property
                ++m_rScene.nFORMLESS;
                continue;
            }
            part.iID = iID;
            if (part.iKIND != KIND_MASS) part.iPID = rElement.iPID;
            if (part.iKIND != KIND_MASS && part.iKIND != KIND_GENERAL) part.iMID = pProperty ? pProperty->iMID : 1;
            Add(part, iFound > 0);
        }
        for (const auto& [iID, rRod] : m_rDataPool.CNRD.Walk()) {
            AddLine(KIND_TRUSS, iID, 1, rRod.iMID, rRod.iG1, rRod.iG2);
        }
    }

    void CollectRigidLinks() {
        for (const auto& [iID, rLink] : m_rDataPool.RBE2.Walk()) {
            for (const std::int32_t iNode : rLink.aGM) AddLine(KIND_RIGID, iID, 0, 0, rLink.iGN, iNode);
        }
        const T_CNST_D* pSet = m_rDataPool.CNST.Find(m_rDataPool.m_iLastCNST);
        if (!pSet) return;
        for (const T_CNEQ_D& rEquation : pSet->aCNEQ) {
            const CArray<T_EQNCN_D>& rTerms = rEquation.aTERMS;
            if (rTerms.GetSize() == 2 && rTerms[0].dCOEF == -1.0 && rTerms[1].dCOEF == 1.0) {
                AddLine(KIND_RIGID, 0, 0, 0, rTerms[1].iNODE, rTerms[0].iNODE);
            } else {
                ++m_rScene.nFORMLESS;
            }
        }
    }

    void CollectSprings() {
        for (const auto& [iID, rSpring] : m_rDataPool.CEL1.Walk()) {
            const T_PROP_D* pProperty = m_rDataPool.PROP.Find(rSpring.iPID);
            AddSpring(iID, rSpring, rSpring.iPID, pProperty ? pProperty->dVAL[0] : 0.0);
        }
        for (const auto& [iID, rSpring] : m_rDataPool.CEL2.Walk()) AddSpring(iID, rSpring, 0, rSpring.dK);
    }

    void CollectFreeNodes() {
        std::vector<bool> aUsed(m_rScene.aIDS.size());
        for (const T_PART_D& rPart : m_rScene.aPARTS) {
            for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) aUsed[rPart.aNODES[i]] = true;
        }
        for (const bool bUsed : aUsed) m_rScene.aCOUNTS[KIND_NODE].nPRESENT += !bUsed;
    }

  private:
    void Add(const T_PART_D& rPart, bool bNodes) {
        T_CONT_D& rCount = m_rScene.aCOUNTS[rPart.iKIND];
        ++(bNodes ? rCount.nPRESENT : rCount.nWITHOUTNODES);
        if (bNodes) m_rScene.aPARTS.push_back(rPart);
    }

    bool Find(std::int32_t iNode, std::uint32_t& rPlace) const {
        rPlace = m_rScene.index.Find(iNode);
        return rPlace != CKeyIndex::NONE;
    }

    void AddLine(E_KIND iKind, std::int32_t iID, std::int32_t iPID, std::int32_t iMID, std::int32_t iNode1,
                 std::int32_t iNode2) {
        T_PART_D part{iID, iPID, iMID, iKind, CELL_LINE, {}};
        const bool bFirst = Find(iNode1, part.aNODES[0]);
        Add(part, Find(iNode2, part.aNODES[1]) && bFirst);
    }

    /// A spring without stiffness gets no line. One between coincident nodes is a general link whatever its
    /// components; besides it is a spring to ground if only one of its ends has a component.
    template <class SPRING>
    void AddSpring(std::int32_t iID, const SPRING& rSpring, std::int32_t iPID, double dK) {
        const bool bFrom = rSpring.iG1 != 0 && rSpring.iC1 != 0;
        const bool bTo = rSpring.iG2 != 0 && rSpring.iC2 != 0;
        const bool bStiff = dK != 0.0;
        const bool bCoincident = bStiff && IsCoincident(rSpring.iG1, rSpring.iG2);
        if (bCoincident) AddLine(KIND_GENERAL, iID, iPID, 0, rSpring.iG1, rSpring.iG2);
        if (bStiff && bFrom != bTo) {
            T_PART_D part{iID, iPID, 0, KIND_SPRING, CELL_POINT, {}};
            Add(part, Find(bFrom ? rSpring.iG1 : rSpring.iG2, part.aNODES[0]));
        } else if (bStiff && bFrom && rSpring.iC1 == rSpring.iC2) {
            if (!bCoincident) AddLine(KIND_ELASTIC, iID, iPID, 0, rSpring.iG1, rSpring.iG2);
        } else if (!bCoincident) {
            ++m_rScene.nFORMLESS;
        }
    }

    bool IsCoincident(std::int32_t iNode1, std::int32_t iNode2) const {
        constexpr double NEAR = 1e-05;
        std::uint32_t i1 = 0, i2 = 0;
        if (!Find(iNode1, i1) || !Find(iNode2, i2)) return false;
        const T_VECT_D apart = Minus(m_rScene.aPOINTS[i1], m_rScene.aPOINTS[i2]);
        return std::abs(apart[0]) < NEAR && std::abs(apart[1]) < NEAR && std::abs(apart[2]) < NEAR;
    }

    const CDataPool& m_rDataPool;
    T_SCEN_D& m_rScene;
};

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

int FindCorners(const T_SCEN_D& rScene, const T_ELEM_D& rElement, T_PART_D& rPart) {
    if (!FindForm(rElement, rPart)) return 0;
    for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) {
        rPart.aNODES[i] = rScene.index.Find(rElement.iNODE[SLOTS[rPart.iCELL][i]]);
        if (rPart.aNODES[i] == CKeyIndex::NONE) return -1;
    }
    return 1;
}

T_SCEN_D CollectParts(const CDataPool& rDataPool) {
    T_SCEN_D scene;
    CPartCollector collector(rDataPool, scene);
    collector.CollectNodes();
    collector.CollectElements();
    collector.CollectRigidLinks();
    collector.CollectSprings();
    collector.CollectFreeNodes();
    return scene;
}
