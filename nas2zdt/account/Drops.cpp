// Finds what is lost of a card that is stored.

#include "nas2zdt/account/Drops.h"

#include "nas2zdt/account/Meanings.h"
#include "reader/FieldParser.h"

#include <algorithm>
#include <cmath>

namespace {

/// Fields that handlers store and no section writes.
struct T_ROW_D {
    std::string_view sKEYWORD;
    std::string_view sNAMES; // between blanks
    std::string_view sNEUTRAL =
        {}; // words, between blanks, or a number that the file means without them; 0 if there is none
};

constexpr T_ROW_D ROWS[] = {
    {"CONROD", "A J C NSM"},
    {"CTRIA3", "THETA"},
    {"CTRIAR", "THETA"},
    {"CTRIA6", "G4 G5 G6 THETA"},
    {"CQUAD4", "THETA"},
    {"CQUADR", "THETA"},
    {"CQUAD8", "G5 G6 G7 G8 T1"},
    {"CTETRA", "G5 G6 G7 G8 G9 G10"},
    {"CPENTA", "G7 G8 G9 G10 G11 G12 G13 G14 G15"},
    {"CHEXA", "G9 G10 G11 G12 G13 G14 G15 G16 G17 G18 G19 G20"},
    {"CELAS2", "S"},
    {"PBAR", "NSM C1 C2 D1 D2 E1 E2 F1 F2 I12"},
    {"PBEAM", "I12(A) NSM(A) C1(A) C2(A) D1(A) D2(A) E1(A) E2(A) F1(A) F2(A)"},
    {"PBEAM", "I12 NSM C1 C2 D1 D2 E1 E2 F1 F2 CW(A) CW(B) N1(A) N2(A) N1(B) N2(B)"},
    {"PROD", "C NSM"},
    {"PTUBE", "NSM"},
    {"PSHELL", "NSM Z1 Z2"},
    {"PSHELL", "12I/T**3", "1."},
    {"PSHELL", "TS/T", ".833333"},
    {"PSHEAR", "NSM"},
    {"PELAS", "S1 S2"},
    {"PBUSH", "GE1 SA ST EA ET"},
    {"PGAP", "F0 KB MU1 MU2 TMAX MAR TRMIN"},
    {"MAT1", "RHO TREF GE ST SC SS"},
    {"MAT8", "RHO TREF Xt Xc Yt Yc S GE F12 STRN"},
    {"FORCE", "CID"},
    {"MOMENT", "CID"},
    {"GRAV", "CID"},
    {"LOAD", "S", "1."},
    {"PLOAD4", "CID"},
    {"EIGRL", "V1 V2 MSGLVL MAXSET SHFSCL NORM"},
};

/// Fields that aren't read, and what they hold where they ask for nothing.
constexpr T_ROW_D UNREAD[] = {
    {"CBAR", "OFFT", "GGG BGG"}, {"CBEAM", "OFFT", "GGG BGG"}, {"PBEAM", "SO", "YES"},      {"PCOMP", "SOUT", "NO"},
    {"PCOMP", "LAM", "ALL"},     {"EIGRL", "NORM", "MASS"},    {"PSOLID", "FCTN", "SMECH"},
};

constexpr std::string_view THRU = "THRU";

/// Whether a field holds something that can be lost. A blank doesn't, nor does the value that counts without the field.
bool HoldsSomething(std::string_view sField, std::string_view sNeutral = {}) {
    if (sField.empty() || sField.find_first_not_of('\r') == std::string_view::npos) return false;
    if (sNeutral.empty()) return sField.find_first_not_of("0.\r") != std::string_view::npos;
    if (sNeutral.find_first_not_of("0123456789.") != std::string_view::npos) {
        const std::vector<std::string_view> aWords = SplitNames(sNeutral);
        return std::find(aWords.begin(), aWords.end(), sField) == aWords.end();
    }
    const double dNeutral = TextToReal(sNeutral);
    return std::fabs(TextToReal(sField) - dNeutral) > 1e-4 * dNeutral;
}

std::string_view FindNeutral(std::string_view sKeyword, std::string_view sName) {
    for (const T_ROW_D& rRow : UNREAD) {
        if (rRow.sKEYWORD == sKeyword && rRow.sNAMES == sName) return rRow.sNEUTRAL;
    }
    return {};
}

/// Names with commas between them, each once, apart by class.
class CNameLists {
  public:
    CNameLists(std::string_view sKeyword, E_NOTE eNote) : m_sKeyword(sKeyword), m_eNote(eNote) {}

