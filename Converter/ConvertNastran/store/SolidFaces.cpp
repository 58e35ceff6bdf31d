// Face numbers of solids by the grids that a load names.

#include "store/ElementRecords.h"

namespace {

/// A face and four slots of T_ELEM_D::iNODE.
struct T_FACE_D {
    int iFACE;
    std::array<std::size_t, 4> iSLOTS;
};

// A wedge keeps its corners in slots 0, 1, 2, 4, 5, 6, but its faces are looked for in slots 0 to 5: the numbers in the
// target file follow from that.
constexpr T_FACE_D WEDGE_SIDES[] = {
    {3, {0, 1, 4, 3}},
    {4, {1, 2, 5, 4}},
    {5, {2, 0, 3, 5}},
};
constexpr T_FACE_D HEXA_FACES[] = {
    {1, {0, 1, 2, 3}}, {2, {4, 5, 6, 7}}, {3, {0, 1, 5, 4}}, {4, {1, 2, 6, 5}}, {5, {2, 3, 7, 6}}, {6, {3, 0, 4, 7}},
};

/// A face named by one node.
struct T_CORNER_D {
    std::size_t iSLOT;
    int iFACE;
};

constexpr T_CORNER_D TETRA_CORNERS[] = {{0, 3}, {1, 4}, {2, 2}, {4, 1}}; // the face opposite to the corner
constexpr T_CORNER_D WEDGE_CORNERS[] = {{0, 1}, {1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 2}};

template <std::size_t COUNT>
int FaceOfNode(const CNodeSlots& rSlots, const T_CORNER_D (&rCorners)[COUNT], std::int32_t iNode) {
    for (const T_CORNER_D& rCorner : rCorners) {
        if (rSlots[rCorner.iSLOT] == iNode) return rCorner.iFACE;
    }
    return 0;
}

template <std::size_t COUNT>
int FaceOfNodes(const CNodeSlots& rSlots, const T_FACE_D (&rFaces)[COUNT], std::int32_t iNode1, std::int32_t iNode2) {
    for (const T_FACE_D& rFace : rFaces) {
        int nEqual = 0;
        for (const std::size_t iSlot : rFace.iSLOTS) {
            nEqual += rSlots[iSlot] == iNode1;
            nEqual += rSlots[iSlot] == iNode2;
        }
        if (nEqual == 2) return rFace.iFACE;
    }
    return 0;
}

} // namespace

int T_ELEM_D::FindSolidFaceByNode(std::int32_t iNode) const {
    if (iTYPE != TYPE_SOLID) return 0;
    if (iSUBTYPE == SHAPE_TETRA) return FaceOfNode(iNODE, TETRA_CORNERS, iNode);
    if (iSUBTYPE == SHAPE_PENTA) return FaceOfNode(iNODE, WEDGE_CORNERS, iNode);
    return 0;
}

int T_ELEM_D::FindSolidFaceByNodes(std::int32_t iNode1, std::int32_t iNode2) const {
    if (iTYPE != TYPE_SOLID) return 0;
    if (iSUBTYPE == SHAPE_HEXA) return FaceOfNodes(iNODE, HEXA_FACES, iNode1, iNode2);
    if (iSUBTYPE != SHAPE_PENTA) return 0;
    if (iNode2 == 0) return FindSolidFaceByNode(iNode1);
    return FaceOfNodes(iNODE, WEDGE_SIDES, iNode1, iNode2);
}

int T_ELEM_D::FindWedgeFace(std::int32_t iNode1, std::int32_t iNode2) const {
    constexpr std::size_t CORNER_SLOTS[] = {0, 1, 2, 4, 5, 6};
    CNodeSlots corners; // in slots 0 to 5, where the tables want them
    for (std::size_t i = 0; i < 6; ++i) corners.Set(i, iNODE[CORNER_SLOTS[i]]);
    return iNode2 == 0 ? FaceOfNode(corners, WEDGE_CORNERS, iNode1) : FaceOfNodes(corners, WEDGE_SIDES, iNode1, iNode2);
}
