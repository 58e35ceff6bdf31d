// Which fields of a card are told as lost.

#include "nas2zdt/account/Drops.h"
#include "reader/Keywords.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"
#include "support/QuietObserver.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// Notes what each card loses: fields, behind "|" those never reached, and whether a THRU isn't understood.
class CDropsObserver : public CQuietObserver {
  public:
    void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t, std::int32_t) override {
        const std::string_view sKeyword = T_KEYW_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)].sNAME;
        const T_DROPPED_D dropped = CDrops(sKeyword).Find(rCard, rUse);
        std::string& rText = m_aDropped.emplace_back(dropped.sFIELDS);
        if (!dropped.sPASTREAD.empty()) rText += "|" + dropped.sPASTREAD;
        if (dropped.bTHRU) rText += " THRU";

        std::string& rOtherNames = m_aOtherNames.emplace_back();
        CFieldNames(sKeyword).Walk(rCard, [&](std::size_t i, const T_NAME_D& rName) {
            for (const T_FIELDUSE_D::T_SKIP_D& rSkip : rUse.aSKIPPED) {
                if (rSkip.iFIELD != i || !rSkip.sNAME) continue;
                if (rSkip.sNAME != rName.sNAME && rSkip.sNAME != rName.Text()) rOtherNames += rSkip.sNAME;
            }
        });
    }

    std::vector<std::string> m_aDropped;
    std::vector<std::string> m_aOtherNames; // that the handler gives and the format doesn't
};

CDropsObserver Observe(const std::string& sCards) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), "BEGIN BULK\n" + sCards + "ENDDATA\n");
    CNoDialogs dialogs;
    CDropsObserver observer;
    CConvertNastran run(dialogs);
    run.SetObserver(&observer);
    EXPECT_EQ(run.Convert(folder.Path("deck.dat")), 1);
    return observer;
}

