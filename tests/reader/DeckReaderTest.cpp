// From the bytes of a deck to cards: what is read, what is lost, what is logged. Cards are seen through the nodes that
// they make.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

using LINES = std::vector<std::string>;

struct T_DECK_D {
    const char* sNAME;
    std::string sDECK;
    std::string sNODES; // the lines of *NODE
    LINES aLOG;

    friend std::ostream& operator<<(std::ostream& rOut, const T_DECK_D& rDeck) { return rOut << rDeck.sNAME; }
};

class DeckReaderTest : public testing::TestWithParam<T_DECK_D> {};

TEST_P(DeckReaderTest, Gives) {
    const T_RUN_D run = RunDeck(GetParam().sDECK);
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_EQ(Sections(run.sZDT, "*NODE"), GetParam().sNODES.empty() ? "" : "*NODE\n" + GetParam().sNODES + "\n");
    EXPECT_EQ(run.aLOG, GetParam().aLOG);
}

const std::string IGNORED = "A line that generates cards automatically is ignored. (after Line:";

const std::vector<T_DECK_D> DECKS = {
    // the end of a deck
    {"LastCardIsLost", "BEGIN BULK\nGRID,1\nGRID,2\n", "  1, 0, 0, 0\n", {}},
    {"CommentSavesTheLastCard", "BEGIN BULK\nGRID,1\nGRID,2\n$", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {}},
    {"EmptyLineSavesTheLastCard", "BEGIN BULK\nGRID,1\n\n", "  1, 0, 0, 0\n", {}},
    {"EnddataAnywhereEnds", "BEGIN BULK\nGRID,1\nXENDDATAX\nGRID,2\n$\n", "  1, 0, 0, 0\n", {}},
    {"EnddataInAComment", "BEGIN BULK\nGRID,1\n$ ENDDATA\nGRID,2\n$\n", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {}},
    {"EnddataBeforeTheBulk", "ENDDATA\nBEGIN BULK\nGRID,1\n$\n", "", {}},
    {"EnddataOnAContinuation", "BEGIN BULK\nGRID,1\n+,ENDDATA\nGRID,2\n$\n", "", {}},
    {"CtrlZInColumn1", "BEGIN BULK\nGRID,1\nGRID,2\n\x1AGRID,3\nGRID,4\n$\n", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {}},
    {"CtrlZBehindText", "BEGIN BULK\nGRID,1\nGRID,2\x1A\nGRID,3\n$\n", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {}},
    {"CtrlZInCaseControl", "CEND\nTITLE\n\x1A\nBEGIN BULK\nGRID,1\n$\n", "", {}},
    {"EnddataInCaseControl", "CEND\nTITLE ENDDATA\nBEGIN BULK\nGRID,1\n$\n", "", {}},
    {"CtrlZInACommentIsNotCompared", "BEGIN BULK\n$\x1A\nGRID,1\nGRID,2\n$\n", "  1, 0, 0, 0\n", {}},
    // sections
    {"LowerCase", "cend\nbegin bulk\ngrid,1\nenddata\n", "  1, 0, 0, 0\n", {}},
    {"MarkerWithLeadingBlank", " BEGIN BULK\nGRID,1\n$\n", "", {}},
    {"MarkerWithTwoBlanks", "BEGIN  BULK\nGRID,1\n$\n", "", {}},
    {"MarkerWithMoreBehind", "BEGIN BULKHEAD\nGRID,1\n$\n", "  1, 0, 0, 0\n", {}},
    {"NoMarker", "GRID,1\nGRID,2\n$\n", "", {}},
    {"CendInTheBulk", "BEGIN BULK\nGRID,1\nCEND\nGRID,2\nBEGIN BULK\nGRID,3\n$\n", "  1, 0, 0, 0\n  3, 0, 0, 0\n", {}},
    {"NothingAtAll", "", "", {}},
    {"SmallFieldsThatAreNotWords",
     "BEGIN BULK\nGRID    1 2             1 .5\ngrid    21              2.5\nGRID    22      :       2.\n"
     "GRID    23              1.+1    - 3.    4.\r\nGRID    24              .5\r\n$\n",
     "  12, 1.5, 0, 0\n  21, 2.5, 0, 0\n  22, 0, 0, 0\n  23, 10, -3, 4\n  24, 0.5, 0, 0\n",
     {}},
    // what parts cards
    {"LineOfBlanksDropsTheCard", "BEGIN BULK\nGRID,1\n    \nGRID,2\n$\n", "  2, 0, 0, 0\n", {}},
    {"LoneReturnIsALine", "BEGIN BULK\r\nGRID,1\r\n\r\nGRID,2\r\n$\r\n", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {}},
    {"CommentPartsACard", "BEGIN BULK\nGRID,1,,1.\n$\n,,,,2.\nGRID,2\n$\n", "  1, 1, 0, 0\n  2, 0, 0, 0\n", {}},
    {"ColonInColumn1IsBlank", "BEGIN BULK\nGRID,1\n:GRID,2\nGRID,3\n$\n", "  1, 0, 0, 0\n  3, 0, 0, 0\n", {}},
    {"MostLinesOfACard", "BEGIN BULK\nGRID,1\n" + Repeat("+\n", 1000) + "$\n", "  1, 0, 0, 0\n", {}},
    {"TooManyLines",
     "BEGIN BULK\nGRID,1\n" + Repeat("+\n", 1001) + "GRID,2\n$\n",
     "  2, 0, 0, 0\n",
     {"A card has too many lines and is left out. (Line:2~1003)"}},
    {"TooManyLinesTwice",
     "BEGIN BULK\nGRID,1\n" + Repeat("+\n", 2004) + "GRID,2\n$\n",
     "  2, 0, 0, 0\n",
     {"A card has too many lines and is left out. (Line:2~1003)",
      "A card has too many lines and is left out. (Line:1004~2005)"}},
    // replication
    {"StarThatIsNoKeyword",
     "BEGIN BULK\nGRID,1\nGRID   *               2\n$\n",
     "  1, 0, 0, 0\n  2, 0, 0, 0\n",
     {IGNORED + "2)"}},
    {"KeywordBeforeTheStar", "BEGIN BULK\nGRID,1\nGRID*                  2\n$\n", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {}},
    {"SkippedKeywordBeforeTheStar",
     "BEGIN BULK\nGRID,1\nSPCADD*                1\nGRID,2\n$\n",
     "  1, 0, 0, 0\n  2, 0, 0, 0\n",
     {}},
    {"EqualsLine", "BEGIN BULK\nGRID,1\n=(3)\nGRID,2\n$\n", "  1, 0, 0, 0\n  2, 0, 0, 0\n", {IGNORED + "2)"}},
    {"EqualsLineThatIsFirst", "BEGIN BULK\nGRID 12 A=B\n$\n", "  12, 0, 0, 0\n", {}},
    // small field
    {"SmallField", "BEGIN BULK\nGRID           7              1.     2.0  -3.5+1\n$\n", "  7, 1, 2, -35\n", {}},
    {"SmallFieldContinued",
     "BEGIN BULK\nGRID           7\n               9\nGRID           8                              4.\r\n$\n",
     "  7, 0, 0, 0\n  8, 0, 0, 4\n",
     {}},
    {"ColumnsPast72", "BEGIN BULK\nGRID           7" + std::string(56, ' ') + "GARBAGE\n$\n", "  7, 0, 0, 0\n", {}},
    {"BlanksInsideAField", "BEGIN BULK\nG R I D  1 2\t              4 . 5\n$\n", "  12, 4.5, 0, 0\n", {}},
    // large field
    {"LargeField",
     "BEGIN BULK\nGRID*                  1               0              1.              2.\n*                     "
     "3.\n$\n",
     "  1, 1, 2, 3\n",
     {}},
    {"ShortLargeLineMovesFieldsUp",
     "BEGIN BULK\nGRID*                  1\n*                      0              4.              5.              "
     "6.\n$\n",
     "  1, 4, 5, 6\n",
     {}},
    {"LargeContinuedBySmall",
     "BEGIN BULK\nGRID*                  1               0              1.              2.\n+             3.\n$\n",
     "  1, 1, 2, 3\n",
     {}},
    {"PlusBeforeTheStarIsSmall", // the 9 would stand behind the 3 in a wide field
     "BEGIN BULK\nGRID*                  1               0              1.              2.\n+*      3.      9\n$\n",
     "  1, 1, 2, 3\n",
     {}},
    {"LargeColumnsPast72",
     "BEGIN BULK\nGRID*                  1               0              1.              2.GARBAGE\n*                   "
     "  "
     "3.\n$\n",
     "  1, 1, 2, 3\n",
     {}},
    {"StarBeyondTheFirstField", "BEGIN BULK\nGRID           1       *\n$\n", "  1, 0, 0, 0\n", {}},
    // free field
    {"PlusDeletesTheField", "BEGIN BULK\nGRID,1,,1.0E+3,2.,3.\n$\n", "  1, 2, 3, 0\n", {}},
    {"TabsAndBlanks", "BEGIN BULK\nGRID,\t1 ,, 2. 5 ,\t\n$\n", "  1, 2.5, 0, 0\n", {}},
    {"TabAmongBlanks", "BEGIN BULK\nGRID \t1 A=B\n$\n", "  1, 0, 0, 0\n", {}},
    {"CommaBehindColumn10", "BEGIN BULK\nGRID           1,\n$\n", "  1, 0, 0, 0\n", {}},
    {"ColonCuts", "BEGIN BULK\nGRID,3,:0,1.\n$\n", "  3, 0, 0, 0\n", {}},
    {"NulEndsTheText", std::string("BEGIN BULK\nGRID,4\0,,9.\n$\n", 25), "  4, 0, 0, 0\n", {}},
    {"FreeContinuation", "BEGIN BULK\nGRID,1,,1.\n,2.,3.\n$\n", "  1, 1, 2, 3\n", {}},
    {"HighBytesPass", "BEGIN BULK\nGRID,1,\xC3\xA9,1.\n$\xFF\n", "  1, 1, 0, 0\n", {}},
    // vocabulary
    {"ReportedCards",
     "BEGIN BULK\nCTRIAX,1\nRBE1,1,2\nRBE3\nRROD*\nGRID,1\n$\n",
     "  1, 0, 0, 0\n",
     {"CTRIAX isn't converted in this version. (Line:2)", "RBE1 isn't converted in this version. (Line:3~3)",
      "RBE3 isn't converted in this version. (Line:4~4)",
      "RROD isn't converted in this version. (Line:There is no Line Number Info.)"}},
    {"ReportedOverTwoLines",
     "BEGIN BULK\nCQUADX,1,2\n,3\nGRID,1\n$\n",
     "  1, 0, 0, 0\n",
     {"CQUADX isn't converted in this version. (Line:2~3)"}},
    {"SilentCards",
     "BEGIN BULK\nPBEAML,1\nSPCADD,1\nCORDiC,1\nNOSUCH,1\nGRIDX,1\nTOOLONGKEYWORD,1\nGRID,1\n$\n",
     "  1, 0, 0, 0\n",
     {}},
};

