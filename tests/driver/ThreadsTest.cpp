// However many threads work, a run says and writes the same.

#include "messages/ZdtMsgMgr.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"
#include "support/QuietObserver.h"
#include "writer/Pieces.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t COUNTS[] = {1, 2, 8};

/// All that is told, in its order. Of grids the field behind CP is watched, of plates everything, of others nothing.
class CListener : public CQuietObserver {
  public:
    CListener() {
        for (auto& rWatch : m_quiet.aWATCHES) rWatch.Set(0, 0);
        std::int32_t iGrid = 0, iPlate = 0;
        CConvertNastran::KeywordToId("GRID", iGrid);
        CConvertNastran::KeywordToId("CTRIA3", iPlate);
        m_quiet.aWATCHES[static_cast<std::size_t>(iGrid)].Set(1 << 2, 0);
        m_quiet.aWATCHES[static_cast<std::size_t>(iPlate)] = {};
    }
    void OnLeft(const T_LEFT_D& r) override { Tell("left", r.sKEYWORD ? r.sKEYWORD : "", r.eREASON, r.iID, r.iOTHER); }
    void OnReplaced(const char* sKeyword, bool bSame) override {
        Tell(sKeyword, "replaced", bSame);
        m_quiet.bTELLALL = true;
    }
    void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) override {
        Tell("card", rCard.sWORD, iFirst, iLast, rCard.aFIELDS.size(), rUse.aSKIPPED.size(), rUse.aMISREAD.size());
        m_quiet.bTELLALL = false;
    }
    void OnLoss(const T_LOSS_D& r) override { Tell("loss", r.eLOSS, r.sWORD, r.iFIRST, r.iLAST); }
    void OnText(std::span<const T_RAWLINE_D> aLines, std::int32_t iFirst) override {
        Tell("text", aLines.front().sTEXT, aLines.size(), iFirst);
    }
    void OnSaidIgnored(std::int32_t iLine) override {
        Tell("ignored", iLine);
        m_quiet.bTELLALL = true;
    }
    void OnControlLine(std::string_view sText, std::int32_t iLine) override { Tell("control", sText, iLine); }
    void OnDeckEnd(bool bBulk) override {
        Tell("end", bBulk, m_quiet.iLAST);
        for (const auto& rWatch : m_quiet.aWATCHES) m_told << rWatch.nCOUNT << " ";
    }

    template <class... VALUES>
    void Tell(const VALUES&... values) {
        ((m_told << values << " "), ...) << "\n";
    }
    std::ostringstream m_told;
};

/// Enough grids and elements for pieces; every fourth element is a bar with its vector along Y. Of the others every
/// seventh lacks a grid, every eleventh its property.
std::string MakeDeck() {
    std::string sDeck = "BEGIN BULK\n";
    for (int i = 1; i <= 60000; ++i) {
        const std::string sID = std::to_string(i);
        sDeck += "GRID," + sID + ",," + sID + ".5,2.," + sID + "\n";
        if (i % 4 == 0) sDeck += "CBAR," + sID + ",2," + sID + ",1,0.,1.,0.\n";
        if (i % 4 == 0) continue;
        sDeck += "CQUAD4," + sID + "," + (i % 11 == 0 ? "9" : "1") + "," + sID + "," + (i % 7 == 0 ? "70000" : "1") +
                 ",3,4\n";
    }
    return sDeck + "PSHELL,1,1,.1\nPBAR,2,1,.1\nMAT1,1,7.+7,,.3\nENDDATA\n";
}

/// What comes of a deck: its result and failure, the lines of the log, what is told, and the file.
std::string WhatComesOf(const std::string& sDeck, std::size_t nThreads, bool bObserved) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), sDeck);
    WriteText(folder.Path("part.dat"), "BEGIN BULK\nGRID,900001\n$\n");
    std::filesystem::current_path(folder.Path("."));
    CNoDialogs dialogs;
    CListener listener;
    CConvertNastran run(dialogs);
    T_CONVERT_D options;
    if (bObserved) options.pOBSERVER = &listener;
    options.nTHREADS = nThreads;
    listener.Tell(run.Convert("deck.dat", options));
    for (const std::string& sLine : run.GetMsgMgr().GetMessages()) listener.Tell(sLine);
    listener.Tell(run.GetFailure().GetText(), ReadText("deck.zdt"));
    std::filesystem::current_path("/");
    return listener.m_told.str();
}

