// What of a model the file doesn't say.

#include "store/Left.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"
#include "support/QuietObserver.h"

#include <gtest/gtest.h>

namespace {

/// A line a loss: keyword, code, id, and where they matter the other id and the count.
class CLeftObserver : public CQuietObserver {
  public:
    void OnLeft(const T_LEFT_D& r) override {
        if (r.eREASON == LEFT_PROPERTY_UNUSED) return; // told in every case
        const T_REASON_D& rReason = ReasonOf(r.eREASON);
        m_sTold +=
            std::string(r.sKEYWORD ? r.sKEYWORD : rReason.sKEYWORD) + " " + rReason.sCODE + " " + std::to_string(r.iID);
        if (r.iOTHER != 0) m_sTold += " " + std::to_string(r.iOTHER);
        if (r.nCOUNT != 1) m_sTold += " x" + std::to_string(r.nCOUNT);
        m_sTold += "\n";
    }
    std::string m_sTold;
};

struct T_CASE_D {
    const char* sNAME;
    const char* sCARDS;
    const char* sTOLD;

    friend std::ostream& operator<<(std::ostream& rOut, const T_CASE_D& rCase) { return rOut << rCase.sNAME; }
};

/// A square of grids, and properties; nothing of them is lost.
constexpr const char* PLAIN_CARDS = "GRID,1\nGRID,2,,1.\nGRID,3,,1.,1.\nGRID,4,,,1.\nMAT1,1,1.\nPBAR,1,1,1.\n"
                                    "PSHELL,2,1,.1,1\nPSOLID,3,1\nPROD,4,1,1.\nPBUSH,5,K,1.\nPTUBE,6,1,1.\n";

class LeftTest : public testing::TestWithParam<T_CASE_D> {};

TEST_P(LeftTest, IsToldOnce) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), std::string("BEGIN BULK\n") + PLAIN_CARDS + GetParam().sCARDS + "ENDDATA\n");
    CNoDialogs dialogs;
    CLeftObserver observer;
    CConvertNastran run(dialogs);
    EXPECT_EQ(run.Convert(folder.Path("deck.dat"), {.pOBSERVER = &observer}), 1);
    EXPECT_EQ(observer.m_sTold, GetParam().sTOLD);
}

