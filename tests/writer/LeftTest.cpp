// What of a model has no line in the file.

#include "support/Deck.h"
#include "writer/rows/ModelRows.h"

#include <gtest/gtest.h>

bool operator==(const T_LEFT_D& a, const T_LEFT_D& b) {
    return a.eREASON == b.eREASON && a.iID == b.iID && a.iOTHER == b.iOTHER && a.nCOUNT == b.nCOUNT;
}
void PrintTo(const T_LEFT_D& r, std::ostream* pOut) {
    *pOut << ReasonOf(r.eREASON).sKEYWORD << " " << r.iID << ", " << r.iOTHER << ", " << r.nCOUNT << ": "
          << ReasonOf(r.eREASON).sTEXT;
}

namespace {

/// All that has the last word.
std::vector<T_LEFT_D> FindLeft(const CDataPool& rPool) {
    std::vector<T_LEFT_D> aLeft;
    const CRowVisitor visitor{
        [&](const T_LEFT_D& rLeft) {
            if (!rLeft.bELSEWHERE) aLeft.push_back(rLeft);
        },
        [](const auto&) {},
    };
    ForEachRow(rPool, visitor);
    return aLeft;
}

struct T_CASE_D {
    const char* sNAME;
    const char* sCARDS;
    std::vector<T_LEFT_D> aLEFT;

