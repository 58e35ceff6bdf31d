// The smallest target files: the version alone, and nodes.

#include "support/Deck.h"

#include <gtest/gtest.h>

TEST(NodeSection, EmptyModelIsTheVersionAlone) {
    EXPECT_EQ(ConvertBulk(""), "*VERSION\n  5.8.1\n\n");
}

TEST(NodeSection, AscendingIdsAndSixDigits) {
    EXPECT_EQ(ConvertBulk("GRID,30\nGRID,-4,,-0,.5,1-3\nGRID,11,,1234567.891\nGRID,2,,1e-7\nGRID,30,,1.\n"),
              "*VERSION\n  5.8.1\n\n"
              "*NODE\n"
              "  -4, -0, 0.5, 0.001\n"
              "  2, 1e-07, 0, 0\n"
              "  11, 1.23457e+06, 0, 0\n"
              "  30, 1, 0, 0\n"
              "\n");
}
