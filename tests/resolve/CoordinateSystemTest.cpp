// From coordinate cards to node positions and node axes.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct T_CASE_D {
    const char* sNAME;
    const char* sCARDS;
    const char* sLINES; // of *NODE
    friend std::ostream& operator<<(std::ostream& rOut, const T_CASE_D& rCase) { return rOut << rCase.sNAME; }
};

class GridPositionTest : public testing::TestWithParam<T_CASE_D> {};

} // namespace

TEST_P(GridPositionTest, NodeLines) {
    const std::string sZdt = ConvertBulk(GetParam().sCARDS);
    EXPECT_EQ(Sections(sZdt, "*NODE"), "*NODE\n" + std::string(GetParam().sLINES) + "\n");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, GridPositionTest, testing::ValuesIn<T_CASE_D>({
    {"Rectangle",
     "CORD2R,5,,1.,,,1.,,1.\n,2.\n"
     "GRID,1,5\nGRID,2,5,1.,2.,3.\nGRID,3,0,1.,2.,3.\n",
     "  1, 1, 0, 0\n  2, 2, 2, 3\n  3, 1, 2, 3\n"},
    {"SecondLineMissing", // C is the basic origin, so X points from A to it
     "CORD2R,5,,1.,,,1.,,1.\n"
     "GRID,1,5,4.,,.5\n",
     "  1, -3, 0, 0.5\n"},
    {"PointsOnALineOrInOnePlace",
     "CORD2R,5,,1.,2.,3.,1.,2.,5.\n,1.,2.,9.\nCORD2R,6,,1.,2.,3.,1.,2.,3.\n,4.,5.,6.\nGRID,1,5,7.,8.,9.\nGRID,2,6,7.,8.,9.\n",
     "  1, 1, 2, 12\n  2, 1, 2, 3\n"},
    {"QuarterTurnOfACylinder", // the ten digits of pi leave a trace: 2 cos(90 pi / 180)
     "CORD2C,4,,,,,,,1.\n,1.\n"
     "GRID,1,4,2.,90.,5.\n",
     "  1, 8.97932e-11, 2, 5\n"},
    {"QuarterTurnOfASphere",
     "CORD2S,4,,,,,,,1.\n,1.\n"
     "GRID,1,4,2.,90.,0.\nGRID,2,4,2.,0.,70.\n",
     "  1, 2, 0, 8.97932e-11\n  2, 0, 0, 2\n"},
    {"ShortPiOfCord1C", // (3.14159265 - 3.141592) / 2; the sphere has the long one
     "GRID,11\nGRID,12,,,,1.\nGRID,13,,1.\n"
     "CORD1C,4,11,12,13\nCORD1S,5,11,12,13\n"
     "GRID,1,4,1.,90.,0.\nGRID,2,5,2.,90.,0.\n",
     "  1, 3.26795e-07, 1, 0\n  2, 2, 0, 8.97932e-11\n  11, 0, 0, 0\n  12, 0, 0, 1\n  13, 1, 0, 0\n"},
    {"TwoFramesOnACard",
     "GRID,11,,1.\nGRID,12,,1.,,1.\nGRID,13,,2.\nGRID,14,,,5.\nGRID,15,,,5.,1.\nGRID,16,,,9.\n"
     "CORD1R,4,11,12,13,5,14,15,16\n"
     "GRID,1,4,1.,2.,3.\nGRID,2,5,1.,2.,3.\n",
     "  1, 2, 2, 3\n  2, -2, 6, 3\n"
     "  11, 1, 0, 0\n  12, 1, 0, 1\n  13, 2, 0, 0\n  14, 0, 5, 0\n  15, 0, 5, 1\n  16, 0, 9, 0\n"},
    {"ZeroEndsACord1Card", // no second frame, and a first frame without id that no grid asks for
     "CORD1R,,1,2,3,0,1,2,3\n"
     "GRID,1,0,7.\n",
     "  1, 7, 0, 0\n"},
    {"GridsOfAFrameAsOnTheCard", // 11 is at (101, 0, 0), the frame at (1, 0, 0)
     "CORD2R,4,,100.,,,100.,,1.\n,200.\n"
     "GRID,11,4,1.\nGRID,12,,1.,,1.\nGRID,13,,2.\n"
     "CORD1R,5,11,12,13\nGRID,1,5\n",
     "  1, 1, 0, 0\n  11, 101, 0, 0\n  12, 1, 0, 1\n  13, 2, 0, 0\n"},
    {"MissingGridOfAFrameIsTheOrigin",
     "GRID,11,,5.\nGRID,12,,5.,,1.\n"
     "CORD1R,5,11,12,99\nGRID,1,5,1.,2.,3.\n",
     "  1, 4, -2, 3\n  11, 5, 0, 0\n  12, 5, 0, 1\n"},
    {"ChainOfKinds", // a cylinder in the middle counts as the rectangular frame under it
     "CORD2C,10,,10.,,,10.,,1.\n,10.,1.\n"
     "CORD2R,20,10,,,5.,,,6.\n,1.,,5.\n"
     "CORD2C,30,20,1.,1.,1.,1.,1.,2.\n,2.,1.,1.\n"
     "GRID,1,20,1.,2.,3.\nGRID,2,30,2.,180.,1.\n",
     "  1, 8, 1, 8\n  2, 9, -1, 7\n"},
    {"NoLinkToTheOwnKind",
     "CORD2R,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2R,6,,,,50.,,,51.\n,1.,,50.\n"
     "GRID,1,5\n",
     "  1, 1, 0, 0\n"},
    {"LastTableGivesTheLink",
     "CORD2R,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2S,6,,,,50.,,,51.\n,1.,,50.\n"
     "CORD2C,6,,100.,,,100.,,1.\n,200.\n"
     "GRID,1,5\n",
     "  1, 1, 0, 50\n"},
    {"OneIdInTwoTables", // the rectangle first, and what comes of it is R, THETA, Z
     "GRID,11,,1.,90.\nGRID,12,,1.,90.,1.\nGRID,13,,2.,90.\n"
     "CORD1R,5,11,12,13\nCORD2C,5,,7.,,,7.,,1.\n,8.\n"
     "GRID,1,5,1.,0.,3.\n",
     "  1, 7, 2, 3\n  11, 1, 90, 0\n  12, 1, 90, 1\n  13, 2, 90, 0\n"},
    {"SixTablesInTurn", // x and z change places, x grows by 10, places, radius on z and 100 on x, places, radius and 1000
     "GRID,11\nGRID,12,,1.\nGRID,13,,,,1.\nGRID,21,,100.\nGRID,22,,100.,,1.\nGRID,23,,101.\n"
     "CORD2S,5,,1000.,,,1000.,,1.\n,1001.\nCORD2C,5,,,,,1.,,\n,,,1.\nCORD1S,5,21,22,23\nCORD1C,5,11,12,13\n"
     "CORD2R,5,,10.,,,10.,,1.\n,11.\nCORD1R,5,11,12,13\n"
     "GRID,1,5,1.,,2.\n",
     "  1, 1000, 0, 1\n"
     "  11, 0, 0, 0\n  12, 1, 0, 0\n  13, 0, 0, 1\n  21, 100, 0, 0\n  22, 100, 0, 1\n  23, 101, 0, 0\n"},
    {"SystemZeroIsTheBasicOne",
     "CORD2C,0,,100.,,,100.,,1.\n,200.\nCORD2R,5,0,1.,,,1.,,1.\n,2.\n"
     "GRID,1,5\nGRID,2,0\n",
     "  1, 1, 0, 0\n  2, 0, 0, 0\n"},
    {"SphereOnACylinder", // first as a linked rectangle: (3, 0, 10); then as a sphere that isn't linked
     "CORD2S,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2C,6,,,,10.,,,11.\n,1.,,10.\n"
     "GRID,1,5,2.,0.,0.\n",
     "  1, 1, 0, 3\n"},
    {"SphereOnACylinderAndASphere", // the sphere keeps the link to the other table
     "CORD2S,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2C,6,,,,10.,,,11.\n,1.,,10.\n"
     "GRID,11,,,7.\nGRID,12,,,7.,1.\nGRID,13,,1.,7.\nCORD1S,6,11,12,13\n"
     "GRID,1,5,2.,0.,0.\n",
     "  1, 1, 7, 3\n  11, 0, 7, 0\n  12, 0, 7, 1\n  13, 1, 7, 0\n"},
    {"SphereReplacesARectangle", // also for a system that was linked to it before: 37 comes in front of 5
     "CORD2R,5,,,,99.,,,100.\n,1.,,99.\n"
     "CORD2S,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2C,6,,,,10.,,,11.\n,1.,,10.\n"
     "CORD2S,37,5,,2.,,,2.,1.\n,1.,2.\n"
     "GRID,1,37\n",
     "  1, 1, 2, 10\n"},
    {"LaterSphereSeesTheCopy", // systems are linked in store order: 5, then 7
     "CORD2S,7,5,,2.,,,2.,1.\n,1.,2.\n"
     "CORD2S,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2C,6,,,,10.,,,11.\n,1.,,10.\n"
     "GRID,1,7\n",
     "  1, 1, 2, 10\n"},
    {"EarlierSphereDoesNot",
     "CORD2S,7,6,1.,,,1.,,1.\n,2.\n"
     "CORD2S,5,7,,2.,,,2.,1.\n,1.,2.\n"
     "CORD2C,6,,,,10.,,,11.\n,1.,,10.\n"
     "GRID,1,5\n",
     "  1, 0, 2, 0\n"},
    {"Circle", // each frame applies once
     "CORD2R,5,6,1.,,,1.,,1.\n,2.\n"
     "CORD2C,6,5,,10.,,,10.,1.\n,1.,10.\n"
     "CORD2S,7,5,,,100.,,,101.\n,1.,,100.\n"
     "GRID,1,5\nGRID,2,6\nGRID,3,7\n",
     "  1, 1, 10, 0\n  2, 1, 10, 0\n  3, 1, 10, 100\n"},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

TEST(GridPositions, MissingFramesAreLoggedInStoreOrder) {
    const T_RUN_D run = RunBulk("GRID,50,9,1.,90.,3.\nGRID,100,8,4.\nGRID,60,,,,,9\n");
    EXPECT_EQ(run.aLOG, (std::vector<std::string>{"GRID 100 refers to coordinate system 8, which doesn't exist.",
                                                  "GRID 50 refers to coordinate system 9, which doesn't exist."}));
    EXPECT_EQ(run.sZDT, "*VERSION\n  5.8.1\n\n"
                        "*NODE\n  50, 1, 90, 3\n  60, 0, 0, 0\n  100, 4, 0, 0\n\n");
}

TEST(LocalAxes, RowsInStoreOrder) {
    const std::string sZdt =
        ConvertBulk("CORD2R,3,,5.,,,5.,,1.\n,6.\n"
                    "CORD2C,4,,,,,,,1.\n,,1.\n"
                    "CORD2S,5,6,1.,,,1.,,1.\n,2.\n" // linked in its copy, which comes first
                    "CORD2C,6,3,,,10.,,,11.\n,1.,,10.\n"
                    "CORD2S,3,,,,70.,,,71.\n,1.,,70.\n" // behind the rectangle of that id
                    "GRID,50,,1.,2.,3.,3\nGRID,100,4,1.,90.,0.,4\nGRID,60,,,,,-1\nGRID,20,,,,,5\n");
    EXPECT_EQ(Sections(sZdt, "*LOCALAXIS"),
              "*LOCALAXIS    ; Node Local Axis\n"
              "; NODE_LIST, iMETHOD, ANGLE-x, ANGLE-y, ANGLE-z                    ; iMETHOD=1\n"
              "; NODE_LIST, iMETHOD, P0X, P0Y, P0Z, P1X, P1Y, P1Z, P2X, P2Y, P2Z  ; iMETHOD=2\n"
              "; NODE_LIST, iMETHOD, V1X, V1Y, V1Z, V2X, V2Y, V2Z                 ; iMETHOD=3\n"
              " 20, 2, 0, 0, 0, 2, 0, 80, 2, 1, 80\n"
              " 100, 2, 0, 0, 0, 0, 1, 0, -1, 1, 0\n"
              " 50, 2, 0, 0, 0, 6, 0, 0, 6, 1, 0\n"
              "\n");
}
