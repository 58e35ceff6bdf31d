// Decks and output files as the system gives them.

#include "platform/WholeFile.h"
#include "support/Deck.h"
#ifdef _WIN32
#include "platform/win32/Text.h"
#endif

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

namespace {

TEST(File, LongAndForeignNames) { // longer than 260 characters, which Windows takes in one form only
    const CTempFolder folder;
    const std::string sFolder = folder.Path(std::string(150, 'a'));
    std::filesystem::create_directory(PathOf(sFolder));
    const std::string sPath = sFolder + "/" + std::string(150, 'b') + " d\u00EAck \u65E5\u672C.dat";
    CFile file;
    file.Create(sPath);
    file.Write("bytes\n\x1A\r\n");
    file.Close();
    CDeckFile deck;
    std::string sCause;
    ASSERT_EQ(deck.Open(sPath, sCause), 1) << sCause;
    char aBytes[20];
    EXPECT_EQ(std::string(aBytes, static_cast<std::size_t>(deck.Read(aBytes, sizeof aBytes))), "bytes\n\x1A\r\n");
}

#ifdef _WIN32
TEST(File, SystemPathIsLongWhereTheWholeIs) {
    const CTempFolder folder;
    const std::string sFolder = folder.Path(std::string(150, 'a')), sLong(150, 'b');
    std::filesystem::create_directory(PathOf(sFolder));
    const std::filesystem::path here = std::filesystem::current_path();
    EXPECT_EQ(SystemPath("short.dat"), L"short.dat");
    std::filesystem::current_path(PathOf(sFolder));
    EXPECT_EQ(SystemPath(sLong), L"\\\\?\\" + (std::filesystem::current_path() / sLong).wstring());
    std::filesystem::current_path(here);
    EXPECT_EQ(SystemPath(std::string("\\\\server\\folder\\") + sLong + sLong),
              L"\\\\?\\UNC\\server\\folder\\" + Widen(sLong + sLong));
}
#endif

TEST(File, TextsOfAboutABuffer) { // which holds 256 KiB, and a piece's grows from 64
    const CTempFolder folder;
    constexpr std::size_t BUFFER = 262144, PIECE = 65536;
    for (const std::size_t nFirst : {std::size_t{0}, BUFFER - 1, BUFFER, BUFFER + 1}) {
        for (const std::size_t nSecond : {std::size_t{1}, PIECE, PIECE + 1, 2 * PIECE + 1, BUFFER, 3 * BUFFER}) {
            const std::string sFirst(nFirst, 'a'), sSecond(nSecond, 'b');
            CFile file;
            file.Create(folder.Path("a.zdt"));
            file.Write(sFirst);
            file.Write(sSecond);
            CTextPiece piece;
            for (const char* sText : {"c", "d"}) {
                piece.Write(sText);
                piece.Write(sSecond);
                file.Append(piece);
                file.Write(sFirst);
            }
            file.Close();
            EXPECT_TRUE(ReadText(folder.Path("a.zdt")) ==
                        sFirst + sSecond + "c" + sSecond + sFirst + "d" + sSecond + sFirst)
                << nFirst << " " << nSecond;
        }
    }
}

TEST(File, FolderIsNoDeck) {
    const CTempFolder folder;
    CDeckFile deck;
    std::string sCause;
    EXPECT_EQ(deck.Open(folder.Path("."), sCause), 0);
    EXPECT_FALSE(sCause.empty());
    EXPECT_EQ(deck.Open("", sCause), 0);
}

TEST(File, KeptFileIsLeftAlone) {
    const CTempFolder folder;
    WriteText(folder.Path("a.zdt"), "kept");
    std::filesystem::create_hard_link(PathOf(folder.Path("a.zdt")), PathOf(folder.Path("b.zdt")));
    CDeckFile deck;
    std::string sCause;
    ASSERT_EQ(deck.Open(folder.Path("a.zdt"), sCause), 1) << sCause;
    CFile file;
    EXPECT_THROW(file.Create(folder.Path("b.zdt"), {deck.GetId()}), CFileException);
    file.Abort();
    EXPECT_EQ(ReadText(folder.Path("a.zdt")), "kept");
    deck.Close();
    file.Create(folder.Path("b.zdt"));
    file.Write("new");
    file.Close();
    EXPECT_EQ(ReadText(folder.Path("a.zdt")), "new");
}

TEST(WholeFile, TakesItsNameWhenItIsWhole) {
    const CTempFolder folder;
    WriteText(folder.Path("a.zdt"), "old");
    const T_INPUTS none;
    {
        CWholeFile file(folder.Path("a.zdt"), none);
        file.GetFile().Write("unfinished");
        file.GetFile().Flush();
        EXPECT_EQ(ReadText(folder.Path("a.zdt")), "old");
        EXPECT_EQ(ReadText(file.GetTemporaryPath()), "unfinished");
    }
    EXPECT_EQ(ReadText(folder.Path("a.zdt")), "old");
    for (const char* sName : {"a.zdt", "b.zdt"}) {
        CWholeFile file(folder.Path(sName), none);
        file.GetFile().Write("new");
        file.Finish();
        EXPECT_EQ(ReadText(folder.Path(sName)), "new");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(PathOf(folder.Path("."))), {}), 2);
}

TEST(WholeFile, AnInputIsLeftAlone) {
    const CTempFolder folder;
    WriteText(folder.Path("a.dat"), "kept");
    std::filesystem::create_hard_link(PathOf(folder.Path("a.dat")), PathOf(folder.Path("b.zdt")));
    const T_INPUTS inputs{{FindTarget(folder.Path("a.dat")).id, "the deck a.dat"}};
    EXPECT_THROW(CWholeFile(folder.Path("b.zdt"), inputs), CFileException);
    CWholeFile file(folder.Path("c.zdt"), inputs);
    std::filesystem::create_hard_link(PathOf(folder.Path("a.dat")), PathOf(folder.Path("c.zdt"))); // in the meantime
    EXPECT_THROW(file.Finish(), CFileException);
    EXPECT_EQ(ReadText(folder.Path("c.zdt")), "kept");
}

TEST(File, ATargetIsToldApartBeforeItIsThere) {
    const CTempFolder folder;
    std::filesystem::create_directory(PathOf(folder.Path("sub")));
    const T_TARGET_D target = FindTarget(folder.Path("a.zdt"));
    const T_TARGET_D again = FindTarget(folder.Path("sub/../a.zdt"));
    EXPECT_EQ(target.eTARGET, TARGET_NEW);
    EXPECT_EQ(target.folder, again.folder);
    EXPECT_EQ(target.sNAME, again.sNAME);
    EXPECT_NE(target.folder, FindTarget(folder.Path("sub/a.zdt")).folder);
    EXPECT_EQ(FindTarget(folder.Path("sub")).eTARGET, TARGET_STREAM);
#ifndef _WIN32
    WriteText(folder.Path("file"), "");
    EXPECT_EQ(FindTarget(folder.Path("file/a.zdt")).eTARGET, TARGET_STREAM); // there can't be any
#endif
}

} // namespace
