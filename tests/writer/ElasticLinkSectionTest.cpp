// CELAS1 and CELAS2: links, springs to ground, and general links between coincident nodes.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* GRIDS = "GRID,1\nGRID,2,,1.\nGRID,3\nGRID,4,,,,9.9e-6\nGRID,5,,,,1.e-5\n";
constexpr const char* LEVEL_UP = "*VERSION\n  6.4.1\n\n";
constexpr const char* LEVEL_DOWN = "*VERSION\n  5.8.1\n\n";

using LINES = std::vector<std::string>;

std::string From(const std::string& sZdt, const char* sText) {
    const std::size_t i = sZdt.find(sText);
    return i == std::string::npos ? "" : sZdt.substr(i);
}

} // namespace

TEST(ElasticLinks, Celas1) {
    // Store order: 14, 9, 4, 13, 8, 3, 12, 7, 2, 11, 6, 1, 10, 5.
    const T_RUN_D run = RunBulk(std::string(GRIDS) + "PELAS,100,50.,.1,,101,0.,.2\n"
                                                     "CELAS1,1,100,1,3,2,3\n"
                                                     "CELAS1,2,100,1,2\n"
                                                     "CELAS1,3,100,,5,2,6\n"
                                                     "CELAS1,4,100,1,1,2,2\n"
                                                     "CELAS1,5,100,1,,2\n"
                                                     "CELAS1,6,100,98,1,99,1\n"
                                                     "CELAS1,7,100,1,1,99,1\n"
                                                     "CELAS1,8,77,1,1,2,1\n"
                                                     "CELAS1,9,101,1,1,2,1\n"
                                                     "CELAS1,10,100,1,4,3,4\n"
                                                     "CELAS1,11,100,1,1,3,2\n"
                                                     "CELAS1,12,100,1,4,5,4\n"
                                                     "CELAS1,13,77,1,4,4,4\n"
                                                     "CELAS1,14,101,3,4,4,4\n");
    EXPECT_EQ(From(run.sZDT, "*ELASTICLINK"),
              "*ELASTICLINK\n"
              "1, 5, GEN  , 0, 0, 0, 0, 50, 0, 0, NO, 0.5, 0.5, \n"
              "1, 2, GEN  , 0, 0, 0, 50, 0, 0, 0, NO, 0.5, 0.5, \n"
              "*SPRING\n"
              "2, 0, 0, 0, 0, 50, 50, \n"
              "1, 0, 50, 0, 0, 0, 0, \n"
              "\n"
              "\n" + // a model with properties, none of a bush or gap
                  std::string(LEVEL_UP) +
                  "*NL-PROP    ; General Link Property\n"
                  " GPROP100, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, \n"
                  " YES, 50, 0.1, NO\n YES, 50, 0.1, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n"
                  " GPROP100, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, \n"
                  " NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n YES, 50, 0.1, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n" +
                  LEVEL_DOWN + "\n" + LEVEL_UP +
                  "*NL-LINK  ; General Link\n"
                  "11, 1, 3, GPROP100, , 1, 0, 0, 0, 0, \n"
                  "10, 1, 3, GPROP100, , 1, 0, 0, 0, 0, \n" +
                  LEVEL_DOWN + "\n");
    EXPECT_EQ(
        run.aLOG,
        (LINES{"CELAS1 9: the stiffness of PELAS 101 is zero.", "CELAS1 4: its two components differ.",
               "CELAS1 8 refers to PELAS 77, which doesn't exist.", "CELAS1 7: its second grid 99 doesn't exist.",
               "CELAS1 11: its two components differ.", "CELAS1 6: its first grid 98 doesn't exist.",
               "CELAS1 5: grids and components aren't correct (G1 1, C1 0, G2 2, C2 0).",
               "CELAS1 14: the stiffness of PELAS 101 is zero.", "CELAS1 13 refers to PELAS 77, which doesn't exist.",
               "CELAS1 14: the stiffness of PELAS 101 is zero.",
               "CELAS1 13 refers to PELAS 77, which doesn't exist."}));
}

TEST(ElasticLinks, Celas2CountsNamesAboveTheLargestProperty) {
    // Store order: 4, 3, 7, 2, 6, 1, 5.
    const T_RUN_D run = RunBulk(std::string(GRIDS) + "PELAS,500,1.\n"
                                                     "CELAS2,1,7.,1,1,3,1,.5\n"
                                                     "CELAS2,2,0.,1,1,3,1\n"
                                                     "CELAS2,3,-8.,3,6,1,6\n"
                                                     "CELAS2,4,9.,1,2,2,3\n"
                                                     "CELAS2,5,-0.,1,1\n"
                                                     "CELAS2,6,4.,98,1\n"
                                                     "CELAS2,7,4.,,,2,5\n");
    EXPECT_EQ(From(run.sZDT, "*SPRING"),
              "*SPRING\n"
              "2, 0, 0, 0, 0, 4, 0, \n"
              "\n"
              "\n" +
                  std::string(LEVEL_UP) +
                  "*NL-PROP    ; General Link Property\n"
                  " GPROP501, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, \n"
                  " NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n YES, -8, 0, NO\n"
                  " GPROP502, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, \n"
                  " YES, 7, 0.5, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n" +
                  LEVEL_DOWN + "\n" + LEVEL_UP +
                  "*NL-LINK  ; General Link\n"
                  "3, 3, 1, GPROP501, , 1, 0, 0, 0, 0, \n"
                  "1, 1, 3, GPROP502, , 1, 0, 0, 0, 0, \n" +
                  LEVEL_DOWN + "\n");
    EXPECT_EQ(run.aLOG, (LINES{"CELAS2 4: its two components differ.", "CELAS2 6: its first grid 98 doesn't exist.",
                               "CELAS2 5: its stiffness is zero.", "CELAS2 2: its stiffness is zero.",
                               "CELAS2 2: its stiffness is zero."}));
}

TEST(ElasticLinks, NamesAtTheEdges) {
    // The largest id has no successor: the number wraps.
    EXPECT_NE(ConvertBulk("GRID,1\nGRID,2\nPELAS,2147483647\nCELAS2,1,1.,1,1,2,1\n").find(" GPROP-2147483648, "),
              std::string::npos);
    EXPECT_NE(ConvertBulk("GRID,1\nGRID,2\nPELAS,-7\nCELAS2,1,1.,1,1,2,1\n").find(" GPROP1, "), std::string::npos);
    // A grid is never a link to itself, though its distance isn't a number; and grid 0 counts where it exists.
    EXPECT_EQ(ConvertBulk("GRID,1,,1e999\nCELAS2,1,1.,1,1,1,1\n"), "*VERSION\n  5.8.1\n\n*NODE\n  1, inf, 0, 0\n\n\n");
    EXPECT_NE(ConvertBulk("GRID,1\nGRID,0\nCELAS2,1,2.,1,3\n").find("1, 1, 0, GPROP1, , 1, "), std::string::npos);
}
