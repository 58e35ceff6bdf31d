// What the account says of small decks with one fault each.

#include "nas2zdt/text/Escape.h"
#include "support/Accounted.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

/// "GRID 3: 2 1 0 0 0 0 0 code*count@first-last" and so on: the read cards, then the columns in their order.
std::string Describe(const CAccount& rAccount) {
    std::string sText;
    for (const T_WORD_D* p : rAccount.GetWords()) {
        sText += p->sNAME + " " + std::to_string(p->nREAD) + ":";
        for (const std::uint64_t n :
             {p->nSTORED, p->nREPLACED, p->nREPORTED, p->nSKIPPED, p->nUNKNOWN, p->nLOST, p->nCUTOFF}) {
            sText += " " + std::to_string(n);
        }
        for (const T_NOTE_D& rNote : p->aNOTES) {
            sText += " " + std::string(NoteCode(rNote.eNOTE)) + "*" + std::to_string(rNote.nCOUNT);
            for (const T_PLACE_D& rPlace : rNote.aPLACES) {
                sText += "@" + std::to_string(rPlace.iFIRST) + "-" + std::to_string(rPlace.iLAST);
            }
        }
        sText += "\n";
    }
    return sText;
}

struct T_CASE_D {
    const char* sNAME;
    std::string sDECK;
    std::string sACCOUNT;

    friend std::ostream& operator<<(std::ostream& rOut, const T_CASE_D& rCase) { return rOut << rCase.sNAME; }
};

class AccountTest : public testing::TestWithParam<T_CASE_D> {};

/// The account of a run, which converts as without one.
CAccount Account(const std::string& sDeck) {
    T_ACCOUNTED_D run = RunAccounted(sDeck);
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_EQ(run.sZDT, RunDeck(sDeck).sZDT);
    return std::move(run.account);
}

TEST_P(AccountTest, Tells) {
    EXPECT_EQ(Describe(Account(GetParam().sDECK)), GetParam().sACCOUNT);
}

