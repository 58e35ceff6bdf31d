// What the property and material cards leave in the store.

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <map>

namespace {

struct T_SLOTS_D {
    const char* sNAME;
    const char* sCARD; // of property 7
    std::int32_t iPROPTYPE;
    std::int32_t iMID;
    std::int32_t bTAPERED;
    std::int32_t iSECTYPE;
    std::map<std::size_t, double> aVALUES; // of the slots that aren't zero
};

class PropertyTest : public testing::TestWithParam<T_SLOTS_D> {};

TEST_P(PropertyTest, Stores) {
    const CStoredRun run(GetParam().sCARD);
    const T_PROP_D* pProperty = run.GetDataPool().PROP.Find(7);
    ASSERT_TRUE(pProperty);
    EXPECT_EQ(pProperty->iPROPTYPE, GetParam().iPROPTYPE);
    EXPECT_EQ(pProperty->iMID, GetParam().iMID);
    EXPECT_EQ(pProperty->bTAPERED, GetParam().bTAPERED);
    EXPECT_EQ(pProperty->iSECTYPE, GetParam().iSECTYPE);
    EXPECT_EQ(pProperty->iNPLY, 90);
    std::map<std::size_t, double> aValues;
    for (std::size_t i = 0; i < T_PROP_D::SLOTS; ++i) {
        if (pProperty->dVAL[i] != 0.0) aValues[i] = pProperty->dVAL[i];
    }
    EXPECT_EQ(aValues, GetParam().aVALUES);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cards, PropertyTest, testing::ValuesIn<T_SLOTS_D>({
    {"Bar", "PBAR,7,2,1.,2.,3.,4.,5.,6.\n,11.,12.,13.,14.,15.,16.,17.,18.\n,21.,22.,23.,24.\n", 2, 2, 0, 0,
     {{0, 1.0}, {1, 2.0}, {2, 3.0}, {4, 4.0}, {7, 5.0}, {8, 11.0}, {9, 12.0}, {10, 13.0}, {11, 14.0}, {12, 15.0},
      {13, 16.0}, {14, 17.0}, {15, 18.0}, {5, 21.0}, {6, 22.0}, {3, 23.0}}},
    {"BarOfOneLine", "PBAR,7,2,1.,2.,3.,4.,5.\n", 2, 2, 0, 0, {{0, 1.0}, {1, 2.0}, {2, 3.0}, {4, 4.0}, {7, 5.0}}},
    {"LaterKindReplaces", "PBAR,7,2,1.,2.,3.,4.,5.\nPROD,7,3,1.,2.,3.,4.,5.\n", 1, 3, 0, 0,
     {{0, 1.0}, {4, 2.0}, {5, 3.0}, {7, 4.0}}},
    {"Tube", "PTUBE,7,2,1.,.125,3.,.5\n", 3, 2, 0, 0, {{0, 1.0}, {1, 0.75}, {7, 3.0}}},
    {"TubeBlankWall", "PTUBE,7,2,1.\n", 3, 2, 0, 0, {{0, 1.0}, {1, 1.0}}},
    {"Bend", "PBEND,7,2,1.,2.,3.,4.,5.,6.\n,11.,12.,13.,14.,15.,16.,17.,18.\n,21.,22.,23.,24.\n", 8, 2, 0, 0,
     {{0, 1.0}, {1, 2.0}, {2, 3.0}, {4, 4.0}, {17, 5.0}, {8, 11.0}, {9, 12.0}, {10, 13.0}, {11, 14.0}, {12, 15.0},
      {13, 16.0}, {14, 17.0}, {15, 18.0}, {5, 21.0}, {6, 22.0}, {7, 23.0}}},
    {"Shape", "PBARL,7,2,MSCBML0,box,9.,9.,9.,9.\n,1.,2.,3.,4.,5.,6.,7.,8.\n,10.,11.,12.,13.\n", 2, 2, 0, 2,
     {{0, 1.0}, {1, 2.0}, {2, 3.0}, {3, 4.0}, {4, 5.0}, {5, 6.0}, {6, 7.0}, {7, 8.0}, {8, 10.0}, {10, 12.0}}},
    {"ShapeComparedWhole", "PBARL,7,2,,TUBE2\n,\n", 2, 2, 0, 0, {}},
    {"BeamOfOneLine", "PBEAM,7,2,4.,5.,6.,7.,8.,9.\n", 5, 2, 0, 0,
     {{0, 4.0}, {1, 5.0}, {2, 6.0}, {3, 7.0}, {4, 8.0}, {7, 9.0}}},
    {"BeamStationsBeforeEndB",
     "PBEAM,7,2,4.,5.,6.,7.,8.,9.\n,11.,,,,,,,18.\n,YES,.5,91.,92.,93.,94.,95.,96.\n,91.,92.,93.,94.,95.,96.,97.,98.\n"
     ",YES,.9999995,24.,25.,26.,27.,28.,29.\n,31.,,,,,,,38.\n"
     ",.5,.4,91.,92.,93.,94.,41.,42.\n,91.,92.,93.,94.,51.,52.,53.,54.\n",
     5, 2, 1, 0,
     {{0, 4.0}, {1, 5.0}, {2, 6.0}, {3, 7.0}, {4, 8.0}, {7, 9.0}, {8, 11.0}, {15, 18.0}, {20, 24.0}, {21, 25.0},
      {22, 26.0}, {23, 27.0}, {24, 28.0}, {27, 29.0}, {28, 31.0}, {35, 38.0}, {5, 0.5}, {25, 0.5}, {6, 0.4}, {26, 0.4},
      {18, 41.0}, {38, 42.0}, {16, 51.0}, {17, 52.0}, {36, 53.0}, {37, 54.0}}},
    {"BeamFalseEndB", // I1 of the station between is 1.0: what follows is taken for end B
     "PBEAM,7,2,4.,5.,6.,7.,8.,\n,,,,,,,,\n,YES,.5,44.,1.,46.,47.,48.,49.\n,51.\n", 5, 2, 1, 0,
     {{0, 4.0}, {1, 5.0}, {2, 6.0}, {3, 7.0}, {4, 8.0}, {20, 46.0}, {21, 47.0}, {22, 48.0}, {23, 49.0}, {24, 51.0}}},
    {"BeamNotQuiteEndB", "PBEAM,7,2,4.,5.,6.,7.,8.,9.\n,,,,,,,,\n,YES,.999998,24.,25.,26.,27.,28.,29.\n", 5, 2, 0, 0,
     {{0, 4.0}, {1, 5.0}, {2, 6.0}, {3, 7.0}, {4, 8.0}, {7, 9.0}}},
    {"BeamEndsDifferInMassAlone", "PBEAM,7,2,4.,,,,,9.\n,,,,,,,,\n,YES,1.,4.,,,,,8.\n", 5, 2, 0, 0,
     {{0, 4.0}, {7, 9.0}, {20, 4.0}, {27, 8.0}}},
    {"BeamEmptyEndB", "PBEAM,7,2,4.,,,,,\n,,,,,,,,\n,YES,1.\n", 5, 2, 0, 0, {{0, 4.0}}},
    {"Shell", "PSHELL,7,1,.5,2,3.,4,5.,6.\n,7.,8.,9\n", 17, 1, 0, 0,
     {{0, 0.5}, {10, 3.0}, {11, 5.0}, {7, 6.0}, {8, 7.0}, {9, 8.0}}},
    {"ShellDefaults", "PSHELL,7,1\n", 13, 1, 0, 0, {{10, 1.0}, {11, 0.833333}}},
    {"ShellZeroIsNotBlank", "PSHELL,7,,.5,2,0.0,,0.0\n", 15, 2, 0, 0, {{0, 0.5}}},
    {"ShellWithoutMaterial", "PSHELL,7,,.5\n", 17, 0, 0, 0, {{0, 0.5}, {10, 1.0}, {11, 0.833333}}},
    {"ShearPanel", "PSHEAR,7,2,.5,3.,4.,5.\n", 13, 2, 0, 0, {{0, 0.5}, {7, 3.0}}},
    {"Solid", "PSOLID,7,2,3,4,GRID,FULL,SMECH\n", 31, 2, 0, 0, {}},
    {"LaminateWithoutPlies", "PCOMP,7,1.,2.,3.,TSAI,4.,5.,SYM\n", 21, 0, 0, 0, {{0, 1.0}, {1, 2.0}, {2, 3.0}}},
    {"WrongFields", "PBAR,7,X,A,B,,,1.2.3\n", 2, 0, 0, 0, {{7, 1.2}}},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

TEST(BeamCard, TapersByEachValueOfEndB) {
    for (std::size_t iValue = 0; iValue < 6; ++iValue) { // A, I1, I2, I12, J and, which doesn't count, NSM
        const std::string sCard = "PBEAM,7,2,,,,,,\n,,,,,,,,\n,YES,1." + std::string(iValue, ',') + ",.5\n";
        const CStoredRun run(sCard);
        EXPECT_EQ(run.GetDataPool().PROP.Find(7)->bTAPERED, iValue < 5 ? 1 : 0) << sCard;
    }
}

TEST(LaminateCard, HalfALineIsAPly) {
    const CStoredRun run("PCOMP          7     -.5\n"
                         "+              2      .1     30.     YES              .2     60.     YES\n"
                         "+              3      .3     90.\n");
    const T_PROP_D* pProperty = run.GetDataPool().PROP.Find(7);
    ASSERT_TRUE(pProperty);
    EXPECT_EQ(pProperty->iNPLY, 4);
    EXPECT_EQ(pProperty->iPLYMID[0], 2);
    EXPECT_EQ(pProperty->iPLYMID[1], 0);
    EXPECT_EQ(pProperty->iPLYMID[2], 3);
    EXPECT_EQ(pProperty->dVAL[4], 30.0);
    EXPECT_EQ(pProperty->dVAL[5], 0.2);
    EXPECT_EQ(pProperty->dVAL[8], 90.0);
}

TEST(LaminateCard, PliesWithoutSlotsAreLeftOut) {
    std::string sCard = "PCOMP,7,,,,,,,\n";
    for (int nPly = 1; nPly <= 300; nPly += 2) {
        sCard += "," + std::to_string(nPly) + ",1.5,2.5,," + std::to_string(nPly + 1) + ",3.5,4.5,\n";
    }
    const CStoredRun run(sCard);
    const T_PROP_D* pProperty = run.GetDataPool().PROP.Find(7);
    ASSERT_TRUE(pProperty);
    EXPECT_EQ(pProperty->iNPLY, 98);
    EXPECT_EQ(pProperty->iPLYMID[97], 98);
    EXPECT_EQ(pProperty->iPLYMID[98], 0);
    EXPECT_EQ(pProperty->dVAL[198], 4.5);
    EXPECT_EQ(pProperty->dVAL[199], 0.0);
}

TEST(MaterialCard, StrengthsOfAnOrthotropicMaterial) {
    const CStoredRun run("MAT8,7,1.,2.,3.,4.,5.,6.,7.\n,8.,9.,10.,11.,12.,13.,14.,15.\n,16.,17.,1\n");
    const T_MATL_D* pMaterial = run.GetDataPool().MATL.Find(7);
    ASSERT_TRUE(pMaterial);
    EXPECT_EQ(pMaterial->dTREF, 10.0);
    EXPECT_EQ(pMaterial->dST, 11.0);
    EXPECT_EQ(pMaterial->dSC, 12.0);
    EXPECT_EQ(pMaterial->dYT, 13.0);
    EXPECT_EQ(pMaterial->dYC, 14.0);
    EXPECT_EQ(pMaterial->dSS, 15.0);
    EXPECT_EQ(pMaterial->dGE, 16.0);
    EXPECT_EQ(pMaterial->dF12, 17.0);
    EXPECT_EQ(pMaterial->bSTRN, 1);
}

} // namespace
