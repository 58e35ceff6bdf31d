// The block that closes the log.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using LINES = std::vector<std::string>;

/// The rows that the summary of a bulk section has, its frame checked.
LINES SummaryRows(std::string_view sCards) {
    const LINES aShown = RunBulk(sCards).aSHOWN;
    const LINES aBegin = {
        "", "================================== [ Conversion Summary ] =======================================", "",
        "** Converted Data"};
    const LINES aEnd = {"", "", std::string(100, '='), ""};
    const auto pBegin = std::search(aShown.begin(), aShown.end(), aBegin.begin(), aBegin.end());
    if (pBegin == aShown.end() || !std::equal(aEnd.begin(), aEnd.end(), aShown.end() - 4)) return {"<no summary>"};
    return {pBegin + 4, aShown.end() - 4};
}

} // namespace

TEST(Summary, EmptyModelHasTheFrame) {
    EXPECT_EQ(SummaryRows(""), LINES());
}

TEST(Summary, RecordsNotCards) {
    EXPECT_EQ(SummaryRows("GRID,1\nGRID,2\nGRID,1\nCGAP,1,1,1,2\nCBUSH,2,1,1,2\nCONM2,3,1,,1.\nCGAP,3,1,1,2\n"
                          "CGAP,4,1,1,2\nRBE2,1,1,1,2\nCELAS1,1,1\nCELAS1,2,1\nCELAS2,1\nPELAS,1,1.,,,2,1.\nPGAP,7\n"
                          "PELAS,3,1.\nSPC,1,1,1,,2,1\nSPC1,1,2,2\nEIGRL,1\n"),
              (LINES{"   GRID : 2", "   CGAP : 3", "   CRBE2 : 1", "   CELAS1 : 2", "   CELAS2 : 1", "   PELAS : 3",
                     "   SPC : 3"}));
}

TEST(Summary, ConstraintsOfTheLastSet) {
    EXPECT_EQ(SummaryRows("SPC,1,1,1\nSPC,2,1,1,,2,1\nSPC1,3,1,1,2,3\n"), (LINES{"   SPC : 2"}));
    EXPECT_EQ(SummaryRows("SPC,1,1,1\nMPC,2,1,1,1.\n"), LINES());
    EXPECT_EQ(SummaryRows("SPC1,3,1,1\n"), LINES());                // no SPC: set 0 is looked for
    EXPECT_EQ(SummaryRows("SPC1,,1,1,2\n"), (LINES{"   SPC : 2"})); // and may exist
}

TEST(Summary, FullLogHidesIt) {
    std::string sCards = "GRID,1\n";
    for (int i = 0; i < 250; ++i) sCards += "RBAR,1,2\n";
    const T_RUN_D run = RunBulk(sCards);
    EXPECT_EQ(run.iRESULT, 1);
    ASSERT_EQ(run.aSHOWN.size(), 200u);
    EXPECT_EQ(run.aSHOWN.back(), "RBAR isn't converted in this version. (Line:192~192)"); // 10 of the banner, 190 cards
}
