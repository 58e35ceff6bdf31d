// Totals of small decks, worked out by hand.

#include "nas2zdt/check/DeckTotals.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

T_TOTALS_D TotalText(const std::string& sDeck) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), sDeck);
    return TotalDeck(folder.Path("deck.dat"), {});
}

T_TOTALS_D TotalCards(const std::string& sCards) {
    return TotalText("CEND\nBEGIN BULK\n" + sCards + "ENDDATA\n");
}

/// The numbers that aren't zero but for weighted ones, a group a line: "nodes: count 8, sum of x 4".
std::string ShowTotals(const T_TOTALS_D& rTotals) {
    constexpr double ZERO = 1e-12;
    std::string sShown, sLast;
    for (const T_TOTALROW_D& rRow : ListTotals(rTotals)) {
        if (std::fabs(rRow.dVALUE) < ZERO || std::string_view(rRow.sNAME).ends_with("by id")) continue;
        const std::string sGroup =
            (rRow.iSET == 0 ? "" : "set " + std::to_string(rRow.iSET) + " ") + std::string(rRow.sGROUP);
        std::array<char, 40> aValue;
        std::snprintf(aValue.data(), aValue.size(), " %g", rRow.dVALUE);
        sShown += sGroup == sLast ? ", " : (sShown.empty() ? "" : "\n") + sGroup + ": ";
        sShown += rRow.sNAME;
        sShown += aValue.data();
        sLast = sGroup;
    }
    return sShown + "\n";
}

/// A unit cube with an element of each kind in it and a load set for each kind of load, in words that the file has.
const std::string CUBE =
    "GRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,3,,1.,1.,0.\nGRID,4,,0.,1.,0.\n"
    "GRID,5,,0.,0.,1.\nGRID,6,,1.,0.,1.\nGRID,7,,1.,1.,1.\nGRID,8,,0.,1.,1.\n"
    "CHEXA,1,1,1,2,3,4,5,6\n,7,8\nCQUAD4,2,2,1,2,3,4\nCBAR,3,3,1,5,1.,0.,0.\nCTRIA3,4,2,1,2,3\n"
    "CTETRA,5,1,1,2,4,5\nCPENTA,6,1,1,2,4,5,6,8\nCELAS2,7,5.,1,1,2,1\n"
    "RBE2,8,5,123456,6,7\nCONM2   9       7               2.                                              \n"
    "+       3.              3.                      3.\nSPC1,1,123,1,2\n"
    "FORCE,1,2,0,2.,0.,0.,1.\nMOMENT,1,3,0,4.,1.,0.,0.\n"
    "PLOAD2,2,3.,2\n"
    "PLOAD4,3,2,1.,2.,3.,4.\n"
    "PLOAD4,4,1,6.,,,,1,3\nPLOAD4,4,1,2.,,,,5,7\n,0,1.,0.,0.\nPLOAD4,4,5,2.,,,,1,5\n"
    "PLOAD1,5,3,FX,FR,0.,1.,1.,3.\nPLOAD1,5,3,FYE,FR,.5,4.\n"
    "GRAV,6,,9.81,0.,0.,-1.\nTEMP,6,1,20.,2,30.\nTEMPD,6,5.\nTEMPP1,6,2,40.\nSPCD,6,4,3,.5\n"
    "LOAD,9,1.,2.,1,3.,2\n";

