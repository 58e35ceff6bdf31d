// However many threads work, a run says and writes the same.

#include "messages/ZdtMsgMgr.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"
#include "support/QuietObserver.h"
#include "writer/Pieces.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t COUNTS[] = {1, 2, 8};

/// All that rows leave out, in the order in which it is told.
class CListener : public CQuietObserver {
  public:
    void OnLeft(const T_LEFT_D& r) override {
        m_sTold += std::to_string(r.eREASON) + " " + std::to_string(r.iID) + " " + std::to_string(r.iOTHER) + "\n";
    }
    std::string m_sTold;
};

/// Enough grids and elements for pieces; every seventh element lacks a grid, every eleventh its property.
std::string MakeDeck() {
    std::string sDeck = "BEGIN BULK\n";
    for (int i = 1; i <= 60000; ++i) {
        const std::string sID = std::to_string(i);
        sDeck += "GRID," + sID + ",," + sID + ".5,2.," + sID + "\n";
        sDeck += "CQUAD4," + sID + "," + (i % 11 == 0 ? "9" : "1") + "," + sID + "," + (i % 7 == 0 ? "70000" : "1") +
                 ",3,4\n";
    }
    return sDeck + "PSHELL,1,1,.1\nPSHELL,2,1,.1\nMAT1,1,7.+7,,.3\nENDDATA\n";
}

TEST(Threads, DoNotShowInAResult) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), MakeDeck());
    std::vector<std::string> aFiles, aTold;
    for (const std::size_t nThreads : COUNTS) {
        CNoDialogs dialogs;
        CListener listener;
        CConvertNastran run(dialogs);
        T_CONVERT_D options;
        options.pOBSERVER = &listener;
        options.nTHREADS = nThreads;
        ASSERT_EQ(run.Convert(folder.Path("deck.dat"), options), 1);
        aFiles.push_back(ReadText(folder.Path("deck.zdt")));
        for (const std::string& sLine : run.GetMsgMgr().GetMessages()) listener.m_sTold += sLine + "\n";
        aTold.push_back(listener.m_sTold);
    }
    EXPECT_NE(aFiles[0].find("  60000, 60000.5, 2, 60000\n\n*ELEMENT\n1, PLATE, 1, 1, 1, 1, 3, 4, 1\n"),
              std::string::npos);
    EXPECT_NE(aTold[0].find(" 7 70000\n"), std::string::npos);
    for (std::size_t i = 1; i < aFiles.size(); ++i) {
        EXPECT_TRUE(aFiles[i] == aFiles[0]) << COUNTS[i] << " threads";
        EXPECT_TRUE(aTold[i] == aTold[0]) << COUNTS[i] << " threads";
    }
}

TEST(Pieces, AreTakenInOrderWhoeverMakesThem) {
    for (const std::size_t nThreads : COUNTS) {
        std::string sMade, sTaken;
        for (std::size_t i = 0; i < 500; ++i) sMade += std::to_string(i) + " ";
        const auto make = [](std::size_t i, T_PIECE_D& rPiece) {
            rPiece.aLEFT.push_back({LEFT_COUNT, static_cast<std::int32_t>(i)});
        };
        const auto take = [&](T_PIECE_D& rPiece) {
            for (const T_LEFT_D& rLeft : rPiece.aLEFT) sTaken += std::to_string(rLeft.iID) + " ";
            rPiece.aLEFT.clear();
        };
        MakePieces(500, nThreads, make, take);
        EXPECT_EQ(sTaken, sMade);
    }
}

TEST(Pieces, FailWithWhoeverFails) {
    for (const std::size_t nThreads : COUNTS) {
        for (const bool bMaking : {false, true}) {
            std::size_t nTaken = 0;
            const auto fail = [] { throw std::runtime_error("no room"); };
            const auto make = [&](std::size_t i, T_PIECE_D&) {
                if (bMaking && i == 50) fail();
            };
            const auto take = [&](T_PIECE_D&) {
                if (!bMaking && nTaken == 50) fail();
                ++nTaken;
            };
            EXPECT_THROW(MakePieces(500, nThreads, make, take), std::runtime_error);
            EXPECT_LE(nTaken, 50u);
        }
    }
}

} // namespace