const struct {
    std::string_view sKEYWORD;
    int nFIELDS; // each of them 7.
    const char* sDROPPED;
} FULL_CARDS[] = {
    {"GRID", 9, "SEID|fields without a name"},
    {"CORD1R", 8, ""},
    {"CORD1C", 8, ""},
    {"CORD1S", 8, ""},
    {"CORD2R", 11, ""},
    {"CORD2C", 11, ""},
    {"CORD2S", 11, ""},
    {"CBAR", 16, "|OFFT, PA, PB, W1A, W2A, W3A, W1B, W2B, W3B"},
    {"CBEAM", 18, "|OFFT, PA, PB, W1A, W2A, W3A, W1B, W2B, W3B, SA, SB"},
    {"CBEND", 8, "|GEOM"},
    {"CROD", 5, "|fields without a name"},
    {"CTUBE", 4, ""},
    {"CONROD", 8, "A, J, C, NSM"},
    {"CTRIA3", 13, "THETA|ZOFFS, fields without a name, TFLAG, T1, T2, T3"},
    {"CTRIAR", 7, "THETA|ZOFFS"},
    {"CTRIA6", 14, "G4, G5, G6, THETA|ZOFFS, T1, T2, T3, TFLAG"},
    {"CQUAD4", 14, "THETA|ZOFFS, fields without a name, TFLAG, T1, T2, T3, T4"},
    {"CQUADR", 8, "THETA|ZOFFS"},
    {"CQUAD8", 17, "G5, G6, G7, G8, T1|T2, T3, T4, THETA, ZOFFS, TFLAG"},
    {"CSHEAR", 6, ""},
    {"CTETRA", 12, "G5, G6, G7, G8, G9, G10"},
    {"CPENTA", 17, "G7, G8, G9, G10, G11, G12, G13, G14, G15"},
    {"CHEXA", 22, "G9, G10, G11, G12, G13, G14, G15, G16, G17, G18, G19, G20"},
    {"CELAS1", 6, ""},
    {"CELAS2", 8, "S"},
    {"CBUSH", 13, "|CID, S, OCID, S1, S2, S3"},
    {"CGAP", 8, "CID"},
    {"CONM2", 14, "CID, X1, X2, X3, fields without a name, I21, I31, I32"},
    {"RBE2", 30, ""},
    {"PBAR", 19, "NSM, FE, C1, C2, D1, D2, E1, E2, F1, F2, I12"},
    {"PBARL", 21, "GROUP, fields without a name, DIM10|DIM12, ..."},
    {"PBEAM", 18, "I12(A), NSM(A), C1(A), C2(A), D1(A), D2(A), E1(A), E2(A), F1(A), F2(A), K1, K2"},
    {"PBEND", 22, "THETAB, RC, ZC, DELTAN"},
    {"PROD", 6, "C, NSM"},
    {"PTUBE", 6, "NSM, OD2"},
    {"PSHELL", 11, "12I/T**3, MID3, TS/T, NSM, Z1, Z2, MID4"},
    {"PCOMP", 24, "FT, TREF, GE, LAM, SOUT"},
    {"PSHEAR", 6, "NSM, F1, F2"},
    {"PSOLID", 7, "CORDM, IN, STRESS, ISOP, FCTN"},
    {"PELAS", 8, "S1, S2"},
    {"PBUSH", 3, "fields without a name"},
    {"PGAP", 11, "F0, KB, MU1, MU2, TMAX, MAR, TRMIN"},
    {"MAT1", 12, "G, RHO, TREF, GE, ST, SC, SS, MCSID"},
    {"MAT4", 11, "RHO, H, MU, HGEN, REFENTH, TCH, TDELTA, QLAT"},
    {"MAT8", 19, "RHO, TREF, Xt, Xc, Yt, Yc, S, GE, F12, STRN"},
    {"FORCE", 7, "CID"},
    {"MOMENT", 7, "CID"},
    {"FORCE1", 5, ""},
    {"MOMENT1", 5, ""},
    {"FORCE2", 7, ""},
    {"MOMENT2", 7, ""},
    {"GRAV", 7, "CID|MB"},
    {"LOAD", 14, "S|S5, L5, ..."},
    {"PLOAD1", 8, ""},
    {"PLOAD2", 9, "|EID7"},
    {"PLOAD4", 14, "CID|SORL, LDIR"},
    {"TEMP", 8, "|fields without a name"},
    {"TEMPD", 8, ""},
    {"TEMPP1", 14, "TPRIME|EID6, ..."},
    {"TEMPRB", 18, "|TP2B, TCA, TDA, TEA, TFA, TCB, TDB, TEB, TFB, EID2, ..."},
    {"SPC", 7, "D1, D2"},
    {"SPC1", 13, "|G10, ..."},
    {"SPCD", 7, ""},
    {"MPC", 17, "fields without a name|G4, C4, A4, fields without a name"},
    {"EIGB", 11, "NDP, fields without a name"},
    {"EIGRL", 8, "V1, V2, MSGLVL, MAXSET, SHFSCL, NORM"},
};

TEST(Drops, OfFullCards) {
    std::string sCards;
    for (const auto& rCase : FULL_CARDS) {
        sCards += rCase.sKEYWORD;
        for (int i = 0; i < rCase.nFIELDS; ++i) sCards += i > 0 && i % 8 == 0 ? "\n,7." : ",7.";
        sCards += "\n";
    }
    const CDropsObserver seen = Observe(sCards);
    ASSERT_EQ(seen.m_aDropped.size(), std::size(FULL_CARDS));
    for (std::size_t i = 0; i < std::size(FULL_CARDS); ++i) {
        EXPECT_EQ(seen.m_aDropped[i], FULL_CARDS[i].sDROPPED) << FULL_CARDS[i].sKEYWORD;
        EXPECT_EQ(seen.m_aOtherNames[i], "") << FULL_CARDS[i].sKEYWORD;
    }
    for (const T_KEYW_D& rKeyword : T_KEYW_D::TABLE) {
        const bool bCase = std::any_of(std::begin(FULL_CARDS), std::end(FULL_CARDS),
                                       [&](const auto& rCase) { return rCase.sKEYWORD == rKeyword.sNAME; });
        EXPECT_EQ(bCase, rKeyword.eACTION == CARD_PARSED) << rKeyword.sNAME;
    }
}

