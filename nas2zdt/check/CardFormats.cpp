#include "nas2zdt/check/CardFormats.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::int32_t ANY_LOW = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t ANY_HIGH = std::numeric_limits<std::int32_t>::max();

constexpr T_FIELDTYPE_D TYPES[] = {
    {"any", AS_ANY},
    {"word", AS_WORD},
    {"int", AS_INTEGER},
    {"count", AS_INTEGER, TARGET_NOTHING, 0},
    {"id", AS_INTEGER, TARGET_NOTHING, 1, LARGEST_ID},
    {"mid", AS_INTEGER, TARGET_NOTHING, 1}, // NASTRAN itself makes materials past eight digits
    {"real", AS_REAL},
    {"notneg", AS_REAL, TARGET_NOTHING, ANY_LOW, ANY_HIGH, VALUE_NOTNEGATIVE},
    {"above0", AS_REAL, TARGET_NOTHING, ANY_LOW, ANY_HIGH, VALUE_POSITIVE},
    {"mixed", AS_MIXED},
    {"comps", AS_COMPONENTS},
    {"comp", AS_COMPONENT},
    {"grid", AS_INTEGER, TARGET_GRID, 1, LARGEST_ID},
    {"grid0", AS_INTEGER, TARGET_GRID, 0, LARGEST_ID},
    {"gridx", AS_NUMBER, TARGET_GRID, 0, LARGEST_ID}, // or the first component of a vector
    {"point", AS_INTEGER, TARGET_POINT, 1, LARGEST_ID},
    {"point0", AS_INTEGER, TARGET_POINT, 0, LARGEST_ID},
    {"frame", AS_INTEGER, TARGET_FRAME, 0, LARGEST_ID},
    {"frame-", AS_INTEGER, TARGET_FRAME, -1, LARGEST_ID}, // -1 isn't a frame
    {"theta", AS_NUMBER, TARGET_FRAME, 0, LARGEST_ID},    // or an angle
    {"mat", AS_INTEGER, TARGET_MATERIAL, 0},
    {"mat-", AS_INTEGER, TARGET_MATERIAL, -1}, // -1 for plane strain
    {"prop", AS_INTEGER, TARGET_PROPERTY, 1, LARGEST_ID},
    {"bar", AS_INTEGER, TARGET_BAR, 1, LARGEST_ID},
    {"line", AS_INTEGER, TARGET_LINE, 1, LARGEST_ID},
    {"surface", AS_INTEGER, TARGET_SURFACE, 1, LARGEST_ID},
    {"face", AS_INTEGER, TARGET_FACE, 1, LARGEST_ID},
    {"spcs", AS_INTEGER, TARGET_SUPPORTS, 1, LARGEST_ID},
    {"mpcs", AS_INTEGER, TARGET_EQUATIONS, 1, LARGEST_ID},
    {"loads", AS_INTEGER, TARGET_LOADS, 1, LARGEST_ID},
};

/// Fields stand between blanks: a name, "=" and a type, which holds for those before it that have none, too; "-" is a
/// place that isn't looked at, "!" behind a name that the field mustn't be blank. A list of ids begins with "*", or
/// with "~" if it ends at a real number.
struct T_ROW_D {
    std::string_view sKEYWORD, sFIELDS, sLIST = {};
};

constexpr std::string_view FRAME_BY_GRIDS = "CIDA!=id G1A! G2A! G3A!=grid CIDB=id G1B G2B G3B=grid";
constexpr std::string_view FRAME_BY_POINTS = "CID!=id RID=frame A1 A2 A3 B1 B2 B3 C1 C2 C3=real";
constexpr std::string_view SHELL4 =
    "EID!=id PID=id G1! G2! G3! G4!=id THETA=theta ZOFFS=real - TFLAG=count T1 T2 T3 T4=notneg";
constexpr std::string_view SHELL3 =
    "EID!=id PID=id G1! G2! G3!=id THETA=theta ZOFFS=real - - TFLAG=count T1 T2 T3=notneg";
