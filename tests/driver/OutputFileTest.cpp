// Where the target file goes, and what a file that fails leaves behind.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const std::string DECK = "BEGIN BULK\nGRID,1\nENDDATA\n";
const std::string ZDT = "*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n";

TEST(TargetPath, EndsAtTheLastPointOfTheWholePath) {
    const std::pair<const char*, const char*> aPaths[] = {
        {"model.v2.dat", "model.v2.zdt"}, {"deck", "deck.zdt"}, {"a.b/deck", "a.zdt"},
        {"a.b/deck.nas", "a.b/deck.zdt"}, {".", ".zdt"},        {"", ".zdt"},
    };
    for (const auto& [sDeck, sTarget] : aPaths) EXPECT_EQ(CConvertNastran::TargetPath(sDeck), sTarget) << sDeck;
}

TEST(OutputFile, ReplacesAnOlderOneWhole) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), DECK);
    WriteText(folder.Path("deck.zdt"), std::string(1000, 'x'));
    EXPECT_EQ(RunFile(folder.Path("deck.dat")).sZDT, ZDT);
}

TEST(OutputFile, ADeckThatIsItsOwnTargetStays) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.zdt"), DECK);
    const T_RUN_D run = RunFile(folder.Path("deck.zdt"));
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_NE(run.sFILEERROR, "");
    EXPECT_EQ(run.sZDT, DECK);
    EXPECT_FALSE(run.aSHOWN.empty());
}

TEST(OutputFile, ALinkToTheDeckOrToAnIncludedDeckStays) {
    const CTempFolder folder;
    WriteText(folder.Path("part.dat"), DECK);
    WriteText(folder.Path("deck.dat"), "BEGIN BULK\nINCLUDE,'part.dat'\nENDDATA\n");
    std::filesystem::create_hard_link(folder.Path("part.dat"), folder.Path("deck.zdt"));
    const std::filesystem::path home = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(".")); // a line ends at a colon, and so at that of a drive
    const T_RUN_D run = RunFile(folder.Path("deck.dat"));
    std::filesystem::current_path(home);
    EXPECT_NE(run.sFILEERROR, "");
    EXPECT_EQ(ReadText(folder.Path("part.dat")), DECK);
}

TEST(OutputFile, ATargetThatCannotBeWrittenIsToldAndTheRunGoesOn) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), DECK);
    std::filesystem::create_directory(folder.Path("deck.zdt"));
    const T_RUN_D run = RunFile(folder.Path("deck.dat"));
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_NE(run.sFILEERROR.find("deck.zdt: "), std::string::npos);
    EXPECT_FALSE(run.aSHOWN.empty());
}

TEST(OutputFile, AFullDiskIsTold) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), DECK);
    std::error_code error;
    std::filesystem::create_symlink("/dev/full", folder.Path("deck.zdt"), error);
    if (error) GTEST_SKIP() << "no links here";
    const T_RUN_D run = RunFile(folder.Path("deck.dat"));
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_NE(run.sFILEERROR, "");
}

TEST(Log, HoldsTheBannerAndAtMost200Lines) {
    std::string sCards;
    for (int i = 0; i < 250; ++i) sCards += "RBAR,1\n";
    const T_RUN_D run = RunBulk(sCards);
    ASSERT_EQ(run.aSHOWN.size(), 200u);
    const std::vector<std::string> aBanner(run.aSHOWN.begin() + 4, run.aSHOWN.begin() + 10);
    EXPECT_EQ(run.aSHOWN[1], "================================== [ Conversion Information ] ==========="
                             "============================");
    EXPECT_EQ(aBanner, (std::vector<std::string>{
                           "** Conversed By    : ZENTA Nastran 5.5.0 Convertor", "** Limitation",
                           "  - The input file must be a NASTRAN bulk data deck as a pre-processor writes it.", "",
                           std::string(100, '='), ""}));
    EXPECT_EQ(run.aSHOWN[199], "RBAR isn't converted in this version. (Line:191)");
}

} // namespace
