// CONM2 in *NODALMASS, EIGRL in *EIGEN-CTRL, at the end of the file.

#include "support/Deck.h"

#include <gtest/gtest.h>

TEST(NodalMass, StoreOrderAndFields) {
    const std::string sZdt = ConvertBulk("CONM2,7,1,2,3.5,.1,.2,.3,9.,11.,21.,22.,31.,32.,33.\n"
                                         "CONM2,60,1,,2.\n"
                                         "PBUSH,-60,K,5.,6.,,7.,,,B,,8.\n" // takes the place of the mass
                                         "CONM2,-2147483648,3,,4.\n"
                                         "EIGB,1,INV\nEIGRL,1,0.,9.,5\nEIGRL,2,,,8\n"); // 2 in bucket 9, 1 in 10
    // -2147483648: q -16807, r -2837, 16807 r - 2836 q = -16807, raised 2147466840, bucket 464692 of 1000001.
    const std::string sEnd = "*NODALMASS    ; Nodal Masses\n"
                             "; NODE_LIST, mX, mY, mZ, rmX, rmY, rmZ\n"
                             "  1, 8, 0, 0, 6, 7, 0\n"
                             "  1, 3.5, 3.5, 3.5, 11, 22, 33\n"
                             "  3, 4, 4, 4, 0, 0, 0\n"
                             "\n"
                             "*EIGEN-CTRL    ; Eigenvalue Analysis Control\n"
                             "; TYPE, iFREQ, iITER, iDIM, TOL          ; TYPE=EIGEN\n"
                             "; TYPE, bINCNL, iGNUM                    ; TYPE=RITZ(line 1)\n"
                             ";       KIND1, CASE1/GROUND1, iNOG1, ... ; TYPE=RITZ(from line2)\n"
                             "  EIGEN, 8, 20, 0, 1e-010\n"
                             "\n";
    EXPECT_EQ(sZdt.substr(sZdt.find("*NODALMASS")), sEnd);
}

TEST(EigenControl, BucklingAloneMakesNone) {
    EXPECT_EQ(ConvertBulk("EIGB,1,SINV,0.,1.,2,3,4\n,POINT,5,6\n"), "*VERSION\n  5.8.1\n\n");
}
