// What cards lose by the rules of their keyword.

#include "nas2zdt/Drops.h"
#include "reader/Keywords.h"

#include <gtest/gtest.h>

namespace {

using FIELDS = std::vector<std::string_view>;

TEST(Drops, FollowTheRulesOfTheKeyword) {
    const struct {
        const char* sKEYWORD;
        FIELDS aFIELDS;
        std::uint32_t nDROPS;
    } aCases[] = {
        {"SPC", {"1", "5", "123", "", "", "", "", ""}, 0},
        {"SPC", {"1", "5", "123", "0.0", "6", "1", "-0.5", ""}, DROP_FIELDS},
        {"SPC1", {"1", "123", "5", "6"}, 0},
        {"SPC1", {"1", "123", "5", "THRU", "9"}, DROP_THRU},
        {"SPC1", {"1", "1", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, DROP_PAST_READ},
        {"PLOAD4", {"1", "5", "2.", "", "", "", "THRU", "9"}, DROP_THRU},
        {"PLOAD4", {"1", "5", "2.", "", "", "", "7", "9", "3"}, DROP_FIELDS},
        {"PLOAD2", {"1", "2.", "5", "THRU", "9"}, 0},
        {"PLOAD2", {"1", "2.", "5", "6", "THRU", "9"}, DROP_THRU},
        {"LOAD", {"1", "1.0", "2.", "3"}, 0},
        {"LOAD", {"1", "2.0", "2.", "3"}, DROP_OWN},
        {"LOAD", {"1", "1.", "1.", "1", "1.", "2", "1.", "3", "1.", "4", "1.", "5"}, DROP_PAST_READ},
        {"PBUSH", {"1", "K", "1.", "2.", "3.", "4.", "5.", "6.", "B", "1."}, 0},
        {"PBUSH", {"1", "K", "1.", "2.", "3.", "4.", "5.", "6.", "", "B", "1."}, DROP_OWN},
        {"TEMPP1", {"1", "10", "5.", "", "", "", "11", "THRU", "15"}, 0},
        {"TEMPP1", {"1", "10", "5.", "", "", "", "", "", "12", "THRU", "15"}, DROP_OWN},
        {"RBE2", {"1", "2", "123", "4", "THRU", "9"}, DROP_THRU},
        {"PSHELL", {"1", "1", ".1", "1", "1.", "", ".833333"}, 0},
        {"PSHELL", {"1", "1", ".1", "1", "2."}, DROP_OWN},
        {"CQUAD8", {"1", "1", "1", "2", "3", "4", "5", "6", "7", "8"}, DROP_FIELDS},
        {"CBAR", {"1", "1", "1", "2", "1.", "0.", "0.", "", "", "456"}, DROP_PAST_READ},
        {"GRID", {"1", "", "1.", "2.", "3.", "", "123", "\r"}, 0},
    };
    for (const auto& rCase : aCases) {
        T_DATA_D card;
        card.aFIELDS = rCase.aFIELDS;
        const T_CARDRULES_D rules = FindCardRules(rCase.sKEYWORD);
        ASSERT_NE(rules.pDROPS, nullptr) << rCase.sKEYWORD;
        EXPECT_EQ(FindDrops(*rules.pDROPS, card), rCase.nDROPS) << rCase.sKEYWORD << " " << rCase.aFIELDS.size();
    }
}

TEST(Drops, EveryConvertedKeywordHasRules) {
    for (const T_KEYW_D& rKeyword : T_KEYW_D::TABLE) {
        const bool bRules = FindCardRules(rKeyword.sNAME).pDROPS != nullptr;
        if (rKeyword.eACTION == CARD_PARSED || rKeyword.eACTION == CARD_REPORTED) {
            EXPECT_EQ(bRules, rKeyword.eACTION == CARD_PARSED) << rKeyword.sNAME;
        }
    }
}

} // namespace