INSTANTIATE_TEST_SUITE_P(Decks, DeckReaderTest, testing::ValuesIn(DECKS),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

TEST(LineNumbers, EndWithThoseOf32Bits) {
    EXPECT_EQ(NextLine(0), 1);
    EXPECT_EQ(NextLine(2147483646), 2147483647);
    try {
        NextLine(2147483647);
        FAIL();
    } catch (const CRunError& rError) {
        EXPECT_EQ(rError.m_eFailure, FAILURE_TOO_MANY_LINES);
        EXPECT_EQ(rError.m_iLine, 2147483647);
        EXPECT_EQ(rError.m_nLimit, 2147483647);
    }
}

struct T_LENGTH_D {
    const char* sNAME;
    std::string sDECK;
    int iLINE; // of the line that is too long, 0 if none is
    int nLIMIT;

    friend std::ostream& operator<<(std::ostream& rOut, const T_LENGTH_D& rDeck) { return rOut << rDeck.sNAME; }
};

class LineLengthTest : public testing::TestWithParam<T_LENGTH_D> {};

TEST_P(LineLengthTest, Ends) {
    const T_RUN_D run = RunDeck(GetParam().sDECK);
    EXPECT_EQ(run.iRESULT, GetParam().iLINE == 0 ? 1 : 0);
    EXPECT_EQ(run.failure.eFAILURE, GetParam().iLINE == 0 ? FAILURE_NONE : FAILURE_LINE_TOO_LONG);
    EXPECT_EQ(run.failure.iLINE, GetParam().iLINE);
    EXPECT_EQ(run.failure.nLIMIT, GetParam().nLIMIT);
    EXPECT_EQ(run.sZDT == "<no file>", GetParam().iLINE != 0);
}

std::string Long(const std::string& sText, std::size_t nText) {
    return sText + std::string(nText - sText.size(), 'X');
}

const std::vector<T_LENGTH_D> LENGTHS = {
    {"Executive199", Long("SOL", 199) + "\nBEGIN BULK\n$\n", 0, 0},
    {"Executive200", "$\n" + Long("SOL", 200) + "\nBEGIN BULK\n$\n", 2, 199},
    {"ReturnCounts", Long("SOL", 199) + "\r\nBEGIN BULK\n$\n", 1, 199},
    {"CutByAColonCounts", Long("SOL:", 200) + "\n", 1, 199},
    {"BehindANulDoesNotCount", std::string("SOL\0", 4) + std::string(300, 'X') + "\n", 0, 0},
    {"Bulk159", "BEGIN BULK\n" + Long("GRID,1,,,,,", 159) + "\n$\n", 0, 0},
    {"Bulk160First", "BEGIN BULK\n" + Long("GRID,1,,,,,", 160) + "\n$\n", 2, 159},
    {"Bulk160CutByAColon", "BEGIN BULK\n" + Long("GRID,1:", 160) + "\n$\n", 0, 0},
    {"CommentBehindACard", "BEGIN BULK\nGRID,1\n" + Long("$", 160) + "\nGRID,2\n$\n", 3, 159},
    {"CommentBehindAComment", "BEGIN BULK\nGRID,1\n$\n" + Long("$", 199) + "\nGRID,2\n$\n", 0, 0},
    {"CommentOf200", "BEGIN BULK\nGRID,1\n$\n" + Long("$", 200) + "\nGRID,2\n$\n", 4, 199},
    {"BehindEnddata", "BEGIN BULK\nGRID,1\nENDDATA\n" + Long("$", 5000) + "\n", 0, 0},
    {"NoLineFeedInSight", Long("X", 300000), 1, 199},
};

INSTANTIATE_TEST_SUITE_P(Decks, LineLengthTest, testing::ValuesIn(LENGTHS),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

} // namespace
