// *ELEMENT and *MATERIAL. There are no grids, so nothing resolves the orientations.

#include "support/Deck.h"

#include <gtest/gtest.h>

TEST(ElementSection, AscendingIdsAndOneLineAKind) {
    const std::string sZdt = ConvertBulk("PSHELL,9,4,.1\nPSOLID,8,6\nPBAR,7,5,1.\n"
                                         "CHEXA,60,8,1,2,3,4,5,6\n,7,8,9,10,11,12,13,14\n,15,16,17,18,19,20\n"
                                         "CPENTA,12,8,1,2,3,4,5,6\n,7,8,9\n"
                                         "CTETRA,11,8,1,2,3,4\n"
                                         "CSHEAR,10,9,1,2,3,4\n"
                                         "CQUAD8,-9,9,1,2,3,4,5,6\n,7,8\n"
                                         "CTRIA6,8,9,1,2,3,4,5,6\n"
                                         "CTRIA3,7,99,1,2,3\n"
                                         "CBEND,6,7,1,2\n"
                                         "CTUBE,5,7,1,2\n"
                                         "CBEAM,4,7,1,2,.5,0.,1.\n"
                                         "CBAR,3,7,1,2\n"
                                         "CROD,2,7,1,2\n");
    EXPECT_EQ(Sections(sZdt, "*ELEMENT"), "*ELEMENT\n"
                                          "-9, PLATE, 4, 9, 1, 2, 3, 4, 1\n"
                                          "  2, TRUSS, 5, 7, 1, 2, 0\n"
                                          "  3, BEAM, 5, 7, 1, 2, REF, 0, 0, 0\n"
                                          "  4, BEAM, 5, 7, 1, 2, REF, 0.5, 0, 1\n"
                                          "  5, BEAM, 5, 7, 1, 2\n"
                                          "7, PLATE, 1, 99, 1, 2, 3, 0, 1\n"
                                          "8, PLATE, 4, 9, 1, 2, 3, 0, 1\n"
                                          "10, PLSTRS, 4, 9, 1, 2, 3, 4, 1\n"
                                          "11, SOLID, 6, 0, 1, 2, 3, 4, 0, 0, 0, 0\n"
                                          "12, SOLID, 6, 0, 1, 2, 3, 4, 5, 6, 0, 0\n"
                                          "60, SOLID, 6, 0, 1, 2, 3, 4, 5, 6, 7, 8\n"
                                          "\n");
}

TEST(ElementSection, KeywordStandsWithoutLines) {
    EXPECT_EQ(Sections(ConvertBulk("CBEND,1,2,3,4,1.\n"), "*ELEMENT"), "*ELEMENT\n\n");
}

TEST(ElementSection, ConrodsAreABlockOfTheirOwnInStoreOrder) {
    // Of 10001 buckets, 1 goes to 6806, 2 to 3611 and 3 to 416.
    EXPECT_EQ(
        Sections(ConvertBulk("CONROD,1,11,12,5,4.\nCONROD,2,11,12\nCONROD,3,12,11,6\nCTUBE,1,5,1,2\n"), "*ELEMENT"),
        "*ELEMENT\n"
        "  1, BEAM, 1, 5, 1, 2\n"
        "\n"
        "*ELEMENT\n"
        "  3, TRUSS, 6, 1, 12, 11, 0\n"
        "  2, TRUSS, 0, 1, 11, 12, 0\n"
        "  1, TRUSS, 5, 1, 11, 12, 0\n"
        "\n");
}

TEST(MaterialSection, KindsInStoreOrder) {
    // Of 101 buckets, 1 and 102 go to 41, 2 to 82, 3 to 22 and 9 to 66. A later card keeps the place of the first.
    EXPECT_EQ(ConvertBulk("MAT1,1,5.\n"
                          "MAT8,2,1.1E11,2.2,.3,4.4,5.5,6.6,7.7\n,8.8-6,9.9-6,10.,11.,12.,13.,14.,15.\n"
                          "MAT4,9,50.,460.,7850.\n"
                          "MAT1,3,7.,8.,,2.,3.\n"
                          "MAT8,102,7.\n"
                          "MAT1,1,2.1E11,8.1E10,.3,7850.,1.2-5,20.,.1\n,1.,2.,3.,4\n"
                          "MAT1,102,X\n"),
              "*VERSION\n  5.8.1\n\n"
              "*MATERIAL\n"
              "3,USER,MAT3,0,0,2,7,0,3,0\n"
              "102,USER,MAT102,0,0,2,0,0,0,0\n"
              "1,USER,MAT1,0,0,2,2.1e+11,0.3,1.2e-05,0\n"
              "9,USER,MAT9,460,50,2,1e-05,0,0,0\n"
              "2,USER,MAT2,0,0,3,1.1e+11,2.2,1e-05,8.8e-06,9.9e-06,0,4.4,5.5,6.6,0.3,0,0,0\n"
              "\n");
}
