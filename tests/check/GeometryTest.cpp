// Small decks against all that is told of their geometry, worked out by hand.

#include "nas2zdt/check/Geometry.h"
#include "support/Deck.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

struct T_CHECKED_D {
    std::string sFINDINGS;  // "error no-length CBAR 3 line 7: text" a line, "...: 5 more" for those without a text
    std::string sQUALITIES; // "warp of quads: 1.5 at 7, 1 of 3 past 5" a line
};

/// Cards begin in line 2.
T_CHECKED_D Check(const std::string& sCards, double dTolerance = -1.0) {
    const CTempFolder folder;
    WriteText(folder.Path("deck"), "BEGIN BULK\n" + sCards + "ENDDATA\n");
    const CCheckDeck deck(folder.Path("deck"), {});
    CFindings findings;
    T_CHECKED_D checked;
    for (const T_QUALITY_D& r : CheckGeometry(deck, dTolerance, findings)) {
        checked.sQUALITIES += std::string(r.sNAME) + ": " + Text(r.dWORST) + " at " + std::to_string(r.iWORST) + ", " +
                              std::to_string(r.nPAST) + " of " + std::to_string(r.nMEASURED) + " past " +
                              Text(r.dLIMIT) + "\n";
    }
    for (const T_FINDING_D& rFinding : findings.GetAll()) {
        const std::string sName = std::string(rFinding.pKIND->eSEVERITY == SEVERITY_ERROR ? "error " : "warning ") +
                                  rFinding.pKIND->sCODE + (rFinding.sKEYWORD.empty() ? "" : " ") + rFinding.sKEYWORD;
        for (const T_PLACED_D& rPlace : rFinding.aPLACES) {
            checked.sFINDINGS += sName + (rPlace.iID == 0 ? "" : " " + std::to_string(rPlace.iID)) +
                                 (rPlace.origin.iLINE == 0 ? "" : " line " + std::to_string(rPlace.origin.iLINE)) +
                                 ": " + Without(rPlace.sTEXT, folder.Path("")) + "\n";
        }
        const std::uint64_t nMore = rFinding.nCOUNT - rFinding.aPLACES.size();
        if (nMore > 0) checked.sFINDINGS += sName + ": " + std::to_string(nMore) + " more\n";
    }
    return checked;
}

/// Lines 2 to 5, and 2 to 9.
const std::string SQUARE = "GRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,3,,1.,1.,0.\nGRID,4,,0.,1.,0.\n";
const std::string CUBE = SQUARE + "GRID,5,,0.,0.,1.\nGRID,6,,1.,0.,1.\nGRID,7,,1.,1.,1.\nGRID,8,,0.,1.,1.\n";

struct T_CASE_D {
    const char* sNAME;
    std::string sCARDS;
    std::string sEXPECTED;
};
void PrintTo(const T_CASE_D& r, std::ostream* p) {
    *p << r.sNAME;
}

class GeometryFindings : public testing::TestWithParam<T_CASE_D> {};

TEST_P(GeometryFindings, AreThese) {
    EXPECT_EQ(Check(GetParam().sCARDS).sFINDINGS, GetParam().sEXPECTED);
}

