// What the load cards put into load sets, seen through the load cases.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

/// What stands in the case of a set.
std::string Case(std::string_view sCards, const std::string& sSet) {
    const std::string sZdt = ConvertBulk(sCards);
    const std::string sBegin = "*USE-STLD, STLD" + sSet + "\n\n";
    const std::string sEnd = "; End of data for load case [STLD" + sSet + "] -------------------------\n\n";
    const std::size_t iBegin = sZdt.find(sBegin);
    const std::size_t iEnd = sZdt.find(sEnd);
    if (iBegin == std::string::npos || iEnd == std::string::npos) return "<no such case>";
    return sZdt.substr(iBegin + sBegin.size(), iEnd - iBegin - sBegin.size());
}

} // namespace

TEST(LoadCards, ForcesAndMomentsKeepTheirOrderAndTheirKind) {
    EXPECT_EQ(Case("FORCE,1,10,0,2.,1.,.5,0.\n"
                   "MOMENT,1,10,7,3.,1.,0.,-1.\n"
                   "FORCE,2,11,,5.,1.\n"
                   "FORCE,1,,,1.5,0.,0.,1.\n"
                   "FORCE,1,123456,,,1.,1.,1.\n"
                   "FORCE,1,-3,,1-20,0.,0.,1.\n"
                   "FORCE,1,-4,,1.1-20,0.,0.,1.\n"
                   "MOMENT,1,12,,1.,2.\n",
                   "1"),
              "*CONLOAD\n"
              "   10,  2, 1, 0, 0, 0, 0\n"
              "    0,  0, 0, 1.5, 0, 0, 0\n"
              "   -4,  0, 0, 1.1e-20, 0, 0, 0\n"
              "\n"
              "*CONLOAD\n"
              "   10,  0, 0, 0, 3, 0, -3\n"
              "   12,  0, 0, 0, 2, 0, 0\n"
              "\n");
}

TEST(LoadCards, SectionsOfACaseHaveTheirOrder) {
    EXPECT_EQ(Case("CQUAD4,1,1,1,2,3,4\nSPCD,1,5,1,.5\nTEMPP1,1,1,2.,,1.,4.\nTEMP,1,5,3.\nPLOAD2,1,4.,1\n"
                   "PLOAD1,1,9,FX,FR,.5,6.\nMOMENT,1,5,,7.,1.\nFORCE,1,5,,8.,1.\nGRAV,1,,9.,0.,0.,-1.\n",
                   "1"),
              "*SELFWEIGHT, 0, 0, -9\n\n"
              "*CONLOAD\n    5,  8, 0, 0, 0, 0, 0\n\n"
              "*CONLOAD\n    5,  0, 0, 0, 7, 0, 0\n\n"
              "*BEAMLOAD\n"
              "    9, BEAM,    CONLOAD,    GX,    NO,     0.5,     6,     0,     0,     0,     0,     0,     0\n\n"
              "*PRESSURE\n1, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 4, 0, 0, 0, 0, \n\n"
              "*NDTEMPER    ; Nodal Temperatures\n    5,  3,\n\n"
              "*ELTEMPER    ; Element Temperatures\n; ELEM_LIST, TEMPER, GROUP\n    1,  2,\n\n"
              "*THERGRAD    ; Temperature Gradient\n"
              "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, TY, bUSEHY, HY, GROUP\n; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, GROUP\n"
              "    1, 2, 3, YES, 0,\n\n"
              "*SPDISP    ; Specified Displacement of Supports\n    5,  100000, 0.5, 0, 0, 0, 0, 0\n\n");
}

TEST(LoadCards, LaterGravityOverwrites) {
    EXPECT_EQ(Case("GRAV,1,,1.,1.,1.,1.\nFORCE,1,5\nGRAV,1,8,9.81,.5,0.,-1.\n", "1"),
              "*SELFWEIGHT, 4.905, 0, -9.81\n\n*CONLOAD\n\n");
}

