#pragma once
// Rows of *NODE, *ELEMENT and *NODALMASS. Node ids are mapped, except those of masses.

#include "store/DataPool.h"
#include "store/PropertyRecords.h"
#include "writer/rows/ElementLosses.h"

#include <array>
#include <span>
#include <type_traits>
#include <utility>

/// A grid at its position in the basic frame.
struct T_NODE_ROW {
    std::int32_t iNODE;
    double dX, dY, dZ;
};

/// By ascending id of the deck: rWalk is rPool.NODS.Sorted() or a part of it.
template <class WALK, class VISITOR>
void ForEachNode(const CDataPool& rPool, const WALK& rWalk, const VISITOR& rVisitor) {
    for (const auto& [iID, rNode] : rWalk) {
        const std::int32_t iOut = rPool.MapNodeId(iID);
        if (iOut == iID) {
            rVisitor(T_NODE_ROW{iOut, rNode.dGX, rNode.dGY, rNode.dGZ});
        } else if (const auto pNode = rPool.NODS.Find(iOut)) {
            rVisitor(T_NODE_ROW{iOut, pNode->dGX, pNode->dGY, pNode->dGZ});
        } else {
            rVisitor(T_LEFT_D{LEFT_GRID_RENUMBERED, iID});
        }
    }
}

template <class VISITOR>
void ForEachNode(const CDataPool& rPool, const VISITOR& rVisitor) {
    ForEachNode(rPool, rPool.NODS.Sorted(), rVisitor);
}

struct T_TRUSS_ROW {
    std::int32_t iEID, iMID, iPID;
    std::int32_t iNODE1, iNODE2;
};

/// A line element with a reference point.
struct T_BEAM_ROW {
    std::int32_t iEID, iMID, iPID;
    std::int32_t iNODE1, iNODE2;
    double dX, dY, dZ; // of the reference point, in the basic frame
};

/// A line element without.
struct T_TUBE_ROW {
    std::int32_t iEID, iMID, iPID;
    std::int32_t iNODE1, iNODE2;
};

struct T_PLATE_ROW {
    std::int32_t iEID, iMID, iPID;
    std::array<std::int32_t, 4> aNODES; // the last of a triangle is 0
    std::size_t nCORNERS;
    bool bPLANESTRESS; // no bending
};

struct T_SOLID_ROW {
    std::int32_t iEID, iMID;
    std::int32_t iPID;                  // in no line
    std::array<std::int32_t, 8> aNODES; // 0 behind the corners
    std::size_t nCORNERS;
};

/// Corners alone: midside nodes have no place in the file. A missing property counts as one of material 1.
template <class VISITOR>
void VisitElement(const CDataPool& rPool, std::int32_t iEID, const T_ELEM_D& rElement, const VISITOR& rVisitor) {
    const std::int32_t iPID = rElement.iPID;
    const T_PROP_D* pProperty = rPool.PROP.Find(iPID);
    const std::int32_t iMID = pProperty ? pProperty->iMID : 1;
    if (pProperty && rPool.m_pLeftSink) pProperty->MarkUsed();
    const auto Node = [&](std::size_t iSlot) { return rPool.MapNodeId(rElement.iNODE[iSlot]); };
    const auto Test = [&](auto aNodes) { // a span of fixed length: it costs every element
        if (rPool.MayMissGrid(aNodes)) TellMissingGrid(rPool, iEID, rElement, aNodes, rVisitor);
    };
    const auto Line = [&](const auto& r) {
        rVisitor(r);
        const std::array aNodes = {r.iNODE1, r.iNODE2};
        Test(std::span(aNodes));
    };
    switch (rElement.iTYPE) {
    case TYPE_ROD:
        Line(T_TRUSS_ROW{iEID, iMID, iPID, Node(0), Node(1)});
        break;
    case TYPE_BAR:
    case TYPE_BEAM:
        Line(T_BEAM_ROW{iEID, iMID, iPID, Node(0), Node(1), rElement.dX1, rElement.dX2, rElement.dX3});
        break;
    case TYPE_TUBE:
        Line(T_TUBE_ROW{iEID, iMID, iPID, Node(0), Node(1)});
        rVisitor(ElementLoss(LEFT_TUBE_BEAM, iEID, rElement));
        break;
    case TYPE_SHEAR:
    case TYPE_PLATE: {
        const bool bFour = rElement.iSUBTYPE == SHAPE_QUAD4 || rElement.iSUBTYPE == SHAPE_QUAD8;
        const T_PLATE_ROW row = {iEID,
                                 iMID,
                                 iPID,
                                 {Node(0), Node(1), Node(2), bFour ? Node(3) : 0},
                                 bFour ? std::size_t{4} : std::size_t{3},
                                 rElement.iTYPE == TYPE_SHEAR};
        rVisitor(row);
        bFour ? Test(std::span(row.aNODES)) : Test(std::span(row.aNODES).template first<3>());
        if (rElement.iTYPE == TYPE_SHEAR) rVisitor(ElementLoss(LEFT_SHEAR_PLATE, iEID, rElement));
        break;
    }
    case TYPE_SOLID: { // the slots are those of a hexahedron
        T_SOLID_ROW row = {iEID, iMID, iPID, {}, 0};
        const auto Solid = [&](const auto& rSlots) {
            constexpr std::size_t COUNT = std::tuple_size_v<std::decay_t<decltype(rSlots)>>;
            for (const std::size_t iSlot : rSlots) row.aNODES[row.nCORNERS++] = Node(iSlot);
            rVisitor(row);
            Test(std::span(std::as_const(row.aNODES)).template first<COUNT>());
        };
        if (rElement.iSUBTYPE == SHAPE_TETRA) {
            Solid(std::array<std::size_t, 4>{0, 1, 2, 4});
        } else if (rElement.iSUBTYPE == SHAPE_PENTA) {
            Solid(std::array<std::size_t, 6>{0, 1, 2, 4, 5, 6});
        } else {
            Solid(std::array<std::size_t, 8>{0, 1, 2, 3, 4, 5, 6, 7});
        }
        break;
    }
    default:
        return rVisitor(ElementLoss(LEFT_ELEMENT_FORM, iEID, rElement));
    }
    if (!pProperty) TellMissingProperty(iEID, rElement, rVisitor);
}

