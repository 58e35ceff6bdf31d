// The card vocabulary and dispatch: one row a keyword, its place the id. A row with a small "i" is never met, since
// decks are read in upper case; it stays for the ids behind it. To convert a card, give its row a handler.

#include "reader/Keywords.h"

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "platform/TextWord.h"
#include "reader/FieldCursor.h"

#include <cstdint>

// clang-format off
constexpr std::array<T_KEYWORD_D, T_KEYWORD_D::COUNT> T_KEYWORD_D::TABLE = {{
    {"GRID", &CConvertNastran::ParseGRID, ALONE},
    {"GRIDB"},
    {"GRDSET"},
    {"SEQGP"},
    {"CORDiC"},
    {"CORDiR"},
    {"CORDiS"},
    {"BEAMOR"},
    {"BAROR"},
    {"SPOINT"},
    {"EPOINT"},
    {"SEQEP"},
    {"ACMODL"},
    {"RINGFL"},
    {"GRIDF"},
    {"GRIDS"},
    {"FREEPT"},
    {"PRESPT"},
    {"FSLIST"},
    {"SLBDY"},
    {"AXIC"},
    {"AXIF"},
    {"FLSYM"},
    {"AXSLOT"},
    {"RINGAX"},
    {"SECTAX"},
    {"POINTAX"},
    {"CYAX"},
    {"CYJOIN"},
    {"SESET"},
    {"CSUPEXT"},
    {"CSUPER"},
    {"SEQSEP"},
    {"RELEASE"},
    {"SEELT"},
    {"FEEDGE"},
    {"FEFACE"},
    {"GMCORD"},
    {"GMCURV"},
    {"GMSURF"},
    {"POINT"},
    {"CBAR", &CConvertNastran::ParseCBAR, ALONE},
    {"PBAR", &CConvertNastran::ParsePBAR},
    {"PBARL", &CConvertNastran::ParsePBARL},
    {"CBEAM", &CConvertNastran::ParseCBEAM, ALONE},
    {"PBEAM", &CConvertNastran::ParsePBEAM},
    {"PBEAML"},
    {"PBCOMP", CARD_REPORTED},
    {"CBEND", &CConvertNastran::ParseCBEND, ALONE},
    {"PBEND", &CConvertNastran::ParsePBEND},
    {"CONROD", &CConvertNastran::ParseCONROD},
    {"CROD", &CConvertNastran::ParseCROD, ALONE},
    {"PROD", &CConvertNastran::ParsePROD},
    {"CTUBE", &CConvertNastran::ParseCTUBE, ALONE},
    {"PTUBE", &CConvertNastran::ParsePTUBE},
    {"CTRIA3", &CConvertNastran::ParseCTRIA3, ALONE},
    {"CTRIA6", &CConvertNastran::ParseCTRIA6, ALONE},
    {"CTRIAR", &CConvertNastran::ParseCTRIAR, ALONE},
    {"CQUAD4", &CConvertNastran::ParseCQUAD4, ALONE},
    {"CQUAD8", &CConvertNastran::ParseCQUAD8, ALONE},
    {"CQUAD", CARD_REPORTED},
    {"CQUADR", &CConvertNastran::ParseCQUADR, ALONE},
    {"PLPLANE", CARD_REPORTED},
    {"PSHELL", &CConvertNastran::ParsePSHELL},
    {"PCOMP", &CConvertNastran::ParsePCOMP},
    {"CSHEAR", &CConvertNastran::ParseCSHEAR, ALONE},
    {"PSHEAR", &CConvertNastran::ParsePSHEAR},
    {"CTETRA", &CConvertNastran::ParseCTETRA, ALONE},
    {"CPENTA", &CConvertNastran::ParseCPENTA, ALONE},
    {"CHEXA", &CConvertNastran::ParseCHEXA, ALONE},
    {"PSOLID", &CConvertNastran::ParsePSOLID},
    {"PLSOLID"},
    {"CELASi"},
    {"PELAS", &CConvertNastran::ParsePELAS},
    {"GENEL"},
    {"CBUSH", &CConvertNastran::ParseCBUSH, ALONE},
    {"PBUSH", &CConvertNastran::ParsePBUSH},
    {"PBUSHT", CARD_REPORTED},
    {"CCONEAX", CARD_REPORTED},
    {"PCONEAX", CARD_REPORTED},
    {"CTRIAX6", CARD_REPORTED},
    {"CTRIAX", CARD_REPORTED},
    {"CQUADX", CARD_REPORTED},
    {"RBAR", CARD_REPORTED},
    {"RBE1", CARD_REPORTED},
    {"RBE2", &CConvertNastran::ParseRBE2},
    {"RBE3", CARD_REPORTED},
    {"RROD", CARD_REPORTED},
    {"RSPLINE"},
    {"RTRPLT"},
    {"CMASSi"},
    {"PMASS"},
    {"CONM1"},
    {"CONM2", &CConvertNastran::ParseCONM2},
    {"CDAMPi"},
    {"PDAMP"},
    {"PDAMP5"},
    {"CVISC"},
    {"PVISC"},
    {"PANEL"},
    {"CHACAB"},
    {"PACABS"},
    {"CHACBR"},
    {"PACBAR"},
    {"CAXIFi"},
    {"CFLUIDi"},
    {"CSLOTi"},
    {"ELIST"},
    {"SET1"},
    {"CHBDYi"},
    {"PHBDY"},
    {"BDYOR"},
    {"ADUMi"},
    {"CDUMi"},
    {"PDUMi"},
    {"PLOTEL"},
    {"CGAP", &CConvertNastran::ParseCGAP, ALONE},
    {"PGAP", &CConvertNastran::ParsePGAP},
    {"BCONP"},
    {"BFRIC"},
    {"BLSEG"},
    {"BWIDTH"},
    {"CRAC2D"},
    {"CRAC3D"},
    {"AEFACT"},
    {"AELINK"},
    {"AELIST"},
    {"AESTAT"},
    {"AESURF"},
    {"CAERO1"},
    {"CAERO2"},
    {"CAERO3"},
    {"CAERO4"},
    {"CAERO5"},
    {"PAERO1"},
    {"PAERO2"},
    {"PAERO3"},
    {"PAERO4"},
    {"PAERO5"},
    {"SET2"},
    {"SPLINE1"},
    {"SPLINE2"},
    {"SPLINE3"},
    {"MAT1", &CConvertNastran::ParseMAT1},
    {"MAT4", &CConvertNastran::ParseMAT4},
    {"MATHP"},
    {"RADM"},
    {"MAT2"},
    {"MAT3"},
    {"MAT5"},
    {"MAT8", &CConvertNastran::ParseMAT8},
    {"MAT9"},
    {"MATTi"},
    {"RADMT"},
    {"TEMP", &CConvertNastran::ParseTEMP, ALONE},
    {"TEMPD", &CConvertNastran::ParseTEMPD},
    {"TEMPP1", &CConvertNastran::ParseTEMPP1},
    {"TEMPRB", &CConvertNastran::ParseTEMPRB},
    {"TEMPAX"},
    {"TABLEST"},
    {"TABLEMi"},
    {"MATS1"},
    {"TABLES1"},
    {"CREEP"},
    {"BDYLIST"},
    {"MAT10"},
    {"MFLUID"},
    {"SPC", &CConvertNastran::ParseSPC, ALONE},
    {"SPC1", &CConvertNastran::ParseSPC1, ALONE},
    {"SPCADD"},
    {"SPCAX"},
    {"SPCOFFi"},
    {"MPC", &CConvertNastran::ParseMPC},
    {"MPCADD"},
    {"MPCAX"},
    {"RBEi"},
    {"ASET"},
    {"ASET1"},
    {"OMIT"},
    {"OMIT1"},
    {"OMITAX"},
    {"SUPORTi"},
    {"SUPAX"},
    {"CYSUP"},
    {"GMBC"},
    {"GMSPC"},
    {"BSET"},
    {"BSET1"},
    {"CSET"},
    {"CSET1"},
    {"QSET"},
    {"QSET1"},
    {"SEBSET"},
    {"SEBSET1"},
    {"SECSET"},
    {"SECSET1"},
    {"SEQSET"},
    {"SEQSET1"},
    {"SESUP"},
    {"DEFUSET"},
    {"SEUSET"},
    {"SEUSET1"},
    {"USET"},
    {"USET1"},
    {"CLOAD"},
    {"DEFORM"},
    {"FORCE", &CConvertNastran::ParseFORCE, ALONE},
    {"FORCE1", &CConvertNastran::ParseFORCE1, ALONE},
    {"FORCE2", &CConvertNastran::ParseFORCE2, ALONE},
    {"GRAV", &CConvertNastran::ParseGRAV},
    {"MOMENT", &CConvertNastran::ParseMOMENT, ALONE},
    {"MOMENT1", &CConvertNastran::ParseMOMENT1, ALONE},
    {"MOMENT2", &CConvertNastran::ParseMOMENT2, ALONE},
    {"PLOAD"},
    {"PLOAD1", &CConvertNastran::ParsePLOAD1, ALONE},
    {"PLOAD2", &CConvertNastran::ParsePLOAD2},
    {"PLOAD4", &CConvertNastran::ParsePLOAD4, ALONE},
    {"PLOADX1"},
    {"RFORCE"},
    {"SPCD", &CConvertNastran::ParseSPCD, ALONE},
    {"SLOAD"},
    {"LOAD", &CConvertNastran::ParseLOAD},
    {"FORCEAX"},
    {"MOMAX"},
    {"PRESAX"},
    {"LOADCYH"},
    {"LOADCYN"},
    {"LOADCYT"},
    {"CORD1R", &CConvertNastran::ParseCORD1R},
    {"CORD2R", &CConvertNastran::ParseCORD2R},
    {"CORD1C", &CConvertNastran::ParseCORD1C},
    {"CORD2C", &CConvertNastran::ParseCORD2C},
    {"CORD1S", &CConvertNastran::ParseCORD1S},
    {"CORD2S", &CConvertNastran::ParseCORD2S},
    {"CELAS1", &CConvertNastran::ParseCELAS1},
    {"CELAS2", &CConvertNastran::ParseCELAS2},
    {"CELAS3", CARD_REPORTED},
    {"CELAS4", CARD_REPORTED},
    {"EIGB", &CConvertNastran::ParseEIGB},
    {"EIGRL", &CConvertNastran::ParseEIGRL},
    {"INCLUDE", CARD_INCLUDED},
    {"ENDDATA", CARD_END},
}};
// clang-format on
static_assert(T_KEYWORD_D::TABLE.back().sNAME == "ENDDATA"); // as many rows as are counted

