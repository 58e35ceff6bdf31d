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
std::string ShowTables(const std::string& sCards) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), "BEGIN BULK\n" + sCards);
    const CCheckDeck deck(folder.Path("deck.dat"), {});
    std::string sShown;
    const auto& rGrids = deck.GetModel().m_grids.GetRows();
    for (std::size_t i = 0; i < rGrids.size(); ++i) {
        const auto& [iGrid, grid] = rGrids[i];
        sShown += "GRID " + std::to_string(iGrid) + " @" + std::to_string(deck.GetGridOrigin(i).iLINE) + " CP " +
                  std::to_string(grid.iCP) + " CD " + std::to_string(grid.iCD) + " PS " + std::to_string(grid.nPS) +
                  " " + ShowVector(grid.dX) + "\n";
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
              "CQUAD4 1 @2 PID 1: 1 2 3 4\nCQUAD4 2 @3 PID 1: 1 2 3 4\nCONROD 3 @5 PID 0: 1 2\n"
              "sized CQUAD4@3,2,1,1,2,3,4,,,,,.1\nsized CONROD@5,3,1,2,1,.5\n"},
             {"defaults behind their cards",
              "GRID    1               1.\nGRID,2,0,,,,0\nCBAR,3,1,1,2\nCBAR,4,1,1,2,9,,,GGG\nCBEAM   5       1       1"
              "       2\nGRDSET,,8,,,,6,12\nBAROR,,,,,0.,1.,0.,BGG\nBEAMOR,,,,,7\n",
              "GRID 1 @2 CP 8 CD 6 PS 3 (1 0 0)\nGRID 2 @3 CP 0 CD 0 PS 3 (0 0 0)\n"
              "CBAR 3 @4 PID 1: 1 2 (0 1 0) basic\nCBAR 4 @5 PID 1: 1 2 G0 9\nCBEAM 5 @6 PID 1: 1 2 G0 7\n"
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

} // namespace
