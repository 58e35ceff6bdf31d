// Every example converts into the file beside it, and logs what its list says if there is one.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

std::vector<std::string> Decks() {
    std::vector<std::string> aNames;
    for (const auto& rEntry : std::filesystem::directory_iterator(EXAMPLES)) {
        if (rEntry.path().extension() == ".dat") aNames.push_back(rEntry.path().stem().string());
    }
    return aNames;
}

class ExampleTest : public testing::TestWithParam<std::string> {};

TEST_P(ExampleTest, Converts) {
    const CTempFolder folder;
    const std::string sExample = std::string(EXAMPLES) + "/" + GetParam();
    const std::string sDeck = folder.Path(GetParam() + ".dat");
    std::filesystem::copy_file(sExample + ".dat", sDeck);
    const T_RUN_D run = RunFile(sDeck);
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_EQ(run.sZDT, ReadText(sExample + ".zdt"));

    if (!std::filesystem::exists(sExample + ".log")) return;
    std::string sLog;
    for (const std::string& rLine : run.aSHOWN) sLog += rLine + "\n";
    if (const std::size_t iPath = sLog.find(sDeck); iPath != std::string::npos) {
        sLog.replace(iPath, sDeck.size(), GetParam() + ".dat");
    }
    EXPECT_EQ(sLog, ReadText(sExample + ".log"));
}

INSTANTIATE_TEST_SUITE_P(Decks, ExampleTest, testing::ValuesIn(Decks()), [](const auto& rInfo) { return rInfo.param; });

} // namespace
