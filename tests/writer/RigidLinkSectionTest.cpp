// RBE2 and MPC in *RIGIDLINK.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* HEADER = "*RIGIDLINK    ; Rigid Link\n; M-NODE, DOF, S-NODE LIST, GROUP\n";

std::string Grids(int iLast) {
    std::string sCards;
    for (int i = 1; i <= iLast; ++i) sCards += "GRID," + std::to_string(i) + "\n";
    return sCards;
}

using LINES = std::vector<std::string>;

} // namespace

TEST(Rbe2Links, SlavesWrap) {
    struct T_CASE_D {
        int nSlaves;
        std::vector<int> aBreaks; // numbers of slaves with a line's end behind them
    };
    const T_CASE_D CASES[] = {{14, {}}, {15, {15}}, {16, {15}}, {28, {15}}, {29, {15, 29}}, {30, {15, 29}}};
    for (const T_CASE_D& rCase : CASES) {
        std::string sCard = "RBE2,5,1,612";
        std::string sExpected = "1, 110001,";
        auto pBreak = rCase.aBreaks.begin();
        for (int i = 1; i <= rCase.nSlaves; ++i) {
            const std::string sID = std::to_string(i + 1);
            sCard += (i % 8 == 0 ? "\n," : ",") + sID;
            sExpected += sID + " ";
            if (pBreak == rCase.aBreaks.end() || i != *pBreak) continue;
            sExpected += "\\\n";
            ++pBreak;
        }
        EXPECT_EQ(Sections(ConvertBulk(Grids(31) + sCard + "\n"), "*RIGIDLINK"), HEADER + sExpected + ", \n\n")
            << rCase.nSlaves;
    }
}

TEST(Rbe2Links, MissingGridsAndOddTails) {
    // Buckets: 4 in 161, 8 in 322, 3 in 371, 2 in 581, 1 in 791.
    const T_RUN_D run = RunBulk(Grids(4) + "RBE2,1,1,0,2,THRU,4,1.0-5\nRBE2,2,9,123,1\nRBE2,3,2,7x5,9,,3,-9\n"
                                           "RBE2,4,3,4,99\nRBE2,8,3\n");
    EXPECT_EQ(Sections(run.sZDT, "*RIGIDLINK"), std::string(HEADER) + "3, 000100,, \n"
                                                                      "3, 000000,, \n"
                                                                      "2, 000010,3 , \n"
                                                                      "1, 000000,2 4 1 , \n"
                                                                      "\n");
    EXPECT_EQ(run.aLOG, (LINES{"Grid 99 of RBE2 4 doesn't exist.", "Grid 9 of RBE2 3 doesn't exist.",
                               "Grid -9 of RBE2 3 doesn't exist.", "Grid 9 of RBE2 2 doesn't exist."}));
}

TEST(MpcLinks, EquationsOfTheLastSet) {
    const std::string sSet5 = "MPC,5,10,3,-1.,20,9,1.\n"            // a link; no node needs to exist
                              "MPC,5,1,1,1.,2,1,-1.\n"              // the other way round: silence
                              "MPC,5,1,1,-1.,2,1,1.,,,3,1,2.\n"     // three terms
                              "MPC,5,1,1,-1.,-2,1,1.\n"             // one term left
                              "MPC,5,1,7,-1.,,,,,,2,1,1.\n"         // two, the second from the second line
                              "MPC,5,1,6,-1.,2,1,1.,,,,,,4,1,2.\n"; // a fourth term isn't read
    const std::string sLinks = std::string(HEADER) + " 20, 001000, 10,\n 2, , 1,\n 2, 000001, 1,\n\n";
    const std::string sRefused = "A multipoint constraint that doesn't have exactly two terms is left out.";
    T_RUN_D run = RunBulk(sSet5 + "SPC1,7,1,1\n");
    EXPECT_EQ(Sections(run.sZDT, "*RIGIDLINK"), sLinks);
    EXPECT_EQ(run.aLOG, (LINES{sRefused, sRefused}));
    run = RunBulk(sSet5 + "SPC,7,1,1\n");
    EXPECT_EQ(Sections(run.sZDT, "*RIGIDLINK"), "");
    EXPECT_EQ(run.aLOG, LINES());
    run = RunBulk(sSet5 + "SPC,5,1,1\n");
    EXPECT_EQ(Sections(run.sZDT, "*RIGIDLINK"), sLinks);
}

TEST(MpcLinks, NoEquationThatLinksWritesNothing) {
    const T_RUN_D run = RunBulk("MPC,5,1,1,-1.\nMPC,5,1,1,-1.,2,1,1.0001\n");
    EXPECT_EQ(run.sZDT, "*VERSION\n  5.8.1\n\n*CONSTRAINT\n\n");
    EXPECT_EQ(run.aLOG.size(), 1u);
}