TEST(Drops, OfWhatCardsHold) {
    const struct {
        const char* sCARD;
        const char* sDROPPED;
    } aCases[] = {
        {"GRID,1,,1.,2.,3.,,123,0", ""},
        {"GRID,1,,1.,2.,3.,,123,\r", ""},
        {"CBAR,1,1,1,2,1.,0.,0.,\n,,456", "|PB"},
        {"CBAR,1,1,1,2,,0.,1.", "X3"}, // no point in X1: a grid
        {"CTRIA3,1,1,1,2,3,5", "MCID"},
        {"CQUAD8,1,1,1,2,3,4,,\n,,,5", "T1"},
        {"CGAP,1,1,1,2,5,,,9", "CID"},
        {"SPC,1,5,123,,6,1,-.5", "D2"},
        {"SPC,1,5,123,0.0", ""},
        {"SPC1,1,123,5,THRU,9", " THRU"},
        {"SPC1,1,1,1,2,3,4,5,6\n,7,8,,,10,THRU,20", "|G11 THRU"},
        {"RBE2,1,2,123,4,THRU,9", " THRU"},
        {"PLOAD4,1,5,2.,,,,THRU,9", " THRU"},
        {"PLOAD2,1,2.,5,THRU,9", ""},
        {"PLOAD2,1,2.,5,6,THRU,9", " THRU"},
        {"TEMPP1,1,10,5.,,,,11,THRU\n,15", ""},
        {"TEMPP1,1,10,5.,,,,,\n,12,THRU,15", " THRU"},
        {"LOAD,1,1.0,2.,3", ""},
        {"LOAD,1,0.,2.,3", "S"},
        {"LOAD,1,,2.,3", ""},
        {"PSHELL,1,1,.1,1,1.,,.833333", ""},
        {"PSHELL,1,1,.1,1,2.", "12I/T**3"},
        {"PBUSH,1,K,1.,2.,3.,4.,5.,6.\n,B,1.", ""},
        {"PBUSH,1,K,1.,2.,3.,4.,5.,6.\n,,GE,.1,,.2,,,\n,,RCV,1.", "|GE, GE1, GE3, RCV, SA"},
        {"PBUSH,1,RCV,1.,2.,3.,4.,GE,.1\n,.2", "SA, ST, EA, ET, GE1, GE2"},
        {"PBUSH,1,M,5.,K,1.", "fields without a name"},
        // a station between the ends, end B and what follows it; then no end B, for which K1 and what follows it is
        // lost
        {"PBEAM,1,1,1.,1.,1.,.5,1.,\n,,,,,,,,\n,NO,.5,2.,2.,,,,\n,,,,,,,,\n,YES,1.,3.,3.,,.4,,\n,,.1,,,,,,\n,.8,,,,,.7",
         "I12(A), SO, X/XB, A, I1, I12, C2, NSI(B)"},
        {"PBEAM,1,1,1.,2.,3.,,,\n,,,,,,,,\n,.8,.9,,.7", "K1, K2, S2"},
    };
    std::string sCards;
    for (const auto& rCase : aCases) sCards += std::string(rCase.sCARD) + "\n";
    const CDropsObserver seen = Observe(sCards);
    ASSERT_EQ(seen.m_aDropped.size(), std::size(aCases));
    for (std::size_t i = 0; i < std::size(aCases); ++i) {
        EXPECT_EQ(seen.m_aDropped[i], aCases[i].sDROPPED) << aCases[i].sCARD;
    }
}

} // namespace
