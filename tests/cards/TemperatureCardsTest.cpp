// The places at which temperature cards read their fields.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct T_IDS_D {
    const char* sName;
    const char* sCard;
    const char* sIds; // the elements that get the card's temperature
};

class ElementTemperatureTest : public testing::TestWithParam<T_IDS_D> {};

} // namespace

TEST_P(ElementTemperatureTest, Elements) {
    const std::string sSection = Sections(ConvertBulk(GetParam().sCard), "*ELTEMPER");
    std::string sIds;
    std::size_t iLine = sSection.find('\n', sSection.find('\n') + 1) + 1; // behind the two keyword lines
    while (iLine < sSection.size() && sSection[iLine] != '\n') {
        sIds += (sIds.empty() ? "" : " ") + std::to_string(std::stoi(sSection.substr(iLine)));
        iLine = sSection.find('\n', iLine) + 1;
    }
    EXPECT_EQ(sIds, GetParam().sIds);
}

INSTANTIATE_TEST_SUITE_P(
    Cards, ElementTemperatureTest,
    testing::Values(T_IDS_D{"FirstLineAlone", "TEMPP1,1,10,5.\n", "10"},
                    T_IDS_D{"BlankFirst", "TEMPP1,1,,5.,,,,7\n", "0 7"},
                    T_IDS_D{"RangeAtSeven", "TEMPP1,1,10,5.,,,,11,THRU,15\n", "10 11 12 13 14 15"},
                    T_IDS_D{"RangeGoesOnAtNine", "TEMPP1,1,10,5.,,,,11,THRU,12,THRU,14\n", "10 11 12 13 14"},
                    T_IDS_D{"RangeAtTen", "TEMPP1,1,10,5.,,,,21,22,31,14,THRU,17\n", "10 21 22 31 14 15 16 17"},
                    T_IDS_D{"RangeAtTenFromBlank", "TEMPP1,1,10,5.,,,,21,,,,THRU,3\n", "10 21 1 2 3"},
                    T_IDS_D{"RangeDownwardsKeepsItsStart", "TEMPP1,1,10,5.,,,,15,THRU,12,THRU,17\n", "10 15 16 17"},
                    T_IDS_D{"RangesBelowOne", "TEMPP1,1,10,5.,,,,-5,THRU,-2,THRU,1\n", "10 1"},
                    T_IDS_D{"RangeThenIds", "TEMPP1,1,10,5.,,,,11,THRU,12,20,-1,22\n", "10 11 12 20"},
                    T_IDS_D{"SmallFieldShiftsTheWord",
                            "TEMPP1  1       10      5.\n"
                            "        11      THRU    13      14\n",
                            "10 11 13 14"},
                    T_IDS_D{"FifthOfLineTwoIsLost",
                            "TEMPP1  1       10      5.\n"
                            "        11      12      13      14      15\n",
                            "10 11 12 13 14"},
                    T_IDS_D{"LargeFieldClosesUp",
                            "TEMPP1* 1               10              5.              0.\n"
                            "*       0.              0.\n"
                            "*       11              THRU            13\n",
                            "10 11 12 13"},
                    T_IDS_D{"BeamsReadAsPairs", "TEMPRB,1,200,68.,20.,4.,,7.\n", "200 20"},
                    T_IDS_D{"BeamsFirstWhateverItsId", "TEMPRB,1,-3,68.,-20.,4.,9,-7.\n", "-3"}),
    [](const auto& rInfo) { return std::string(rInfo.param.sName); });

TEST(TemperatureCards, ElementValuesAndBlankLines) {
    // No mean above 0, but gradients: both closing lines stand.
    EXPECT_EQ(ConvertBulk("TEMPP1,1,10,-5.,,1.,2.\n"),
              "*VERSION\n  5.8.1\n\n"
              "*STLDCASE\nSTLD1,  USER,  \n\n*USE-STLD, STLD1\n\n"
              "\n"
              "*THERGRAD    ; Temperature Gradient\n"
              "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, TY, bUSEHY, HY, GROUP\n"
              "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, GROUP\n"
              "\n"
              "; End of data for load case [STLD1] -------------------------\n\n");
    EXPECT_EQ(ConvertBulk("TEMPRB,1,10,1.5\n"), "*VERSION\n  5.8.1\n\n"
                                                "*STLDCASE\nSTLD1,  USER,  \n\n*USE-STLD, STLD1\n\n"
                                                "*ELTEMPER    ; Element Temperatures\n"
                                                "; ELEM_LIST, TEMPER, GROUP\n"
                                                "   10,  1.5,\n"
                                                "\n"
                                                "\n"
                                                "; End of data for load case [STLD1] -------------------------\n\n");
}

TEST(TemperatureCards, NodesTakeTheirOwnTemperatureOrTheDefault) {
    EXPECT_EQ(Sections(ConvertBulk("GRID,30\nGRID,2\nGRID,-1\nGRID,100000\n"
                                   "TEMP,9,,1.,30,5.,-4,6.\n"
                                   "TEMP,9,-4,7.,30,-8.,77,0.\n"
                                   "TEMPD,9,20.5\n"),
                       "*NDTEMPER"),
              "*NDTEMPER    ; Nodal Temperatures\n"
              "    0,  1,\n"
              "   30,  5,\n"
              "   -4,  7,\n"
              "   30,  -8,\n"
              "   77,  0,\n"
              "   -1,  20.5,\n"
              "    2,  20.5,\n"
              "100000,  20.5,\n"
              "\n");
}

TEST(TemperatureCards, ShortDefaultCardMakesSetZero) {
    EXPECT_EQ(ConvertBulk("GRID,3,,1.\nTEMPD,5,20.\n"),
              "*VERSION\n  5.8.1\n\n*NODE\n  3, 1, 0, 0\n\n"
              "*STLDCASE\nSTLD0,  USER,  \nSTLD5,  USER,  \n\n"
              "*USE-STLD, STLD0\n\n"
              "; End of data for load case [STLD0] -------------------------\n\n"
              "*USE-STLD, STLD5\n\n"
              "*NDTEMPER    ; Nodal Temperatures\n    3,  20,\n\n"
              "; End of data for load case [STLD5] -------------------------\n\n");
    EXPECT_EQ(Sections(ConvertBulk("TEMPD,,20.\n"), "*STLDCASE"), "*STLDCASE\nSTLD0,  USER,  \n\n");
    EXPECT_EQ(Sections(ConvertBulk("TEMPD,1,1.,2,2.,3,3.,4,4.\n"), "*STLDCASE"),
              "*STLDCASE\nSTLD3,  USER,  \nSTLD1,  USER,  \nSTLD4,  USER,  \nSTLD2,  USER,  \n\n");
}

TEST(TemperatureCards, BlankPairShiftsThoseBehindIt) {
    // The temperature of the blank pair is taken for a set, and so on: sets 9 at 6 and 30 at nothing.
    EXPECT_EQ(Sections(ConvertBulk("GRID,1\nTEMPD,5,20.,,9.,6,30.\n"), "*"),
              "*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n"
              "*STLDCASE\nSTLD0,  USER,  \nSTLD5,  USER,  \nSTLD30,  USER,  \nSTLD9,  USER,  \n\n"
              "*USE-STLD, STLD0\n\n"
              "*USE-STLD, STLD5\n\n*NDTEMPER    ; Nodal Temperatures\n    1,  20,\n\n"
              "*USE-STLD, STLD30\n\n*NDTEMPER    ; Nodal Temperatures\n    1,  0,\n\n"
              "*USE-STLD, STLD9\n\n*NDTEMPER    ; Nodal Temperatures\n    1,  6,\n\n");
}
