// The tables that a deck is read into, worked out by hand.

#include "nas2zdt/check/CheckDeck.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

class CShownCards : public CCardTaker {
  public:
    explicit CShownCards(const char* sBefore) : m_sBefore(sBefore) {}
    void TakeCard(const CCardFields& rCard) override {
        m_sShown += m_sBefore + std::string(rCard.GetKeyword()) + "@" + std::to_string(rCard.GetOrigin().iLINE);
        for (std::size_t i = 0; i < rCard.GetCount(); ++i) m_sShown += "," + std::string(rCard.Text(i));
        m_sShown += "\n";
    }
    std::string m_sShown;

  private:
    std::string m_sBefore;
};

std::string ShowVector(const T_VECTOR& rVector) {
    std::array<char, 80> aText;
    std::snprintf(aText.data(), aText.size(), "(%g %g %g)", rVector[0], rVector[1], rVector[2]);
    return aText.data();
}

/// "GRID 1 @2 CP 1 CD 2 PS 3 (1 2 3)", then "CBAR 1 @3 PID 2: 1 2 G0 3", then cards with odd fields, those with sizes
/// of their own, and the others.
std::string ShowTables(const std::string& sCards, std::size_t nThreads = 1) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), "BEGIN BULK\n" + sCards);
    WriteText(folder.Path("rest.dat"), "+       7       8\n");
    T_CHOICE_D choice;
    choice.nTHREADS = nThreads;
    const CCheckDeck deck(folder.Path("deck.dat"), choice);
    std::string sShown;
    const CDeckGrids& rGrids = deck.GetGrids();
    for (std::size_t i = 0; i < rGrids.GetCount(); ++i) {
        const T_GRIDKIND_D& rKind = rGrids.GetKind(i);
        sShown += "GRID " + std::to_string(rGrids.GetIds()[i]) + " @" + std::to_string(rGrids.GetOrigin(i).iLINE) +
                  " CP " + std::to_string(rKind.iCP) + " CD " + std::to_string(rKind.iCD) + " PS " +
                  std::to_string(rKind.nPS) + " " + ShowVector(rGrids.GetPosition(i)) +
                  (rGrids.FindPosition(rGrids.GetIds()[i]) ? "\n" : " unplaced\n");
    }
    for (const T_DECKELEMENT_D& rElement : deck.GetElements()) {
        sShown += std::string(rElement.GetKind().sKEYWORD) + " " + std::to_string(rElement.iEID) + " @" +
                  std::to_string(rElement.origin.iLINE) + " PID " + std::to_string(rElement.iPID) + ":";
        for (const std::int32_t iGrid : deck.GetNodes(rElement)) sShown += " " + std::to_string(iGrid);
        if (const T_ORIENTATION_D* pOrientation = deck.FindOrientation(rElement)) {
            if (pOrientation->iG0) sShown += " G0 " + std::to_string(*pOrientation->iG0);
            if (pOrientation->vector) sShown += " " + ShowVector(*pOrientation->vector);
            if (pOrientation->bBASIC) sShown += " basic";
        }
        sShown += "\n";
    }
    for (const T_ELEMENTUSE_D& rUse : deck.GetUses()) {
        sShown +=
            "use of " + std::to_string(rUse.iID) + " by " + std::to_string(deck.GetElements()[rUse.iROW].iEID) + "\n";
    }
    CShownCards odd("odd "), sized("sized "), rest("");
    deck.WalkOdd(odd);
    deck.WalkSized(sized);
    CCardTaker* const pRest = &rest;
    deck.Walk({&pRest, 1});
    return sShown + odd.m_sShown + sized.m_sShown + rest.m_sShown;
}