/// What the file can't say as the card does, or the converter takes otherwise.
TEST(Totals, OfWhatCardsMean) {
    struct T_CASE {
        const char* sNAME;
        const char* sCARDS;
        const char* sTOTALS; // beyond those of nodes and elements
    };
    constexpr const char* MODEL = "CORD2C,1,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n" // around Z
                                  "CORD2R,2,,1.,0.,0.,1.,0.,1.\n,1.,1.,0.\n" // at (1, 0, 0): X is y, Y is -x
                                  "GRID,1,,0.,0.,0.\nGRID,2,,3.,0.,4.\nGRID,3,1,2.,90.,3.,2\nGRID,4,2,1.,0.,0.\n"
                                  "CBAR,1,1,1,2,0.,1.,0.\nCQUAD4,2,2,1,5,6,4\nCQUAD4,4,2,1,5,6,4\n"
                                  "GRID,5,,1.,0.,0.\nGRID,6,,2.,1.,0.\n";
    const std::string sModel = ShowTotals(TotalCards(MODEL));
    EXPECT_EQ(sModel, "nodes: count 6, sum of x 7, sum of y 4, sum of z 7, "
                      "highest x 3, highest y 2, highest z 4\n"
                      "local axes: count 1, x axes, y 1, y axes, x -1\n"
                      "lines: count 1, length 5\n"
                      "quads: count 2, area 2\n");
    for (const T_CASE& rCase : {
             T_CASE{"force along the tangent", "FORCE,5,3,1,10.,0.,1.,0.\n",
                    "set 5 nodal loads: forces 1, force x -10, moment y -30, moment z 20\n"},
             {"from grid to grid", "FORCE1,5,4,10.,1,2\n",
              "set 5 nodal loads: forces 1, force x 6, force z 8, moment x 8, moment y -8, moment z -6\n"},
             {"across two lines", "MOMENT2,5,1,7.,1,5,1,2\n", "set 5 nodal loads: moments 1, moment y -7\n"},
             {"on a grid that doesn't exist", "FORCE,5,99,,1.,1.\nTEMP,5,99,1.\nSPCD,5,99,1,1.\n", ""},
             {"gravity in a frame, twice", "GRAV,5,2,2.,1.,0.,0.\nGRAV,5,,1.,0.,0.,1.\n", "set 5 gravity: y 2, z 1\n"},
             {"a sum of factors", "FORCE,5,1,,1.,1.\nLOAD,7,2.,3.,5,1.,8\n,.5,5\n",
              "set 5 nodal loads: forces 1, force x 1\nset 7 combinations: count 1, sum 7\n"},
             {"length seen from above", "PLOAD1,5,1,FZ,LEPR,0.,2.,5.\n",
              "set 5 line loads: count 1, force z 6, moment y -9\n"},
             {"across an element", "PLOAD1,5,1,MZE,LE,1.,2.\n",
              "set 5 line loads: count 1, moment x -1.6, moment z 1.2\n"},
             {"a range of plates", "PLOAD4,5,2,1.,,,,THRU,4\n,2,1.,0.,0.\n",
              "set 5 pressures: count 2, force y 2, moment z 2\n"},
             {"a corner of zero", "PLOAD4,5,2,4.,0.,0.,4.\n",
              "set 5 pressures: count 1, force z 2, moment x 1, moment y -1.66667\n"},
             {"on grids", "PLOAD,5,2.,1,5,6\n",
              "set 5 pressures: count 1, force z 1, moment x 0.333333, moment y -1\n"},
             {"ranges of temperatures", "TEMPD,5,1.,6,2.\nTEMPRB,6,1,10.,20.\n",
              "set 5 temperatures: count 6, sum 6\nset 6 temperatures: count 6, sum 12\n"
              "set 6 element temperatures: count 1, sum 15\n"},
             {"supports of ranges, sums and grids",
              "SPC1,1,12,1,THRU,3\nSPC1,2,3,2,THRU,6,EXCEPT,3\nSPC1,3,456,1\n"
              "SPC,2,99,1,0.,6,6\nSPCADD,4,1,2\n",
              "supports: component 1 3, component 2 3, component 3 4, component 6 1\n"},
             {"a bar and an equation", "RBAR,11,1,2,123456\nMPC,1,2,1,2.,1,1,-2.\nMPC,1,3,1,1.,1,1,-1.\nMPC,1,2,3,1.\n",
              "rigid links: count 7\n"},
             {"a body of many grids", "RBE1,11,1,123456,,,,,\n,UM,2,12,3,3\n", "rigid links: count 3\n"},
             {"all of a range but its last", "SPC1,1,1,1,THRU,3,EXCEPT,3\n", "supports: component 1 2\n"},
             {"a mass beside its grid", "CONM2,11,4,2,2.,1.,0.,0.\nCONM2,12,1,-1,1.,0.,0.,5.\n",
              "masses: count 2, mass 3, mass by x 2, mass by y 4, mass by z 5\n"},
             {"a field that isn't a number", "FORCE,5,1,,X,1.\nCROD,11,1,1,A\n", ""},
         }) {
        SCOPED_TRACE(rCase.sNAME);
        EXPECT_EQ(ShowTotals(TotalCards(std::string(MODEL) + rCase.sCARDS)), sModel + rCase.sTOTALS);
    }
}

TEST(Totals, OfTheChosenSupports) {
    const std::string sBulk = "BEGIN BULK\nGRDSET,,,,,,,1\nGRID,1\nGRID,2,,,,,,2\nSPC,1,1,3\nSPC,2,2,3\nENDDATA\n";
    const auto supports = [&](const std::string& sCase) {
        const std::string sShown = ShowTotals(TotalText("CEND\n" + sCase + sBulk));
        return sShown.substr(sShown.find("supports"));
    };
    EXPECT_EQ(supports(""), "supports: component 1 1, component 2 1, component 3 1\n");
    EXPECT_EQ(supports("LOAD=1\n"), "supports: component 1 1, component 2 1\n");
    EXPECT_EQ(supports("SPC=2\n"), "supports: component 1 1, component 2 1, component 3 1\n");
}

TEST(Totals, DifferByName) {
    const T_TOTALS_D cube = TotalCards(CUBE);
    struct T_CASE {
        const char *sOLD, *sNEW, *sGROUP;
    };
    for (const T_CASE& rCase : {
             T_CASE{"GRID,8,,0.", "GRID,8,,.00001", "nodes"},
             {"GRID,8,,0.,1.,1.\nCHEXA", "GRID,7,,0.,1.,1.\nGRID,8,,1.,1.,1.\nCHEXA", "nodes"},
             {"CTRIA3,4,2,1,2,3", "CTRIA3,4,2,2,3,1", "triangles"},
             {"CELAS2,7", "CELAS2,17", "links"},
             {"SPC1,1,123,1,2", "SPC1,1,123,1,3", "supports"},
             {"RBE2,8,5", "RBE2,8,4", "rigid links"},
             {"FORCE,1,2", "FORCE,1,7", "nodal loads"},
             {"PLOAD2,2,3.", "PLOAD2,2,3.0001", "pressures"},
             {"LOAD,9,1.,2.,1,3.,2", "LOAD,9,1.,2.,2,3.,1", "combinations"},
         }) {
        SCOPED_TRACE(rCase.sNEW);
        std::string sCards = CUBE;
        sCards.replace(sCards.find(rCase.sOLD), std::string(rCase.sOLD).size(), rCase.sNEW);
        const std::vector<T_DIFFERENCE_D> aFound = FindDifferences(cube, TotalCards(sCards));
        EXPECT_TRUE(std::any_of(aFound.begin(), aFound.end(), [&](const auto& r) { return r.sGROUP == rCase.sGROUP; }));
    }
}

} // namespace