// clang-format off
const std::vector<T_CASE_D> CASES = {
    {"AllStored", "BEGIN BULK\nGRID,1\nGRID,2\nENDDATA\n", "GRID 2: 2 0 0 0 0 0 0\n"},
    {"EndOfDeck", "BEGIN BULK\nGRID,1\nGRID,2\n", "GRID 2: 1 0 0 0 0 1 0 end-of-deck*1@3-3\n"},
    {"EndOfDeckInContinuation", "BEGIN BULK\nGRID,1\n,1.\n,ENDDATA\n", "ENDDATA 0: 0 0 0 0 0 0 0 ended-early*1@4-4\nGRID 1: 0 0 0 0 0 1 0 end-of-deck*1@2-3\n"},
    {"BlankLine", "BEGIN BULK\nGRID,1\n   \nGRID,2\n$\n", "GRID 2: 1 0 0 0 0 1 0 blank-line*1@2-2\n"},
    {"EmptyLineKeeps", "BEGIN BULK\nGRID,1\n\nGRID,2\n$\n", "GRID 2: 2 0 0 0 0 0 0\n"},
    {"CutOffByAComment", "BEGIN BULK\nGRID,1\n$\n,2.,3.\nGRID,2\n$\n", "GRID 2: 2 0 0 0 0 0 1 cut-off*1@4-4\n"},
    {"CutOffFromNothing", "BEGIN BULK\n+,1\n$\n", " 0: 0 0 0 0 0 0 1 cut-off*1@2-2\n"},
    {"CutOffAtTheEnd", "BEGIN BULK\nGRID,1\n$\n,2.", "GRID 1: 1 0 0 0 0 0 1 cut-off*1@4-4\n"},
    {"TooManyLines", "BEGIN BULK\nGRID,1\n" + Repeat(",1.\n", 1002) + "GRID,2\n$\n",
        "GRID 2: 1 0 0 0 0 1 1 too-many-lines*1@2-1002 cut-off*1@1004-1004\n"},
    {"UnknownWords", "BEGIN BULK\nFOO,1\nGRID,1\nPARAM   POST    -1\nFOO\n=\n$\n",
        "= 1: 0 0 0 0 1 0 0 replication*1@6-6 unknown-word*1@6-6\nFOO 2: 0 0 0 0 2 0 0 unknown-word*2@2-2@5-5\n"
        "GRID 1: 1 0 0 0 0 0 0\nPARAM 1: 0 0 0 0 1 0 0 unknown-word*1@4-4\n"},
    {"UnknownAndLost", "BEGIN BULK\nFOO,1\n", "FOO 1: 0 0 0 0 0 1 0 end-of-deck*1@2-2\n"},
    {"Reported", "BEGIN BULK\nRBAR,1\n,2\n$\n", "RBAR 1: 0 0 1 0 0 0 0 reported*1@2-3\n"},
    {"Skipped", "BEGIN BULK\nPLOTEL,1\n$\n", "PLOTEL 1: 0 0 0 1 0 0 0 skipped*1@2-2\n"},
    {"Replaced", "BEGIN BULK\nGRID,1\nGRID,2\nGRID,9\nGRID,1\nGRID,1,,5.\nMAT4,5\nMAT1,5\nTEMPD,1,2.\nTEMPD,1,3.,1,3.\nENDDATA\n",
        "GRID 5: 5 2 0 0 0 0 0 duplicate*1@5-5 replaced*1@6-6\nMAT1 1: 1 0 0 0 0 0 0\n"
        "MAT4 1: 1 1 0 0 0 0 0 replaced*1@8-8\nTEMPD 2: 2 2 0 0 0 0 0 replaced*1@10-10 duplicate*1@10-10 altered*1\n"},
    {"Fields", "BEGIN BULK\nGRID,1,,,,,,,9\nGRID,2,,,,,,,0\nGRID,3,,,,,,12,7,8\n$\n",
        "GRID 3: 3 0 0 0 0 0 0 fields*2@2-2@4-4 fields-past-read*1@4-4 unwritten*1\n"},
    {"PlusSign", "BEGIN BULK\nGRID,1,,1.0E+3,2.\nGRID,2,,1.,+A\n$\n", "GRID 2: 2 0 0 0 0 0 0 plus-sign*1@2-2\n"},
    {"NoBulk", "SOL 101\nGRID,1\n", " 0: 0 0 0 0 0 0 0 no-bulk*1@0-0\n"},
    {"ReturnsAreNoLoss", "BEGIN BULK\r\nGRID,1\r\n\r\n\r\nGRID,2\r\n  \r\nGRID,3,,\r\nENDDATA\r\n", "GRID 3: 3 0 0 0 0 0 0\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Decks, AccountTest, testing::ValuesIn(CASES),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

TEST(Account, KeepsTheFirstHundredPlaces) {
    CAccount account;
    account.OnDeckBegin("deck.dat");
    T_LOSS_D loss;
    loss.eLOSS = LOSS_UNKNOWN_WORD;
    loss.sWORD = "FOO";
    for (int i = 1; i <= 250; ++i) {
        loss.iFIRST = loss.iLAST = i;
        account.OnLoss(loss);
    }
    const T_NOTE_D& rNote = account.GetWords().at(0)->aNOTES.at(0);
    EXPECT_EQ(rNote.nCOUNT, 250u);
    EXPECT_EQ(rNote.aPLACES.size(), 100u);
    EXPECT_EQ(account.GetLossCounts()[CLASS_MODEL], 250u);
}

TEST(Account, WhatTheFileLacksByKeywordAndText) {
    const CAccount account = Account("BEGIN BULK\nGRID,1\nCELAS2,1,1.,98,1\nCELAS2,2,1.,1,1,99,1\nCELAS2,3,0.,1,1,1,2\n"
                                     "CELAS2,4,1.,1,1,1,1\nFORCE1,1,9,1.,1,9\nSPC1,1,1,1,1,1\nSPC1,2,1,1\nENDDATA\n");
    std::string sText;
    for (const T_WORD_D* pWord : account.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            sText += pWord->sNAME + " " + std::to_string(rNote.nCOUNT) + " " + NoteText(rNote) + ":";
            for (const std::int32_t iID : rNote.aIDS) sText += " " + std::to_string(iID);
            sText += "\n";
        }
    }
    EXPECT_EQ(sText, "CELAS2 4 changed: EID isn't in the file:\n"
                     "CELAS2 2 not written: springs on a grid that doesn't exist (ids: elements): 1 2\n"
                     "CELAS2 1 not written: springs without stiffness (ids: elements): 3\n"
                     "FORCE1 1 altered: forces whose direction is given by grids that don't exist, which count as the "
                     "origin (ids: loaded grids): 9\n"
                     "FORCE1 1 not written: forces of zero (ids: grids): 9\n"
                     "SPC 3 not written: grids of constraint sets that don't reach the file (ids: sets): 1\n");
}

TEST(Account, TellsManySetsOfFieldsAsOne) {
    std::string sDeck = "BEGIN BULK\nMAT1,1,1.,,.3\n";
    for (int iSet = 1; iSet < 64; ++iSet) { // C1 to E2
        sDeck += "PBAR," + std::to_string(iSet) + ",1,,,,,,\n";
        for (int iField = 0; iField < 6; ++iField) sDeck += (iSet >> iField & 1) != 0 ? ",1." : ",";
        sDeck += "\n";
    }
    const CAccount account = Account(sDeck + "$\n");
    const std::vector<T_NOTE_D>& rNotes = account.GetWords().at(1)->aNOTES;
    ASSERT_EQ(rNotes.size(), 52u); // with that of properties without an element
    EXPECT_EQ(NoteText(rNotes[6]), "dropped: C1, C2, D1");
    EXPECT_EQ(NoteText(rNotes[50]), "dropped: other fields");
    EXPECT_EQ(rNotes[50].nCOUNT, 13u); // that GE stands in field 10 is a kind, too
}

TEST(JsonText, IsAlwaysUtf8) {
    EXPECT_EQ(JsonText("a\"b\\c\n"), "\"a\\\"b\\\\c\\u000a\"");
    EXPECT_EQ(JsonText("gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x98\x80"), "\"gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x98\x80\"");
    EXPECT_EQ(JsonText("\x1B\x7F \xC2\x9B \x9B"), "\"\\u001b\\u007f \\u009b \\u009b\"");
    EXPECT_EQ(JsonText("\xFF\xC3"), "\"\\u00ff\\u00c3\"");
    EXPECT_EQ(JsonText("\xC0\x80 \xED\xA0\x80"), "\"\\u00c0\\u0080 \\u00ed\\u00a0\\u0080\"");
}

TEST(Sections, HaveAllLinesOfTheFile) {
    const CTempFolder folder;
    WriteText(folder.Path("a.zdt"), "*VERSION\n  5.8.1\n\n*RIGIDLINK    ; Rigid Link\n 1 * 2\n\n*VERSION\n  6\n\n\n");
    std::string sText;
    for (const T_SECTION_D& r : CountSections(folder.Path("a.zdt"))) {
        sText += r.sNAME + " " + std::to_string(r.nBLOCKS) + " " + std::to_string(r.nLINES) + "\n";
    }
    EXPECT_EQ(sText, "*VERSION 2 7\n*RIGIDLINK 1 3\n");
    EXPECT_THROW(CountSections(folder.Path("none.zdt")), CFileException);
}

} // namespace
