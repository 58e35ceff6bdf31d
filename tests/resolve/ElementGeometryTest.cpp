// Reference points of line elements, angles of links, lengths, loads whose direction is given by grids.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

/// The last columns of the lines that hold sMark, as they stand in the file: "0, 0, 1" and so on.
std::vector<std::string> Columns(const std::string& sZdt, const std::string& sMark) {
    std::vector<std::string> aColumns;
    std::istringstream text(sZdt);
    for (std::string sLine; std::getline(text, sLine);) {
        const std::size_t i = sLine.find(sMark);
        if (i != std::string::npos) aColumns.push_back(sLine.substr(i + sMark.size()));
    }
    return aColumns;
}

using COLUMNS = std::vector<std::string>;

} // namespace

TEST(ElementOrientations, ReferencePointsByVectorAndByGrid) {
    const struct {
        const char *sFROM, *sTO, *sVECTOR, *sGRID; // the last is where the vector ends
        const char* sPOINT;
    } CASES[] = {
        {"0.,0.,0.", "1.,0.,0.", "0.,1.,0.", "0.,1.,0.", "0, 0, 1"},
        {"0.,0.,0.", "1.,0.,0.", "0.,0.,1.", "0.,0.,1.", "0, -1, 0"},
        {"1.,1.,1.", "1.,3.,1.", "0.,0.,1.", "1.,1.,2.", "2, 1, 1"},
        {"0.,0.,0.", "0.,0.,1.", "1.,0.,0.", "1.,0.,0.", "0, 1, 0"},
        {"0.,0.,1.", "0.,0.,0.", "1.,0.,0.", "1.,0.,1.", "0, -1, 1"},
        {"0.,0.,0.", "2.,2.,2.", "1.,0.,0.", "1.,0.,0.", "0.333333, 0.910684, -0.244017"},
        {"1.,1.,1.", "1.,1.,1.", "1.,0.,0.", "2.,1.,1.", "1, 2, 1"}, // no length
    };
    for (const auto& r : CASES) {
        const std::string sCards = std::string("GRID,1,,") + r.sFROM + "\nGRID,2,," + r.sTO + "\nGRID,3,," + r.sGRID +
                                   "\nCBAR,1,9,1,2," + r.sVECTOR + "\nCBEAM,2,9,1,2,3\n";
        EXPECT_EQ(Columns(ConvertBulk(sCards), "REF, "), COLUMNS(2, r.sPOINT)) << sCards;
    }
}

TEST(ElementOrientations, WhatCardsSay) { // a blank or a number without a point in X1 makes a grid of the vector
    EXPECT_EQ(Columns(ConvertBulk("GRID,1\nGRID,2,,1.\nGRID,3,,,,1.\nCBAR,1,9,1,2\nCBAR,2,9,1,2,1.0\n"
                                  "CBEAM,3,9,1,2,.5,-1,3.-1\nCBAR,4,9,1,2,3,0.,1.\nCBAR,5,9,1,2,,1.0\n"
                                  "CBAR,6,9,1,2,3E1,0.,0.\nCBAR,8,9,1,2,0.,1.,0.,GGG\n,456,,.1,.2,.3,.4\n"),
                      "REF, "),
              (COLUMNS{"0, 0, 0", "1, 0, 0", "0.5, -0.3, -1", "0, -1, 0", "0, 0, 0", "0, -1, 0", "0, 0, 1"}));
}

TEST(ElementOrientations, WhatIsMissingStaysAndIsLoggedInStoreOrder) {
    const T_RUN_D run = RunBulk("GRID,1\nGRID,2,,1.\nGRID,3,,,1.\nCBAR,50,1,1,2,9\nCBEAM,100,1,1,2,0\n"
                                "CGAP,20,1,8,9,3\nCROD,30,1,1,9\nCBEND,31,1,1,2,9\nCTUBE,32,1,1,2\nCBAR,33,1,1,2,3\n"
                                "CTRIA3,34,1,1,9,9\n");
    EXPECT_EQ(run.aLOG,
              (COLUMNS{"Element 20: its first grid doesn't exist.", "Element 30: its second grid doesn't exist.",
                       "Element 100: its orientation grid 0 doesn't exist.",
                       "Element 50: its orientation grid 9 doesn't exist."}));
    EXPECT_EQ(Columns(run.sZDT, "REF, "), (COLUMNS{"0, 0, 1", "0, 0, 0", "0, 0, 0"}));
}

