// Cards on their way to another thread.

#include "nas2zdt/check/CardRelay.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t LARGER_THAN_BATCH = 600000;

/// Takes lines that begin with "L", and keeps the texts of cards that begin with "K".
class CKeeper : public CCardSink {
  public:
    bool OnCard(const T_SOURCECARD_D& rCard) override {
        const std::string sText(rCard.Text());
        if (sText.starts_with('!')) throw std::runtime_error("no room");
        m_sOrder += "card " + std::to_string(rCard.origin.iLINE) + " ";
        m_aTexts.push_back(sText);
        if (sText[0] == 'K') m_aKept.push_back(rCard);
        return sText[0] == 'K';
    }
    bool OnLine(std::string_view sLine, const T_ORIGINLINE_D& rOrigin) override {
        if (sLine[0] != 'L') return false;
        m_sOrder += "line " + std::to_string(rOrigin.iLINE) + " ";
        return true;
    }

    std::string m_sOrder;
    std::vector<std::string> m_aTexts;
    std::vector<T_SOURCECARD_D> m_aKept;
};

class CCardRelayTest : public ::testing::TestWithParam<bool> {};

bool GiveCard(CCardRelay& rRelay, const std::string& sText, std::int32_t iLine) {
    T_SOURCECARD_D card;
    card.pTEXT = sText.data();
    card.nTEXT = static_cast<std::uint32_t>(sText.size());
    card.origin.iLINE = iLine;
    return rRelay.OnCard(card);
}

TEST_P(CCardRelayTest, PassesEverythingOnInItsOrderAndKeepsTheTextsThatAreWanted) {
    CKeeper keeper;
    CCardRelay relay(keeper, GetParam());
    const std::string sLong = "K" + std::string(LARGER_THAN_BATCH, 'x') + "\n";
    std::string sOrder;
    std::vector<std::string> aTexts;
    for (std::int32_t i = 0; i < 50000; i += 4) { // many batches
        const std::string sLine = "L" + std::to_string(i), sCard = "K" + std::to_string(i) + "\n  rest\n",
                          sOther = "x" + std::to_string(i);
        EXPECT_TRUE(relay.OnLine(sLine, {0, i}));
        EXPECT_FALSE(GiveCard(relay, sCard, i + 1)) << "the relay has a copy";
        EXPECT_TRUE(relay.OnLine(sOther, {0, i + 2}));
        sOrder +=
            "line " + std::to_string(i) + " card " + std::to_string(i + 1) + " card " + std::to_string(i + 2) + " ";
        aTexts.insert(aTexts.end(), {sCard, sOther + "\n"});
        if (i != 20000) continue;
        GiveCard(relay, sLong, i + 3);
        sOrder += "card " + std::to_string(i + 3) + " ";
        aTexts.push_back(sLong);
    }
    relay.Finish();
    EXPECT_EQ(keeper.m_sOrder, sOrder);
    EXPECT_TRUE(keeper.m_aTexts == aTexts);
    std::erase_if(aTexts, [](const std::string& s) { return s[0] != 'K'; });
    ASSERT_EQ(keeper.m_aKept.size(), aTexts.size());
    for (std::size_t i = 0; i < aTexts.size(); ++i) ASSERT_EQ(keeper.m_aKept[i].Text(), aTexts[i]);
}

TEST_P(CCardRelayTest, ThrowsWhatTheTargetThrows) {
    CKeeper keeper;
    CCardRelay relay(keeper, GetParam());
    const auto giveAll = [&] {
        GiveCard(relay, "!\n", 1);
        for (std::int32_t i = 0; i < 500000; ++i) GiveCard(relay, "K12345678\n", i); // more than batches may wait
        relay.Finish();
    };
    EXPECT_THROW(giveAll(), std::runtime_error);
    EXPECT_EQ(keeper.m_sOrder, "");
}

INSTANTIATE_TEST_SUITE_P(Threads, CCardRelayTest, ::testing::Bool());

TEST(CWorkerTest, RunsOnceBesideOrWhenWaitedFor) {
    for (const bool bBeside : {false, true}) {
        int nRuns = 0;
        CWorker worker([&] { ++nRuns; }, bBeside);
        EXPECT_EQ(worker.IsBeside(), bBeside);
        worker.Wait();
        worker.Wait();
        EXPECT_EQ(nRuns, 1);
        CWorker thrower([] { throw std::runtime_error("failed"); }, bBeside);
        EXPECT_THROW(thrower.Wait(), std::runtime_error);
    }
}

} // namespace