namespace {

/// What LoadWord makes of a name, at compile time.
constexpr TEXTWORD Pack(std::string_view sName) {
    TEXTWORD nName = 0;
    for (std::size_t i = 0; i < sName.size(); ++i) nName |= TEXTWORD(static_cast<unsigned char>(sName[i])) << (8 * i);
    return nName;
}

} // namespace

/// From a packed keyword to its id: open addressing over twice as many places as there are keywords.
class CKeywordMap {
  public:
    static constexpr std::int16_t NONE = -1;

    constexpr CKeywordMap() { m_aRows.fill(NONE); }

    constexpr void Add(TEXTWORD nName, std::size_t iRow) {
        std::size_t iPlace = Home(nName);
        while (m_aRows[iPlace] != NONE) iPlace = (iPlace + 1) % PLACES;
        m_aNames[iPlace] = nName;
        m_aRows[iPlace] = static_cast<std::int16_t>(iRow);
    }

    constexpr std::int16_t Find(TEXTWORD nName) const {
        std::size_t iPlace = Home(nName);
        while (m_aRows[iPlace] != NONE && m_aNames[iPlace] != nName) iPlace = (iPlace + 1) % PLACES;
        return m_aRows[iPlace];
    }

  private:
    static constexpr std::size_t PLACES = 512;
    static constexpr std::size_t Home(TEXTWORD nName) { return (nName * 0x9E3779B97F4A7C15ull) >> 55; }

