// Not-a-numbers have the same sign in every build.

#include "support/Deck.h"

#include <gtest/gtest.h>

/// Those that come of an infinite value are negative, whichever of several operands a compiler lets through. Positive
/// is the angle alone whose cosine is out of range by rounding.
TEST(NotANumber, HasTheSignThatItsOriginGives) {
    const std::string sZdt = ConvertBulk("GRID,1\nGRID,2,,1.,5.,3.\nGRID,3,,1.E400\n"
                                         "GRID,6,5,1.,2.,3.,5\nGRID,7,8,1.,1.E400,4.\n"
                                         "CORD2R,5,,1.E400,,,1.E400,,1.\n"
                                         "CORD2C,8,,,,,,,1.\n,1.\n"
                                         "CBAR,10,21,1,3,0.,1.,0.\n"
                                         "CBUSH,50,30,1,2,-5.,1.,0.\n"
                                         "CBUSH,51,30,1,3,0.,1.,0.\n"
                                         "PTUBE,20,1,1.E400,1.\n"
                                         "PBAR,21,1,-4.\n"
                                         "PBAR,22,1,1.E400\n"
                                         "PBARL,23,1,,CHAN1,,,,\n,1.,2.,1.E400,1.E400\n"
                                         "PLOAD1,1,10,FZ,LE,1.E400,2.,1.,3.\n"
                                         "GRAV,1,,1.E400,0.,1.\n");
    EXPECT_EQ(Sections(sZdt, "*NODE"),
              "*NODE\n  1, 0, 0, 0\n  2, 1, 5, 3\n  3, inf, 0, 0\n  6, -nan, -nan, -nan\n  7, -nan, -nan, -nan\n\n");
    EXPECT_EQ(Sections(sZdt, "*ELEMENT"), "*ELEMENT\n  10, BEAM, 1, 21, 1, 3, REF, -nan, -nan, -nan\n\n");
    const std::string sNoStress = "    0, 0, 0, 0, 0, 0, 0, 0, 0, 0\n    0, 0, 0, 0, 0, 0, 0, 0\n";
    EXPECT_EQ(Sections(sZdt, "*SECTION"), "*SECTION\n"
                                          "  20, DBUSER, SECT20, CC, P, 2, inf, -nan, 0, 0, 0, 0, 0, 0\n"
                                          "  21, VALUE, SECT21, CC, SB, BUILT, -nan, -nan, 0, 0, 0, 0, 0, 0\n"
                                          "       -4, -0, -0, 0, 0, 0\n" +
                                              sNoStress +
                                              "  22, VALUE, SECT22, CC, SB, BUILT, inf, inf, 0, 0, 0, 0, 0, 0\n"
                                              "       inf, -nan, -nan, 0, 0, 0\n" +
                                              sNoStress +
                                              "  23, DBUSER, SECT23, CC, C, 2, inf, 3, 2, -nan, 0, 0, 0, 0\n\n");
    EXPECT_NE(sZdt.find("\n 6, 2, 0, 0, 0, -nan, -nan, -nan, -nan, -nan, -nan\n"), std::string::npos);
    EXPECT_NE(sZdt.find("\n 50, 1, 2, GPROP30, , 0, nan, \n 51, 1, 3, GPROP30, , 0, -nan, \n"), std::string::npos);
    EXPECT_NE(sZdt.find("\n*SELFWEIGHT, -nan, inf, -nan\n"), std::string::npos);
    EXPECT_NE(sZdt.find("    NO,    -nan,     2,     0,     3,"), std::string::npos);
}