// clang-format off
const std::vector<T_CASE_D> CASES = {
    {"Nothing", "GRID,5,,,,1.,5,6\nGRID,6,,1.,,1.\nGRID,7,,1.,1.,1.\nGRID,8,,,1.,1.\nCBAR,1,1,1,2,0.,1.,0.\n"
        "CBUSH,2,5,1,2,0.,1.,1.\nCONM2,3,1\nCHEXA,4,3,1,2,3,4,5,6\n,7,8\nCTETRA,6,3,1,2,3,5\nCQUAD4,7,2,1,2,3,4\n"
        "CROD,8,4,1,2\nSPC,1,1,1\nSPC,1,1,2\nFORCE,1,1,,1.,1.\nLOAD,9,1.,1.,1\nEIGRL,1\nPLOAD4,1,4,1.,,,,1,3\n"
        "PLOAD4,1,6,1.,,,,1,5\nPLOAD1,1,1,FX,LE,0.,1.,1.,1.\nTEMP,1,1,1.\nTEMPP1,1,7,1.\nSPCD,1,1,1,1.\n"
        "RBE2,9,1,1,2\nMPC,1,1,1,-1.,2,1,1.\nCELAS2,10,1.,1,1,2,1\n"
        "CORD2R,5,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2R,6,5,0.,0.,0.,0.,0.,1.\n,0.,1.,0.\n"
        "CORD2C,7,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2R,8,7,2.,0.,0.,2.,0.,1.\n,3.,0.,0.\nCORD1R,9,1,5,2\n", ""},

    // frames and grids
    {"Parents", "CORD2C,1,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2R,2,1,2.,90.,0.,2.,90.,1.\n,3.,90.,0.\n"
        "CORD2R,3,2,0.,5.,0.,0.,5.,1.\n,1.,5.,0.\nCORD2R,4,9,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n"
        "CORD2R,5,5,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2C,6,1,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n"
        "CORD2C,7,1,1.,90.,0.,1.,90.,1.\n,2.,90.,0.\nCORD2S,8,9,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n",
        "CORD2R frame-parent-polar 2 1\nCORD2R frame-parent-kind 3 2\nCORD2R frame-parent-missing 4 9\n"
        "CORD2R frame-parent-kind 5 5\nCORD2C frame-parent-kind 7 1\nCORD2S frame-parent-missing 8 9\n"},
    {"SphereOnCylinder", "CORD2C,1,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2S,2,1,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n"
        "CORD2R,3,2,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n",
        "CORD2R frame-parent-polar 3 2\nCORD2S frame-sphere-copied 2 1\n"},
    {"FramesOnGrids", "CORD2R,5,,0.,7.,0.,0.,7.,1.\n,1.,7.,0.\nGRID,6,5\nCORD1R,1,1,4,6\nCORD1C,2,1,9,2\nCORD1S,3,1,9,2\n",
        "CORD1R frame-grid-cp 1 6\nCORD1C frame-grid-missing 2 9\nCORD1S frame-grid-missing 3 9\n"
        "CORD1R frame-line 1\nCORD1C frame-line 2\nCORD1S frame-line 3\n"},
    {"FramesOfOneId", "CORD2R,7,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2S,7,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n",
        "CORD2S frame-twice 7\n"},
    {"FramesInACircle", "CORD2R,1,2,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\nCORD2C,2,1,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n"
        "CORD2R,3,2,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n",
        "CORD2R frame-circle 1 2\nCORD2R frame-circle 3 2\nCORD2C frame-circle 2 1\n"},
    {"GridFrames", "GRID,5,9\nGRID,6,,,,,9\nGRID,7,,,,,5\nGRID,8,,,,,4\nGRID,9,,,,,3\nGRID,10,,,,,5\n"
        "CORD2R,5,,0.,7.,0.,0.,7.,1.\n,1.,7.,0.\nCORD2C,4,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n"
        "CORD2R,3,,0.,0.,0.,1.,0.,0.\n,0.,1.,0.\n",
        "GRID grid-cp-missing 5 9\nGRID grid-cd-missing 6 9\nGRID grid-cd-origin 7 5\nGRID grid-cd-polar 8 4\n"
        "GRID grid-cd-origin 10 5\n"},

    // elements
    {"Bends", "CBEND,8,9,1,2\nPBEND,9\n", "CBEND element-form 8\nPBEND bend-section 9\n"},
    {"ElementGrids", "CROD,1,4,1,9\nCTRIA3,2,2,1,2,8\nCQUAD8,3,2,1,2,3\nCPENTA,4,3,1,2,3,4,1,7\nCONM2,5,9,0,1.\n"
        "CONROD,6,9,1,1\n",
        "CROD element-grid-missing 1 9\nCTRIA3 element-grid-missing 2 8\nCQUAD8 element-grid-missing 3\n"
        "CPENTA element-grid-missing 4 7\nCONROD element-grid-missing 6 9\nCONM2 element-grid-missing 5 9\n"},
    {"ElementProperties", "CROD,1,,1,2\nCTRIA3,2,9,1,2,3\nCBUSH,3,9,1,2\nCBUSH,4,,1,2\nCONROD,5,1,2,9\nPSHEAR,9,8,.1\n"
        "PBEAM,8,,1.\n",
        "CROD element-property-blank 1\nCONROD element-material-missing 5 9\nPBEAM property-material-missing 8\n"
        "PSHELL property-material-missing 9 8\nCBUSH element-property-blank 4\n"},
    {"OtherElements", "CTUBE,1,6,1,2\nCSHEAR,2,2,1,2,3,4\n", "CTUBE tube-beam 1\nCSHEAR shear-plate 2\n"},
    {"BeamOrientations", "GRID,5,,,,,3\nGRID,6,,,,,4\nCBAR,1,1,1,2\nCBEAM,2,1,1,2,9\nCBAR,3,1,5,2,0.,1.,0.\n"
        "CBEAM,4,1,6,2,0.,1.,0.\nCBAR,6,1,5,2,4\nCBAR,7,1,5,2,0.,1.,0.,BGG\nCORD2R,3,,0.,0.,0.,1.,0.,0.\n,0.,1.,0.\n"
        "CORD2R,4,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n",
        "CBAR beam-vector-cd 3 3\nCBAR beam-no-orientation 1\nCBEAM beam-no-orientation 2 9\n"},

    // properties
    {"Laminate", "PCOMP,7\n", "PCOMP laminate-section 7\n"},
    {"Shapes", "PBARL,11,1,,HAT1\nPBARL,12,1,,NONE\nPBARL,13,1,,I1\nPBARL,14,1,,CHAN2\nPBARL,15,1,,T\n",
        "PBARL bar-shape 11 24\nPBARL bar-type 12\nPBARL bar-dimensions 13\nPBARL bar-turned 14\n"},
    {"Plates", "PSHELL,11,1\nPSHEAR,12,1\nPSHELL,13,1,.1\nMAT1,2\nPSHELL,14,1,.1,2\n",
        "PSHELL plate-no-thickness 11\nPSHELL plate-no-thickness 12\nPSHELL plate-bending-material 14 2\n"},

    // supports
    {"HeldWithoutSets", "GRID,4,,,,,,3\nGRID,2,,,,,,1\n", "GRID support-ps 2\nGRID support-ps 4\n"},
    // 16807 and 33614 modulo 1001 are 791 and 581: set 2 is the one that is written
    {"ConstraintSets", "SPC1,1,1,1,2,3\nSPC1,2,1,1\nGRID,4,,,,,,3\n", "SPC support-set 1 x3\n"},
    {"Supports", "SPC1,1,0,1,9\nSPC,1,2,,,8,3\n",
        "SPC1 support-component-zero 1\nSPC1 support-grid-missing 9\nSPC1 support-component-zero 9\n"
        "SPC support-no-component 2\nSPC support-grid-missing 8\n"},

    // springs and links; springs in store order
    {"Springs", "PELAS,15,1.\nPELAS,16,0.\nCELAS1,1,15,1,3,2,2\nCELAS1,2,15,1\nCELAS1,3,15,98,1,2,1\n"
        "CELAS1,4,15,1,1,99,1\nCELAS1,5,17,1,1,2,1\nCELAS1,6,16,1,1\nCELAS2,1,1.,1,3,2,2\nCELAS2,2,1.,1\n"
        "CELAS2,3,1.,98,1\nCELAS2,4,1.,,,99,1\nCELAS2,5,0.,1,1\n",
        "CELAS1 celas1-grid2-missing 4 99\nCELAS1 celas1-grid1-missing 3 98\nCELAS1 celas1-ends 2\n"
        "CELAS1 celas1-zero 6 16\nCELAS1 celas1-components 1\nCELAS1 celas1-property-missing 5 17\n"
        "CELAS2 celas2-grid2-missing 4 99\nCELAS2 celas2-grid1-missing 3 98\nCELAS2 celas2-ends 2\n"
        "CELAS2 celas2-components 1\nCELAS2 celas2-zero 5\n"},
    {"SpringDamping", "PELAS,15,1.,.1\nCELAS1,1,15,1,1,2,1\nCELAS2,2,1.,1,1,,,.1\n",
        "CELAS1 celas1-damping 1\nCELAS2 celas2-damping 2\n"},
    {"CoincidentSprings", "GRID,5\nCELAS2,1,1.,1,1,5,2\nCELAS2,2,1.,1,2,5,2\nCELAS2,3,0.,1,1,5,2\nCELAS2,4,0.,1,1,5\n"
        "CELAS1,5,9,1,1,5,1\n",
        "CELAS1 celas1-property-missing 5 9\nCELAS2 celas2-zero 4\nCELAS2 celas2-zero 3\n"
        "CELAS2 celas2-both-components 1\n"},
    {"SpringNowhere", "GRID,1,,9E999\nCELAS2,1,1.,1,1,1,1\n", "CELAS2 celas2-position 1\n"},
    // along X with Y at -45, 135 and 45 degrees; along Z with Y at 90 and -90; upwards in XZ, where the file turns on
    {"LinkAngles", "GRID,5,,,,1.\nGRID,6,,1.,,1.\nCBUSH,1,5,1,2,0.,1.,-1.\nCBUSH,2,5,1,2,0.,-1.,1.\n"
        "CBUSH,3,5,1,2,0.,1.,1.\nCBUSH,4,5,1,5,0.,1.,0.\nCBUSH,5,5,1,5,0.,-1.,0.\nCBUSH,6,5,1,6,0.,1.,0.\n"
        "CBUSH,7,5,1,2,4\nPGAP,9\nCGAP,8,9,1,2,0.,1.,0.\n",
        "CBUSH link-angle 1\nCBUSH link-angle 5\nCBUSH link-angle 6\nCGAP link-angle 8\n"},
    {"Links", "CORD2R,3,,0.,0.,0.,1.,0.,0.\n,0.,1.,0.\nGRID,5,3\nGRID,6,3,,,1.\nGRID,7,,,,,3\nCBUSH,1,5,5,6,0.,1.,1.\n"
        "CBUSH,2,5,1\nCBUSH,3,5,1,9\nCBUSH,4,5,7,2,0.,1.,1.\nCBUSH,6,5,1,2,8\n",
        "CBUSH link-grid-cp 1\nCBUSH link-ground 2\nCBUSH element-grid-missing 3 9\nCBUSH link-vector-cd 4 3\n"
        "CBUSH element-grid-missing 6 8\n"},
    {"RigidLinks", "RBE2,1,9,1,1,1\nRBE2,2,1,1,7,1,8\n",
        "RBE2 rigid-dependent-missing 2 7\nRBE2 rigid-dependent-missing 2 8\nRBE2 rigid-independent-missing 1 9\n"},
    {"Equations", "MPC,1,1,1,-1.,2,1,1.\nMPC,2,1,1,-1.,2,1,1.\nMPC,2,1,1,1.,2,1,-1.\nMPC,2,1,1,-1.\n"
        "MPC,2,1,1,-1.,2,2,1.\nMPC,2,1,1,-1.,9,1,1.\nMPC,2,1,0,-1.,2,0,1.\n"
        "MPC,2,1,1,-1.,2,1,1.,\n,,,1,.5\nMPC,2,1,1,-1.,2,1,1.,\n,,3,1,.5\n",
        "MPC mpc-set 1\nMPC mpc-factors 2\nMPC mpc-terms 3\nMPC mpc-second-component 4\nMPC mpc-grid-missing 5 9\n"
        "MPC mpc-no-component 6\nMPC mpc-term-lost 7\nMPC mpc-terms 8\n"},

    // loads
    {"NodalLoads", "FORCE,5,1,,1.\nMOMENT,5,2,,1.\nSPCD,5,3,1,0.\nFORCE,5,9,,1.,1.\nMOMENT,5,8,,1.,1.\nSPCD,5,7,1,1.\n",
        "FORCE force-zero 1\nFORCE force-grid-missing 9\nMOMENT moment-zero 2\nMOMENT moment-grid-missing 8\n"
        "SPCD displacement-zero 3\nSPCD displacement-grid-missing 7\n"},
    {"Directions", "FORCE1,5,1,1.,1,2\nFORCE1,5,2,1.,3,3\nMOMENT1,5,3,1.,1,9\nFORCE2,5,4,1.,1,2,1,9\n"
        "MOMENT2,5,1,1.,1,2,1,2\n",
        "FORCE1 force-no-direction 2\nMOMENT1 moment-direction-grid-missing 3\nFORCE2 force-direction-grid-missing 4\n"
        "MOMENT2 moment-no-direction 1\n"},
    {"BeamLoads", "CBAR,2,1,1,2,0.,1.,0.\nCBAR,3,1,1,1,0.,1.,0.\nPLOAD1,5,2,FX,LE,0.,1.\nPLOAD1,5,9,FX,FR,0.,1.\n"
        "PLOAD1,5,9,FX,LE,0.,1.\nPLOAD1,5,3,FX,LE,0.,1.\nPLOAD1,5,2,FX,LE,0.,0.\nPLOAD1,5,2,BAD,LE,0.,1.\n"
        "PLOAD1,5,2,FX,FRPR,0.,1.\nPLOAD1,5,2,FX,FR,.5,1.,.5,1.\n",
        "PLOAD1 pload1-element-missing 9\nPLOAD1 pload1-element 9\nPLOAD1 pload1-no-length 3\nPLOAD1 pload1-zero 2\n"
        "PLOAD1 pload1-type 2\nPLOAD1 pload1-scale 2\nPLOAD1 pload1-concentrated 2\n"},
    {"Pressures", "CQUAD4,1,2,1,2,3,4\nCBAR,2,1,1,2,3\nPLOAD4,5,1,1.\nPLOAD4,5,2,1.\nPLOAD4,5,1,0.\n"
        "PLOAD2,5,1.,1\nPLOAD2,5,1.,9\nPLOAD2,5,0.,9\n",
        "PLOAD4 pload4-element 2\nPLOAD4 pload4-zero 1\nPLOAD2 pload2-element 9\nPLOAD2 pload2-zero 9\n"},
    // The wedge's sides 1-2-6-5, 2-3-7-6 and 3-1-5-7 are faces 3 to 5, its triangles 1 and 2. The file finds the first
    // one's other diagonal on face 3, 1 and 6 on face 5, nothing at 7, 3 and 5 on face 4.
    {"WedgeFaces", "GRID,5,,,,1.\nGRID,6,,1.,,1.\nGRID,7,,1.,1.,1.\nCPENTA,1,3,1,2,3,5,6,7\nPLOAD4,5,1,1.,,,,1\n"
        "PLOAD4,5,1,1.,,,,2,5\nPLOAD4,5,1,1.,,,,1,6\nPLOAD4,5,1,1.,,,,7\nPLOAD4,5,1,1.,,,,3,5\nPLOAD2,5,1.,1\n",
        "PLOAD4 pload4-face 1 5\nPLOAD4 pload4-no-face 1\nPLOAD4 pload4-face 1 4\nPLOAD2 pload2-solid 1 2\n"},
    {"Temperatures", "TEMP,4,1,0.,9,1.,2,1.\nTEMP,4,3,1.,4,1.\nTEMPD,4,5.,3,5.\nCQUAD4,1,2,1,2,3,4\nCBAR,2,1,1,2,3\n"
        "TEMPP1,3,1,5.,1.\nTEMPP1,3,2,0.,,1.,2.\nTEMPP1,3,9,-1.\nTEMPP1,3,8,1.\n", // 4 * 16807 % 101 is 63, 3: 22
        "TEMPD load-case-zero 0\nTEMPP1 temperature-mean 2\nTEMPP1 temperature-mean 9\n"
        "TEMPP1 temperature-element-missing 8\nTEMPP1 temperature-gradient 2\nTEMP temperature-grid-missing 9\n"
        "TEMPD temperature-default 4\n"},
    {"Combinations", "FORCE,1,1,,1.,1.\nLOAD,8,1.,1.,1,1.,7\nLOAD,9,1.,1.,8,1.,6\n",
        "LOAD combination-set-missing 8 7\nLOAD combination-of-combination 9 8\nLOAD combination-set-missing 9 6\n"},
    // 16807, 33614 and 50421 modulo 11 are 10, 9 and 8: set 3 is the one that is written
    {"Eigenvalues", "EIGB,4\nEIGRL,1\nEIGRL,2\nEIGRL,3\n",
        "EIGB buckling-control 4\nEIGRL eigenvalue-control 2\nEIGRL eigenvalue-control 1\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Models, LeftTest, testing::ValuesIn(CASES),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

} // namespace
