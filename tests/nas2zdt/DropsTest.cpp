// What cards are told to lose by what stands in their fields.

#include "support/Accounted.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// Class, kind and text of each loss of a card, but for the kinds that other tests are about.
std::string DescribeDrops(const std::string& sCard) {
    const T_ACCOUNTED_D run = RunAccounted("BEGIN BULK\nGRID,7\nGRID,8\nCQUAD4,7\nCQUAD4,8\n" + sCard + "\nENDDATA\n");
    EXPECT_EQ(run.iRESULT, 1);
    std::string sText;
    for (const T_WORD_D* pWord : run.account.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (rNote.eNOTE == NOTE_UNWRITTEN || rNote.eNOTE == NOTE_ALTERED || rNote.eNOTE == NOTE_REPLACED) continue;
            if (rNote.sTEXT.ends_with("ID isn't in the file")) continue;
            sText += (sText.empty() ? "" : "; ") + std::string(ClassName(rNote.eCLASS)) + " " +
                     std::string(NoteKind(rNote)) +
                     (rNote.sTEXT.empty() ? " " + std::to_string(rNote.nCOUNT) : ": " + rNote.sTEXT);
        }
    }
    return sText;
}

const struct {
    const char* sCARD;
    const char* sDROPPED;
} CASES[] = {
    {"GRID,1,,1.,2.,3.,,123,0", ""},
    {"GRID,1,,1.,2.,3.,,123,\r", ""},
    {"GRID,1,,1.,2.,3.,,123,7,8", "model fields-past-read: fields without a name; control fields: SEID"},
    {"CROD,1,1,7,8,9", "model fields-past-read: fields without a name"},
    {"FORCE,1,7,5,1.,0.,0.,1.", "model fields: CID"},
    {"CBAR,1,1,7,8,1.,0.,0.,\n,,456", "model fields-past-read: PB"},
    {"CBAR,1,1,7,8,1.,0.,0.,GGG", ""},
    {"CBAR,1,1,7,8,1.,0.,0.,BGG", ""},
    {"CBAR,1,1,7,8,1.,0.,0.,GOO", "model fields-past-read: OFFT"},
    {"CBAR,1,1,7,8,,0.,1.", "model fields: X3"}, // no point in X1: a grid
    {"CTRIA3,1,1,7,8,3,5", "model fields: MCID"},
    {"CTRIA3,1,1,7,8,3,0", "model meaning: MCID 0, the basic frame, isn't in the file"},
    {"CTRIA3,1,1,7,8,3,0.", ""},
    {"CQUAD8,1,1,1,2,3,4,,\n,,,5", "model fields: T1"},
    {"CGAP,1,1,7,8,5,,,9", "model fields: CID"},
    {"CBUSH,1,1,7,8,,,,0", "model meaning: CID 0, the basic axes: the link has axes of its own"},
    {"SPC,1,7,123,,8,1,-.5", "model fields: D2"},
    {"SPC,1,7,123,0.0", ""},
    {"SPC1,1,123,6,THRU,9", "model thru 2"},
    {"SPC1,1,123,7,THRU,8", ""}, // both ends are read
    {"SPC1,1,1,1,2,3,4,5,6\n,7,8,9,6,THRU,8", "model fields-past-read: G10; model thru 2"},
    {"RBE2,1,7,123,6,THRU,9", "model thru 2"},
    {"RBE2,1,7,123,8,6.5E-6", "model not-a-number: GM2"},
    {"PLOAD4,1,7,2.,,,,THRU,9", "model thru 1"},
    {"PLOAD4,1,7,2.,0.0", "model meaning: corners of 0.0 have the pressure of the first"},
    {"PLOAD4,1,7,2.,,3.", ""},
    {"PLOAD2,1,2.,5,THRU,9", ""},
    {"PLOAD2,1,2.,5,6,THRU,9", "model thru 2"},
    {"PLOAD1,1,7,FX,FR,0.,2.,1.", "model meaning: P2 is 0: blank means P1"},
    {"PLOAD1,1,7,FX,FR,0.,2.,0.", ""},
    {"TEMPP1,1,10,5.,,,,11,THRU\n,15", ""},
    {"TEMPP1,1,10,5.,,,,,\n,6,THRU,15", "model thru 2"},
    {"LOAD,1,1.0,2.,3", ""},
    {"LOAD,1,0.,2.,3", "model fields: S"},
    {"LOAD,1,,2.,3", ""},
    {"MAT1,1,2.1D11,,.3", "model not-a-number: E"},
    {"MAT1,1,2.1-11,,.3", ""},
    {"MAT1,1,2.1.1,,.3O", "model not-a-number: E, NU"},
    {"MAT1,1,2.1E11,8.E10", "model meaning: NU is 0: it isn't worked out of E and G"},
    {"MAT1,1,,8.E10,.3", "model meaning: E is 0: it isn't worked out of G and NU"},
    {"MAT1,1,2.1E11,8.E10,.3", ""}, // within 1 %
    {"MAT1,1,2.1E11,7.E10,.3", "model meaning: G isn't in the file, whose E and NU give another"},
    {"MAT1,1,2.1E11,,.3,7.85,,20.,\n,1.", "model fields: TREF; mass fields: RHO; note fields: ST"},
    {"GRID,99999999999", "model not-a-number: ID"},
    {"GRID,1.", "model not-a-number: ID"},
    {"PTUBE,1,1,.1", "model meaning: T is 0: blank or 0.0 means a solid rod"},
    {"PTUBE,1,1,.1,.01", ""},
    {"PBARL,1,1,,BAR,,,,\n,1.,2.,3.", "mass meaning: NSM isn't in the file"},
    {"PBARL,1,1,,BAR,,,,\n,1.,2.", ""},
    {"PSHELL,1,1,.1,1,1.,,.8333", ""},
    {"PSHELL,1,1,.1,1,2.", "model fields: 12I/T**3"},
    {"PBUSH,1,K,1.,2.,3.,4.,5.,6.\n,B,1.", ""},
    {"PBUSH,1,K,1.,2.,3.,4.,5.,6.\n,,GE,.1,,.2,,,\n,,RCV,1.",
     "model fields-past-read: GE, GE1, GE3, RCV; note fields-past-read: SA"},
    {"PBUSH,1,RCV,1.,2.,3.,4.,GE,.1\n,.2", "model fields: GE1, GE2; note fields: SA, ST, EA, ET"},
    {"PBUSH,1,M,5.,K,1.", "model fields: fields without a name"},
    {"PBUSH,1,K,RIGID", "model not-a-number: K1"},
    // a station between the ends, end B and what follows it; then no end B, for which K1 and what follows it is lost
    {"PBEAM,1,1,1.,1.,1.,.5,1.,\n,,,,,,,,\n,NO,.5,2.,2.,,,,\n,,,,,,,,\n,YES,1.,3.,3.,3.,.4,1.,\n,,.1,,,,,,\n,.8,1.,,,,."
     "7",
     "model fields: I12(A), X/XB, A, I1, I12; mass fields: NSI(B); note fields: SO, C2"},
    {"PBEAM,1,1,1.,2.,3.,,,\n,,,,,,,,\n,.8,.9,,.7", "model fields: K1, K2, S2"},
    {"PBEAM,1,1,1.,2.,3.,,4.,\n,,,,,,,,\n,NO,.5,2.,1.",
     "model fields: X/XB, A; note fields: SO; model meaning: a 1.0 that isn't the X/XB of end B is taken for it, and "
     "what is "
     "behind for end B; model meaning: K1, K2 are 0: blank means 1.0"},
    {"PBARL,1,1,,BAR,,,,\n,1.,2.,,4.", "note meaning: fields behind the NSM, where the TYPE has no dimension"},
    {"CELAS2,1,1.,7,,8,1", "model meaning: an end with G1 or G2 and without a component is taken for the ground"},
    {"SPC,1,7,123,,,1", "model fields: C2"},
    {"SPCD,1,7,1,2.,,1,3.", "model fields: C2, D2"},
    {"TEMP,1,7,5.,,6.", "model fields: T2"},
    {"SPC1,1,123", "note meaning: a card without a grid holds nothing"},
    {"LOAD,1,,2.,,3.,3", "note meaning: an S without its L adds nothing"},
    {"PELAS,1,,.1", "note meaning: a GE without its K damps nothing"},
    {"MAT1,1,2.,1.,-1.", "model meaning: G isn't in the file, whose E and NU give another"},
    {"PBEAM,1,1,1.,2.,3.,,4.,", "model meaning: K1, K2 are 0: blank means 1.0"},
};

/// The card on one line with columns of eight; empty if it has more lines, more fields or wider ones.
std::string InColumns(std::string_view sCard) {
    std::string sLine;
    for (std::size_t i = 0; i <= sCard.size();) {
        const std::size_t iEnd = std::min(sCard.find(',', i), sCard.size());
        std::string sField(sCard.substr(i, iEnd - i));
        if (sField.size() > 8 || sField.find('\n') != std::string::npos) return "";
        if (iEnd < sCard.size()) sField.resize(8, ' ');
        sLine += sField;
        i = iEnd + 1;
    }
    return sLine.size() > 72 ? "" : sLine;
}

TEST(Drops, OfWhatCardsHold) {
    for (const auto& rCase : CASES) {
        EXPECT_EQ(DescribeDrops(rCase.sCARD), rCase.sDROPPED) << rCase.sCARD;
        const std::string sColumns = InColumns(rCase.sCARD); // most such cards are counted without a closer look
        if (sColumns.empty()) continue;
        EXPECT_EQ(DescribeDrops(sColumns), rCase.sDROPPED) << sColumns;
    }
}

} // namespace