TEST(CheckDeck, TablesOfWhatCardsMean) {
    struct T_CASE {
        const char* sNAME;
        const char* sCARDS;
        const char* sTABLES;
    };
    for (const T_CASE& rCase : {
             T_CASE{"columns, with every way to write a number",
                    "GRID    1               -1.5       2.   1.5+1           136\n"
                    "GRID    +2              1.0E-1  3       -.5D1\n"
                    "grid    3       0               .25              0\n"
                    "CQUAD4  1               1       2       3       -4      $\n"
                    "CQUAD8  2       7       1       2       3       4       5\n"
                    "+               8\n",
                    "GRID 1 @2 CP 0 CD 0 PS 37 (-1.5 2 15)\n"
                    "GRID 2 @3 CP 0 CD 0 PS 0 (0.1 3 -5)\n"
                    "GRID 3 @4 CP 0 CD 0 PS 0 (0 0.25 0)\n"
                    "CQUAD4 1 @5 PID 1: 1 2 3 -4\n"
                    "CQUAD8 2 @6 PID 7: 1 2 3 4 5 0 0 8\n"
                    "odd GRID@3,+2,,1.0E-1,3,-.5D1\nodd CQUAD4@5,1,,1,2,3,-4\n"},
             {"fields that are no numbers",
              "GRID    1               1.O\nCBAR    2       1       1       2.\nCROD    X\nGRID    3\n",
              "GRID 3 @5 CP 0 CD 0 PS 0 (0 0 0)\n"
              "odd GRID@2,1,,1.O\nodd CBAR@3,2,1,1,2.\nodd CROD@4,X\n"},
             {"sizes of their own",
              "CQUAD4  1       1       1       2       3       4\nCQUAD4  2       1       1       2       3       4\n"
              "+                       .1\nCONROD  3       1       2       1       .5\n",
              "CQUAD4 1 @2 PID 1: 1 2 3 4\nCQUAD4 2 @3 PID 1: 1 2 3 4\nCONROD 3 @5 PID 0: 1 2\nuse of 1 by 3\n"
              "sized CQUAD4@3,2,1,1,2,3,4,,,,,.1\nsized CONROD@5,3,1,2,1,.5\n"},
             {"defaults behind their cards",
              "GRID    1               1.\nGRID,2,0,,,,0\nCBAR,3,1,1,2\nCBAR,4,1,1,2,9,,,GGG\nCBEAM   5       1       1"
              "       2\nGRDSET,,8,,,,6,12\nBAROR,,,,,0.,1.,0.,BGG\nBEAMOR,,,,,7\n",
              "GRID 1 @2 CP 8 CD 6 PS 3 (1 0 0) unplaced\nGRID 2 @3 CP 0 CD 0 PS 3 (0 0 0)\n"
              "CBAR 3 @4 PID 1: 1 2 (0 1 0) basic\nCBAR 4 @5 PID 1: 1 2 G0 9\nCBEAM 5 @6 PID 1: 1 2 G0 7\nuse of 9 by "
              "4\n"
              "GRDSET@7,,8,,,,6,12\nBAROR@8,,,,,0.,1.,0.,BGG\nBEAMOR@9,,,,,7\n"},
             {"lines that stand elsewhere, in the order of the deck",
              "GRID    1\n"
              "CHEXA   1       1       1       2       3       4       5       6       +A\n"
              "GRID    2\nFORCE,1,2\nCQUAD4,2,1,1,2,3,4\n"
              "+A      7       8\n"
              "GRID    3\n",
              "GRID 1 @2 CP 0 CD 0 PS 0 (0 0 0)\nGRID 2 @4 CP 0 CD 0 PS 0 (0 0 0)\nGRID 3 @8 CP 0 CD 0 PS 0 (0 0 0)\n"
              "CHEXA 1 @3 PID 1: 1 2 3 4 5 6 7 8\nCQUAD4 2 @6 PID 1: 1 2 3 4\n"
              "FORCE@5,1,2\n"},
             {"carriage returns, comments, blank lines and marks that fit",
              "GRID    1                               2.\r\nCQUAD4  1       1       1       2       3       4\r\n"
              "FORCE   1       1\r\nFORCE   1       2\r\n$ what\r\nFORCE   1       3\r\n\r\n"
              "+                               5\r\n"
              "CQUAD8  2       1       1       2       3       4       5       6       +A\r\n"
              "+A      7\r\n$\r\n"
              "CTRIA3  3               1       2       3\r\n+                       .5\r\nGRID    2",
              "GRID 1 @2 CP 0 CD 0 PS 0 (0 0 2)\nGRID 2 @15 CP 0 CD 0 PS 0 (0 0 0)\n"
              "CQUAD4 1 @3 PID 1: 1 2 3 4\nCQUAD8 2 @10 PID 1: 1 2 3 4 5 6 7\nCTRIA3 3 @13 PID 3: 1 2 3\n"
              "sized CTRIA3@13,3,,1,2,3,,,,,,.5\n"
              "FORCE@4,1,1\nFORCE@5,1,2\nFORCE@7,1,3,,,,,,,,,,5\n"},
             {"bars and what they use, one line behind the other",
              "CBAR    1       1       1       2       1.              \n"
              "CBAR    2               1       2       9\n"
              "CBEAM   3       1       1       2               1.              BGG\nFORCE   1\n"
              "CBAR*                  4               1               1               2\n"
              "*                     9\nGRID*                  1                              1.\nGRID,2\n"
              "BAROR           5\n",
              "GRID 1 @8 CP 0 CD 0 PS 0 (1 0 0)\nGRID 2 @9 CP 0 CD 0 PS 0 (0 0 0)\n"
              "CBAR 1 @2 PID 1: 1 2 (1 0 0)\nCBAR 2 @3 PID 5: 1 2 G0 9\nCBEAM 3 @4 PID 1: 1 2 (0 1 0) basic\n"
              "CBAR 4 @6 PID 1: 1 2 G0 9\nuse of 9 by 2\nFORCE@5,1\nBAROR@10,,5\n"},
             {"a card that an include goes on with, and one whose mark is further on",
              "CQUAD8  1       1       1       2       3       4       5       6\nINCLUDE 'rest.dat'\n"
              "FORCE   1       2                                                       +B\nGRID    1\n+B      3\n",
              "GRID 1 @5 CP 0 CD 0 PS 0 (0 0 0)\nCQUAD8 1 @2 PID 1: 1 2 3 4 5 6 7 8\nFORCE@4,1,2,,,,,,,3\n"},
             {"another part with the same cards",
              "CBAR,1,1,1,2,9\nBEGIN SUPER=1\nCBAR,2,1,1,2,8\nGRID,1\nBEGIN BULK\nCBAR,3,1,1,2,8\nGRID,2\n",
              "GRID 2 @8 CP 0 CD 0 PS 0 (0 0 0)\nCBAR 1 @2 PID 1: 1 2 G0 9\nCBAR 3 @7 PID 1: 1 2 G0 8\n"
              "use of 9 by 1\nuse of 8 by 3\n"},
             {"a line with another mark than the one before it",
              "CQUAD8  1       1       1       2       3       4       5       6       +A\n+B      7       8\nFORCE   "
              "9\n",
              "CQUAD8 1 @2 PID 1: 1 2 3 4 5 6 7 8\nFORCE@4,9\n"},
             {"replication, also behind a line that can't be read",
              "GRID    1               1.\nwhat is this\n=,*(1),=,*(.5),==\n=(2)\nFORCE   1\n=,*(1),==\n",
              "GRID 1 @2 CP 0 CD 0 PS 0 (1 0 0)\nGRID 2 @4 CP 0 CD 0 PS 0 (1.5 0 0)\n"
              "GRID 3 @5 CP 0 CD 0 PS 0 (2 0 0)\nGRID 4 @5 CP 0 CD 0 PS 0 (2.5 0 0)\nFORCE@6,1\nFORCE@7,2\n"},
         }) {
        SCOPED_TRACE(rCase.sNAME);
        EXPECT_EQ(ShowTables(rCase.sCARDS), rCase.sTABLES);
    }
}

