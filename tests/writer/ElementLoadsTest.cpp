// Loads on elements of every kind.

#include "support/Deck.h"

#include <gtest/gtest.h>

TEST(BeamLoads, PositionsByLengthBecomeFractions) {
    const T_RUN_D run = RunBulk("GRID,1\nGRID,2,,2.,0.,0.\nGRID,3,,2.,0.,0.\n"
                                "CBAR,7,1,1,2\nCBAR,8,1,2,3\nCROD,9,1,2,99\n" // grid 99 counts as the origin
                                "PLOAD1,1,7,FZ,LE,.5,3.\n"
                                "PLOAD1,1,7,MXE,LEPR,.5,3.,2.,4.\n"
                                "PLOAD1,1,7,MXE,LE,.5,,2.\n"
                                "PLOAD1,1,8,FZ,LE,.5,3.\n"
                                "PLOAD1,1,9,FY,LE,1.,3.,4.,5.\n");
    EXPECT_EQ(Sections(run.sZDT, "*BEAMLOAD"),
              "*BEAMLOAD\n"
              "    7, BEAM,    CONLOAD,    GZ,    NO,    0.25,     3,     0,     0,     0,     0,     0,     0\n"
              "    7, BEAM,  UNIMOMENT,    LX,   YES,    0.25,     3,     1,     4,     0,     0,     0,     0\n"
              "    9, BEAM,    UNILOAD,    GY,    NO,     0.5,     3,     2,     5,     0,     0,     0,     0\n"
              "\n");
}

TEST(PressureLoads, PlatesByCornersByVectorAndUniform) {
    EXPECT_EQ(Sections(ConvertBulk("CQUAD4,1,1,1,2,3,4\nCTRIA3,2,1,1,2,3\nCSHEAR,3,1,1,2,3,4\nCBAR,4,1,1,2\n"
                                   "CQUAD4,5,1,1,2,3,4\nCQUAD4,6,1,1,2,3,4\n"
                                   "PLOAD4,1,1,5.\n"
                                   "PLOAD4,1,1,5.,0.,-0.,2.,THRU,6,3,0.,0.,-2.\n"
                                   "PLOAD4,1,2,,3.,,,,,,1.\n"
                                   "PLOAD4,1,4,5.\n"
                                   "PLOAD4,1,1\n"
                                   "PLOAD2,1,-2.5,1,THRU,3\n"
                                   "PLOAD2,1,1.,,6,-5,5,3,THRU,2\n"
                                   "PLOAD2,1,3.,3,THRU,1\n"),
                       "*PRESSURE"),
              "*PRESSURE\n"
              "1, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 0, 5, 5, 5, 5, \n"
              "1, PRES , PLATE, FACE, VECTOR, 0, 0, -2, NO, 0, 5, 5, 5, 2, \n"
              "2, PRES , PLATE, FACE, VECTOR, 1, 0, 0, NO, 0, 0, 3, 0, 0, \n"
              "1, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, -2.5, 0, 0, 0, 0, \n"
              "2, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, -2.5, 0, 0, 0, 0, \n"
              "3, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, -2.5, 0, 0, 0, 0, \n"
              "6, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 1, 0, 0, 0, 0, \n"
              "5, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 1, 0, 0, 0, 0, \n"
              "3, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 1, 0, 0, 0, 0, \n"
              "3, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 3, 0, 0, 0, 0, \n"
              "\n");
}

TEST(PressureLoads, MoreThanABatch) {
    std::string sCards, sLines;
    for (int i = 1; i <= 40; ++i) {
        const std::string sID = std::to_string(i);
        sCards += "CTRIA3," + sID + ",1,1,2,3\nPLOAD2,1," + sID + ".5," + sID + "\n";
        sLines += sID + ", PRES , PLATE, FACE, LZ, 0, 0, 0, NO, " + sID + ".5, 0, 0, 0, 0, \n";
    }
    EXPECT_EQ(Sections(ConvertBulk(sCards), "*PRESSURE"), "*PRESSURE\n" + sLines + "\n");
}

TEST(PressureLoads, SolidsByFace) {
    EXPECT_EQ(Sections(ConvertBulk("CTETRA,1,1,11,12,13,14\nCPENTA,2,1,11,12,13,14,15,16\n"
                                   "CHEXA,3,1,11,12,13,14,15,16,17,18\n"
                                   "PLOAD4,1,1,1.,,,,11,14\n"
                                   "PLOAD4,1,2,2.,,,,13\n"
                                   "PLOAD4,1,2,2.,,,,11,15,,0.,1.,0.\n"
                                   "PLOAD4,1,3,3.,,,4.,14,15\n"
                                   "PLOAD4,1,3,3.,,,,19,20\n"
                                   "PLOAD2,1,4.,1,2,3\n"),
                       "*PRESSURE"),
              "*PRESSURE\n"
              "1, PRES , SOLID, 1, NORMAL, 0, 0, 0, NO, 0, 1, 1, 1, 1, \n"
              "2, PRES , SOLID, 1, NORMAL, 0, 0, 0, NO, 0, 2, 2, 2, 2, \n"
              "2, PRES , SOLID, 5, VECTOR, 0, 1, 0, NO, 0, 2, 2, 2, 2, \n"
              "3, PRES , SOLID, 6, NORMAL, 0, 0, 0, NO, 0, 3, 3, 3, 4, \n"
              "3, PRES , SOLID, 0, NORMAL, 0, 0, 0, NO, 0, 3, 3, 3, 3, \n"
              "1, PRES , SOLID, 0, NORMAL, 0, 0, 0, NO, 0, 4, 0, 0, 0, \n"
              "2, PRES , SOLID, 2, NORMAL, 0, 0, 0, NO, 0, 4, 0, 0, 0, \n" // its empty slot is taken for grid 0
              "3, PRES , SOLID, 0, NORMAL, 0, 0, 0, NO, 0, 4, 0, 0, 0, \n"
              "\n");
}

TEST(TemperatureGradients, PlatesAlone) {
    EXPECT_EQ(Sections(ConvertBulk("CBAR,1,1,1,2\nCQUAD4,2,1,1,2,3,4\nCHEXA,3,1,1,2,3,4,5,6,7,8\n"
                                   "TEMPP1,1,1,0.,,1.,4.5,2,THRU,4\nTEMPP1,1,2,,,3.,3.\n"),
                       "*THERGRAD"),
              "*THERGRAD    ; Temperature Gradient\n"
              "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, TY, bUSEHY, HY, GROUP\n"
              "; ELEM_LIST, iETYP, TZ, bUSEHZ, HZ, GROUP\n"
              "    2, 2, 3.5, YES, 0,\n"
              "\n");
}
