// What the account says of lines that are read otherwise than NASTRAN does, and of case control.

#include "support/Accounted.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

bool IsOfText(E_NOTE eNote) {
    return eNote == NOTE_PLUS_SIGN || (eNote >= NOTE_TEXT_TAB && eNote <= NOTE_CASE_UNASKED);
}

/// "GRID text-tab*1 X1, X2 @2-3 5" and so on: keyword, code, count, names, lines, ids.
std::string Tell(const std::string& sDeck) {
    const T_ACCOUNTED_D run = RunAccounted(sDeck);
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_EQ(run.sZDT, RunDeck(sDeck).sZDT);
    std::string sText;
    for (const T_WORD_D* pWord : run.account.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (!IsOfText(rNote.eNOTE)) continue;
            sText += pWord->sNAME + " " + std::string(NoteCode(rNote.eNOTE)) + "*" + std::to_string(rNote.nCOUNT);
            if (!rNote.sTEXT.empty()) sText += " " + rNote.sTEXT;
            for (const T_PLACE_D& rPlace : rNote.aPLACES) {
                sText += " @" + std::to_string(rPlace.iFIRST) + "-" + std::to_string(rPlace.iLAST);
            }
            for (const std::int32_t iID : rNote.aIDS) sText += " " + std::to_string(iID);
            sText += "\n";
        }
    }
    return sText;
}

struct T_CASE_D {
    const char* sNAME;
    std::string sTEXT;
    std::string sTOLD;

    friend std::ostream& operator<<(std::ostream& rOut, const T_CASE_D& rCase) { return rOut << rCase.sNAME; }
};

class TextTest : public testing::TestWithParam<T_CASE_D> {};

TEST_P(TextTest, Tells) {
    EXPECT_EQ(Tell("BEGIN BULK\n" + GetParam().sTEXT + "ENDDATA\n"), GetParam().sTOLD);
}

// clang-format off
const std::vector<T_CASE_D> CARDS = {
    {"Tab", "GRID    1\t1.\t2.\n", "GRID text-tab*1 ID, CP, X1 @2-2\n"},
    {"TabBehindAll", "GRID    1       0\t$\n", ""},
    {"TabInTheWord", "FORCE\t1\t3\t0\t1.\n", "FORCE1 text-tab*1 the keyword, which is FORCE @2-2\n"},
    {"TabInTheWordUnknown", "SPC\t1\t3\t123\n", "SPC13 text-tab*1 the keyword, which is SPC @2-2\n"},
    {"TabInFront", "PBARL   1       1               BAR\n\t10.\t20.\n",
        "PBARL text-tab*1 continuation lines, read as cards @3-3\n"},
    {"Blank", "FORCE 1 3       0       1.\n", "FORCE1 text-blank*1 the keyword, which is FORCE 1 @2-2\n"},
    {"BlankInAField", "GRID    1               1. 5\n", "GRID text-blank*1 X1 @2-2\n"},
    {"BlankInFreeField", "GRID, 1, ,  1.,2. ,3.\nGRID,2,,1. 5\n", "GRID text-blank*1 X1 @3-3\n"},
    {"BlankInFront", "GRID,1\n GRID,2\n", "GRID text-blank*1 a card GRID, read as a continuation line @2-3\n"},
    {"BlanksAround", "GRID  , 1 ,,  1. ,2.\n GRID   \n", "GRID text-blank*1 a card GRID, read as a continuation line @2-3\n"},
    {"Comment", "SPC1    1       123     1       $ edge  3\n", "SPC1 text-comment*1 G2, G3 @2-2\n"},
    {"CommentOfOneWord", "SPC1    1       123     1       $3\n", "SPC1 text-comment*1 G2 @2-2\n"},
    {"CommentOfWords", "SPC1    1       123     1       $       3\n", "SPC1 text-comment*1 G2, G3 @2-2\n"},
    {"CommentInFreeField", "FORCE,1,2,0,1.,1.,0.,$ 2.\nFORCE,1,2,0,1.,1.,0.,0.$ comment\n",
        "FORCE text-comment*1 N3 @2-2\n"},
    {"CommentWhereNobodyReads", "GRID    1               0.      0.      0.                              $ grid\n", ""},
    {"Mark", "CORD2R,5,,0.,0.,0.,0.,0.,1.,\n,0.,1.,0.\n", "CORD2R text-mark*1 C1, C2, C3 @2-3\n"},
    {"MarkWithPlus", "CORD2R,5,,0.,0.,0.,0.,0.,1.,+A\n+A,0.,1.,0.\n", ""},
    {"BehindTheMark", "CHEXA,1,1,1,2,3,4,5,6,7,8\n", "CHEXA text-mark*1 G7, G8 @2-2\n"},
    {"Short", "PLOAD4,5,1,2.\n,0,0.,0.,1.\n", "PLOAD4 text-short*1 P2, P3, P4, G1, ... @2-3\n"},
    {"ShortLast", "PLOAD4,5,1,2.,,,,,\n,0,0.\n", ""},
    {"ShortLarge", "GRID*                  7                              1.\n*                     3.\n",
        "GRID text-short*1 X2, X3 @2-3\n"},
    {"BlankInLarge", "GRID*                  7                      1.  5                   2.\n*\n", "GRID text-blank*1 X1 @2-3\n"},
    {"WholeLarge", "GRID*                  7                              1.              2.*A\n*A                     3.\n", ""},
    {"SignedLast", "GRID,1,,1.,+5.\n", "GRID plus-sign*1 X2 @2-2\n"},
    {"SignedInside", "GRID,1,,1.0E+3,2.\n", "GRID plus-sign*1 @2-2\n"},
    {"Colon", "GRID,1,,1:2\nGRID,2 $ a:b\n", "GRID text-colon*1 @2-2\n"},
    {"LargeFree", "GRID*,7,,1.0,2.0,\n*,3.0\n", "GRID* text-large-free*1 the keyword, which is GRID @2-3\n"},
    {"EqualsSign", "GRID,1\nGRID,2, ,3=4,3.\n", "GRID text-other*1 X1, X2 @3-3\nGRID said-ignored*1 @3-3\n"},
    {"Order", "PLOAD4  1       1       10.                                             +A\n"
        "PLOAD4  2       1       20.                                             +B\n"
        "+B      0       1.      0.      0.\n+A      0       0.      1.      0.\n", "PLOAD4 stray-line*1 @5-5\n"},
    {"OrderOfNobody", "PLOAD4  1       1       10.                                             +A\n"
        "+X      0       1.      0.      0.\n", ""},
    {"NumbersBehindField9", "GRID    1                                                               00000001\n"
        "GRID    2                                                               00000002\n", ""},
    {"Replication", "GRID,1\n=,*(1),=,*(1.),==\n=(2)\n", "= replication*1 @3-3\n=(2) replication*1 @4-4\n"},
    {"SaidIgnored", "GRID,1\nGRID,2 $ a*b\n", "GRID said-ignored*1 @3-3\n"},
    {"Part", "GRID,1\nBEGIN SUPER=1\nGRID,2\nGRID,3\n", "GRID part*2 @4-4 @5-5\n"},
    {"PartWithBulk", "GRID,1\nBEGIN BULK SUPER=2\nGRID,2\nBEGIN BULK SUPER=0\nGRID,3\n", "GRID part*1 @4-4\n"},
    {"EndedEarly", "GRID,1\nPARAM,ENDDATA\nGRID,2\n", "ENDDATA ended-early*1 @3-3\n"},
};

