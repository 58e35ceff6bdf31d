// Small decks against sections of their files: cards with little on them, and records that share an id.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

struct T_SMALL_D {
    const char* sNAME;
    const char* sCARDS;
    const char* sKEYWORD;
    const char* sLINES; // of the sections with the keyword, without comments
    friend std::ostream& operator<<(std::ostream& rOut, const T_SMALL_D& rDeck) { return rOut << rDeck.sNAME; }
};

// the last two lines of a section of values
#define NO_STRESS "    0, 0, 0, 0, 0, 0, 0, 0, 0, 0\n    0, 0, 0, 0, 0, 0, 0, 0\n"

class SmallDeckTest : public testing::TestWithParam<T_SMALL_D> {};

TEST_P(SmallDeckTest, Gives) {
    std::istringstream section(WithoutComments(Sections(ConvertBulk(GetParam().sCARDS), GetParam().sKEYWORD)));
    std::string sLines;
    for (std::string sLine; std::getline(section, sLine);) {
        if (!sLine.starts_with('*')) sLines += sLine + "\n";
    }
    EXPECT_EQ(sLines, GetParam().sLINES + std::string("\n"));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Decks, SmallDeckTest, testing::ValuesIn<T_SMALL_D>({
    // little on a card
    {"MaterialWithoutE", "MAT1,1\n", "*MATERIAL", "1,USER,MAT1,0,0,2,0,0,0,0\n"},
    {"EquationWithoutTermsMakesItsSet", "GRID,1,,,,,,5\nMPC,3\n", "*CONSTRAINT", "    1, 000010\n"},
    {"PressureOnNothing", "PLOAD2,1,3.\n", "*PRESSURE", ""},
    {"RangeWithoutEnd", "CQUAD4,2,1,1,2,3,4\nPLOAD2,1,3.,2,THRU\n", "*PRESSURE",
     "2, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 3, 0, 0, 0, 0, \n"},
    {"FourthCornerAlone", "CQUAD4,1,1,1,2,3,4\nPLOAD4,1,1,,,,4.\n", "*PRESSURE",
     "1, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 0, 0, 0, 0, 4, \n"},
    {"CornersAndDirectionOfASolid", "CHEXA,3,1,11,12,13,14,15,16\n,17,18\n"
     "PLOAD4,1,3,1.,2.,3.,4.,11,13,,.5,-1.5,2.5\nPLOAD4,1,3,1.,2.,3.,4.,11,13\n", "*PRESSURE",
     "3, PRES , SOLID, 1, VECTOR, 0.5, -1.5, 2.5, NO, 0, 1, 2, 3, 4, \n"
     "3, PRES , SOLID, 1, NORMAL, 0, 0, 0, NO, 0, 1, 2, 3, 4, \n"},
    {"CornersAndDirectionOfAPlate", "CQUAD4,1,1,1,2,3,4\n"
     "PLOAD4,1,1,1.,2.,3.,4.,,,,.5,-1.5,2.5\nPLOAD4,1,1,1.,2.,3.,4.\n", "*PRESSURE",
     "1, PRES , PLATE, FACE, VECTOR, 0.5, -1.5, 2.5, NO, 0, 1, 2, 3, 4, \n"
     "1, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 0, 1, 2, 3, 4, \n"},
    {"RangeOfSolidsHasNoFace", "CTETRA,1,1,11,12,13,14\n"
     "PLOAD4,1,1,1.,,,,THRU,14\nPLOAD4,1,1,1.,,,THRU,,14\n", "*PRESSURE",
     "1, PRES , SOLID, 0, NORMAL, 0, 0, 0, NO, 0, 1, 1, 1, 1, \n"
     "1, PRES , SOLID, 1, NORMAL, 0, 0, 0, NO, 0, 1, 1, 1, 1, \n"}, // the word is a corner's pressure there
    {"WrongGrids", "CQUAD4,7,9,A,2.9,-3\n", "*ELEMENT", "7, PLATE, 1, 9, 0, 2, -3, 0, 1\n"},
    {"StationsBeforeEndB", "PBEAM,7,2,4.,5.,6.,7.,8.,9.\n,11.,,,,,,,18.\n,YES,.5,91.,92.,93.,94.,95.,96.\n"
     ",91.,92.,93.,94.,95.,96.,97.,98.\n,YES,.9999995,24.,25.,26.,27.,28.,29.\n,31.,,,,,,,38.\n"
     ",.5,.4,91.,92.,93.,94.,41.,42.\n", "*SECTION",
     "  7, TAPERED, SECT7, CC, SB,  1,  1, VALUE\n    2, 2, 0, 0, 0, 0, 0, 0\n    4, 2, 1.6, 8, 5, 6\n" NO_STRESS
     "    4.89898, 4.89898, 0, 0, 0, 0, 0, 0\n    24, 12, 9.6, 28, 25, 26\n" NO_STRESS},
    {"FalseEndB", // I1 of the station between is 1.0: what follows is taken for end B
     "PBEAM,7,2,4.,5.,6.,7.,8.,\n,,,,,,,,\n,YES,.5,44.,1.,46.,47.,48.,49.\n,51.\n", "*SECTION",
     "  7, TAPERED, SECT7, CC, SB,  1,  1, VALUE\n    2, 2, 0, 0, 0, 0, 0, 0\n    4, 0, 0, 8, 5, 6\n" NO_STRESS
     "    6.78233, 6.78233, 0, 0, 0, 0, 0, 0\n    46, 0, 0, 51, 47, 48\n" NO_STRESS},
    {"NotQuiteEndB", "PBEAM,7,2,4.,5.,6.,7.,8.,9.\n,,,,,,,,\n,YES,.999998,24.,25.,26.,27.,28.,29.\n", "*SECTION",
     "  7, VALUE, SECT7, CC, SB, BUILT, 2, 2, 0, 0, 0, 0, 0, 0\n       4, 0, 0, 8, 5, 6\n" NO_STRESS},
    {"EmptyEndB", "PBEAM,7,2,4.,,,,,\n,,,,,,,,\n,YES,1.\n", "*SECTION",
     "  7, VALUE, SECT7, CC, SB, BUILT, 2, 2, 0, 0, 0, 0, 0, 0\n       4, 0, 0, 0, 0, 0\n" NO_STRESS},
    // one id twice
    {"RodReplacesSolid", "CTETRA,7,8,1,2,3,4\nCROD,7,9,5,6\n", "*ELEMENT", "  7, TRUSS, 1, 9, 5, 6, 0\n"},
    {"RodReplacesBar", "PBAR,7,2,1.,2.,3.,4.,5.\nPROD,7,3,4.,2.,3.,4.\n", "*SECTION",
     "  7, VALUE, SECT7, CC, SB, BUILT, 2, 2, 0, 0, 0, 0, 0, 0\n       4, 0, 0, 2, 0, 0\n" NO_STRESS},
    {"ThermalReplacesIsotropic", "MAT1,1,5.\nMAT4,1,50.,460.\n", "*MATERIAL", "1,USER,MAT1,460,50,2,1e-05,0,0,0\n"},
    {"PanelReplacesRod", "PROD,1,1,9.\nPSHEAR,1,1,2.\n", "*THICKNESS", "    1, VALUE, NO, 2, 0\n"},
    {"LaterShellCounts", "PSHELL,1,1,.5,1\nPSHELL,1,1,.25\n", "*THICKNESS", "    1, VALUE, NO, 0.25, 0\n"},
    {"LaterDefaultTemperature", "GRID,1\nTEMPD,1,5.,1,7.\n", "*NDTEMPER", "    1,  7,\n"},
    {"RodAndConrod", "CROD,7,9,1,2\nCONROD,7,3,4,5\n", "*ELEMENT",
     "  7, TRUSS, 1, 9, 1, 2, 0\n\n  7, TRUSS, 5, 1, 3, 4, 0\n"},
    {"SolidWithCornersTwice", "CHEXA,1,1,1,2,3,3,5,6\n,7,7\n", "*ELEMENT",
     "1, SOLID, 1, 0, 1, 2, 3, 3, 5, 6, 7, 7\n"},
    // odd ids and texts
    {"OddCharactersOfPs", "GRID,1,,,,,,1X60\nSPC1,1,1,9\n", "*CONSTRAINT", "    9, 100000\n    1, 100001\n"},
    {"CombinedSetBelowZero", "FORCE,-3,1\nLOAD,5,1.,2.,-3\n", "*LOADCOMB",
     "  NAME=LCB5, GEN, ACTIVE, 0, \n ST, STLD-3, 2\n"},
    {"TemperaturesBelowZero", "TEMP,1,-1,5.,-2,6.,3,7.\n", "*NDTEMPER", "   -1,  5,\n    3,  7,\n"},
    {"BushSectionsThatEndEarly", "PBUSH,7,K,1.,2.,B,3.,4.\nPBUSH,8,GE,.5,K,7.,,,,K,6.\n", "*NL-PROP",
     " GPROP7, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n"
     " YES, 1, 0, NO\n YES, 2, 0, NO\n NO, 0, 0, NO\n YES, 3, 0, NO\n YES, 4, 0, NO\n NO, 0, 0, NO\n"
     " GPROP8, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n"
     " YES, 6, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n NO, 0, 0, NO\n"},
    // store order, by ids that would change places with one bucket more
    {"OrderOfMaterials", "MAT1,1\nMAT1,5\n", "*MATERIAL", // 41 and 3 of 101
     "5,USER,MAT5,0,0,2,0,0,0,0\n1,USER,MAT1,0,0,2,0,0,0,0\n"},
    {"OrderOfLoadSets", "FORCE,1\nFORCE,5\n", "*STLDCASE", "STLD5,  USER,  \nSTLD1,  USER,  \n"},
    {"OrderOfModalAnalyses", "EIGRL,1,,,1\nEIGRL,17,,,17\n", "*EIGEN-CTRL", // 10 and 5 of 11
     "  EIGEN, 17, 20, 0, 1e-010\n"},
    {"OrderOfSupports", "SPC1,10,2,6\nSPC1,1,1,5\n", "*CONSTRAINT", "    5, 100000\n"}, // 903 and 791 of 1001
    {"OrderOfRigidLinks", "GRID,1\nGRID,2\nRBE2,10,1,3,2\nRBE2,1,1,2,2\n", "*RIGIDLINK",
     "1, 010000,2 , \n1, 001000,2 , \n"},
    {"OrderOfSprings1", "GRID,1\nPELAS,9,5.\nCELAS1,10,9,1,3\nCELAS1,1,9,1,2\n", "*SPRING",
     "1, 0, 5, 0, 0, 0, 0, \n1, 0, 0, 5, 0, 0, 0, \n"},
    {"OrderOfSprings2", "GRID,1\nCELAS2,10,5.,1,3\nCELAS2,1,5.,1,2\n", "*SPRING",
     "1, 0, 5, 0, 0, 0, 0, \n1, 0, 0, 5, 0, 0, 0, \n"},
    {"OrderOfConrods", "CONROD,974,1,2,3\nCONROD,1,1,2,3\n", "*ELEMENT", // 8382 and 6806 of 10001
     "  1, TRUSS, 3, 1, 1, 2, 0\n  974, TRUSS, 3, 1, 1, 2, 0\n"},
    {"OrderOfProperties", "PSHEAR,1,1,2.\nPSHEAR,30405,1,2.\nPSHEAR,32309,1,2.\n", "*THICKNESS", // 16807, 16324, 16820
     "30405, VALUE, NO, 2, 0\n    1, VALUE, NO, 2, 0\n32309, VALUE, NO, 2, 0\n"},
    {"OrderOfHeldGrids", "GRID,1,,,,,,1\nGRID,30405,,,,,,1\nGRID,32309,,,,,,1\nMPC,3\n", "*CONSTRAINT",
     "30405, 100000\n    1, 100000\n32309, 100000\n"},
    {"OrderOfMasses", "CONM2,1,1,,1.\nCONM2,30405,2,,1.\nCONM2,32309,3,,1.\n", "*NODALMASS",
     "  2, 1, 1, 1, 0, 0, 0\n  1, 1, 1, 1, 0, 0, 0\n  3, 1, 1, 1, 0, 0, 0\n"},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

TEST(BeamCard, TapersByEachValueOfEndB) {
    for (std::size_t iValue = 0; iValue < 6; ++iValue) { // A, I1, I2, I12, J and, which doesn't count, NSM
        const std::string sCard = "PBEAM,7,2,,,,,,\n,,,,,,,,\n,YES,1." + std::string(iValue, ',') + ",.5\n";
        EXPECT_EQ(ConvertBulk(sCard).find("TAPERED") != std::string::npos, iValue < 5) << sCard;
    }
}

} // namespace
