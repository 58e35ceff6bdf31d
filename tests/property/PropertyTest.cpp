// What holds for every deck, tried on decks out of chance.

#include "support/Deck.h"
#include "support/DeckMaker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

std::vector<std::string> SortedLines(const std::string& sText) {
    std::vector<std::string> aLines;
    std::istringstream stream(sText);
    for (std::string sLine; std::getline(stream, sLine);) aLines.push_back(sLine);
    std::sort(aLines.begin(), aLines.end());
    return aLines;
}

std::string WithCarriageReturns(const std::string& sDeck) {
    std::string sResult;
    for (const char c : sDeck) {
        if (c == '\n') sResult += '\r';
        sResult += c;
    }
    return sResult;
}

class PropertyTest : public testing::TestWithParam<std::uint64_t> {};

/// A carriage return is trimmed from free fields and taken from large ones. A small field keeps it, unless the line
/// reaches behind its last field.
TEST_P(PropertyTest, LineEndingsDoNotMatterWhereNoFieldCanHoldOne) {
    CDeckMaker maker(GetParam());
    maker.FillLines();
    maker.StaySound();
    const std::string sDeck = maker.Deck();
    const T_RUN_D feeds = RunDeck(sDeck);
    const T_RUN_D returns = RunDeck(WithCarriageReturns(sDeck));
    EXPECT_EQ(feeds.iRESULT, 1);
    EXPECT_EQ(feeds.sZDT, returns.sZDT);
    EXPECT_EQ(feeds.aLOG, returns.aLOG);
}

/// Which layout a card has, as long as its fields stay in their places.
TEST_P(PropertyTest, TheLayoutOfACardDoesNotMatter) {
    CChance chance(GetParam());
    std::string aDecks[3];
    for (int i = 1; i < 40; ++i) {
        const auto id = [&] { return std::to_string(1 + chance.Below(12)); };
        const std::string sEID = std::to_string(i);
        const std::vector<std::vector<std::string>> aCards = {
            {"GRID", id(), "", id(), "2.5", "-1.-1", "", "123"},
            {"CQUAD8", sEID, id(), id(), id(), id(), id(), id(), id(), id(), id()},
            {"RBE2", sEID, id(), "123456", id(), id(), id(), id(), id(), id(), id(), id(), id()},
            {"PBEAM", id(), id(), "1.", "2.", "3.", "", "4.", "5.", "6.", "", "7.", "8."},
            {"PLOAD4", id(), sEID, "-1.5", "", "", "2.", id(), id()},
            {"CORD2R", id(), "", "0.", "0.", "0.", "0.", "0.", "1.", "1.", "0.", id()},
        };
        const std::vector<std::string>& rCard = aCards[chance.Below(aCards.size())];
        for (const E_LAYOUT eLayout : {LAYOUT_SMALL, LAYOUT_LARGE, LAYOUT_FREE}) {
            aDecks[eLayout] += CDeckMaker(GetParam()).Card(rCard, eLayout);
        }
    }
    const std::string sSmall = ConvertBulk(aDecks[LAYOUT_SMALL]);
    EXPECT_EQ(sSmall, ConvertBulk(aDecks[LAYOUT_LARGE]));
    EXPECT_EQ(sSmall, ConvertBulk(aDecks[LAYOUT_FREE]));
}

/// Nodes and elements are sorted by id; in the other sections the order of lines alone follows the deck.
TEST_P(PropertyTest, TheOrderOfCardsChangesTheOrderOfLinesAlone) {
    CChance chance(GetParam());
    std::vector<std::string> aCards;
    const auto id = [&] { return std::to_string(1 + chance.Below(60)); };
    for (int i = 1; i <= 60; ++i) {
        const std::string sID = std::to_string(i);
        const std::string sOf = sID + "," + id() + ",";
        const std::string sNodes = id() + "," + id() + "," + id() + "," + id();
        aCards.push_back("GRID," + sID + "," + (chance.Once(4) ? id() : "") + "," + id() + ".," + id() + ".,3.,,\n");
        if (chance.Once(4)) aCards.push_back("CORD2R," + sID + ",,0.,0." + id() + ",0.,0.,1.,2.\n,1.,0.,1.\n");
        aCards.push_back((chance.Once(2) ? "CBAR," : "CQUAD4,") + sOf + sNodes + "\n");
        aCards.push_back((chance.Once(2) ? "PSHELL," : "PBAR,") + sOf + "0." + id() + "\n");
        aCards.push_back("MAT1," + sID + "," + id() + ".,,.3\n");
        aCards.push_back("RBE2,1" + sID + "," + id() + ",123," + id() + "," + id() + "\n");
        aCards.push_back("CELAS2,2" + sID + "," + id() + ".," + id() + ",1," + id() + ",1\n");
        aCards.push_back("FORCE," + sID + "," + id() + ",0,2.,1.,0.,1.\n");
    }
    const auto convert = [&] {
        std::string sBulk;
        for (const std::string& rCard : aCards) sBulk += rCard;
        return ConvertBulk(sBulk);
    };
    const std::string sFirst = convert();
    for (std::size_t i = aCards.size() - 1; i > 0; --i) std::swap(aCards[i], aCards[chance.Below(i + 1)]);
    const std::string sSecond = convert();
    EXPECT_EQ(Sections(sFirst, "*NODE"), Sections(sSecond, "*NODE"));
    EXPECT_EQ(Sections(sFirst, "*ELEMENT"), Sections(sSecond, "*ELEMENT"));
    EXPECT_EQ(SortedLines(sFirst), SortedLines(sSecond));
}

/// Included decks are read one after the other, behind the deck that names them, level by level.
TEST_P(PropertyTest, IncludedDecksReadLikeOne) {
    CDeckMaker maker(GetParam());
    maker.StaySound();
    std::string aCards[4];
    for (std::string& rCards : aCards) rCards = maker.Cards(12);
    const CTempFolder folder;
    const auto include = [&](const std::string& sName) { return "INCLUDE," + folder.Path(sName) + "\n"; };
    const auto write = [&](const std::string& sName, const std::string& sCards) {
        WriteText(folder.Path(sName), "BEGIN BULK\n" + sCards + "ENDDATA\n");
    };
    write("deck.dat", include("a.inc") + aCards[0] + include("b.inc"));
    write("a.inc", aCards[1] + include("c.inc"));
    write("b.inc", aCards[2] + include("c.inc"));
    write("c.inc", aCards[3]);
    const T_RUN_D included = RunFile(folder.Path("deck.dat"));
    EXPECT_EQ(included.iRESULT, 1) << included.failure.GetText();
    EXPECT_EQ(included.sZDT, ConvertBulk(aCards[0] + aCards[1] + aCards[2] + aCards[3] + aCards[3]));
}

INSTANTIATE_TEST_SUITE_P(Seeds, PropertyTest, testing::Range(std::uint64_t(1), std::uint64_t(41)));

} // namespace