const std::string BULK = "BEGIN BULK\nSPC1,1,123,1\nSPC1,2,123,2\nSPC1,3,123,3\nMPC,5,1,1,-1.,2,1,1.\nMPC,6,1,1,-1.,2,1,1.\n"
    "FORCE,11,1,0,1.,1.\nFORCE,12,1,0,1.,1.\nFORCE,13,1,0,1.,1.\nLOAD,20,1.,1.,11,1.,12\nTEMP,14,1,5.\nEIGRL,9,,,5\n"
    "SPCADD,30,1,3\n";
// of these, the file has the supports of set 3, which the store has first, and the equations of set 6
const std::vector<T_CASE_D> CASES = {
    {"NoControl", "", ""},
    {"AsksForNothing", "SOL 101\nCEND\n", "LOAD case-unasked*5 11 12 13 14 20\n"},
    {"AsksForAll", "CEND\nSPC=3\nMPC = 6\nMETHOD=9\nTEMP(LOAD)=14\nSUBCASE 1\nLOAD=20\nSUBCASE 2\n LOAD = 13 $ a\n", ""},
    {"OtherSets", "CEND\nLOAD=20\nSPC=1\nMPC=5\nSUBCASE 1\nSPC=3\nSUBCASE 7\nSPCFORCES=ALL\n",
        "LOAD case-unasked*2 13 14\nMPC case-missing*1 5\nMPC case-extra*2 1 7\nSPC case-missing*1 1\nSPC case-extra*1 7\n"},
    {"Sum", "CEND\nSPC=30\nDLOAD=1\n", "SPC case-missing*1 1\n"},
    {"Lacking", "CEND\nDLOAD=1\nLOAD=77\nSPC=78\nMETHOD=80\n",
        "EIGRL case-lacking*1 80\nLOAD case-lacking*1 77\nSPC case-lacking*1 78\nSPC case-extra*1 1\n"},
    {"InitialTemperature", "CEND\nLOAD=20\nTEMP(INIT)=14\nINCLUDE 'more.dat'\n",
        "INCLUDE control-include*1 @4-4\nLOAD case-unasked*2 13 14\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cards, TextTest, testing::ValuesIn(CARDS),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

class CaseControlTest : public testing::TestWithParam<T_CASE_D> {};

TEST_P(CaseControlTest, Tells) {
    EXPECT_EQ(Tell(GetParam().sTEXT + BULK + "ENDDATA\n"), GetParam().sTOLD);
}

INSTANTIATE_TEST_SUITE_P(Cases, CaseControlTest, testing::ValuesIn(CASES),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

} // namespace
