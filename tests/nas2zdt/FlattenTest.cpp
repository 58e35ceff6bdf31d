// Joining decks: the text, and where each line of it came from.

#include "nas2zdt/flatten/Flatten.h"
#include "nas2zdt/flatten/IncludeStatement.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class FlattenTest : public testing::Test {
  protected:
    /// The joined text with each line's origin in front, files by their names.
    std::string Join() {
        CFile file;
        file.Create(m_folder.Path("joined"));
        m_joined = FlattenDeck(m_folder.Path("main.dat"), file);
        const std::string sText = ReadText(m_folder.Path("joined"));
        std::string sShown;
        std::size_t iPos = 0;
        for (int iLine = 1; iPos < sText.size(); ++iLine) {
            const std::size_t iEnd = std::min(sText.find('\n', iPos), sText.size() - 1) + 1;
            const T_ORIGIN_D origin = m_joined.lines.Find(iLine);
            const std::string sName = origin.sFILE.substr(origin.sFILE.find_last_of("/\\") + 1);
            sShown += sName + ":" + std::to_string(origin.iLINE) + " " + sText.substr(iPos, iEnd - iPos);
            iPos = iEnd;
        }
        return sShown;
    }
    std::string Error() {
        try {
            Join();
        } catch (const CFileException& rError) {
            return Without(rError.GetText(), m_folder.Path(""));
        }
        return {};
    }
    void Write(const std::string& sName, const std::string& sText) { WriteText(m_folder.Path(sName), sText); }

    CTempFolder m_folder;
    T_JOINED_D m_joined;
};

TEST_F(FlattenTest, PutsTheTextInPlaceAtAnyDepth) {
    std::filesystem::create_directories(m_folder.Path("Sub/Deep"));
    Write("main.dat",
          "CEND\nBEGIN BULK\nGRID,1\nINCLUDE 'sub/a part.dat' $ a comment\nGRID,4\nENDDATA\nINCLUDE 'none'\n");
    Write("Sub/a part.dat", "GRID,2\ninclude\t\"DEEP\\B.dat\"\n$ INCLUDE 'none'");
    Write("Sub/Deep/b.dat", "GRID,3\nENDDATA\nGRID,9\n");
    EXPECT_EQ(Join(), "main.dat:1 CEND\nmain.dat:2 BEGIN BULK\nmain.dat:3 GRID,1\na part.dat:1 GRID,2\nB.dat:1 GRID,3\n"
                      "a part.dat:3 $ INCLUDE 'none'\nmain.dat:5 GRID,4\nmain.dat:6 ENDDATA\n");
    EXPECT_EQ(m_joined.files.size(), 3u);
}

TEST_F(FlattenTest, ReadsANameOverSeveralLines) {
    Write("main.dat", "BEGIN BULK\nINCLUDE 'su\n   b/\r\n  a.dat'\nGRID,4");
    std::filesystem::create_directory(m_folder.Path("sub"));
    Write("sub/a.dat", "GRID,1\r\n");
    EXPECT_EQ(Join(), "main.dat:1 BEGIN BULK\na.dat:1 GRID,1\r\nmain.dat:5 GRID,4");
}

TEST_F(FlattenTest, MakesBulkDataOfCardsBeforeTheMarker) {
    Write("main.dat", "SOL 101\nINCLUDE 'cards.dat'\nINCLUDE 'case.dat'\nCEND\nINCLUDE 'head.dat'\nGRID,9\n");
    Write("cards.dat", "$ cards\nPARAM,POST,-1\nGRID,1\nINCLUDE 'more.dat'\n");
    Write("more.dat", "GRID,2\n");
    Write("case.dat", "SPC = 1\nLOAD = 2\n");
    Write("head.dat", "TITLE=A\nBEGIN BULK\nGRID,3\n");
    EXPECT_EQ(Join(), "main.dat:1 SOL 101\ncards.dat:1 BEGIN BULK\ncards.dat:1 $ cards\ncards.dat:2 PARAM,POST,-1\n"
                      "cards.dat:3 GRID,1\nmore.dat:1 GRID,2\ncards.dat:5 CEND\ncase.dat:1 SPC = 1\n"
                      "case.dat:2 LOAD = 2\nmain.dat:4 CEND\nhead.dat:1 TITLE=A\nhead.dat:2 BEGIN BULK\n"
                      "head.dat:3 GRID,3\nmain.dat:6 GRID,9\n");
}

TEST_F(FlattenTest, TakesADeckTwiceButNoCycle) {
    Write("main.dat", "INCLUDE 'a.dat'\nINCLUDE 'a.dat'\n");
    Write("a.dat", "$ a\n");
    EXPECT_EQ(Join(), "a.dat:1 $ a\na.dat:1 $ a\n");
    Write("a.dat", "$\nINCLUDE 'main.dat'\n");
    EXPECT_EQ(Error(), "a.dat:2: this deck includes itself, directly or through others: main.dat");
}

TEST_F(FlattenTest, TellsWhereItFails) {
    const std::pair<const char*, const char*> aCases[] = {
        {"$\nINCLUDE 'none.dat'\n", "main.dat:2: included deck can't be opened: none.dat: No such file or directory"},
        {"INCLUDE 'none.dat\n\n$\n", "main.dat:1: the name of this INCLUDE has no closing quote"},
        {"INCLUDE ''\n", "main.dat:1: this INCLUDE has no name"},
        {"INCLUDE\n", "main.dat:1: this INCLUDE has no name"},
    };
    for (const auto& [sDeck, sError] : aCases) {
        Write("main.dat", sDeck);
        EXPECT_EQ(Error(), sError);
    }
}

TEST_F(FlattenTest, LongLinesAreCountedAsTheConverterDoes) {
    const std::string sLong = "$" + std::string(1000, 'x') + "\n"; // three pieces of at most 499
    Write("main.dat", sLong + "GRID,1\n");
    Join();
    EXPECT_EQ(m_joined.lines.Find(1).iLINE, 1);
    EXPECT_EQ(m_joined.lines.Find(4).iLINE, 2);
    EXPECT_EQ(ReadText(m_folder.Path("joined")), sLong + "GRID,1\n");
}

TEST(IncludeStatement, KnowsItsForms) {
    const struct {
        const char* sLINE;
        int bINCLUDE;
        const char* sNAME;
    } aCases[] = {
        {"INCLUDE 'a.dat'", 1, "a.dat"},
        {"  include \"A b.dat\"  \r\n", 1, "A b.dat"},
        {"INCLUDE,'a.dat'", 1, "a.dat"},
        {"INCLUDE a.dat $ text", 1, "a.dat"},
        {"INCLUDE='C:\\x\\a.dat' rest", 1, "C:\\x\\a.dat"},
        {"Include'a.dat'", 1, "a.dat"},
        {"INCLUDED 'a.dat'", 0, ""},
        {"$ INCLUDE 'a.dat'", 0, ""},
        {"", 0, ""},
        {"INCLUD", 0, ""},
    };
    for (const auto& rCase : aCases) {
        CIncludeStatement statement;
        ASSERT_EQ(statement.Begin(rCase.sLINE), rCase.bINCLUDE) << rCase.sLINE;
        if (!rCase.bINCLUDE) continue;
        EXPECT_TRUE(statement.IsWhole()) << rCase.sLINE;
        EXPECT_EQ(statement.GetName(), rCase.sNAME);
    }
}

} // namespace
