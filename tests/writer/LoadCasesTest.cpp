// Load cases and combinations as whole files.

#include "support/Deck.h"

#include <gtest/gtest.h>

TEST(LoadCases, StoreOrderAndSetsWithoutContent) {
    // Hashes 16807, 33614, 50421 and, for -1, 2147466840, modulo 101: 41, 82, 22, 93.
    EXPECT_EQ(ConvertBulk("FORCE,1,10,,2.,1.\nPLOAD1,2,9\nFORCE,-1,1\nGRAV,3,,9.81,0.,0.,-1.\nMOMENT,1,10,,2.,0.,1.\n"),
              "*VERSION\n  5.8.1\n\n"
              "*STLDCASE\nSTLD3,  USER,  \nSTLD1,  USER,  \nSTLD2,  USER,  \nSTLD-1,  USER,  \n\n"
              "*USE-STLD, STLD3\n\n"
              "*SELFWEIGHT, 0, 0, -9.81\n\n"
              "; End of data for load case [STLD3] -------------------------\n\n"
              "*USE-STLD, STLD1\n\n"
              "*CONLOAD\n   10,  2, 0, 0, 0, 0, 0\n\n"
              "*CONLOAD\n   10,  0, 0, 0, 0, 2, 0\n\n"
              "; End of data for load case [STLD1] -------------------------\n\n"
              "*USE-STLD, STLD2\n\n"
              "; End of data for load case [STLD2] -------------------------\n\n"
              "*USE-STLD, STLD-1\n\n"
              "*CONLOAD\n\n"
              "; End of data for load case [STLD-1] -------------------------\n\n");
}

TEST(LoadCombinations, AddUpLoseSetsAndVanish) {
    EXPECT_EQ(Sections(ConvertBulk("FORCE,3,1\nFORCE,4,1\n"
                                   "LOAD,10,9.,2.,3,.5,4,.25,77,1.,3\n"
                                   "LOAD,2,1.,1.,77,1.,10\n"
                                   "LOAD,10,1.,7.,4\n"
                                   "LOAD,-1,1.,1.,77,5.,,3.,4\n"
                                   "LOAD,11,1.,,3,1-7,3,1.,3,1.,-3,9.,4\n"),
                       "*LOADCOMB"),
              "*LOADCOMB    ; Combinations\n"
              "  NAME=LCB-1, GEN, ACTIVE, 0, \n"
              " ST, STLD4, 3\n"
              "  NAME=LCB10, GEN, ACTIVE, 0, \n"
              " ST, STLD3, 2, ST, STLD4, 0.5, ST, STLD3, 1, ST, STLD4, 7\n"
              "  NAME=LCB11, GEN, ACTIVE, 0, \n"
              " ST, STLD3, 0, ST, STLD3, 1e-07, ST, STLD3, 1\n"
              "\n");
}

TEST(LoadCombinations, MakeNoLoadSet) {
    EXPECT_EQ(ConvertBulk("LOAD,1,1.,1.,5\n"), "*VERSION\n  5.8.1\n\n*LOADCOMB    ; Combinations\n\n");
}