    void Add(const T_NAME_D& rName) {
        if (m_nEntry == 0) m_nEntry = rName.nENTRY;
        std::string sName = rName.nENTRY > m_nEntry ? "..." : rName.Text();
        if (sName == "-") sName = "fields without a name";
        if (std::find(m_aNames.begin(), m_aNames.end(), sName) != m_aNames.end()) return;
        std::string& rText = m_aTexts[ClassOfField(m_sKeyword, rName.sNAME)];
        rText += (rText.empty() ? "" : ", ") + sName;
        m_aNames.push_back(std::move(sName));
    }

    void MoveTo(std::vector<T_DROPPED_D>& rDropped) {
        for (std::size_t i = 0; i < m_aTexts.size(); ++i) {
            if (!m_aTexts[i].empty()) {
                rDropped.push_back({m_eNote, static_cast<E_LOSS_CLASS>(i), std::move(m_aTexts[i])});
            }
        }
    }

  private:
    std::string_view m_sKeyword;
    E_NOTE m_eNote;
    std::array<std::string, CLASS_COUNT> m_aTexts;
    std::vector<std::string> m_aNames;
    std::size_t m_nEntry = 0; // the first lost one of a list
};

bool IsOfElements(std::string_view sKeyword) {
    return sKeyword == "PLOAD2" || sKeyword == "PLOAD4" || sKeyword == "TEMPP1" || sKeyword == "TEMPRB";
}

} // namespace

CDrops::CDrops(std::string_view sKeyword) : m_sKeyword(sKeyword), m_names(sKeyword) {
    const std::vector<std::string_view>& rFixed = m_names.GetFixed();
    for (const T_ROW_D& rRow : ROWS) {
        if (rRow.sKEYWORD != sKeyword) continue;
        for (const std::string_view sName : SplitNames(rRow.sNAMES)) {
            const auto pPlace = std::find(rFixed.begin(), rFixed.end(), sName);
            const auto iField = static_cast<std::size_t>(pPlace - rFixed.begin());
            m_aUnwritten.push_back({sName, rRow.sNEUTRAL, pPlace == rFixed.end() ? NOWHERE : iField});
        }
    }
    for (const T_MEANING_D& rMeaning : GetMeanings()) {
        const std::vector<std::string_view> aKeywords = SplitNames(rMeaning.sKEYWORDS);
        if (std::find(aKeywords.begin(), aKeywords.end(), sKeyword) != aKeywords.end()) {
            m_aMeanings.push_back(&rMeaning);
        }
    }
}

void CDrops::GetWatched(std::uint32_t& rFilled, std::uint32_t& rValues) const {
    constexpr std::size_t BITS = 32;
    for (const T_MEANING_D* pMeaning : m_aMeanings) rFilled |= pMeaning->nFIELDS;
    for (const T_UNWRITTEN_D& rUnwritten : m_aUnwritten) {
        if (rUnwritten.iFIELD >= BITS) {
            rFilled = ~std::uint32_t(0);
        } else {
            (rUnwritten.sNEUTRAL.empty() ? rValues : rFilled) |= std::uint32_t(1) << rUnwritten.iFIELD;
        }
    }
}

