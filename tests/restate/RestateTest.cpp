// Restating, by the cases of the files beside this one: a name, the cards of a deck, what they are restated as, what is
// told. Cards are compared by their fields; restating again must change nothing.

#include "support/Restated.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace {

struct T_RESTATECASE_D {
    std::string sNAME, sDECK, sEXPECTED, sTOLD;
};

/// "== name", lines of the deck, "->", cards, "told: ..." or nothing. Other lines in front are comments.
std::vector<T_RESTATECASE_D> ReadCases(const std::string& sPath) {
    std::vector<T_RESTATECASE_D> aCases;
    std::istringstream text(ReadText(sPath));
    bool bExpected = false;
    for (std::string sLine; std::getline(text, sLine);) {
        if (sLine.starts_with("== ")) {
            aCases.push_back({sLine.substr(3), {}, {}, {}});
            bExpected = false;
        } else if (aCases.empty() || sLine.empty()) {
            continue;
        } else if (sLine == "->") {
            bExpected = true;
        } else if (bExpected && sLine.starts_with("told: ")) {
            aCases.back().sTOLD = sLine.substr(6);
        } else {
            (bExpected ? aCases.back().sEXPECTED : aCases.back().sDECK) += sLine + "\n";
        }
    }
    return aCases;
}

class RestateCases : public testing::TestWithParam<const char*> {};

TEST_P(RestateCases, AreRestated) {
    const std::vector<T_RESTATECASE_D> aCases = ReadCases(std::string(RESTATE_CASES) + "/" + GetParam() + ".txt");
    ASSERT_FALSE(aCases.empty());
    for (const T_RESTATECASE_D& rCase : aCases) {
        SCOPED_TRACE(rCase.sNAME);
        const T_RESTATEDTEXT_D once = RestateText(rCase.sDECK);
        EXPECT_EQ(ShowCards(once.sTEXT), rCase.sEXPECTED);
        EXPECT_EQ(ShowTold(once.result.aTOLD), rCase.sTOLD);
        EXPECT_EQ(RestateText(once.sTEXT).sTEXT, once.sTEXT);
    }
}

INSTANTIATE_TEST_SUITE_P(Families, RestateCases,
                         testing::Values("text", "grids", "supports", "links", "masses", "bars", "bushes", "shells",
                                         "beamproperties", "properties", "materials", "nodeloads", "elementloads",
                                         "temperatures"),
                         [](const auto& rInfo) { return std::string(rInfo.param); });

/// A card of more than 1001 lines is lost, so an RBE2 has at most 8005 dependent grids.
TEST(RestateLinks, LongListsAreSplit) {
    std::string sGrids;
    for (int i = 1; i <= 8007; ++i) sGrids += "GRID," + std::to_string(i) + "\n";
    const std::string sOnce = RestateText(sGrids + "RBE2,9,1,123,2,THRU,9999\n").sTEXT;
    std::istringstream cards(ShowCards(sOnce).substr(sGrids.size()));
    std::string sFirst, sSecond;
    std::getline(cards, sFirst);
    std::getline(cards, sSecond);
    EXPECT_TRUE(sFirst.starts_with("RBE2,9,1,123,2,3,"));
    EXPECT_TRUE(sFirst.ends_with(",8005,8006"));
    EXPECT_EQ(sSecond, "RBE2,10,1,123,8007");
    EXPECT_EQ(RestateText(sOnce).sTEXT, sOnce);
}

} // namespace
