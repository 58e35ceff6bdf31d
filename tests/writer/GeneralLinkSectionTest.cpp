// PBUSH, PGAP, CBUSH and CGAP in *NL-PROP and *NL-LINK.

#include "support/Deck.h"

#include <gtest/gtest.h>

TEST(GeneralLinks, PropertiesAndLinks) {
    // Properties in store order: 60, 61, 7, 9, 10.
    const std::string sZdt =
        WithoutComments(ConvertBulk("GRID,1\nGRID,2,,1.\nGRID,3,,,,1.\nGRID,4,,1.,1.,1.\nGRID,5\nGRID,6,,,1.\n"
                                    "PGAP,10,.5,,-0.,,30.\n"
                                    "PGAP,9,.01,5.,1000000.,2.\n"
                                    "PBUSH,7,K,1.,2.,,4.,5.,,B,,,.5\n"
                                    "PBUSH,60,PID,GE,1,2,3,4,5,6,RCV,1.,2.,3.,4.,K,7.\n"
                                    "PBUSH,61,K,1.,,,,,,,B,9.\n"
                                    "CGAP,30,9,1,2,0.,1.,-1.,5\n"
                                    "CGAP,31,9,98,99\n"
                                    "CGAP,32,10,1,5,1.\n"
                                    "CGAP,33,9,1,2,0.,0.,1.\n"
                                    "CBUSH,29,7,1,3,-1.,0.,0.\n"
                                    "CBUSH,28,7,1,4,1.,-1.,1.\n"
                                    "CBUSH,27,7,1,4,0.,0.,1.\n"
                                    "CBUSH,26,77,1,5\n"
                                    "CBUSH,25,7,1,99,1.\n"
                                    "CBUSH,24,7,1,2,,1.\n"
                                    "CBUSH,23,7,1,2,5.,0.,0.\n"
                                    "CBUSH,22,7,2,1,6\n"
                                    "CBUSH,-21,7,1,3,1.,0.,0.\n"));
    EXPECT_EQ(sZdt.substr(sZdt.find("*VERSION\n  6.4.1")),
              "*VERSION\n"
              "  6.4.1\n"
              "\n"
              "*NL-PROP    ; General Link Property\n"
              " GPROP60, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n"
              " YES, 7, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n"
              " GPROP61, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n"
              " YES, 1, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n"
              " GPROP7, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n"
              " YES, 1, 0, NO\n YES, 2, 0, NO\n YES, 0, 0.5, NO\n YES, 4, 0, NO\n YES, 5, 0, NO\n NO, 0, 0, NO\n"
              " GPROP9, FORCE, GAP, 0., NO, 0., NO, 0.5, 0.5,  \n"
              " YES, 1e+06, 0., YES, 1e+06, 0.01\n NO, 0, 0., NO, 0, 0\n NO, 0, 0., NO, 0, 0\n NO, 0, 0., NO, 0, 0\n"
              " NO, 0, 0., NO, 0, 0\n NO, 0, 0., NO, 0, 0\n"
              " GPROP10, FORCE, GAP, 0., NO, 0., NO, 0.5, 0.5,  \n"
              " NO, 0, 0., NO, 0, 0\n YES, 30, 0., YES, 30, 0.5\n YES, 30, 0., YES, 30, 0.5\n NO, 0, 0., NO, 0, 0\n"
              " NO, 0, 0., NO, 0, 0\n NO, 0, 0., NO, 0, 0\n"
              "\n"
              "*VERSION\n"
              "  5.8.1\n"
              "\n"
              "*VERSION\n"
              "  6.4.1\n"
              "\n"
              "*NL-LINK  ; General Link\n"
              " -21, 1, 3, GPROP7, , 0, 90, \n"
              " 22, 2, 1, GPROP7, , 0, 180, \n"
              " 23, 1, 2, GPROP7, , 0, 0, \n" // along the link
              " 24, 1, 2, GPROP7, , 0, 0, \n" // the blank field makes a grid of the vector
              " 25, 1, 99, GPROP7, , 0, 0, \n"
              " 26, 1, 5, GPROP77, , 0, 0, \n"
              " 27, 1, 4, GPROP7, , 0, 0, \n"
              " 28, 1, 4, GPROP7, , 0, 60, \n"
              " 29, 1, 3, GPROP7, , 0, 270, \n"
              " 30, 1, 2, GPROP9, , 0, 45, \n"
              "31, 98, 99, GPROP9, , 1, 0, 0, 0, 0, \n"
              "32, 1, 5, GPROP10, , 1, 0, 0, 0, 0, \n"
              " 33, 1, 2, GPROP9, , 0, 180, \n" // a quarter turn from the vector's plane
              "\n"
              "*VERSION\n"
              "  5.8.1\n"
              "\n"
              "\n"); // any model with elements has the last line
}