bool CDrops::IsUnwritten(const T_NAME_D& rName, std::string_view sField) const {
    return std::any_of(m_aUnwritten.begin(), m_aUnwritten.end(), [&](const T_UNWRITTEN_D& rUnwritten) {
        return rName.nENTRY == 0 && rName.sNAME == rUnwritten.sNAME && HoldsSomething(sField, rUnwritten.sNEUTRAL);
    });
}

/// Whether a field may be lost. Most cards have their answer here, without a name.
bool CDrops::MayLose(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) const {
    const auto& rFields = rCard.aFIELDS;
    if (!rUse.aMISREAD.empty()) return true;
    for (std::size_t i = rUse.nREACHED; i < rFields.size(); ++i) {
        if (HoldsSomething(rFields[i])) return true;
    }
    for (const T_FIELDUSE_D::T_SKIP_D& rSkip : rUse.aSKIPPED) {
        if (HoldsSomething(rFields[rSkip.iFIELD])) return true;
    }
    for (const T_UNWRITTEN_D& rUnwritten : m_aUnwritten) {
        if (rUnwritten.iFIELD == NOWHERE) return true;
        if (rUnwritten.iFIELD >= rFields.size()) continue;
        if (HoldsSomething(rFields[rUnwritten.iFIELD], rUnwritten.sNEUTRAL)) return true;
    }
    return false;
}

void CDrops::Find(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::vector<T_DROPPED_D>& rDropped,
                  std::vector<T_THRU_D>& rThrus) const {
    if (MayLose(rCard, rUse)) FindFields(rCard, rUse, rDropped, rThrus);
    for (const T_MEANING_D* pMeaning : m_aMeanings) {
        if (!pMeaning->pfnAPPLIES(rCard, m_names)) continue;
        rDropped.push_back({NOTE_MEANING, pMeaning->eCLASS, std::string(pMeaning->sTEXT)});
    }
}

void CDrops::FindFields(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::vector<T_DROPPED_D>& rDropped,
                        std::vector<T_THRU_D>& rThrus) const {
    const auto& rFields = rCard.aFIELDS;
    CNameLists fields(m_sKeyword, NOTE_FIELDS), pastRead(m_sKeyword, NOTE_PAST_READ);
    CNameLists misread(m_sKeyword, NOTE_NOT_A_NUMBER);
    auto pSkip = rUse.aSKIPPED.begin();
    auto pMisread = rUse.aMISREAD.begin();
    std::size_t iThru = NOWHERE; // the last THRU that isn't understood
    m_names.Walk(rCard, [&](std::size_t i, T_NAME_D name) {
        const bool bSkipped = pSkip != rUse.aSKIPPED.end() && pSkip->iFIELD == i;
        if (bSkipped && pSkip->sNAME) name = {pSkip->sNAME};
        if (bSkipped) ++pSkip;
        const bool bMisread = pMisread != rUse.aMISREAD.end() && *pMisread == i;
        if (bMisread) ++pMisread;
        const bool bPast = i >= rUse.nREACHED;
        if (rFields[i] == THRU && i > 0 && (bMisread || bSkipped || bPast)) {
            iThru = i;
            return;
        }
        if (iThru != NOWHERE && i == iThru + 1) {
            const std::int32_t iLast = TextToInt(rFields[i]);
            const std::int32_t iTaken = bPast || bSkipped || bMisread || iLast == INT32_MIN ? iLast : iLast - 1;
            const std::size_t iFirst = m_sKeyword == "PLOAD4" ? 1 : i - 2; // pressures are between its ids
            rThrus.push_back({IsOfElements(m_sKeyword), TextToInt(rFields[iFirst]), iTaken});
            return;
        }
        if (bPast || bSkipped) {
            if (HoldsSomething(rFields[i], FindNeutral(m_sKeyword, name.sNAME))) (bPast ? pastRead : fields).Add(name);
        } else if (bMisread) {
            misread.Add(name);
        } else if (IsUnwritten(name, rFields[i])) {
            fields.Add(name);
        }
    });
    for (CNameLists* pNames : {&pastRead, &fields, &misread}) pNames->MoveTo(rDropped);
}