constexpr std::string_view SCALAR_ELEMENT = "EID!=id PID=id G1=point0 C1=comp G2=point0 C2=comp";
constexpr std::string_view SCALAR_POINTS = "EID!=id PID!=prop S1 S2=point0";
constexpr std::string_view SCALAR_PROPERTIES = "PID1!=id V1=real PID2=id V2=real PID3=id V3=real PID4=id V4=real";
constexpr std::string_view SET_OF_POINTS = "G=point C=comps";
constexpr std::string_view ENFORCED = "SID!=id G1=point C1=comps D1=real G2=point C2=comps D2=real";
constexpr std::string_view FORCE_BY_VECTOR = "SID!=id G!=grid CID=frame F N1 N2 N3=real";
constexpr std::string_view FORCE_ALONG = "SID!=id G!=grid F!=real G1! G2!=grid";
constexpr std::string_view FORCE_ACROSS = "SID!=id G!=grid F!=real G1! G2! G3! G4!=grid";

constexpr T_ROW_D ROWS[] = {
    // points and frames
    {"GRID", "ID!=id CP=frame X1 X2 X3=real CD=frame- PS=comps"},
    {"GRDSET", "- CP=frame - - - CD=frame- PS=comps"},
    {"SPOINT", "", "*ID=id"},
    {"EPOINT", "", "*ID=id"},
    {"CORD1R", FRAME_BY_GRIDS},
    {"CORD1C", FRAME_BY_GRIDS},
    {"CORD1S", FRAME_BY_GRIDS},
    {"CORD2R", FRAME_BY_POINTS},
    {"CORD2C", FRAME_BY_POINTS},
    {"CORD2S", FRAME_BY_POINTS},

    // elements
    {"BAROR", "- PID=id - - X1=gridx X2 X3=real"},
    {"BEAMOR", "- PID=id - - X1=gridx X2 X3=real"},
    {"CBAR", "EID!=id PID=id GA! GB!=id X1=gridx X2 X3=real - PA PB=comps W1A W2A W3A W1B W2B W3B=real"},
    {"CBEAM", "EID!=id PID=id GA! GB!=id X1=gridx X2 X3=real - PA PB=comps W1A W2A W3A W1B W2B W3B=real SA SB=point0"},
    {"CBEND", "EID!=id PID=id GA! GB!=id X1=gridx X2 X3=real GEOM=count"},
    {"CBUSH", "EID!=id PID=id GA GB=point0 X1=gridx X2 X3=real CID=frame S=real OCID=frame- S1 S2 S3=real"},
    {"CBUSH1D", "EID!=id PID=id GA GB=point0 CID=frame"},
    {"CDAMP1", SCALAR_ELEMENT},
    {"CDAMP2", "EID!=id B=real G1=point0 C1=comp G2=point0 C2=comp"},
    {"CDAMP3", SCALAR_POINTS},
    {"CDAMP4", "EID!=id B=real S1 S2=point0"},
    {"CELAS1", SCALAR_ELEMENT},
    {"CELAS2", "EID!=id K=real G1=point0 C1=comp G2=point0 C2=comp GE S=real"},
    {"CELAS3", SCALAR_POINTS},
    {"CELAS4", "EID!=id K=real S1 S2=point0"},
    {"CGAP", "EID!=id PID=id GA GB=point0 X1=gridx X2 X3=real CID=frame"},
    {"CHEXA",
     "EID!=id PID=id G1! G2! G3! G4! G5! G6! G7! G8!=id G9 G10 G11 G12 G13 G14 G15 G16 G17 G18 G19 G20=point0"},
    {"CMASS1", SCALAR_ELEMENT},
    {"CMASS2", "EID!=id M=real G1=point0 C1=comp G2=point0 C2=comp"},
    {"CMASS3", SCALAR_POINTS},
    {"CMASS4", "EID!=id M=real S1 S2=point0"},
    {"CONM1", "EID!=id G!=grid CID=frame", "M=real"},
    {"CONM2", "EID!=id G!=grid CID=frame- M X1 X2 X3=real - I11 I21 I22 I31 I32 I33=real"},
    {"CONROD", "EID!=id G1! G2!=id MID!=mat A J=notneg C NSM=real"},
    {"CPENTA", "EID!=id PID=id G1! G2! G3! G4! G5! G6!=id G7 G8 G9 G10 G11 G12 G13 G14 G15=point0"},
    {"CPYRAM", "EID!=id PID=id G1! G2! G3! G4! G5!=id G6 G7 G8 G9 G10 G11 G12 G13=point0"},
    {"CQUAD4", SHELL4},
    {"CQUAD8",
     "EID!=id PID=id G1! G2! G3! G4!=id G5 G6 G7 G8=point0 T1 T2 T3 T4=notneg THETA=theta ZOFFS=real TFLAG=count"},
    {"CQUADR", SHELL4},
    {"CROD", "EID!=id PID=id G1! G2!=id"},
    {"CSHEAR", "EID!=id PID=id G1! G2! G3! G4!=id"},
    {"CTETRA", "EID!=id PID=id G1! G2! G3! G4!=id G5 G6 G7 G8 G9 G10=point0"},
    {"CTRIA3", SHELL3},
    {"CTRIA6", "EID!=id PID=id G1! G2! G3!=id G4 G5 G6=point0 THETA=theta ZOFFS=real T1 T2 T3=notneg TFLAG=count"},
    {"CTRIAR", SHELL3},
    {"CTRIAX6", "EID!=id MID!=mat G1 G2 G3 G4 G5 G6=grid0 TH=real"},
    {"CTUBE", "EID!=id PID=id G1! G2!=id"},
    {"CVISC", "EID!=id PID=id G1! G2!=id"},
    {"PLOTEL", "EID!=id G1! G2!=grid"},

    // rigid elements and supports
    {"RBAR", "EID!=id GA! GB!=grid CNA CNB CMA CMB=comps ALPHA=real"},
    {"RBAR1", "EID!=id GA! GB!=grid CB=comps ALPHA=real"},
    {"RBE1", "EID!=id GN1!=grid CN1!=comps GN2=grid CN2=comps GN3=grid CN3=comps -",
     "- G=grid C=comps G=grid C=comps G=grid C=comps -"},
    {"RBE2", "EID!=id GN!=grid CM!=comps", "~GM=grid"},
    {"RBE3", "EID!=id - REFGRID!=grid REFC!=comps"},
    {"RJOINT", "EID!=id GA! GB!=grid CB=comps"},
    {"RROD", "EID!=id GA! GB!=grid CMA CMB=comps ALPHA=real"},
    {"RSPLINE", "EID!=id - G1!=grid", "G=grid C=comps"},
    {"RTRPLT", "EID!=id GA! GB! GC!=grid CNA CNB CNC=comps - CMA CMB CMC=comps ALPHA=real"},
    {"ASET", "", SET_OF_POINTS},
    {"BSET", "", SET_OF_POINTS},
    {"CSET", "", SET_OF_POINTS},
    {"OMIT", "", SET_OF_POINTS},
    {"QSET", "", SET_OF_POINTS},
    {"SUPORT", "", SET_OF_POINTS},
    {"SUPORT1", "SID!=id", SET_OF_POINTS},
    {"ASET1", "C=comps", "*G=point"},
    {"BSET1", "C=comps", "*G=point"},
    {"CSET1", "C=comps", "*G=point"},
    {"OMIT1", "C=comps", "*G=point"},
    {"QSET1", "C=comps", "*G=point"},
    {"MPC", "SID!=id", "G=point C=comp A=real G=point C=comp A=real - -"},
    {"MPCADD", "SID!=id", "*S=mpcs"},
    {"SPC", ENFORCED},
    {"SPC1", "SID!=id C=comps", "*G=point"},
    {"SPCADD", "SID!=id", "*S=spcs"},

    // loads
    {"ACCEL", "SID!=id CID=frame N1 N2 N3=real"},
    {"ACCEL1", "SID!=id CID=frame A N1 N2 N3=real - -", "*G=grid"},
    {"DAREA", "SID!=id P1=point C1=comp A1=real P2=point C2=comp A2=real"},
    {"DELAY", "SID!=id P1=point C1=comp T1=real P2=point C2=comp T2=real"},
    {"DPHASE", "SID!=id P1=point C1=comp TH1=real P2=point C2=comp TH2=real"},
    {"FORCE", FORCE_BY_VECTOR},
    {"FORCE1", FORCE_ALONG},
    {"FORCE2", FORCE_ACROSS},
    {"GRAV", "SID!=id CID=frame A N1 N2 N3=real MB=int"},
    {"LOAD", "SID!=id S!=real", "S=real L=loads"},
    {"MOMENT", FORCE_BY_VECTOR},
    {"MOMENT1", FORCE_ALONG},
    {"MOMENT2", FORCE_ACROSS},
    {"PLOAD", "SID!=id P!=real G1! G2! G3!=grid G4=grid0"},
    {"PLOAD1", "SID!=id EID!=bar TYPE! SCALE!=word X1 P1 X2 P2=real"},
    {"PLOAD2", "SID!=id P=real", "*EID=surface"},
    {"PLOAD4", "SID!=id EID!=face P1 P2 P3 P4=real - - CID=frame N1 N2 N3=real"},
    {"RFORCE", "SID!=id G=grid0 CID=frame A R1 R2 R3=real METHOD=int RACC=real MB=int"},
    {"SLOAD", "SID!=id", "S=point F=real"},
    {"SPCD", ENFORCED},
    {"TEMP", "SID!=id", "G=point T=real"},
    {"TEMPD", "", "SID=id T=real"},
    {"TEMPP1", "SID!=id EID1!=surface TBAR TPRIME T1 T2=real - -", "*EID=surface"},
    {"TEMPRB", "SID!=id EID1!=line TA TB TP1A TP1B TP2A TP2B TCA TDA TEA TFA TCB TDB TEB TFB=real", "*EID=line"},

    // eigenvalues
    {"EIGB", "SID!=id - L1 L2=real NEP NDP NDN=count - - G=point0 C=comp"},
    {"EIGC", "SID!=id"},
    {"EIGR", "SID!=id - F1 F2=real NE ND=count - - - G=point0 C=comp"},
    {"EIGRL", "SID!=id V1 V2=real ND MSGLVL MAXSET=count SHFSCL=real"},

    // properties
    {"PBAR", "PID!=id MID!=mat A=notneg I1 I2 J NSM=real - C1 C2 D1 D2 E1 E2 F1 F2 K1 K2 I12=real"},
    {"PBARL", "PID!=id MID!=mat - TYPE!=word - - - -", "DIM=notneg"},
    {"PBCOMP", "PID!=id MID!=mat A=notneg I1 I2 I12 J NSM K1 K2 M1 M2 N1 N2=real SYMOPT=count -",
     "Y Z C=real MID=mat - - - -"},
    {"PBEAM", "PID!=id MID!=mat A(A)!=above0 I1(A) I2(A) I12(A) J(A) NSM(A)=real", "VALUE=mixed"},
    {"PBEAML", "PID!=id MID!=mat - TYPE!=word"},
    {"PBEND", "PID!=id MID!=mat"},
    {"PBMSECT", "PID!=id MID=mat"},
    {"PBRSECT", "PID!=id MID!=mat"},
    {"PBUSH", "PID!=id", "VALUE=mixed"},
    {"PBUSH1D", "PID!=id"},
    {"PCOMP", "PID!=id Z0 NSM SB=real - TREF GE=real -", "MID=mat T=above0 THETA=real -"},
    {"PCOMPG", "PID!=id Z0 NSM SB=real - TREF GE=real -", "GPLYID=id MID=mat T=above0 THETA=real - - - -"},
    {"PDAMP", SCALAR_PROPERTIES},
    {"PELAS", "PID1!=id K1 GE1 S1=real PID2=id K2 GE2 S2=real"},
    {"PFAST", "PID!=id"},
    {"PGAP", "PID!=id U0 F0 KA KB KT MU1 MU2 TMAX MAR TRMIN=real"},
    {"PLPLANE", "PID!=id MID!=mat CID=frame"},
    {"PLSOLID", "PID!=id MID!=mat"},
    {"PMASS", SCALAR_PROPERTIES},
    {"PROD", "PID!=id MID!=mat A J=notneg C NSM=real"},
    {"PSHEAR", "PID!=id MID!=mat T!=above0 NSM F1 F2=real"},
    {"PSHELL", "PID!=id MID1=mat T=notneg MID2=mat- 12I/T**3=real MID3=mat TS/T NSM Z1 Z2=real MID4=mat"},
    {"PSOLID", "PID!=id MID!=mat CORDM=frame-"},
    {"PTUBE", "PID!=id MID!=mat OD!=above0 T=notneg NSM OD2=real"},
    {"PVISC", "PID1!=id CE1 CR1=real - PID2=id CE2 CR2=real"},
    {"PWELD", "PID!=id"},

    // materials
    {"MAT1", "MID!=mid E G=notneg NU RHO A TREF GE ST SC SS=real MCSID=count"},
    {"MAT2", "MID!=mid G11 G12 G13 G22 G23 G33 RHO A1 A2 A3 TREF GE ST SC SS=real MCSID=count"},
    {"MAT3", "MID!=mid EX! ETH! EZ!=above0 NUXTH NUTHZ NUZX RHO=real - - GZX AX ATH AZ TREF GE=real"},
    {"MAT4", "MID!=mid K=notneg CP RHO H MU HGEN REFENTH TCH TDELTA QLAT=real"},
    {"MAT5", "MID!=mid KXX KXY KXZ KYY KYZ KZZ CP RHO HGEN=real"},
    {"MAT8", "MID!=mid E1! E2!=above0 NU12 G12 G1Z G2Z RHO A1 A2 TREF XT XC YT YC S GE F12 STRN=real"},
    {"MAT9", "MID!=mid", "VALUE=real"},
    {"MAT10", "MID!=mid BULK RHO C GE=real"},
};

