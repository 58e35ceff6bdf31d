// No field of any card is lost without a word.

#include "support/FieldFates.h"
#include "reader/Keywords.h"
#include "support/CardDecks.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(FieldFates, TheFileChangesOrTheAccountTells) {
    const std::vector<T_FATE_D> aFates = FindFieldFates();
    EXPECT_EQ(ReadText(CARDS_PAGE), MakeCardsPage(aFates)) << "scripts/make_pages.sh makes the page anew";
    EXPECT_GT(aFates.size(), 600u);
    for (const T_FATE_D& rFate : aFates) {
        EXPECT_FALSE(rFate.aSECTIONS.empty() && rFate.aTOLD.empty() && rFate.aRECORD.empty())
            << rFate.sKEYWORD << " " << rFate.sFIELD;
    }
}

TEST(FieldFates, AllConvertedKeywordsHaveADeck) {
    const auto aDecks = GetCardDecks();
    for (const T_KEYWORD_D& rKeyword : T_KEYWORD_D::TABLE) {
        const auto nDecks = std::count_if(aDecks.begin(), aDecks.end(),
                                          [&](const T_CARDDECK_D& rDeck) { return rDeck.sKEYWORD == rKeyword.sNAME; });
        EXPECT_EQ(nDecks, rKeyword.eACTION == CARD_PARSED ? 1 : 0) << rKeyword.sNAME;
    }
}

} // namespace