TEST(ElementGeometry, AnglesOfLinks) {
    const std::pair<const char*, const char*> CASES[] = {
        {"2,0.,0.,0.", "0"},
        {"2,3.,0.,0.", "0"}, // along the link
        // upright
        {"3,1.,0.,0.", "90"},
        {"3,-1.,0.,0.", "270"},
        {"3,0.,1.,0.", "180"},
        // level, though the position of grid 2 isn't: the card's coordinates count
        {"2,0.,1.,0.", "0"},
        {"2,0.,0.,1.", "90"},
        {"2,0.,-1.,0.", "180"},
        // slanted
        {"4,0.,1.,0.", "-90"},
        {"4,0.,0.,1.", "0"},
        {"4,0.,-1.,0.", "90"},
        // nearly upright or level, and a little less so
        {"11,0.,1.,0.", "180"},
        {"12,0.,1.,0.", "-90"},
        {"13,0.,1.,0.", "180"},
        {"14,0.,1.,0.", "90"},
        {"15,0.,1.,0.", "180"},
        {"16,0.,1.,0.", "0"},
        {"17,0.,1.,0.", "180"},
        {"18,0.,1.,0.", "0"},
        {"21,0.,0.,1.", "90"},
        {"22,0.,0.,1.", "90"},
        {"23,0.,0.,1.", "0"},
        {"24,0.,0.,1.", "0"},
    };
    std::string sCards = "CORD2R,5,,0.,0.,5.,0.,0.,6.\n,1.,0.,5.\nGRID,1\nGRID,2,5,1.\nGRID,3,,,,1.\nGRID,4,,1.,,1.\n"
                         "GRID,11,,9.-5,,1.\nGRID,12,,11.-5,,1.\nGRID,13,,-9.-5,,1.\nGRID,14,,-11.-5,,1.\n"
                         "GRID,15,,,9.-5,1.\nGRID,16,,,11.-5,1.\nGRID,17,,,-9.-5,1.\nGRID,18,,,-11.-5,1.\n"
                         "GRID,21,,1.,,9.-5\nGRID,22,,1.,,-9.-5\nGRID,23,,1.,,11.-5\nGRID,24,,1.,,-11.-5\n";
    COLUMNS aAngles;
    for (const auto& [sFields, sAngle] : CASES) {
        sCards += "CBUSH," + std::to_string(aAngles.size() + 101) + ",7,1," + sFields + "\n";
        aAngles.push_back(std::string(sAngle) + ", ");
    }
    EXPECT_EQ(Columns(ConvertBulk(sCards), ", GPROP7, , 0, "), aAngles);
    // a first grid that doesn't exist is the origin, a second one is the first
    EXPECT_EQ(Columns(ConvertBulk("GRID,2,,1.\nGRID,3,,,,1.\nCBUSH,1,7,99,3,1.,1.,0.\nCBUSH,2,7,2,99,0.,0.,1.\n"),
                      ", GPROP7, , 0, "),
              (COLUMNS{"135, ", "0, "}));
}

/// The file has them as fractions of the length between positions.
TEST(ElementGeometry, Lengths) {
    const std::string sZdt =
        ConvertBulk("CORD2R,5,,-4.,-3.,5.,-4.,-3.,6.\n,-3.,-3.,5.\nGRID,1\nGRID,2,5,7.,7.,7.\n"
                    "CBAR,1,1,1,2\nCBAR,2,1,2,99\nPLOAD1,1,1,FZ,LE,1.3,1.\nPLOAD1,1,2,FZ,LE,2.6,1.\n");
    EXPECT_EQ(Columns(sZdt, "GZ,    NO,     "), (COLUMNS{"0.1,     1,     0,     0,     0,     0,     0,     0",
                                                         "0.2,     1,     0,     0,     0,     0,     0,     0"}));
}

/// In store order set 3 comes first. Its first load has no direction and follows the last of set 1.
TEST(LoadDirections, SetsByAscendingId) {
    const std::string sZdt = ConvertBulk(
        "CORD2R,5,,-97.,,,-97.,,1.\n,-96.\n" // the position counts, not what the card says
        "GRID,1\nGRID,2,,,3.,4.\nGRID,3,5,98.\nGRID,4,,,1.\nGRID,5,,,,2.\nGRID,6\n"
        "FORCE1,3,11,2.,1,6\nFORCE2,3,12,1.,1,3,1,4\nMOMENT2,3,13,2.,1,4,1,3\n"
        "FORCE1,1,21,5.,6,1\nFORCE1,1,22,10.,1,2\nMOMENT1,1,23,-10.,2,1\nMOMENT1,1,24,3.,4,4\nFORCE,1,25,,7.,1.\n"
        "FORCE1,1,26,1.,5,99\nGRAV,2,,0.\n");
    EXPECT_EQ(Columns(sZdt, "   "),
              (COLUMNS{"11,  0, 0, -2, 0, 0, 0", "12,  0, 0, 1, 0, 0, 0", "13,  0, 0, 0, 0, 0, -2",
                       "22,  0, 6, 8, 0, 0, 0", "25,  7, 0, 0, 0, 0, 0", "26,  0, 0, -1, 0, 0, 0",
                       "23,  0, 0, 0, -0, 6, 8", "24,  0, 0, 0, 0, -1.8, -2.4"}));
}
