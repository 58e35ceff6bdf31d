// SPC, SPC1 and PS in *CONSTRAINT.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

std::string Constraints(std::string_view sCards) {
    return Sections(ConvertBulk(sCards), "*CONSTRAINT");
}

} // namespace

TEST(ConstraintSection, FirstSetInStoreOrderThenHeldNodes) {
    // Buckets of 1001: set 1 in 791, set 2 in 581. Of 1000001: grid 60 in 8419, grid 1 in 16807.
    EXPECT_EQ(Constraints("GRID,1,,,,,,13\nGRID,2,,,,,,789\nGRID,60,,,,,,6\n"
                          "SPC1,1,123456,1\nSPC,2,123456,321\nSPC,2,-5,17,.5,6,0,.5\nSPC,1,1,1\n"),
              "*CONSTRAINT\n"
              "123456, 111000\n"
              "   -5, 100000\n"
              "    6, 111111\n"
              "   60, 000001\n"
              "    1, 101000\n"
              "\n");
}

TEST(ConstraintSection, SetOfEquationsLeavesHeldNodes) {
    EXPECT_EQ(Constraints("GRID,1,,,,,,2\nSPC,1,1,1\nMPC,2,1,1,1.,2,1,1.\n"), "*CONSTRAINT\n    1, 010000\n\n");
}

TEST(ConstraintSection, HeldNodesAloneMakeNoSection) {
    EXPECT_EQ(Constraints("GRID,1,,,,,,123456\n"), "");
}

TEST(ConstraintSection, CardForms) {
    const std::pair<const char*, const char*> CASES[] = {
        {"SPC,1\n", "    0, 000000\n"},
        {"SPC,1,7,00\n", "    7, 000000\n"},
        {"SPC            1       7      0\r\n", "    7, 000000\n"},           // the text is 0 and a carriage return
        {"SPC*    1               7               0\r\n", "    7, 111111\n"}, // which these leave out
        {"SPC,1,7,0\r\n", "    7, 111111\n"},
        {"SPC,1,7,1,,-8,2\n", "    7, 100000\n   -8, 010000\n"},
        {"SPC,1,7,1,,,2\n", "    7, 100000\n"},
        {"SPC1,1,4\n", ""},
        {"SPC1,3,123,10,THRU,20\n", "   10, 111000\n   20, 111000\n"},
        {"SPC1,1,0,1,2,,-4,5,6\n,7,8,9,10,11\n",
         "    1, 111111\n    2, 111111\n   -4, 111111\n    5, 111111\n    6, 111111\n    7, 111111\n    8, 111111\n"
         "    9, 111111\n"},
    };
    for (const auto& [sCard, sLines] : CASES) {
        EXPECT_EQ(Constraints(sCard), "*CONSTRAINT\n" + std::string(sLines) + "\n") << sCard;
    }
}