TEST(LoadCards, EnforcedDisplacements) {
    EXPECT_EQ(Case("SPCD,4,10,321,0.5,11,0,-2.\n"
                   "SPCD,4,,3,1.-21,0,3,1.\n"
                   "SPCD,4,,6,1.,-5,17,2.\n"
                   "SPCD,4,12,,3.,123456,00,3.\n",
                   "4"),
              "*SPDISP    ; Specified Displacement of Supports\n"
              "   10,  111000, 0.5, 0.5, 0.5, 0, 0, 0\n"
              "   11,  111111, -2, -2, -2, -2, -2, -2\n"
              "    0,  000001, 0, 0, 0, 0, 0, 1\n"
              "   -5,  100000, 2, 0, 0, 0, 0, 0\n"
              "\n");
}

TEST(LoadCards, BeamLoadsByFractionNeedNoElement) {
    EXPECT_EQ(Case("PLOAD1,1,7,FX,FR,.25,2.,.75,3.\n"
                   "PLOAD1,1,8,MZE,FPPR,.5,-4.\n"
                   "PLOAD1,1,9,FYE,FR,,,1.,6.\n"
                   "PLOAD1,1,9,MX,FR,.5,,1.\n"
                   "PLOAD1,1,9,FA,FR,.5,1.,1.,1.\n",
                   "1"),
              "*BEAMLOAD\n"
              "    7, BEAM,    UNILOAD,    GX,    NO,    0.25,     2,  0.75,     3,     0,     0,     0,     0\n"
              "    8, BEAM,  CONMOMENT,    LZ,   YES,     0.5,    -4,     0,     0,     0,     0,     0,     0\n"
              "    9, BEAM,    UNILOAD,    LY,    NO,       0,     0,     1,     6,     0,     0,     0,     0\n"
              "\n");
    EXPECT_EQ(Case("PLOAD1,1,9,FA,FR,.5,1.,1.,1.\n", "1"), ""); // an unknown TYPE is of no section
}

TEST(LoadCards, BeamLoadByLengthOnNoElementIsRefused) {
    const T_RUN_D run = RunBulk("PLOAD1,1,7,FX,FRPR,.25,2.,.75,3.\nPLOAD1,1,8,MYE,LE\nPLOAD1,1,9,FZ,,1.,1.\n");
    EXPECT_EQ(Sections(run.sZDT, "*BEAMLOAD"), "*BEAMLOAD\n\n");
    ASSERT_EQ(run.aLOG.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NE(run.aLOG[i].find(std::to_string(7 + i)), std::string::npos) << run.aLOG[i];
    }
}

TEST(LoadCards, PressureOnAnElementThatDoesNotExist) {
    EXPECT_EQ(Case("PLOAD4,1,7,1.\nPLOAD2,1,2.,8,9\n", "1"), "*PRESSURE\n\n");
}

TEST(LoadCards, RangesThatCantBeHeldEndTheRun) {
    for (const char* sCard : {"PLOAD2,1,1.,5,THRU,10000006\n", "PLOAD2,1,1.,-5,THRU,2147483647\n",
                              "TEMPP1,1,1,1.,,,,5,THRU,10000006\n", "TEMPP1,1,1,1.,,,,,,,,THRU,10000001\n"}) {
        const T_RUN_D run = RunBulk("GRID,1\n" + std::string(sCard));
        EXPECT_EQ(run.iRESULT, 0) << sCard;
        EXPECT_EQ(run.failure.eFAILURE, FAILURE_RANGE_TOO_LONG) << sCard;
        EXPECT_EQ(run.failure.iLINE, 3) << sCard;
        EXPECT_EQ(run.failure.nLIMIT, 10000000) << sCard;
    }
    T_LIMITS_D limits; // a range that is long enough for its own limit meets that of all
    limits.nRANGES = 1;
    EXPECT_EQ(RunBulk("PLOAD2,1,1.,5,THRU,10000005\n", limits).failure.eFAILURE, FAILURE_LIMIT_RANGES);
    // No ids in these, whatever the distance of their ends.
    EXPECT_EQ(RunBulk("PLOAD2,1,1.,2147483647,THRU,2147483647\nPLOAD2,1,1.,9,THRU,-9\nPLOAD2,1,1.,-2147483648,THRU\n")
                  .iRESULT,
              1);
}
