// Face numbers of the three solid shapes, by grids.

#include "store/ElementRecords.h"

#include <gtest/gtest.h>

namespace {

T_ELEM_D Solid(E_ELEMENT_SHAPE eShape, std::initializer_list<std::int32_t> aSlots) {
    T_ELEM_D element;
    element.iTYPE = TYPE_SOLID;
    element.iSUBTYPE = eShape;
    std::size_t iSlot = 0;
    for (const std::int32_t iNode : aSlots) element.iNODE.Set(iSlot++, iNode);
    return element;
}

} // namespace

TEST(SolidFaces, TetrahedronFaceIsOppositeToTheGrid) {
    const T_ELEM_D tetra = Solid(SHAPE_TETRA, {11, 12, 13, 0, 14});
    EXPECT_EQ(tetra.FindSolidFaceByNode(11), 3);
    EXPECT_EQ(tetra.FindSolidFaceByNode(12), 4);
    EXPECT_EQ(tetra.FindSolidFaceByNode(13), 2);
    EXPECT_EQ(tetra.FindSolidFaceByNode(14), 1);
    EXPECT_EQ(tetra.FindSolidFaceByNode(0), 0); // the empty slot 3 isn't a corner
    EXPECT_EQ(tetra.FindSolidFaceByNodes(11, 12), 0);
}

TEST(SolidFaces, WedgeReadsItsSlotsInARow) {
    const T_ELEM_D wedge = Solid(SHAPE_PENTA, {11, 12, 13, 0, 14, 15, 16});
    EXPECT_EQ(wedge.FindSolidFaceByNode(11), 1);
    EXPECT_EQ(wedge.FindSolidFaceByNode(13), 1);
    EXPECT_EQ(wedge.FindSolidFaceByNode(14), 2);
    EXPECT_EQ(wedge.FindSolidFaceByNode(15), 2);
    EXPECT_EQ(wedge.FindSolidFaceByNode(0), 2);  // slot 3 is empty
    EXPECT_EQ(wedge.FindSolidFaceByNode(16), 0); // the sixth corner isn't looked at
    EXPECT_EQ(wedge.FindSolidFaceByNodes(15, 0), 2);

    EXPECT_EQ(wedge.FindSolidFaceByNodes(11, 14), 3);
    EXPECT_EQ(wedge.FindSolidFaceByNodes(12, 11), 3);
    EXPECT_EQ(wedge.FindSolidFaceByNodes(12, 15), 4);
    EXPECT_EQ(wedge.FindSolidFaceByNodes(13, 14), 4);
    EXPECT_EQ(wedge.FindSolidFaceByNodes(11, 15), 5); // opposite corners of the side 1-2-5-4 of the card
    EXPECT_EQ(wedge.FindSolidFaceByNodes(13, 11), 5);
    EXPECT_EQ(wedge.FindSolidFaceByNodes(11, 16), 0);
    EXPECT_EQ(wedge.FindSolidFaceByNodes(0, 14), 3);
}

TEST(SolidFaces, HexahedronFaceOfTwoGrids) {
    const T_ELEM_D hexa = Solid(SHAPE_HEXA, {11, 12, 13, 14, 15, 16, 17, 18});
    EXPECT_EQ(hexa.FindSolidFaceByNodes(11, 13), 1);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(18, 16), 2);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(11, 16), 3);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(12, 17), 4);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(13, 18), 5);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(14, 15), 6);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(12, 13), 1); // on faces 1 and 4: the first wins
    EXPECT_EQ(hexa.FindSolidFaceByNodes(11, 17), 0);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(11, 0), 0);
    EXPECT_EQ(hexa.FindSolidFaceByNodes(17, 17), 2); // one corner twice: two comparisons are equal
    EXPECT_EQ(hexa.FindSolidFaceByNode(11), 0);
}

TEST(SolidFaces, RepeatedCornerCountsTwice) {
    const T_ELEM_D collapsed = Solid(SHAPE_HEXA, {11, 12, 13, 13, 15, 16, 17, 17});
    EXPECT_EQ(collapsed.FindSolidFaceByNodes(11, 13), 5); // three equal on face 1
    EXPECT_EQ(collapsed.FindSolidFaceByNodes(13, 99), 1);
}

TEST(SolidFaces, NothingButSolidsHasFaces) {
    T_ELEM_D plate = Solid(SHAPE_PENTA, {11, 12, 13, 14});
    plate.iTYPE = TYPE_PLATE;
    EXPECT_EQ(plate.FindSolidFaceByNode(11), 0);
    EXPECT_EQ(plate.FindSolidFaceByNodes(11, 12), 0);
}