TEST(Threads, DoNotShowInAResult) {
    const std::string sDeck = MakeDeck();
    const std::string sAlone = WhatComesOf(sDeck, 1, true);
    EXPECT_NE(sAlone.find("  60000, 60000.5, 2, 60000\n\n*ELEMENT\n1, PLATE, 1, 1, 1, 1, 3, 4, 1\n"),
              std::string::npos);
    EXPECT_NE(sAlone.find(" 7 70000 \n"), std::string::npos);
    // a quarter turn of Y about the line from (16384.5, 2, 16384) to (1.5, 2, 1); the last of the first part of bars
    EXPECT_NE(sAlone.find("  16384, BEAM, 1, 2, 16384, 1, REF, 16385.2, 2, 16383.3\n"), std::string::npos);
    for (const std::size_t nThreads : {2U, 8U}) EXPECT_TRUE(WhatComesOf(sDeck, nThreads, true) == sAlone) << nThreads;
}

/// Columns of eight.
std::string Card(std::initializer_list<std::string> aFields) {
    std::string sLine;
    for (const std::string& sField : aFields) sLine += sField + std::string(8 - sField.size(), ' ');
    return sLine + "\n";
}

/// A deck of more than two megabytes, nearly all grids and plates in small field, of which threads read runs. Among the
/// lines from 15,000 to 25,000 the texts of aOdd stand in turn, one at each line that divides by nStep.
std::string MakeLongDeck(const std::vector<std::string>& aOdd, int nStep, const char* sFeed = "\n") {
    std::string sDeck = "SOL 101\nCEND\nTITLE\nGRID    7\nBEGIN BULK\n";
    for (int i = 1; i <= 45000; ++i) {
        const std::string sID = std::to_string(i);
        if (i >= 15000 && i < 25000 && i % nStep == 0) sDeck += aOdd[static_cast<std::size_t>(i / nStep) % aOdd.size()];
        sDeck += i % 3000 < 2000 ? Card({"GRID", sID, "", sID + ".5", "2.", "-1.+3"})
                                 : Card({"CQUAD4", sID, "1", sID, "2", "3", "4"});
        sDeck.replace(sDeck.size() - 1, 1, sFeed);
    }
    return sDeck + "PSHELL,1,1,.1\nMAT1,1,7.+7,,.3\nENDDATA\n" + Card({"GRID", "99"});
}