    std::array<TEXTWORD, PLACES> m_aNames{};
    std::array<std::int16_t, PLACES> m_aRows{};
};

consteval CKeywordMap CConvertNastran::InitKeywordTable() {
    CKeywordMap map;
    for (std::size_t i = 0; i < T_KEYWORD_D::TABLE.size(); ++i) map.Add(Pack(T_KEYWORD_D::TABLE[i].sNAME), i);
    return map;
}

constexpr CKeywordMap CConvertNastran::m_mapKeywords = InitKeywordTable();

int CConvertNastran::KeywordToId(std::string_view sKeyword, std::int32_t& rId) {
    if (sKeyword.size() > WORD_LENGTH) return 0; // no keyword is longer
    const std::int16_t iRow = m_mapKeywords.Find(LoadWord(sKeyword.data(), sKeyword.size()));
    if (iRow == CKeywordMap::NONE) return 0;
    rId = iRow;
    return 1;
}

/// Sends a card to its handler, whose result doesn't matter. Returns 0 for the keyword that ends a deck, else 1. Throws
/// CRunError for a deck too many.
int CConvertNastran::DispatchCard(const T_DATA_D& rCard) {
    if (rCard.iKEYWORD < 0) return 1;
    const T_KEYWORD_D& rKeyword = T_KEYWORD_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)];
    switch (rKeyword.eACTION) {
    case CARD_PARSED:
        (this->*rKeyword.pfnPARSE)(rCard);
        break;
    case CARD_REPORTED:
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_convert_in_this_version"),
                   {rKeyword.sNAME, LineInfoText(rCard.aLINES)});
        break;
    case CARD_INCLUDED: // a card without a path gives an empty one
        m_aIncludeFiles.Include(CFieldCursor(rCard).Text(), m_aLines.First().iLINE, m_options.limits.nDECKS);
        break;
    case CARD_END:
        return 0;
    case CARD_SKIPPED:
        break;
    }
    return 1;
}