/// Elements by ascending id, all but the masses, bushes and gaps, which go to other sections.
inline auto SortElements(const CDataPool& rPool) {
    return rPool.ELEM.Sorted([](std::uint16_t nTraits) {
        const std::int32_t iType = TypeOfTraits(nTraits);
        return iType != TYPE_MASS && iType != TYPE_BUSH && iType != TYPE_GAP;
    });
}

/// rWalk is SortElements or a part of it.
template <class WALK, class VISITOR>
void ForEachElement(const CDataPool& rPool, const WALK& rWalk, const VISITOR& rVisitor) {
    for (const auto& [iEID, rElement] : rWalk) VisitElement(rPool, iEID, rElement, rVisitor);
}

template <class VISITOR>
void ForEachElement(const CDataPool& rPool, const VISITOR& rVisitor) {
    ForEachElement(rPool, SortElements(rPool), rVisitor);
}

/// CONRODs in store order. Their property is always 1: there's no section for the area on the card.
template <class VISITOR>
void ForEachConrod(const CDataPool& rPool, const VISITOR& rVisitor) {
    for (const auto& [iEID, rRod] : rPool.CNRD.Walk()) {
        const T_TRUSS_ROW row{iEID, rRod.iMID, 1, rPool.MapNodeId(rRod.iG1), rPool.MapNodeId(rRod.iG2)};
        rVisitor(row);
        std::int32_t iMissing = 0;
        if (rPool.FindMissingGrid(std::array{row.iNODE1, row.iNODE2}, iMissing)) {
            rVisitor(T_LEFT_D{.eREASON = LEFT_ELEMENT_GRID, .iID = iEID, .iOTHER = iMissing, .sKEYWORD = "CONROD"});
        }
        if (rPool.IsMaterialMissing(rRod.iMID)) rVisitor(T_LEFT_D{LEFT_ELEMENT_MATERIAL, iEID, rRod.iMID});
    }
}

struct T_MASS_ROW {
    std::int32_t iEID; // in no line
    std::int32_t iNODE;
    double dMX, dMY, dMZ;
    double dRMX, dRMY, dRMZ;
};

/// CONM2s in store order.
template <class VISITOR>
void ForEachMass(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isMass = [](std::uint16_t nTraits) { return TypeOfTraits(nTraits) == TYPE_MASS; };
    for (const auto& [iEID, rElement] : rPool.ELEM.Walk(isMass)) {
        const T_PROP_D* pMass = rPool.PROP.Find(rElement.iPID); // a CONM2 stores it with its element
        if (!pMass) {
            rVisitor(T_LEFT_D{LEFT_CONM2, iEID});
            continue;
        }
        TellMissingGrid(rPool, iEID, rElement, std::array{rElement.iNODE[0]}, rVisitor);
        const auto& d = pMass->dVAL;
        rVisitor(T_MASS_ROW{iEID, rElement.iNODE[0], d[SLOT_MX], d[SLOT_MY], d[SLOT_MZ], d[SLOT_I11], d[SLOT_I22],
                            d[SLOT_I33]});
    }
}
