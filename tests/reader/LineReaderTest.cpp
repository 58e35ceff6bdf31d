// The lines of a deck that one thread reads, or several.

#include "reader/LineReader.h"

#include "messages/RunError.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Lines of all lengths to 520, some with a NUL or a Ctrl-Z, one of more than a chunk, the last without a line feed.
std::string MakeBytes() {
    std::string sBytes;
    for (std::size_t i = 0; sBytes.size() < 2'000'000; ++i) {
        std::string sLine(i * 7 % 521, static_cast<char>('a' + i % 26));
        if (i % 500 == 49) sLine.insert(sLine.size() / 2, 1, i % 1000 < 500 ? '\0' : CTRL_Z);
        if (i == 3000) sLine.assign(600'000, 'x');
        sBytes += sLine + "\n";
    }
    return sBytes + "last";
}

/// Runs of three lines, from each tenth line of the chunk on.
void FindRuns(std::size_t, T_CHUNK_D& rChunk) {
    rChunk.aRUNS.clear();
    const std::string_view sBytes(rChunk.pBYTES.get(), rChunk.nBYTES);
    std::vector<std::size_t> aBegins;
    for (std::size_t i = 0; i < sBytes.size(); i = std::min(sBytes.find('\n', i), sBytes.size()) + 1)
        aBegins.push_back(i);
    const auto isPiece = [&](std::size_t i) { return aBegins[i + 1] - aBegins[i] > 499; };
    for (std::size_t i = 10; i + 3 < aBegins.size(); i += 10) {
        if (isPiece(i) || isPiece(i + 1) || isPiece(i + 2)) continue;
        rChunk.aRUNS.push_back({.iBEGIN = aBegins[i], .iEND = aBegins[i + 3], .nLINES = 3, .iKEYWORD = 0});
    }
}

/// What reading a deck gives, line by line.
struct T_STEP_D {
    std::string sTEXT;
    std::size_t iEND;
    std::uint64_t nBYTESREAD;
    bool operator==(const T_STEP_D&) const = default;
};

/// Reads to the end. With bPeek the byte behind each fifth line is looked at, and must be that of the deck.
std::vector<T_STEP_D> ReadLines(CLineReader& rReader, const std::string& sBytes, bool bPeek) {
    std::vector<T_STEP_D> aSteps;
    std::string_view sText;
    for (std::size_t iEnd = 0; rReader.Read(sText);) {
        iEnd += sText.size();
        if (sText.size() < 499 && iEnd < sBytes.size()) ++iEnd; // else a piece, or the end of the deck
        if (bPeek && aSteps.size() % 5 == 0) {
            EXPECT_EQ(rReader.PeekByte(), iEnd < sBytes.size() ? static_cast<unsigned char>(sBytes[iEnd]) : -1) << iEnd;
        }
        aSteps.push_back({std::string(sText), iEnd, rReader.GetBytesRead()});
    }
    EXPECT_EQ(rReader.GetBytesRead(), sBytes.size());
    EXPECT_EQ(rReader.PeekByte(), -1);
    return aSteps;
}

class LineReaderTest : public testing::Test {
  protected:
    void Open(CLineReader& rReader, std::size_t nThreads, const CDeckChunks::LOOK& look) {
        std::string sCause;
        ASSERT_EQ(rReader.Open(m_sPath, sCause), 1);
        if (nThreads > 1) rReader.Share(nThreads, look);
    }

    const CTempFolder m_folder;
    const std::string m_sPath = m_folder.Path("deck.dat");
};

TEST_F(LineReaderTest, GivesTheSameHoweverManyRead) {
    std::string sOneMore; // than blocks have
    while (sOneMore.size() < std::size_t{1} << 20) sOneMore += std::string(63, '-') + "\n";
    sOneMore += "X";
    const std::pair<std::string, bool> aDecks[] = {{MakeBytes(), false}, {MakeBytes(), true}, {sOneMore, false}};
    for (const auto& [sBytes, bPeek] : aDecks) {
        WriteText(m_sPath, sBytes);
        CLineReader alone, shared;
        ASSERT_NO_FATAL_FAILURE(Open(alone, 1, FindRuns));
        ASSERT_NO_FATAL_FAILURE(Open(shared, 3, FindRuns));
        const std::vector<T_STEP_D> aAlone = ReadLines(alone, sBytes, bPeek);
        std::string sText;
        for (const T_STEP_D& rStep : aAlone) {
            sText += rStep.sTEXT;
            if (sText.size() < rStep.iEND) sText += '\n';
        }
        EXPECT_TRUE(sText == sBytes);
        EXPECT_TRUE(ReadLines(shared, sBytes, bPeek) == aAlone);
    }
}

TEST_F(LineReaderTest, PassesRunsAsIfTheirLinesWereRead) {
    const std::string sBytes = MakeBytes();
    WriteText(m_sPath, sBytes);
    CLineReader alone, shared;
    ASSERT_NO_FATAL_FAILURE(Open(alone, 1, FindRuns));
    ASSERT_NO_FATAL_FAILURE(Open(shared, 3, FindRuns));
    const std::vector<T_STEP_D> aAlone = ReadLines(alone, sBytes, false);
    std::size_t nPassed = 0;
    std::string_view sText;
    for (std::size_t i = 0; i < aAlone.size(); ++i) {
        if (const T_CARDRUN_D* const pRun = shared.FindRun(false)) {
            const std::int32_t nLines = ++nPassed % 2 == 0 ? 3 : 2;
            shared.Pass(*pRun, nLines);
            i += static_cast<std::size_t>(nLines);
            ASSERT_EQ(shared.GetBytesRead(), aAlone[i - 1].nBYTESREAD) << i;
        }
        ASSERT_TRUE(shared.Read(sText)) << i;
        ASSERT_EQ(sText, aAlone[i].sTEXT) << i;
        ASSERT_EQ(shared.GetBytesRead(), aAlone[i].nBYTESREAD) << i;
        const T_CARDRUN_D* const pLast = shared.FindRun(true);
        ASSERT_TRUE(!pLast) << "it would have been passed";
    }
    EXPECT_FALSE(shared.Read(sText));
    EXPECT_GT(nPassed, 300U);
}

TEST_F(LineReaderTest, FailsWhereTheDeckWasCutShort) {
    for (const std::size_t nThreads : {1U, 3U}) {
        WriteText(m_sPath, std::string(6'000'000, '\n'));
        CLineReader reader;
        ASSERT_NO_FATAL_FAILURE(Open(reader, nThreads, [](std::size_t, T_CHUNK_D&) {}));
        std::string_view sText;
        ASSERT_TRUE(reader.Read(sText));
        std::filesystem::resize_file(m_sPath, 5'000'000); // far behind what a ring holds
        std::size_t nLines = 1;
        const auto readOn = [&] {
            while (reader.Read(sText)) ++nLines;
        };
        EXPECT_THROW(readOn(), CRunError) << nLines;
        EXPECT_GT(nLines, 4'500'000U);
        EXPECT_LE(nLines, 5'000'000U);
    }
}

TEST_F(LineReaderTest, ThrowsWhatIsMetAheadAndIsClosedAtAnyTime) {
    WriteText(m_sPath, std::string(6'000'000, '\n'));
    CLineReader reader;
    std::string_view sText;
    for (const int nLines : {0, 1, 300'000}) {
        ASSERT_NO_FATAL_FAILURE(Open(reader, 3, [](std::size_t, T_CHUNK_D&) {}));
        for (int i = 0; i < nLines; ++i) ASSERT_TRUE(reader.Read(sText));
        reader.Close();
    }
    std::atomic<int> nChunks = 0;
    ASSERT_NO_FATAL_FAILURE(Open(reader, 3, [&](std::size_t, T_CHUNK_D&) {
        if (++nChunks == 9) throw std::bad_alloc();
    }));
    const auto readOn = [&] {
        while (reader.Read(sText)) continue;
    };
    EXPECT_THROW(readOn(), std::bad_alloc);
}

} // namespace
