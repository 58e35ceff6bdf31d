// The names that the format gives to the fields of a card.

#include "cards/FieldNames.h"

#include <charconv>
#include <iterator>
#include <span>

namespace {

/// Names stand between blanks; "-" is a place that stays blank.
struct T_PART_D {
    std::string_view sWORDS; // any of which the part begins with
    std::string_view sNAMES; // that of the word is the first
};

/// What the card of a keyword is made of, in card order.
struct T_ROW_D {
    std::string_view sKEYWORD;
    std::string_view sFIELDS;                 // stand in their places whatever the card holds
    std::string_view sLIST = {};              // over and over; "#" counts up, from 1 or the number behind it
    std::span<const T_PART_D> aSECTIONS = {}; // in any order, as their words come
    std::string_view sLAST = {};              // behind all sections
};

constexpr T_PART_D PBEAM_STATION[] = {{"YES YESA NO", "SO X/XB A I1 I2 I12 J NSM C1 C2 D1 D2 E1 E2 F1 F2"}};
constexpr T_PART_D PBUSH_SECTIONS[] = {
    {"K", "K K1 K2 K3 K4 K5 K6"},
    {"B", "B B1 B2 B3 B4 B5 B6"},
    {"GE", "GE GE1 GE2 GE3 GE4 GE5 GE6"},
    {"RCV", "RCV SA ST EA ET"},
};

constexpr T_ROW_D ROWS[] = {
    {"GRID", "ID CP X1 X2 X3 CD PS SEID"},
    {"CORD1R", "CIDA G1A G2A G3A CIDB G1B G2B G3B"},
    {"CORD1C", "CIDA G1A G2A G3A CIDB G1B G2B G3B"},
    {"CORD1S", "CIDA G1A G2A G3A CIDB G1B G2B G3B"},
    {"CORD2R", "CID RID A1 A2 A3 B1 B2 B3 C1 C2 C3"},
    {"CORD2C", "CID RID A1 A2 A3 B1 B2 B3 C1 C2 C3"},
    {"CORD2S", "CID RID A1 A2 A3 B1 B2 B3 C1 C2 C3"},
    {"CBAR", "EID PID GA GB X1 X2 X3 OFFT PA PB W1A W2A W3A W1B W2B W3B"},
    {"CBEAM", "EID PID GA GB X1 X2 X3 OFFT PA PB W1A W2A W3A W1B W2B W3B SA SB"},
    {"CBEND", "EID PID GA GB X1 X2 X3 GEOM"},
    {"CROD", "EID PID G1 G2"},
    {"CTUBE", "EID PID G1 G2"},
    {"CONROD", "EID G1 G2 MID A J C NSM"},
    {"CTRIA3", "EID PID G1 G2 G3 THETA ZOFFS - - TFLAG T1 T2 T3"},
    {"CTRIAR", "EID PID G1 G2 G3 THETA ZOFFS - - TFLAG T1 T2 T3"},
    {"CTRIA6", "EID PID G1 G2 G3 G4 G5 G6 THETA ZOFFS T1 T2 T3 TFLAG"},
    {"CQUAD4", "EID PID G1 G2 G3 G4 THETA ZOFFS - TFLAG T1 T2 T3 T4"},
    {"CQUADR", "EID PID G1 G2 G3 G4 THETA ZOFFS - TFLAG T1 T2 T3 T4"},
    {"CQUAD8", "EID PID G1 G2 G3 G4 G5 G6 G7 G8 T1 T2 T3 T4 THETA ZOFFS TFLAG"},
    {"CSHEAR", "EID PID G1 G2 G3 G4"},
    {"CTETRA", "EID PID G1 G2 G3 G4 G5 G6 G7 G8 G9 G10"},
    {"CPENTA", "EID PID G1 G2 G3 G4 G5 G6 G7 G8 G9 G10 G11 G12 G13 G14 G15"},
    {"CHEXA", "EID PID G1 G2 G3 G4 G5 G6 G7 G8 G9 G10 G11 G12 G13 G14 G15 G16 G17 G18 G19 G20"},
    {"CELAS1", "EID PID G1 C1 G2 C2"},
    {"CELAS2", "EID K G1 C1 G2 C2 GE S"},
    {"CBUSH", "EID PID GA GB X1 X2 X3 CID S OCID S1 S2 S3"},
    {"CGAP", "EID PID GA GB X1 X2 X3 CID"},
    {"CONM2", "EID G CID M X1 X2 X3 - I11 I21 I22 I31 I32 I33"},
    {"RBE2", "EID GN CM", "GM#"},
    {"PBAR", "PID MID A I1 I2 J NSM FE C1 C2 D1 D2 E1 E2 F1 F2 K1 K2 I12"},
    {"PBARL", "PID MID GROUP TYPE - - - -", "DIM#"},
    {"PBEAM", "PID MID A(A) I1(A) I2(A) I12(A) J(A) NSM(A) C1(A) C2(A) D1(A) D2(A) E1(A) E2(A) F1(A) F2(A)", "",
     PBEAM_STATION, "K1 K2 S1 S2 NSI(A) NSI(B) CW(A) CW(B) M1(A) M2(A) M1(B) M2(B) N1(A) N2(A) N1(B) N2(B)"},
    {"PBEND", "PID MID A I1 I2 J RB THETAB C1 C2 D1 D2 E1 E2 F1 F2 K1 K2 NSM RC ZC DELTAN"},
    {"PROD", "PID MID A J C NSM"},
    {"PTUBE", "PID MID OD T NSM OD2"},
    {"PSHELL", "PID MID1 T MID2 12I/T**3 MID3 TS/T NSM Z1 Z2 MID4"},
    {"PCOMP", "PID Z0 NSM SB FT TREF GE LAM", "MID# T# THETA# SOUT#"},
    {"PSHEAR", "PID MID T NSM F1 F2"},
    {"PSOLID", "PID MID CORDM IN STRESS ISOP FCTN"},
    {"PELAS", "PID1 K1 GE1 S1 PID2 K2 GE2 S2"},
    {"PBUSH", "PID", "", PBUSH_SECTIONS},
    {"PGAP", "PID U0 F0 KA KB KT MU1 MU2 TMAX MAR TRMIN"},
    {"MAT1", "MID E G NU RHO A TREF GE ST SC SS MCSID"},
    {"MAT4", "MID K CP RHO H MU HGEN REFENTH TCH TDELTA QLAT"},
    {"MAT8", "MID E1 E2 NU12 G12 G1Z G2Z RHO A1 A2 TREF Xt Xc Yt Yc S GE F12 STRN"},
    {"FORCE", "SID G CID F N1 N2 N3"},
    {"FORCE1", "SID G F G1 G2"},
    {"FORCE2", "SID G F G1 G2 G3 G4"},
    {"MOMENT", "SID G CID M N1 N2 N3"},
    {"MOMENT1", "SID G M G1 G2"},
    {"MOMENT2", "SID G M G1 G2 G3 G4"},
    {"GRAV", "SID CID A N1 N2 N3 MB"},
    {"LOAD", "SID S", "S# L#"},
    {"PLOAD1", "SID EID TYPE SCALE X1 P1 X2 P2"},
    {"PLOAD2", "SID P", "EID#"},
    {"PLOAD4", "SID EID P1 P2 P3 P4 G1 G3/G4 CID N1 N2 N3 SORL LDIR"},
    {"TEMP", "SID G1 T1 G2 T2 G3 T3"},
    {"TEMPD", "SID1 T1 SID2 T2 SID3 T3 SID4 T4"},
    {"TEMPP1", "SID EID1 TBAR TPRIME T1 T2 - -", "EID#2"},
    {"TEMPRB", "SID EID1 TA TB TP1A TP1B TP2A TP2B TCA TDA TEA TFA TCB TDB TEB TFB", "EID#2"},
    {"SPC", "SID G1 C1 D1 G2 C2 D2"},
    {"SPC1", "SID C", "G#"},
    {"SPCD", "SID G1 C1 D1 G2 C2 D2"},
    {"MPC", "SID", "G# C# A# G# C# A# - -"},
    {"EIGB", "SID METHOD L1 L2 NEP NDP NDN - NORM G C"},
    {"EIGRL", "SID V1 V2 ND MSGLVL MAXSET SHFSCL NORM"},
};

} // namespace

