#include "nas2zdt/account/Account.h"
#include "nas2zdt/picture/Picture.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"

#include <gtest/gtest.h>

namespace {

std::string Draw(const CDataPool& rDataPool, E_COLOUR_BY eBy, const CAccount* pAccount = nullptr) {
    const CTempFolder folder;
    CSvgPicture(rDataPool, eBy, pAccount).Write("", folder.Path("model.svg"));
    return ReadText(folder.Path("model.svg"));
}

int Count(const std::string& sText, const std::string& sPart) {
    int nFound = 0;
    for (std::size_t i = sText.find(sPart); i != std::string::npos; i = sText.find(sPart, i + 1)) ++nFound;
    return nFound;
}

TEST(Colours, ByProperty) {
    std::string sCards = "GRID,1\nGRID,2,,1.\nMAT1,5,1.,,.3\nCONROD,90,1,2,5,1.\nCROD,91,99,1,2\n";
    for (int i = 11; i <= 21; ++i) { // two more than colours
        const std::string sID = std::to_string(i);
        sCards += "PROD," + sID + ",5,1.\nCROD," + sID + "," + sID + ",1,2\n";
    }
    const CStoredRun run(sCards);
    const std::string sSvg = Draw(run.GetDataPool(), BY_PROPERTY);
    const auto row = [&](const std::string& sText) { return sSvg.find(">" + sText + "</text>") != std::string::npos; };
    EXPECT_TRUE(row("property 11, 20") && row("property 12, 21") && row("property 19") && row("without property"));
    EXPECT_TRUE(row("There are more than 9 of them: colours repeat."));
    EXPECT_EQ(Count(sSvg, "class=\"truss p1\" d"), 2);
    EXPECT_EQ(Count(sSvg, "class=\"truss p3\" d"), 1);
    EXPECT_EQ(Count(sSvg, "class=\"truss p10\" d"),
              3); // a CONROD, a rod whose property doesn't exist, the legend's sample
    EXPECT_NE(Draw(run.GetDataPool(), BY_MATERIAL).find(">material 5</text>"), std::string::npos);
}

// A tube is written as a beam, the bending material of a plate isn't, a grid stands in a frame that doesn't exist, and
// a spring has lost its damping. A rod is as it was.
TEST(Colours, ByLoss) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"),
              "BEGIN BULK\nGRID,1\nGRID,2,,1.\nGRID,3,9,1.,1.\nGRID,4,,0.,1.\nMAT1,5,1.,,.3\nMAT1,6,2.,,.3\n"
              "PROD,1,5,1.\nCROD,11,1,1,2\nPTUBE,2,5,1.\nCTUBE,12,2,1,4\nPSHELL,3,5,.1,6\nCQUAD4,13,3,1,2,3,4\n"
              "CELAS2,14,5.,1,1,,,.1\nRBAR,15,1,2\nENDDATA\n");
    CNoDialogs dialogs;
    CConvertNastran run(dialogs);
    CAccount account;
    account.KeepMarks();
    ASSERT_EQ(run.Convert(folder.Path("deck.dat"), {.pOBSERVER = &account}), 1);
    account.EndRun(run.GetDataPool());
    const std::string sSvg = Draw(run.GetDataPool(), BY_LOSS, &account);
    for (const char* sText : {
             "class=\"beam p0\" d",
             "class=\"truss p10\" d",
             "<g class=\"bad\"><title>spring to ground 14, K1 5; CELAS2 ",
             "class=\"p3s",
             "<title>plate 13, property 3, material 5, thickness 0.1; PSHELL altered: plates whose bending material",
             "<title>node 3 at 1, 1, 0; GRID altered: coordinates in a CP that",
             "picture, see --account: 1",
             "<title>CTUBE altered: rods written as beams, which bend, and without axes</title>",
         }) {
        EXPECT_NE(sSvg.find(sText), std::string::npos) << sText;
    }
    EXPECT_EQ(Count(sSvg, "class=\"lostnode\""), 2); // and one in the legend
    EXPECT_EQ(Count(sSvg, "(ids:"), 0);
}

// Of the reasons that name ids, only those of things without a place in a picture leave no marks.
TEST(Marks, ReasonsNameWhatTheyAreOf) {
    for (int i = 0; i < LEFT_COUNT; ++i) {
        const T_REASON_D& rReason = ReasonOf(static_cast<E_LEFT>(i));
        const std::string sText = rReason.sTEXT;
        const std::size_t iIds = sText.rfind("(ids: ");
        if (iIds == std::string::npos || MarkedByReason(rReason) != MARKED_NONE) continue;
        const std::string sIds = sText.substr(iIds + 6);
        EXPECT_TRUE(sIds == "coordinate systems)" || sIds == "sets)" || sIds == "places in the set)" ||
                    sIds == "combinations)")
            << rReason.sCODE;
    }
    const std::pair<const char*, E_MARKED> CARDS[] = {
        {"GRID", MARKED_NODES},  {"CQUAD4", MARKED_ELEMENTS}, {"RBE2", MARKED_ELEMENTS}, {"PSHELL", MARKED_PROPERTIES},
        {"PLOAD4", MARKED_NONE}, {"CORD2R", MARKED_NONE},     {"SPC1", MARKED_NONE},     {"PARAM", MARKED_NONE}};
    for (const auto& [sKeyword, eMarked] : CARDS) EXPECT_EQ(MarkedByCard(sKeyword), eMarked) << sKeyword;
}

} // namespace