    friend std::ostream& operator<<(std::ostream& rOut, const T_CASE_D& rCase) { return rOut << rCase.sNAME; }
};

class LeftTest : public testing::TestWithParam<T_CASE_D> {};

TEST_P(LeftTest, IsToldOnce) {
    EXPECT_EQ(FindLeft(CStoredRun(GetParam().sCARDS).GetDataPool()), GetParam().aLEFT);
}

// clang-format off
const std::vector<T_CASE_D> CASES = {
    {"Nothing", "GRID,1,,,,,,6\nGRID,2,,1.\nCBAR,1,1,1,2,0.,1.,0.\nCBUSH,2,2,1,2\nCONM2,3,1\nPBAR,1,1,2.\nPBUSH,2\n"
        "PSOLID,3\nPSHELL,4,,.1\nMAT1,1\nSPC,1,1,1\nFORCE,1,1,,1.,1.\nLOAD,9,1.,1.,1\nEIGRL,1\n", {}},
    {"Bends", "GRID,1\nCBEND,8,9,1,1\nPBEND,9\n", {{LEFT_ELEMENT_FORM, 8}, {LEFT_PBEND, 9}}},
    {"Laminate", "PCOMP,6\n", {{LEFT_PCOMP, 6}}},
    {"Shapes", "PBARL,1,1,,HAT1\nPBARL,2,1,,NONE\n", {{LEFT_PBARL_SHAPE, 1, 24}}},
    {"NoThickness", "PSHELL,1,1\nPSHEAR,2,1\nPSHELL,3,1,.1\n", {{LEFT_PLATE_THICKNESS, 1}, {LEFT_PLATE_THICKNESS, 2}}},
    {"HeldWithoutSets", "GRID,7,,,,,,3\nGRID,4,,,,,,1\nGRID,5\n", {{LEFT_GRID_HELD, 4}, {LEFT_GRID_HELD, 7}}},
    // 16807 and 33614 modulo 1001 are 791 and 581: set 2 is the one that is written
    {"ConstraintSets", "SPC1,1,1,1,2,3\nSPC1,2,1,1\nGRID,9,,,,,,3\n", {{LEFT_SPC_SET, 1, 0, 3}}},
    {"Axes", "GRID,3,,,,,9\nGRID,1,,,,,9\nGRID,2,,,,,5\nCORD2R,5,,0.,0.,0.,0.,0.,1.,\n,1.,0.,0.\n",
        {{LEFT_GRID_AXES, 1, 9}, {LEFT_GRID_AXES, 3, 9}}},
    {"Springs", "GRID,1\nGRID,2,,1.\nPELAS,5,1.\nPELAS,6,0.\nCELAS1,1,5,1,3,2,2\nCELAS1,2,5,1\nCELAS1,3,5,98,1,2,1\n"
        "CELAS1,4,5,1,1,99,1\nCELAS1,5,7,1,1,2,1\nCELAS1,6,6,1,1\nCELAS2,1,1.,1,3,2,2\nCELAS2,2,1.,1\n"
        "CELAS2,3,1.,98,1\nCELAS2,4,1.,,,99,1\nCELAS2,5,0.,1,1\n", // in store order
        {{LEFT_CELAS1_GRID2, 4, 99}, {LEFT_CELAS1_GRID1, 3, 98}, {LEFT_CELAS1_ENDS, 2}, {LEFT_CELAS1_ZERO, 6, 6},
         {LEFT_CELAS1_DOF, 1}, {LEFT_CELAS1_PELAS, 5, 7}, {LEFT_CELAS2_GRID2, 4, 99}, {LEFT_CELAS2_GRID1, 3, 98},
         {LEFT_CELAS2_ENDS, 2}, {LEFT_CELAS2_DOF, 1}, {LEFT_CELAS2_ZERO, 5}}},
    {"CoincidentSprings", "GRID,1\nGRID,2\nCELAS2,1,1.,1,1,2,2\nCELAS2,2,1.,1,,2\nCELAS2,3,0.,1,1,2,2\n"
        "CELAS2,4,0.,1,1,2\nCELAS1,5,9,1,1,2,1\n",
        {{LEFT_CELAS1_PELAS, 5, 9}, {LEFT_CELAS2_ZERO, 4}, {LEFT_CELAS2_ZERO, 3}}},
    {"SpringNowhere", "GRID,1,,9E999\nCELAS2,1,1.,1,1,1,1\n", {{LEFT_CELAS2_PLACE, 1}}},
    {"RigidLinks", "GRID,1\nRBE2,1,9,1,1,1\nRBE2,2,1,1,7,1,8\n",
        {{LEFT_RBE2_SLAVE, 2, 7}, {LEFT_RBE2_SLAVE, 2, 8}, {LEFT_RBE2_MASTER, 1, 9}}},
    {"Equations", "MPC,1,1,1,-1.,2,1,1.\nMPC,2,1,1,-1.,2,1,1.\nMPC,2,1,1,1.,2,1,-1.\nMPC,2,1,1,-1.\n"
        "MPC,2,1,1,-1.,2,2,1.\n",
        {{LEFT_MPC_SET, 1}, {LEFT_MPC_FACTORS, 2}, {LEFT_MPC_TERMS, 3}, {LEFT_MPC_COMPONENT, 4}}},
    {"NodalLoads", "FORCE,5,1,,1.\nMOMENT,5,2,,1.\nSPCD,5,3,1,0.\nFORCE,5,9,,1.,1.\n",
        {{LEFT_FORCE_ZERO, 1}, {LEFT_MOMENT_ZERO, 2}, {LEFT_SPCD_ZERO, 3}}},
    {"BeamLoads", "GRID,1\nGRID,2,,1.\nCBAR,2,1,1,2,0.,1.,0.\nCBAR,3,1,1,1,0.,1.,0.\nPLOAD1,5,2,FX,LE,0.,1.\n"
        "PLOAD1,5,9,FX,FR,0.,1.\nPLOAD1,5,9,FX,LE,0.,1.\nPLOAD1,5,3,FX,LE,0.,1.\nPLOAD1,5,2,FX,LE,0.,0.\n"
        "PLOAD1,5,2,BAD,LE,0.,1.\n",
        {{LEFT_PLOAD1_ELEMENT, 9}, {LEFT_PLOAD1_LENGTH, 3}, {LEFT_PLOAD1_ZERO, 2}, {LEFT_PLOAD1_TYPE, 2}}},
    {"Pressures", "CQUAD4,1,1\nCBAR,2,1\nCTETRA,3,1\nPLOAD4,5,1,1.\nPLOAD4,5,2,1.\nPLOAD4,5,1,0.\nPLOAD4,5,3,1.\n"
        "PLOAD2,5,1.,1\nPLOAD2,5,1.,9\nPLOAD2,5,0.,9\n",
        {{LEFT_PLOAD4_ELEMENT, 2}, {LEFT_PLOAD4_ZERO, 1}, {LEFT_PLOAD2_ELEMENT, 9}, {LEFT_PLOAD2_ZERO, 9}}},
    {"Temperatures", "GRID,1\nTEMP,4,1,0.,9,1.\nTEMPD,4,5.,3,5.\nCQUAD4,1,1\nCBAR,2,1\nTEMPP1,3,1,5.,1.\n"
        "TEMPP1,3,2,0.,,1.,2.\nTEMPP1,3,9,-1.\n", // by ascending set
        {{LEFT_TEMPP1_MEAN, 2}, {LEFT_TEMPP1_MEAN, 9}, {LEFT_TEMPP1_GRADIENT, 2}, {LEFT_TEMPD, 4}}},
    {"Combinations", "FORCE,1,1,,1.,1.\nLOAD,8,1.,1.,1,1.,7\nLOAD,9,1.,1.,7,1.,6\n",
        {{LEFT_LOAD_SET, 8, 7}, {LEFT_LOAD_SET, 9, 7}, {LEFT_LOAD_SET, 9, 6}}},
    // 16807, 33614 and 50421 modulo 11 are 10, 9 and 8: set 3 is the one that is written
    {"Eigenvalues", "EIGB,4\nEIGRL,1\nEIGRL,2\nEIGRL,3\n", {{LEFT_EIGB, 4}, {LEFT_EIGRL, 2}, {LEFT_EIGRL, 1}}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Models, LeftTest, testing::ValuesIn(CASES),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

TEST(Left, WhatNoDeckCanMake) {
    CDataPool pool;
    pool.SetNODS(1, {});
    pool.m_mapNodeId[1] = 2;
    T_ELEM_D mass;
    mass.iTYPE = TYPE_MASS;
    mass.iSUBTYPE = SHAPE_POINT;
    pool.SetELEM(3, mass);
    EXPECT_EQ(FindLeft(pool), (std::vector<T_LEFT_D>{{LEFT_GRID_RENUMBERED, 1}, {LEFT_CONM2, 3}}));
}

} // namespace
