// Decks that include others, and decks that can't be read.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

/// Runs in a folder of its own: relative includes open against the current one.
class IncludeTest : public testing::Test {
  protected:
    IncludeTest() : m_home(std::filesystem::current_path()) {
        std::filesystem::create_directory(m_folder.Path("work"));
        std::filesystem::current_path(m_folder.Path("work"));
    }
    ~IncludeTest() override { std::filesystem::current_path(m_home); }

    static T_RUN_D Run(const std::string& sDeck) {
        WriteText("main.dat", "BEGIN BULK\n" + sDeck + "ENDDATA\n");
        return RunFile("main.dat");
    }

    CTempFolder m_folder;
    std::filesystem::path m_home;
};

TEST_F(IncludeTest, ReadsInTheOrderMetBreadthFirst) {
    // Each deck moves node 1: the last one read shows. First level a, b; a's own include c comes behind b.
    WriteText("a.dat", "BEGIN BULK\nGRID,1,,1.\nGRID,11\nINCLUDE,'c.dat'\nENDDATA\n");
    WriteText("b.dat", "BEGIN BULK\nGRID,1,,2.\nGRID,12\nENDDATA\n");
    WriteText("c.dat", "BEGIN BULK\nGRID,1,,3.\nGRID,13\nENDDATA\n");
    const T_RUN_D run = Run("INCLUDE,'a.dat'\nINCLUDE,b.dat\nGRID,1\n");
    EXPECT_EQ(Sections(run.sZDT, "*NODE"), "*NODE\n  1, 3, 0, 0\n  11, 0, 0, 0\n  12, 0, 0, 0\n  13, 0, 0, 0\n\n");
}

TEST_F(IncludeTest, EachDeckNeedsItsOwnBulkMarkerAndEnd) {
    WriteText("a.dat", "GRID,2\nGRID,3\nENDDATA\n");
    const T_RUN_D run = Run("GRID,1\nINCLUDE,'a.dat'\n");
    EXPECT_EQ(Sections(run.sZDT, "*NODE"), "*NODE\n  1, 0, 0, 0\n\n");
}

TEST_F(IncludeTest, EachDeckCountsItsOwnLines) {
    WriteText("a.dat", "BEGIN BULK\nGRID,1\n\x1A\nGRID,2\nGRID,3\n$\n"); // its end is no other deck's
    WriteText("b.dat", "$\n$\n$\nBEGIN BULK\nRBAR,1\nGRID,4\n$\n");
    const T_RUN_D run = Run("INCLUDE,a.dat\nINCLUDE,b.dat\n");
    EXPECT_EQ(Sections(run.sZDT, "*NODE"), "*NODE\n  1, 0, 0, 0\n  4, 0, 0, 0\n\n");
    EXPECT_EQ(run.aLOG, (std::vector<std::string>{"RBAR isn't converted in this version. (Line:5)"}));
}

TEST_F(IncludeTest, FindsNamesWithoutRegardToCaseAndWithBothSeparators) {
    std::filesystem::create_directories("Sub/Deep");
    WriteText("Sub/Deep/Parts.dat", "BEGIN BULK\nGRID,5\nENDDATA\n");
    const T_RUN_D run = Run("INCLUDE,'sub\\deep/parts.DAT'\n");
    EXPECT_EQ(Sections(run.sZDT, "*NODE"), "*NODE\n  5, 0, 0, 0\n\n");
}

#ifndef _WIN32 // where names that differ in case alone are one
TEST_F(IncludeTest, OfNamesThatDifferInCaseTheFirstInByteOrder) {
    const std::vector<std::string> aNames = {"part.daT", "part.dAt", "part.Dat", "parT.dat",
                                             "paRt.dat", "pArt.dat", "Part.dat"}; // the last is the first
    for (std::size_t i = 0; i < aNames.size(); ++i) {
        WriteText(aNames[i], "BEGIN BULK\nGRID," + std::to_string(aNames.size() - i) + "\nENDDATA\n");
    }
    WriteText("part2.dat", "BEGIN BULK\nGRID,8\nENDDATA\n");
    WriteText("PART3.DAT", "BEGIN BULK\nGRID,9\nENDDATA\n");
    WriteText("part3.dat", "BEGIN BULK\nGRID,10\nENDDATA\n");
    const T_RUN_D run = Run("INCLUDE,part.dat\nINCLUDE,part2.dat\nINCLUDE,part3.dat\n");
    EXPECT_EQ(Sections(run.sZDT, "*NODE"), "*NODE\n  1, 0, 0, 0\n  8, 0, 0, 0\n  9, 0, 0, 0\n\n");
}
#endif