TEST(Threads, ReadWhatIsOddAmongWhatIsPlain) {
    const std::vector<std::string> aOdd = {
        "$ text\n",                                                                            // comment
        "$\n$" + std::string(170, '-') + "\n",                                                 // long comment
        " \n",                                                                                 // blank line
        "\n",                                                                                  // empty line
        Card({"GRID", "20000", "", "1."}) + Card({"CQUAD4", "2000", "1", "2", "3", "4", "5"}), // id for the second time
        Card({"GRID", "95000", "", "1."}) + Card({"GRID", "95000", "", "1."}),                 // same id twice in a row
        Card({"GRID", "95001", "", "1."}) + Card({"+", "7"}),                                  // continued card
        Card({"GRID", "95002", "", "1.", "2.", "", "5"}) +
            Card({"GRID", "95003", "", "1.", "", "", "", "123"}),                       // watched field
        Card({"CTRIA3", "95004", "1", "1", "2", "3"}),                                  // watched card
        Card({"CQUAD4", "95005", "1", "1", "2", "3", "4", "", ".5"}),                   // field that isn't reached
        Card({"GRID", "95006", "", "1.O"}),                                             // field that isn't a number
        Card({"GRID", "95 07", "", "1 .5"}),                                            // blank in a field
        "GRID    95008\t\t1.\n",                                                        // tab
        Card({"GRID", "95009:", "", "1."}),                                             // colon
        "GRID    95010                                                           +A\n", // mark behind the fields
        "GRID,95011,,1.\nGRID*   95012                           1.\n",                 // free and large field
        "grid    95013           1.\n",                                                 // lower case
        Card({"GRIDS9", "1"}),                                                          // unknown word
        Card({"CELAS3", "1", "2", "3", "4"}),                                           // card that isn't converted
        Card({"GRID", "95014", "", "1."}) + "*GRID\n",                                  // word behind that would end
        "=,*1,==\n",                                                                    // replication
        "CEND\n" + Card({"GRID", "95015"}) + "BEGIN BULK\n",                            // section
    };
    const std::vector<std::string> aSets = {
        Card({"FORCE", "3", "16000", "", "2.", "1.", "", "-1."}) + Card({"FORCE", "4", "16001", "", "2.", "1."}),
        Card({"FORCE", "3", "16002", "7", ".1", "", ".3"}) + Card({"MOMENT", "3", "16000", "", "2.", "1."}),
        Card({"FORCE1", "4", "16000", "2.", "15000", "15001"}) + Card({"MOMENT2", "3", "16000", "2.", "1", "2", "3"}),
        Card({"PLOAD4", "3", "17001", "1.5"}) + Card({"PLOAD4", "3", "17002", "1.", "2.", "", "", "THRU", "17009"}),
        Card({"PLOAD4", "9", "17001", "1.5", "", "", "", "15000"}) + Card({"PLOAD2", "9", "-2.", "17001", "17003"}),
        Card({"PLOAD1", "4", "17001", "FY", "FR", "0.", "1.", "1.", "2."}) + Card({"GRAV", "4", "", "9.8", "1."}),
        Card({"SPCD", "3", "16000", "13", ".5", "16001", "0", "-.5"}) + Card({"SPCD", "3", "16003", "2", ".1"}),
        Card({"TEMP", "8", "16000", "1.5", "16001", "2.5", "16002", "3.5"}) + Card({"TEMP", "9", "0", "1.", "-3"}),
        Card({"TEMPD", "8", "20."}) + Card({"TEMP", "8", "16004", "-1.5"}),
    };
    const std::vector<std::string> aSupports = {
        Card({"SPC", "6", "16000", "0", "", "16001", "246"}) + Card({"SPC1", "5", "1"}),
        Card({"SPC", "7", "0", "123", ".5"}) + Card({"SPC1", "5", "123", "16000", "THRU", "16009"}),
        Card({"MPC", "8", "16000", "1", "1.", "16001", "2", "2."}) + Card({"SPC1", "6", "0", "16001", "16002"}),
    };
    const std::vector<std::string> aOneSet = {
        Card({"SPC", "6", "16000", "0", "", "16001", "246"}) + Card({"SPC", "6", "70000", "0"}),
        Card({"SPC1", "6", "123", "16000", "THRU", "16009"}) + Card({"SPC1", "6", "0", "70001", "16002"}),
    };
    const std::pair<const char*, std::string> aDecks[] = {
        {"plain", MakeLongDeck({""}, 7)},
        {"loads", MakeLongDeck(aSets, 3)},
        {"supports", MakeLongDeck(aSupports, 3)},
        {"supports of one set", MakeLongDeck(aOneSet, 3)},
        {"odd lines", MakeLongDeck(aOdd, 7)},
        {"carriage returns", MakeLongDeck({"$\r\n"}, 700, "\r\n")},
        {"include", MakeLongDeck({"INCLUDE,part.dat\n"}, 9001)},
        {"end in between", MakeLongDeck({"$ ENDDATA\n"}, 9001)},
        {"NUL", MakeLongDeck({std::string("GRID    95016\0 junk\n", 20)}, 9001)},
        {"line too long", MakeLongDeck({"$" + std::string(170, '-') + "\n"}, 9001)},
        {"line of pieces", MakeLongDeck({std::string(1200, 'X') + "\n"}, 9001)},
        {"Ctrl-Z in a line", MakeLongDeck({Card({"GRID", "95017", "\x1A"})}, 9001)},
        {"Ctrl-Z before a line", MakeLongDeck({"\x1AGRID\n"}, 9001)},
        {"end of the deck", MakeLongDeck({"ENDDATA\n"}, 9001)},
        {"end in a field", MakeLongDeck({Card({"GRID", "95018", "ENDDATA"})}, 9001)},
    };
    for (const auto& [sName, sDeck] : aDecks) {
        ASSERT_GT(sDeck.size(), std::size_t{1} << 21) << "too short for threads";
        for (const bool bObserved : {false, true}) {
            const std::string sAlone = WhatComesOf(sDeck, 1, bObserved);
            EXPECT_TRUE(WhatComesOf(sDeck, 3, bObserved) == sAlone) << sName << (bObserved ? ", observed" : "");
        }
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
        MakePieces<T_PIECE_D>(500, nThreads, make, take);
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
            EXPECT_THROW(MakePieces<T_PIECE_D>(500, nThreads, make, take), std::runtime_error);
            EXPECT_LE(nTaken, 50u);
        }
    }
}

} // namespace
