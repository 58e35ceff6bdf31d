// What the element cards leave in the store. There are no grids, so nothing resolves the orientations.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct T_LAYOUT_D {
    const char* sNAME;
    const char* sCARD; // of element 7
    std::int32_t iTYPE;
    std::int32_t iSUBTYPE;
    std::array<std::int32_t, 20> aNODES;
    double dX1;
};

class NodeLayoutTest : public testing::TestWithParam<T_LAYOUT_D> {};

TEST_P(NodeLayoutTest, Stores) {
    const CStoredRun run(GetParam().sCARD);
    const auto pElement = run.GetDataPool().ELEM.Find(7);
    ASSERT_TRUE(pElement);
    EXPECT_EQ(pElement->iPID, 9);
    EXPECT_EQ(pElement->iTYPE, GetParam().iTYPE);
    EXPECT_EQ(pElement->iSUBTYPE, GetParam().iSUBTYPE);
    std::array<std::int32_t, 20> aNodes{};
    for (std::size_t i = 0; i < 20; ++i) aNodes[i] = pElement->iNODE[i];
    EXPECT_EQ(aNodes, GetParam().aNODES);
    EXPECT_EQ(pElement->dX1, GetParam().dX1);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cards, NodeLayoutTest, testing::ValuesIn<T_LAYOUT_D>({
    {"Tria3WithoutTheta", "CTRIA3,7,9,1,2,3\n", 17, 2, {1, 2, 3}, 0.0},
    {"Tria3WithTheta", "CTRIA3,7,9,1,2,3,30.\n", 17, 2, {1, 2, 3}, 30.0},
    {"TriaRWithCoordinateSystem", "CTRIAR,7,9,1,2,3,3\n", 17, 2, {1, 2, 3}, 0.0},
    {"Tria6", "CTRIA6,7,9,1,2,3,4,5,6\n,30.\n", 17, 3, {1, 2, 3, 0, 4, 5, 6}, 30.0},
    {"Tria6OfThreeNodes", "CTRIA6,7,9,1,2,3\n", 17, 3, {1, 2, 3}, 0.0},
    {"Quad4BlankTheta", "CQUAD4,7,9,1,2,3,4,,.5\n", 17, 4, {1, 2, 3, 4}, 0.0},
    {"QuadRSurplusFields", "CQUADR,7,9,1,2,3,4,-1.5,.5\n,8,8,8,8,8,8\n", 17, 4, {1, 2, 3, 4}, -1.5},
    {"Quad8TakesT1ForTheta", "CQUAD8,7,9,1,2,3,4,5,6\n,7,8,.1,.2,.3,.4,45.\n", 17, 5, {1, 2, 3, 4, 5, 6, 7, 8}, 0.1},
    {"Shear", "CSHEAR,7,9,1,2,3,4,5.\n", 13, 4, {1, 2, 3, 4}, 0.0},
    {"WrongNodes", "CQUAD4,7,9,A,2.9,-3\n", 17, 4, {0, 2, -3, 0}, 0.0},
    {"Tetra4", "CTETRA,7,9,1,2,3,4\n", 31, 10, {1, 2, 3, 0, 4}, 0.0},
    {"Tetra10", "CTETRA,7,9,1,2,3,4,5,6\n,7,8,9,10\n", 31, 10,
     {1, 2, 3, 0, 4, 0, 0, 0, 5, 6, 7, 0, 8, 9, 10}, 0.0},
    {"Penta6", "CPENTA,7,9,1,2,3,4,5,6\n", 31, 11, {1, 2, 3, 0, 4, 5, 6}, 0.0},
    {"Penta15", "CPENTA,7,9,1,2,3,4,5,6\n,7,8,9,10,11,12,13,14\n,15,16\n", 31, 11,
     {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0, 13, 14, 15, 0}, 0.0},
    {"Hexa8", "CHEXA,7,9,1,2,3,4,5,6\n,7,8\n", 31, 12, {1, 2, 3, 4, 5, 6, 7, 8}, 0.0},
    {"Hexa20", "CHEXA,7,9,1,2,3,4,5,6\n,7,8,9,10,11,12,13,14\n,15,16,17,18,19,20,21\n", 31, 12,
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}, 0.0},
    {"LaterKindReplaces", "CTETRA,7,8,1,2,3,4\nCROD,7,9,5,6\n", 1, 0, {5, 6}, 0.0},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

struct T_ORIENTATION_D {
    const char* sNAME;
    const char* sCARD; // of element 7
    std::int32_t iTYPE;
    std::int32_t bVECTOR;
    std::int32_t iG0;
    std::array<double, 3> aVECTOR;
};

class OrientationTest : public testing::TestWithParam<T_ORIENTATION_D> {};

TEST_P(OrientationTest, Stores) {
    const CStoredRun run(GetParam().sCARD);
    const auto pElement = run.GetDataPool().ELEM.Find(7);
    ASSERT_TRUE(pElement);
    EXPECT_EQ(pElement->iTYPE, GetParam().iTYPE);
    EXPECT_EQ(pElement->iNODE[1], 2);
    EXPECT_EQ(pElement->bVECTOR, GetParam().bVECTOR);
    EXPECT_EQ(pElement->iG0, GetParam().iG0);
    EXPECT_EQ((std::array{pElement->dX1, pElement->dX2, pElement->dX3}), GetParam().aVECTOR);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cards, OrientationTest, testing::ValuesIn<T_ORIENTATION_D>({
    {"None", "CBAR,7,9,1,2\n", 2, 0, 0, {0.0, 0.0, 0.0}},
    {"FirstOfVectorAlone", "CBAR,7,9,1,2,1.0\n", 2, 1, 0, {1.0, 0.0, 0.0}},
    {"Vector", "CBEAM,7,9,1,2,.5,-1,3.-1\n", 5, 1, 0, {0.5, -1.0, 0.3}},
    {"IntegerIsAGrid", "CBEND,7,9,1,2,1,0.,1.\n", 8, 0, 1, {0.0, 0.0, 0.0}},
    {"BlankLosesTheVector", "CBAR,7,9,1,2,,1.0\n", 2, 0, 0, {0.0, 0.0, 0.0}},
    {"ExponentIsNoPoint", "CBAR,7,9,1,2,1E1,0.,0.\n", 2, 0, 1, {0.0, 0.0, 0.0}},
    {"OffsetsAreDropped", "CBAR,7,9,1,2,0.,1.,0.,GGG\n,456,,.1,.2,.3,.4\n", 2, 1, 0, {0.0, 1.0, 0.0}},
    {"TubeHasNone", "CTUBE,7,9,1,2,1.,2.,3.\n", 3, 0, 0, {0.0, 0.0, 0.0}},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

TEST(ConrodCard, HasATableOfItsOwn) {
    const CStoredRun run("CONROD,7,1,2,,4.,5.,6.,8.\nCROD,7,9,1,2\n");
    ASSERT_TRUE(run.GetDataPool().ELEM.Find(7));
    const T_CNRD_D* pRod = run.GetDataPool().CNRD.Find(7);
    ASSERT_TRUE(pRod);
    EXPECT_EQ(pRod->iMID, 0);
    EXPECT_EQ((std::array{pRod->dA, pRod->dJ, pRod->dC, pRod->dNSM}), (std::array{4.0, 5.0, 6.0, 8.0}));
}

} // namespace