INSTANTIATE_TEST_SUITE_P(
    Decks, GeometryFindings,
    testing::ValuesIn<T_CASE_D>({
        {"Sound",
         CUBE + "CHEXA,1,1,1,2,3,4,5,6\n,7,8\nCPENTA,2,1,1,2,4,5,6,8\nCPYRAM,3,1,1,2,3,4,5\nCTETRA,4,1,1,2,4,5\n"
                "CQUAD4,5,1,1,2,3,4\nCTRIA3,6,1,1,2,3\nCBAR,7,1,1,5,1.,0.,0.\nCBUSH,8,1,5,5\nCELAS2,9,1.,1,1,1,2\n"
                "CTRIA6,10,1,2,3,4,,,99\n",
         ""},
        {"Lines",
         SQUARE + "GRID,5,,1000.,0.,0.\nGRID,6,,1000.,0.,1.-7\n"
                  "CROD,1,1,5,6\nCBAR,2,1,1,1,0.,0.,1.\nCROD,3,1,5,1\nCQUAD4,4,1,1,2,3,4\n",
         "error no-length CROD 1 line 8: GRID 5, GRID 6 are at the same place\n"
         "error repeated-node CBAR 2 line 9: GRID 1 comes more than once\n"},
        {"Orientations",
         SQUARE + "GRID,5,,0.,1.,9.\nGRID,6,,0.,0.,-1.\nBEAMOR,,,,,0.,0.,1.\n"
                  "CBAR,1,1,1,2,-5.,0.,4.-4\nCBAR,2,1,2,3,0.,0.,0.\nCBAR,3,1,3,4\nCBAR,4,1,4,1,4\n"
                  "CBAR,5,1,1,3,6\nCBEAM,6,1,2,4\nCBAR,7,1,4,5,5\nCBAR,8,1,2,6,1.,1.,0.\n",
         "error parallel-orientation CBAR 1 line 9: the orientation by vector -5 0 0.0004 is along the axis\n"
         "error parallel-orientation CBAR 7 line 15: the orientation by GRID 5 is along the axis\n"
         "error zero-orientation CBAR 2 line 10: the orientation by vector 0 0 0 has no length\n"
         "error zero-orientation CBAR 4 line 12: the orientation by GRID 4 has no length\n"
         "error no-orientation CBAR 3 line 11: no orientation is given\n"},
        {"OrientationsInFrames", // the radial axis at GRID 2 is X, the tangential one Y
         "CORD2C,7,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n" + SQUARE + "GRID,5,,1.,0.,0.,7\n" +
             "CBAR,1,1,5,1,1.,0.,0.\nCBAR,2,1,5,3,1.,0.,0.\nCBAR,3,1,5,4,1.,-1.,0.,B\nCROD,4,1,2,5\n",
         "error parallel-orientation CBAR 1 line 9: the orientation by vector 1 0 0 is along the axis\n"
         "error parallel-orientation CBAR 3 line 11: the orientation by vector 1 -1 0 is along the axis\n"
         "error no-length CROD 4 line 12: GRID 2, GRID 5 are at the same place\n"},
        {"Plates",
         SQUARE + "GRID,5,,2.,0.,0.\nGRID,6,,.2,.2,0.\nGRID,7,,.5,.5,0.\n"
                  "CTRIA3,1,1,1,2,5\nCQUAD4,2,1,1,2,4,3\nCQUAD4,3,1,1,2,6,4\nCQUAD4,4,1,1,2,3,3\n"
                  "CQUAD8,5,1,1,2,3,4,7,7\n,0,0\nCTRIA6,6,1,1,2,3\nCQUAD4,7,1,1,2,7,4\n",
         "error no-area CTRIA3 1 line 9: its corners are on one line\n"
         "error no-area CQUAD4 2 line 10: it has no area\n"
         "error bad-corner CQUAD4 3 line 11: the Jacobian isn't positive at GRID 6\n"
         "error bad-corner CQUAD4 7 line 16: the Jacobian isn't positive at GRID 7\n"
         "error repeated-node CQUAD4 4 line 12: GRID 3 comes more than once\n"
         "error repeated-node CQUAD8 5 line 13: GRID 7 comes more than once\n"
         "warning same-element CQUAD8 5 line 13: CQUAD4 2 (deck:10) has the same corners and property\n"},
        {"Solids",
         CUBE + "CHEXA,1,1,5,6,7,8,1,2\n,3,4\nCHEXA,2,1,1,2,3,3,5,6\n,7,7\nCHEXA,3,1,1,2,3,4,5,6\n,8,7\n"
                "CTETRA,4,1,1,2,3,4\nCTETRA,5,1,1,4,2,5\nCPENTA,6,1,5,6,7,1,2,3\nCPYRAM,7,1,1,2,3,4,4\n"
                "CTETRA,8,1,1,2,2,5\nCHEXA,9,1,1,2,3,4,1,2\n,3,4\n"
                "GRID,9,,0.,0.,-1.\nCHEXA,10,1,1,2,3,3,9,6\n,7,7\n",
         "error inside-out CHEXA 1 line 10: its corners go round in the wrong sense\n"
         "warning collapsed-solid CHEXA 2 line 12: GRID 3, GRID 7 come more than once\n"
         "warning collapsed-solid CHEXA 9 line 21: GRID 1, GRID 2, GRID 3, GRID 4 come more than once\n"
         "warning collapsed-solid CHEXA 10 line 24: GRID 3, GRID 7 come more than once\n"
         "error bad-corner CHEXA 3 line 14: the Jacobian isn't positive at GRID 8, GRID 7\n"
         "error bad-corner CHEXA 10 line 24: the Jacobian isn't positive at GRID 1, GRID 9\n"
         "error no-volume CTETRA 4 line 16: it has no volume\n"
         "error inside-out CTETRA 5 line 17: its corners go round in the wrong sense\n"
         "error inside-out CPENTA 6 line 18: its corners go round in the wrong sense\n"
         "warning collapsed-solid CPYRAM 7 line 19: GRID 4 comes more than once\n"
         "error no-volume CPYRAM 7 line 19: it has no volume\n"
         "error repeated-node CTETRA 8 line 20: GRID 2 comes more than once\n"
         "error no-volume CHEXA 9 line 21: it has no volume\n"
         "warning same-element CHEXA 3 line 14: CHEXA 1 (deck:10) has the same corners and property\n"},
        {"SmallUnits", // shapes are judged by their own size
         "GRID,1,,0.,0.,0.\nGRID,2,,1.-9,0.,0.\nGRID,3,,1.-9,1.-9,0.\nGRID,4,,0.,1.-9,0.\nGRID,5,,0.,0.,1.-9\n"
         "CQUAD4,1,1,1,2,3,4\nCTRIA3,2,1,1,2,3\nCTETRA,3,1,1,2,4,5\nCROD,4,1,1,2\n",
         ""},
        {"OneId",
         SQUARE + "CQUAD4,1,1,1,2,3,4\nCTRIA3,2,1,1,2,3\nCTRIA3,1,1,2,3,4\nCTRIA3,2,1,1,2,3\nCTRIA3,-1,1,4,1,2\n"
                  "CTRIA3,1,2,2,3,4\n",
         "error same-id CQUAD4 1 line 6: CTRIA3 1 (deck:11) has the same id\n"
         "warning same-card CTRIA3 2 line 7: CTRIA3 2 (deck:9) is the same\n"
         "error same-id CTRIA3 1 line 8: CTRIA3 1 (deck:11) has the same id\n"},
        {"IdsFarApart",
         "GRID,1000000,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,99999999,,1.,1.,0.\nGRID,-5,,0.,1.,0.\nGRID,2,,2.,0.,0.\n"
         "CTRIA3,7,1,1000000,2,99999999\nCTRIA3,88888888,1,1000000,99999999,-5\nCTRIA3,7,1,1000000,2,99999999\n",
         "warning same-card CTRIA3 7 line 7: CTRIA3 7 (deck:9) is the same\n"},
        {"SameCorners",
         SQUARE + "CQUAD4,1,1,1,2,3,4\nCQUAD4,2,2,2,1,4,3\nCQUAD4,3,1,3,4,1,2\nCTRIA3,4,1,1,2,3\nCSHEAR,5,3,4,3,2,1\n"
                  "CROD,6,1,1,2\nCROD,7,1,2,1\nCELAS2,8,1.,1,1,2,1\nCELAS2,9,1.,1,1,2,1\nCTRIA3,10,1,2,3,4\n",
         "warning same-element CQUAD4 3 line 8: CQUAD4 1 (deck:6) has the same corners and property\n"
         "warning same-corners CQUAD4 2 line 7: CQUAD4 1 (deck:6) has the same corners\n"
         "warning same-corners CSHEAR 5 line 10: CQUAD4 1 (deck:6) has the same corners\n"
         "warning same-corners CROD 7 line 12: CROD 6 (deck:11) has the same ends\n"},
        {"FreeGrids",
         SQUARE + "GRID,5,,5.,0.,0.\nGRID,6,,6.,0.,0.\nGRID,7,,7.,0.,0.,,123456\nGRID,8,,8.,0.,0.,,12345\n"
                  "GRID,11,,9.,0.,0.\nGRID,12,,9.,0.,0.\nGRID,13,,9.,0.,0.\nGRID,14,,9.,0.,0.\nGRID,15,,9.,0.,0.\n"
                  "GRID,16,,9.,0.,0.\nGRID,17,,9.,0.,0.\nGRID,18,,9.,0.,0.\nGRID,19,,9.,0.,0.\nGRID,20,,9.,0.,0.\n"
                  "CQUAD4,1,1,1,2,3,4\nCBAR,2,1,1,3,5\nCORD1R,1,6,8,99\nSPC,1,11,123456\nSPC1,1,123456,13,THRU,15\n"
                  "SPC1,1,123,16\nSPC1,1,123456,14,THRU,17\nSPC1,1,123456,20\nPLOTEL,3,18,1\nGRID,5,,5.,1.,0.\n",
         "warning free-grid GRID 12 line 11: no element or link uses it\n"
         "warning free-grid GRID 19 line 18: no element or link uses it\n"},
        {"Parts",
         "GRID,9,,0.,0.,0.\nGRID,8,,1.,0.,0.\nGRID,7,,1.,1.,0.\nGRID,6,,0.,1.,0.\nGRID,5,,5.,0.,0.\nGRID,4,,6.,0.,0.\n"
         "GRID,3,,7.,0.,0.\nCQUAD4,1,1,9,8,7,6\nCROD,2,1,5,4\nCONM2,3,3,,1.\n",
         "warning parts: 3 parts that nothing joins; the smallest: 1 grid (3); 2 grids (4, 5); 4 grids (6, 7, 8, "
         "...)\n"},
        {"Coincident", // the default is a hundred thousandth of a diagonal of 10 sqrt(2)
         SQUARE + "GRID,5,,0.,10.,0.\nGRID,11,,0.,0.,9.-5\nGRID,12,,0.,0.,-9.-5\nGRID,13,,10.,0.,1.5-4\n"
                  "GRID,14,,10.,0.,0.\nGRID,15,,0.,10.,0.\nGRID,16,,1.,1.,0.\nGRID,17,,1.,1.,0.\n"
                  "GRID,18,,0.,10.,2.-4\nGRID,19,,0.,10.,1.-4\n"
                  "CQUAD4,1,1,1,2,3,4\nCROD,2,1,5,11\nCROD,3,1,12,14\nCROD,4,1,1,13\nCROD,5,1,15,2\nCROD,6,1,14,2\n"
                  "CROD,7,1,18,2\nRBE2,8,5,123,15,19\nRBE3,9,,4,123,1.,123,16,3\n,17\n",
         "warning coincident-grids GRID 11 line 7: GRID 1 (deck:2) is 9e-05 away, and nothing links them\n"
         "warning coincident-grids GRID 12 line 8: GRID 1 (deck:2) is 9e-05 away, and nothing links them\n"
         "warning coincident-grids GRID 19 line 15: GRID 18 (deck:14) is 0.0001 away, and nothing links them\n"},
        {"CoincidentInARow", // 7 is too far from 5, and 6 stands for no grid
         SQUARE + "GRID,5,,5.,5.,0.\nGRID,6,,5.,5.,6.-5\nGRID,7,,5.,5.,1.2-4\n"
                  "CQUAD4,1,1,1,2,3,4\nCROD,2,1,5,2\nCROD,3,1,6,2\nCROD,4,1,7,2\n",
         "warning coincident-grids GRID 6 line 7: GRID 5 (deck:6) is 6e-05 away, and nothing links them\n"},
        {"StrayGrid", // then it is a hundredth of a mean edge, about the fifth root of a million
         SQUARE + "GRID,5,,1.+6,0.,0.\nGRID,6,,0.,-.2\nCROD,1,1,1,2\nCROD,2,1,1,5\nCROD,3,1,2,3\nCROD,4,1,3,4\n"
                  "CROD,5,1,2,6\n",
         ""},
        {"OddNumbers", // infinite, not a number after a frame, too large to reckon with
         "CORD2C,1,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nGRID,1,,1.+999,0.,0.\nGRID,2,1,1.+308,1.+308,0.\nGRID,3,,1.+200,0.,0."
         "\n"
         "GRID,4,,0.,1.,0.\nGRID,5,,0.,1.,0.\nGRID,6,9,0.,1.,0.\nGRID,7,,1.-300,1.,0.\nCQUAD4,1,1,1,2,3,4\n"
         "CTETRA,2,1,5,4,3,2\nCBAR,3,1,1,2,1.+999,0.,0.\nCBAR,4,1,4,7,1.+308,1.+308,0.\nCTRIA3,5,1,4,5,6\n"
         "CTRIA3,6,1,4,99,7\nCROD,7,1,4,0\n",
         "error no-length CBAR 4 line 14: GRID 4, GRID 7 are at the same place\n"
         "warning coincident-grids GRID 5 line 8: GRID 4 (deck:7) is 0 away, and nothing links them\n"},
    }),
    [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

/// A table of cards that join the two rods of a deck, or leave them apart.
TEST(GeometryTies, JoinGrids) {
    const std::string sRods = "GRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,3,,0.,1.,0.\nGRID,4,,0.,2.,0.\n"
                              "CROD,1,1,1,2\nCROD,2,1,3,4\n";
    for (const char* sCard :
         {"RBE2,9,1,123,3", "RBE2,9,7,123,4,1,1.-6", "RBE3,9,,1,123,1.,123,4", "RBE3,9,,7,123,1.,1,7,2.\n,2,1,3",
          "RBE1,9,1,123456\n,UM,3,123", "RBAR,9,2,3,123456", "RBAR1,9,1,4,123", "RROD,9,1,3,1", "RSPLINE,9,,1,3,,4",
          "RSPLINE,9,,7,8,,1,,3", "MPC,1,1,1,1.,3,1,-1.", "MPC,1,7,1,1.,8,1,-1.\n,,1,2,1.,4,1,1.", "CBUSH,9,1,1,3",
          "CELAS1,9,1,1,1,4,1", "DMIG,K,1,1,,3,1,1.", "CTRIAX6,9,1,1,2,3", "CGAP,9,1,1,3"}) {
        EXPECT_EQ(Check(sRods + sCard + "\n").sFINDINGS, "") << sCard;
    }
    for (const char* sCard :
         {"PLOTEL,9,1,3", "SPC1,1,123456,1,3", "RBE2,9,1,3,2", "RBE3,9,,1,3,1.,4,2", "RBE3,9,,1,3,1.,4,2\n,UM,1,3",
          "RBE1,9,1,3", "MPC,1,1,3,1.,2,4,3.", "CBUSH,9,1,1", "CONM2,9,1,3"}) {
        EXPECT_EQ(Check(sRods + sCard + "\n").sFINDINGS,
                  "warning parts: 2 parts that nothing joins; the smallest: 2 grids (1, 2); 2 grids (3, 4)\n")
            << sCard;
    }
}

TEST(GeometryFindings, ComeAsCountsPastTheFirst) {
    std::string sCards;
    for (int i = 1; i <= 25; ++i) sCards += "GRID," + std::to_string(i) + ",,1.,0.,0.\n";
    const std::string sFindings = Check(sCards).sFINDINGS;
    EXPECT_EQ(std::count(sFindings.begin(), sFindings.end(), '\n'), 21);
    EXPECT_TRUE(sFindings.ends_with("warning free-grid GRID 20 line 21: no element or link uses it\n"
                                    "warning free-grid GRID: 5 more\n"));
}

class GeometryQuality : public testing::TestWithParam<T_CASE_D> {};

TEST_P(GeometryQuality, IsThis) {
    EXPECT_EQ(Check(GetParam().sCARDS).sQUALITIES, GetParam().sEXPECTED);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, GeometryQuality,
    testing::ValuesIn<T_CASE_D>({
        // Corner 3 of the square 0.2 up: X1 = (2, 0, .2), X2 = (0, 2, .2), X12 = (0, 0, .2), N = (-.4, -.4, 4).
        // sin(warp) = .8 / (2 sqrt(16.32)), sin(skew) = .04 / 4.04, taper = .32 / 16.32
        {"Warp",
         "GRID,1\nGRID,2,,1.\nGRID,3,,1.,1.,.2\nGRID,4,,0.,1.\nGRID,5,,1.,1.\nCQUAD4,1,1,1,2,5,4\n"
         "CQUAD4,2,1,1,2,3,4\n",
         "warp of quads: 5.68244 at 2, 1 of 2 past 5\nskew of quads: 0.567294 at 2, 0 of 2 past 45\n"
         "aspect of quads: 1 at 1, 0 of 2 past 10\ntaper of quads: 0.0196078 at 2, 0 of 2 past 0.5\n"},
        // X1 = (4, 0), X2 = (4, 2): the angle's tangent is 2, the aspect sqrt(20 / 16)
        {"Skew", "GRID,1\nGRID,2,,2.\nGRID,3,,4.,1.\nGRID,4,,2.,1.\nCQUAD4,1,1,1,2,3,4\n",
         "warp of quads: 0 at 1, 0 of 1 past 5\nskew of quads: 63.4349 at 1, 1 of 1 past 45\n"
         "aspect of quads: 1.11803 at 1, 0 of 1 past 10\ntaper of quads: 0 at 1, 0 of 1 past 0.5\n"},
        // sides 4 and 1, X1 = 5, X12 = 3, then a rectangle 11 by 1
        {"TaperAndAspect",
         "GRID,1\nGRID,2,,4.\nGRID,3,,2.5,2.\nGRID,4,,1.5,2.\nCQUAD4,1,1,1,2,3,4\nGRID,5,,11.\nGRID,6,,11.,1.\n"
         "GRID,7,,0.,1.\nCQUAD4,2,1,1,5,6,7\n",
         "warp of quads: 0 at 1, 0 of 2 past 5\nskew of quads: 0 at 1, 0 of 2 past 45\n"
         "aspect of quads: 11 at 2, 1 of 2 past 10\ntaper of quads: 0.6 at 1, 1 of 2 past 0.5\n"},
        // 90 degrees, sqrt(2) / (1 / (2 + sqrt(2))) / sqrt(12) = 1.39385; 180 degrees less twice atan(.1)
        {"Triangles",
         "GRID,1\nGRID,2,,1.\nGRID,3,,0.,1.\nCTRIA3,1,1,1,2,3\nGRID,4,,10.\nGRID,5,,5.,.5\nCTRIA3,2,1,1,4,5\n",
         "largest angle of triangles: 168.579 at 2, 1 of 2 past 150\naspect of triangles: 11.5758 at 2, 1 of 2 past "
         "10\n"},
        {"EqualSides",
         "GRID,1,,1.\nGRID,2,,0.,1.\nGRID,3,,0.,0.,1.\nCTRIA3,1,1,1,2,3\nGRID,4,,1.,1.,1.\nCTETRA,2,1,1,2,3,4\n",
         "largest angle of triangles: 60 at 1, 0 of 1 past 150\naspect of triangles: 1 at 1, 0 of 1 past 10\n"
         "aspect of tetrahedra: 1 at 2, 0 of 1 past 10\n"},
        // the corner of a cube: inner radius .5 / (1.5 + sqrt(3) / 2)
        {"Tetrahedra", CUBE + "CTETRA,1,1,1,2,4,5\n", "aspect of tetrahedra: 1.36603 at 1, 0 of 1 past 10\n"},
        // edges sqrt(2) over heights 1; corners of 45 degrees: sqrt(.75 * 2); edges 1, 1, sqrt(3) over 1: sqrt(.5 * 3)
        {"OtherSolids",
         CUBE + "GRID,9,,2.,0.,1.\nGRID,10,,2.,1.,1.\nCHEXA,1,1,1,2,3,4,6,9\n,10,7\nCPENTA,2,1,1,2,4,5,6,8\n"
                "CPYRAM,3,1,1,2,3,4,5\n",
         "skew of wedges: 1.22474 at 2, 0 of 1 past 5\nskew of hexahedra: 1.41421 at 1, 0 of 1 past 5\n"
         "skew of pyramids: 1.22474 at 3, 0 of 1 past 5\n"},
        {"Cube", CUBE + "CHEXA,1,1,1,2,3,4,5,6\n,7,8\n", "skew of hexahedra: 1 at 1, 0 of 1 past 5\n"},
        {"OnlySound", SQUARE + "CQUAD4,1,1,1,2,4,3\nCTRIA3,2,1,1,1,2\n", ""},
    }),
    [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

TEST(GeometryFindings, TellOfQualityWhatIsPast) {
    EXPECT_EQ(Check(CUBE + "GRID,9,,9.,0.,1.\nGRID,10,,9.,1.,1.\nGRID,11,,8.,0.,1.\nGRID,12,,8.,1.,1.\n"
                           "CHEXA,1,1,1,2,3,4,11,9\n,10,12\nCTRIA3,2,1,1,2,11\nCRBE\nRBE2,3,1,123,5,6,7,8\n")
                  .sFINDINGS,
              "warning poor-skew CHEXA 1 line 14: skew is 8.06226, past 5\n"
              "warning poor-angle CTRIA3 2 line 16: largest angle is 171.87 degrees, past 150\n"
              "warning poor-aspect CTRIA3 2 line 16: aspect is 37.5483, past 10\n");
}

/// Pairs within the tolerance and a bit beyond it, in all directions, with others thickly around them, thinly, or
/// thickly around a few.
TEST(CoincidentGrids, AreFoundAcrossAllSides) {
    constexpr double TOLERANCE = 0.01;
    for (const int nThick : {4000, 0, 200}) {
        std::mt19937 chance(1);
        std::uniform_real_distribution<double> inside(-1.0, 1.0);
        std::string sCards;
        int iGrid = 0, nPairs = 0;
        const auto addGrid = [&](const T_VECTOR& rAt) {
            char aCard[120];
            std::snprintf(aCard, sizeof aCard, "GRID,%d,,%.12f,%.12f,%.12f\nCONM2,%d,%d,,1.\n", iGrid + 1, rAt[0],
                          rAt[1], rAt[2], iGrid + 1, iGrid + 1);
            sCards += aCard;
            ++iGrid;
        };
        for (int i = 0; i < 4000; ++i) {
            const double dBetween = i < nThick ? 0.05 : 7.0;
            const T_VECTOR at = {i % 16 * dBetween + 1e-3 * inside(chance), i / 16 % 16 * dBetween, i / 256 * dBetween};
            const T_VECTOR way = {inside(chance), inside(chance), inside(chance)};
            addGrid(at);
            addGrid(Add(at, Scale(way, (i % 2 == 0 ? 0.999 : 1.001) * TOLERANCE / Length(way))));
            nPairs += i % 2 == 0;
        }
        const std::string sFindings = Check(sCards, TOLERANCE).sFINDINGS;
        EXPECT_NE(sFindings.find("warning coincident-grids GRID: " + std::to_string(nPairs - 20) + " more\n"),
                  std::string::npos);
        EXPECT_EQ(Check(sCards, 0.0).sFINDINGS.find("coincident"), std::string::npos);
    }
}

} // namespace