std::vector<T_FIELD_D> ReadFields(std::string_view sFields) {
    const T_FIELDTYPE_D* const pAny = FindFieldType("any");
    std::vector<T_FIELD_D> aFields;
    std::size_t iOpen = 0; // the first that has no type yet
    while (!sFields.empty()) {
        std::string_view sName = sFields.substr(0, sFields.find(' '));
        sFields.remove_prefix(std::min(sName.size() + 1, sFields.size()));
        const std::size_t iEquals = sName.find('=');
        const std::string_view sType = iEquals == std::string_view::npos ? "" : sName.substr(iEquals + 1);
        sName = sName.substr(0, iEquals);
        const bool bNeeded = sName.ends_with('!');
        if (bNeeded) sName.remove_suffix(1);
        aFields.push_back({sName, pAny, bNeeded});
        if (sName == "-") iOpen = aFields.size();
        if (sType.empty()) continue;
        for (; iOpen < aFields.size(); ++iOpen) aFields[iOpen].pTYPE = FindFieldType(sType);
    }
    return aFields;
}

std::vector<T_CARDFORMAT_D> ReadTable() {
    std::vector<T_CARDFORMAT_D> aFormats;
    for (const T_ROW_D& rRow : ROWS) {
        std::string_view sList = rRow.sLIST;
        T_CARDFORMAT_D format{rRow.sKEYWORD, ReadFields(rRow.sFIELDS), {}};
        format.bENDSATREAL = sList.starts_with('~');
        format.bIDS = format.bENDSATREAL || sList.starts_with('*');
        if (format.bIDS) sList.remove_prefix(1);
        format.aLIST = ReadFields(sList);
        aFormats.push_back(std::move(format));
    }
    std::ranges::sort(aFormats, {}, &T_CARDFORMAT_D::sKEYWORD);
    return aFormats;
}

} // namespace

const T_FIELDTYPE_D* FindFieldType(std::string_view sWord) {
    return std::find_if(std::begin(TYPES), std::end(TYPES), [&](const auto& r) { return r.sWORD == sWord; });
}

const T_CARDFORMAT_D* FindCardFormat(std::string_view sKeyword) {
    static const std::vector<T_CARDFORMAT_D> FORMATS = ReadTable();
    const auto pFound = std::ranges::lower_bound(FORMATS, sKeyword, {}, &T_CARDFORMAT_D::sKEYWORD);
    return pFound != FORMATS.end() && pFound->sKEYWORD == sKeyword ? &*pFound : nullptr;
}