std::vector<std::string_view> SplitNames(std::string_view sNames) {
    std::vector<std::string_view> aNames;
    while (!sNames.empty()) {
        const std::size_t nName = std::min(sNames.find(' '), sNames.size());
        aNames.push_back(sNames.substr(0, nName));
        sNames.remove_prefix(std::min(nName + 1, sNames.size()));
    }
    return aNames;
}

CFieldNames::CFieldNames(std::string_view sKeyword) {
    const auto* pRow =
        std::find_if(std::begin(ROWS), std::end(ROWS), [&](const T_ROW_D& rRow) { return rRow.sKEYWORD == sKeyword; });
    if (pRow == std::end(ROWS)) return;
    m_aFields = SplitNames(pRow->sFIELDS);
    for (const T_PART_D& rPart : pRow->aSECTIONS)
        m_aSections.push_back({SplitNames(rPart.sWORDS), SplitNames(rPart.sNAMES)});
    m_aLast = SplitNames(pRow->sLAST);
    SetList(pRow->sLIST);
}

void CFieldNames::SetList(std::string_view sList) {
    for (const std::string_view sEntry : SplitNames(sList)) {
        const std::size_t nName = std::min(sEntry.find('#'), sEntry.size());
        T_LISTED_D listed{sEntry.substr(0, nName)};
        if (nName < sEntry.size()) {
            listed.nFIRST = 1;
            std::from_chars(sEntry.data() + nName + 1, sEntry.data() + sEntry.size(), listed.nFIRST);
            listed.nSTEP = 1;
        }
        for (T_LISTED_D& rEarlier : m_aList) { // a name that comes twice counts on within an entry
            if (rEarlier.sNAME != listed.sNAME || listed.nSTEP == 0) continue;
            ++listed.nFIRST;
            listed.nSTEP = ++rEarlier.nSTEP;
        }
        m_aList.push_back(listed);
    }
}

const CFieldNames::T_SECTION_D* CFieldNames::FindSection(std::string_view sWord) const {
    for (const T_SECTION_D& rSection : m_aSections) {
        if (std::find(rSection.aWORDS.begin(), rSection.aWORDS.end(), sWord) != rSection.aWORDS.end()) return &rSection;
    }
    return nullptr;
}