/// Chunks of the deck are read by several threads.
TEST(CheckDeck, LongDecksAreReadInTheOrderOfTheirLines) {
    constexpr std::int32_t CARDS = 40000; // about three megabytes
    std::string sCards, sGrids, sElements, sForces;
    std::int32_t iLine = 1;
    for (std::int32_t i = 1; i <= CARDS; ++i) {
        const std::string sID = std::to_string(i), sField = sID + std::string(8 - sID.size(), ' ');
        if (i == CARDS / 2) {
            sCards += "$" + std::string(600000, 'x') + "\n"; // longer than a chunk
            ++iLine;
        }
        sCards += "GRID    " + sField + "                2.\n";
        sGrids += "GRID " + sID + " @" + std::to_string(iLine + 1) + " CP 0 CD 0 PS 0 (0 2 0)\n";
        if (i % 3 == 0) {
            sCards += "FORCE   1       " + sField + "\nFORCE   2       " + sField + "\n";
            sForces += "FORCE@" + std::to_string(iLine + 2) + ",1," + sID + "\nFORCE@" + std::to_string(iLine + 3) +
                       ",2," + sID + "\n";
            iLine += 2;
        }
        sCards += "CQUAD8  " + sField + "        1       2       3       4       5       6\n+       7       8\n";
        sElements += "CQUAD8 " + sID + " @" + std::to_string(iLine + 2) + " PID " + sID + ": 1 2 3 4 5 6 7 8\n";
        iLine += 3;
    }
    for (const std::size_t nThreads : {1u, 2u, 5u}) {
        EXPECT_TRUE(ShowTables(sCards, nThreads) == sGrids + sElements + sForces) << nThreads << " threads";
    }
}

} // namespace
