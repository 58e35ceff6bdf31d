// Decks and output files as the system gives them.

#include "support/Deck.h"

#include <gtest/gtest.h>

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

} // namespace
