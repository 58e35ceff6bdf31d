// The limits of a run: what passes them fails, and what reaches them doesn't.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

using LIMIT = std::int64_t T_LIMITS_D::*;

T_LIMITS_D With(LIMIT pLimit, std::int64_t nLimit) {
    T_LIMITS_D limits;
    limits.*pLimit = nLimit;
    return limits;
}

/// A run that comes to exactly nReached of a limit passes with it and fails with one less, at a line of sFile.
void ExpectLimit(const std::string& sDeck, LIMIT pLimit, std::int64_t nReached, E_FAILURE eFailure,
                 const std::string& sFile, std::int32_t iLine) {
    EXPECT_EQ(RunFile(sDeck, With(pLimit, nReached)).failure.GetText(), "");
    EXPECT_EQ(RunFile(sDeck, With(pLimit, T_LIMITS_D::NONE)).iRESULT, 1);
    const T_RUN_D run = RunFile(sDeck, With(pLimit, nReached - 1));
    EXPECT_EQ(run.iRESULT, 0);
    EXPECT_TRUE(run.aSHOWN.empty());
    EXPECT_EQ(run.failure.eFAILURE, eFailure);
    EXPECT_EQ(run.failure.sFILE, sFile);
    EXPECT_EQ(run.failure.iLINE, iLine);
}

/// A folder with a deck of these cards.
class CDeckFolder : public CTempFolder {
  public:
    explicit CDeckFolder(const std::string& sCards) { Write("deck.dat", sCards); }
    void Write(const std::string& sName, const std::string& sCards) const {
        WriteText(Path(sName), "BEGIN BULK\n" + sCards + "ENDDATA\n");
    }
    std::string GetDeck() const { return Path("deck.dat"); }
};

TEST(Limits, AreWideUnlessSet) {
    const T_LIMITS_D limits;
    EXPECT_EQ(limits.nRANGES, 50000000);
    EXPECT_EQ(limits.nDECKS, 1000000);
    EXPECT_EQ(limits.nOUTPUT, 1073741824);
    EXPECT_EQ(limits.nFRAMES, 10000000000);
}

TEST(Limits, EntriesOfAllRanges) {
    const CDeckFolder folder("PLOAD2,1,1.,1,THRU,6\n"                // 2 to 6
                             "PLOAD2,1,1.,9,THRU,-9\n"               // none
                             "TEMPP1,1,1,1.,,,,5,THRU,8,THRU,10\n"); // 6 to 8, 9 and 10
    ExpectLimit(folder.GetDeck(), &T_LIMITS_D::nRANGES, 10, FAILURE_LIMIT_RANGES, folder.GetDeck(), 4);
}

TEST(Limits, DecksOpened) {
    const CDeckFolder folder("INCLUDE,twice.dat\nINCLUDE,leaf.dat\n");
    folder.Write("twice.dat", "GRID,1\nINCLUDE,leaf.dat\nINCLUDE,leaf.dat\n");
    folder.Write("leaf.dat", "GRID,2\n");
    const std::filesystem::path home = std::filesystem::current_path();
    std::filesystem::current_path(PathOf(folder.Path("."))); // names of includes are short
    ExpectLimit("deck.dat", &T_LIMITS_D::nDECKS, 5, FAILURE_LIMIT_DECKS, "TWICE.DAT", 4);
    std::filesystem::current_path(home);
}

/// 64 bytes for each one that was read, and the limit besides.
TEST(Limits, BytesOfTheTargetFile) {
    std::string sCards;
    for (int i = 1; i <= 400; ++i) sCards += "GRID," + std::to_string(i) + "\nTEMPD," + std::to_string(i) + ",1.\n";
    const CDeckFolder folder(sCards);
    const std::string sWhole = RunFile(folder.GetDeck()).sZDT;
    const auto nRead = static_cast<std::int64_t>(ReadText(folder.GetDeck()).size());
    const std::int64_t nOver = static_cast<std::int64_t>(sWhole.size()) - 64 * nRead;
    ASSERT_GT(nOver, 2);
    ExpectLimit(folder.GetDeck(), &T_LIMITS_D::nOUTPUT, nOver, FAILURE_LIMIT_OUTPUT, folder.GetDeck(), 0);

    const T_RUN_D cut = RunFile(folder.GetDeck(), With(&T_LIMITS_D::nOUTPUT, 1)); // what was written stays
    EXPECT_EQ(cut.failure.nLIMIT, 64 * nRead + 1);
    EXPECT_FALSE(cut.sZDT.empty());
    EXPECT_LE(static_cast<std::int64_t>(cut.sZDT.size()), cut.failure.nLIMIT);
    EXPECT_TRUE(sWhole.starts_with(cut.sZDT));
    EXPECT_EQ(cut.sFILEERROR, "");
}

/// Each grid goes through both frames; their axes do, by two points, for all grids together.
TEST(Limits, FramesThatPointsAreCarriedThrough) {
    const CDeckFolder folder("CORD2R,1,,,,,,,1.\n,1.\nCORD2C,2,1,,,,,,1.\n,1.\n"
                             "GRID,1,2,1.,90.,,2\nGRID,2,2,1.,90.,,2\nGRID,3,2,1.,90.,,2\n");
    ExpectLimit(folder.GetDeck(), &T_LIMITS_D::nFRAMES, 3 * 2 + 2 * 2, FAILURE_LIMIT_FRAMES, folder.GetDeck(), 0);
}

TEST(Limits, AnOutputWithoutLimitStaysOne) {
    EXPECT_EQ(With(&T_LIMITS_D::nOUTPUT, T_LIMITS_D::NONE).MostOutput(1000), T_LIMITS_D::NONE);
    EXPECT_EQ(T_LIMITS_D().MostOutput(T_LIMITS_D::NONE), T_LIMITS_D::NONE);
    EXPECT_EQ(T_LIMITS_D().MostOutput(1000), 64 * 1000 + 1024 * 1024 * 1024);
}

} // namespace