TEST_F(IncludeTest, TheSameDeckByTwoRoadsIsReadTwice) {
    WriteText("a.dat", "BEGIN BULK\nINCLUDE,'c.dat'\nENDDATA\n");
    WriteText("b.dat", "BEGIN BULK\nINCLUDE,'c.dat'\nENDDATA\n");
    WriteText("c.dat", "BEGIN BULK\nRBAR,1\nENDDATA\n");
    const T_RUN_D run = Run("INCLUDE,'a.dat'\nINCLUDE,'b.dat'\n");
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_EQ(run.aLOG.size(), 2u);
}

struct T_FAILED_D {
    const char* sNAME;
    std::string sDECK;
    E_FAILURE eFAILURE;
    std::string sFILE;
};

TEST_F(IncludeTest, FailedRunsLeaveNothing) {
    WriteText("loop1.dat", "BEGIN BULK\nINCLUDE,'LOOP2.DAT'\nENDDATA\n");
    WriteText("loop2.dat", "BEGIN BULK\nINCLUDE,'Loop1.dat'\nENDDATA\n");
    WriteText("part.dat", "BEGIN BULK\nGRID,7\nENDDATA\n");
    WriteText("long.dat", std::string(200, 'X') + "\n");
    std::filesystem::create_directory("folder");
    const T_FAILED_D aFailed[] = {
        {"missing", "INCLUDE,'none.dat'\n", FAILURE_INCLUDE_NOT_OPENED, "NONE.DAT"},
        {"without a name", "INCLUDE\n", FAILURE_INCLUDE_NOT_OPENED, ""},
        {"small field cuts the name", "INCLUDE 'LOOP1.DAT'\n", FAILURE_INCLUDE_NOT_OPENED, "LOOP1.D"},
        {"a folder", "INCLUDE,folder\n", FAILURE_INCLUDE_NOT_OPENED, "FOLDER"},
        {"itself", "INCLUDE,'main.dat'\n", FAILURE_INCLUDE_CYCLE, "MAIN.DAT"},
        {"itself twice in a row", "INCLUDE,'main.dat'\nINCLUDE,'main.dat'\n", FAILURE_INCLUDE_CYCLE, "MAIN.DAT"},
        {"a longer cycle", "INCLUDE,'loop1.dat'\n", FAILURE_INCLUDE_CYCLE, "LOOP1.DAT"},
        {"a cycle by two roads", "INCLUDE,'loop2.dat'\nINCLUDE,'loop1.dat'\nINCLUDE,'loop1.dat'\n",
         FAILURE_INCLUDE_CYCLE, "LOOP2.DAT"},
        {"a cycle behind a deck that is none", "INCLUDE,part.dat\nINCLUDE,part.dat\nINCLUDE,'loop2.dat'\n",
         FAILURE_INCLUDE_CYCLE, "LOOP2.DAT"},
        {"a long line in it", "INCLUDE,'long.dat'\n", FAILURE_LINE_TOO_LONG, "LONG.DAT"},
    };
    for (const T_FAILED_D& rCase : aFailed) {
        SCOPED_TRACE(rCase.sNAME);
        const T_RUN_D run = Run("GRID,1\n" + rCase.sDECK);
        EXPECT_EQ(run.iRESULT, 0);
        EXPECT_EQ(run.failure.eFAILURE, rCase.eFAILURE);
        EXPECT_EQ(run.failure.sFILE, rCase.sFILE);
        EXPECT_NE(run.failure.GetText(), "");
        EXPECT_EQ(run.sZDT, "<no file>");
        EXPECT_TRUE(run.aSHOWN.empty());
    }
}

TEST_F(IncludeTest, MainDeckThatCannotBeOpened) {
    for (const char* sPath : {"none.dat", ".", ""}) {
        SCOPED_TRACE(sPath);
        const T_RUN_D run = RunFile(sPath);
        EXPECT_EQ(run.iRESULT, 0);
        EXPECT_EQ(run.failure.eFAILURE, FAILURE_DECK_NOT_OPENED);
        EXPECT_TRUE(run.aSHOWN.empty());
    }
}

} // namespace
