#include "nas2zdt/picture/Scene.h"
#include "nas2zdt/picture/CaseLoads.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

// A square plate 1 in the XY plane, its normal along Z, and a cube 2 of side 1 between Z 0 and Z 1.
constexpr const char* BODIES = "GRID,1\nGRID,2,,1.\nGRID,3,,1.,1.\nGRID,4,,0.,1.\n"
                               "GRID,5,,0.,0.,1.\nGRID,6,,1.,0.,1.\nGRID,7,,1.,1.,1.\nGRID,8,,0.,1.,1.\n"
                               "CQUAD4,1,1,1,2,3,4\nCHEXA,2,1,1,2,3,4,5,6\n,7,8\n";

struct T_PRESSURE_D {
    const char* sNAME;
    const char* sCARD;
    T_VECTOR direction;
    double dMEAN;
};

class PressureTest : public testing::TestWithParam<T_PRESSURE_D> {};

TEST_P(PressureTest, DirectionAndMean) {
    const CStoredRun run(std::string(BODIES) + GetParam().sCARD);
    T_SCEN_D scene = CollectParts(run.GetDataPool());
    CollectLoads(run.GetDataPool(), {}, scene);
    ASSERT_EQ(scene.aARROWS.size(), 1u);
    EXPECT_EQ(scene.aARROWS[0].direction, GetParam().direction);
    const std::vector<double> aSums =
        SumPressures(run.GetDataPool(), scene, FindSurfaces(scene), *run.GetDataPool().LOAD.Find(7));
    ASSERT_EQ(aSums.size(), 2u);
    EXPECT_EQ(aSums[0] + aSums[1], GetParam().dMEAN);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cards, PressureTest, testing::ValuesIn<T_PRESSURE_D>({
    {"Plate",          "PLOAD2,7,3.,1\n",                            {0, 0, 1},  3.0},
    {"NegativePlate",  "PLOAD2,7,-3.,1\n",                           {0, 0, -1}, -3.0},
    {"Corners",        "PLOAD4,7,1,2.,4.,6.,8.\n",                   {0, 0, 1},  5.0},
    {"MixedBySum",     "PLOAD4,7,1,2.,-4.,2.,-4.\n",                 {0, 0, -1}, -1.0},
    {"IntoSolid",      "PLOAD4,7,2,3.,,,,5,7\n",                     {0, 0, -1}, 3.0},
    {"OutOfSolid",     "PLOAD4,7,2,-3.,,,,5,7\n",                    {0, 0, 1},  -3.0},
    {"AlongVector",    "PLOAD4,7,1,3.,,,,,\n,,1.\n",                     {1, 0, 0},  3.0},
    {"AgainstVector",  "PLOAD4,7,1,-3.,,,,,\n,,1.\n",                     {-1, 0, 0}, -3.0},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

struct T_SPRING_D {
    const char* sNAME;
    const char* sCARDS; // grids 1 and 2 coincide, 3 is apart
    int iKIND;          // KINDS for none
    std::array<double, 6> aK;
};

class SpringTest : public testing::TestWithParam<T_SPRING_D> {};

TEST_P(SpringTest, KindAndStiffness) {
    const CStoredRun run(std::string("GRID,1\nGRID,2\nGRID,3,,1.\n") + GetParam().sCARDS);
    const T_SCEN_D scene = CollectParts(run.GetDataPool());
    ASSERT_EQ(scene.aPARTS.size(), GetParam().iKIND == KINDS ? 0u : 1u);
    if (scene.aPARTS.empty()) return;
    EXPECT_EQ(scene.aPARTS[0].iKIND, GetParam().iKIND);
    EXPECT_EQ(scene.aVALUES[scene.aPARTS[0].iVALUES], GetParam().aK);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cards, SpringTest, testing::ValuesIn<T_SPRING_D>({
    {"Apart",               "CELAS2,9,5.,1,2,3,2\n",              KIND_ELASTIC, {0, 5, 0, 0, 0, 0}},
    {"ApartWithProperty",   "CELAS1,9,4,1,6,3,6\nPELAS,4,7.\n",   KIND_ELASTIC, {0, 0, 0, 0, 0, 7}},
    {"ToGround",            "CELAS2,9,5.,1,3\n",                  KIND_SPRING,  {0, 0, 5, 0, 0, 0}},
    {"FromGround",          "CELAS2,9,5.,,,3,1\n",                KIND_SPRING,  {5, 0, 0, 0, 0, 0}},
    {"Coincident",          "CELAS2,9,5.,1,4,2,4\n",              KIND_GENERAL, {0, 0, 0, 5, 0, 0}},
    {"CoincidentTwo",       "CELAS2,9,5.,1,4,2,5\n",              KIND_GENERAL, {0, 0, 0, 5, 5, 0}},
    {"ApartTwoComponents",  "CELAS2,9,5.,1,1,3,2\n",              KINDS,        {}},
    {"WithoutStiffness",    "CELAS2,9,0.,1,1,3,1\n",              KINDS,        {}},
    {"WithoutProperty",     "CELAS1,9,4,1,6,3,6\n",               KINDS,        {}},
}), [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });
// clang-format on

} // namespace
