// Finds what is lost of a card that is stored.

#include "nas2zdt/account/Drops.h"

#include "reader/FieldParser.h"

#include <algorithm>

namespace {

/// Fields that handlers store and no section writes.
struct T_ROW_D {
    std::string_view sKEYWORD;
    std::string_view sNAMES; // separated by blanks
    double dNEUTRAL = 0.0;   // the value that the file implies
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
    {"PSHELL", "12I/T**3", 1.0},
    {"PSHELL", "TS/T", 0.833333},
    {"PSHEAR", "NSM"},
    {"PELAS", "S1 S2"},
    {"PBUSH", "GE1 SA ST EA ET"},
    {"PGAP", "F0 KB MU1 MU2 TMAX MAR TRMIN"},
    {"MAT1", "G RHO TREF GE ST SC SS"},
    {"MAT8", "RHO TREF Xt Xc Yt Yc S GE F12 STRN"},
    {"FORCE", "CID"},
    {"MOMENT", "CID"},
    {"GRAV", "CID"},
    {"LOAD", "S", 1.0},
    {"PLOAD4", "CID"},
    {"EIGRL", "V1 V2 MSGLVL MAXSET SHFSCL NORM"},
};

constexpr std::string_view THRU = "THRU";

/// Whether a field holds something that can be lost: more than blanks or the neutral value.
bool HoldsSomething(std::string_view sField, double dNeutral = 0.0) {
    const auto isNothing = [&](char c) { return c == '\r' || (dNeutral == 0.0 && (c == '0' || c == '.')); };
    if (std::all_of(sField.begin(), sField.end(), isNothing)) return false;
    return dNeutral == 0.0 || TextToReal(sField) != dNeutral;
}

/// Names separated by commas, each once; of a list, those of its first lost entry, then an ellipsis.
class CNameList {
  public:
    void Add(const T_NAME_D& rName) {
        if (m_nEntry == 0) m_nEntry = rName.nENTRY;
        std::string sName = rName.nENTRY > m_nEntry ? "..." : rName.Text();
        if (sName == "-") sName = "fields without a name";
        if (std::find(m_aNames.begin(), m_aNames.end(), sName) != m_aNames.end()) return;
        m_sText += (m_aNames.empty() ? "" : ", ") + sName;
        m_aNames.push_back(sName);
    }

    std::string m_sText;

  private:
    std::vector<std::string> m_aNames;
    std::size_t m_nEntry = 0; // the first lost one of a list
};

} // namespace

CDrops::CDrops(std::string_view sKeyword) : m_names(sKeyword) {
    const std::vector<std::string_view>& rFixed = m_names.GetFixed();
    for (const T_ROW_D& rRow : ROWS) {
        if (rRow.sKEYWORD != sKeyword) continue;
        for (const std::string_view sName : SplitNames(rRow.sNAMES)) {
            const auto pPlace = std::find(rFixed.begin(), rFixed.end(), sName);
            const auto iField = static_cast<std::size_t>(pPlace - rFixed.begin());
            m_aUnwritten.push_back({sName, rRow.dNEUTRAL, pPlace == rFixed.end() ? NOWHERE : iField});
        }
    }
}

bool CDrops::IsUnwritten(const T_NAME_D& rName, std::string_view sField) const {
    return std::any_of(m_aUnwritten.begin(), m_aUnwritten.end(), [&](const T_UNWRITTEN_D& rUnwritten) {
        return rName.nENTRY == 0 && rName.sNAME == rUnwritten.sNAME && HoldsSomething(sField, rUnwritten.dNEUTRAL);
    });
}

/// A quick test without field names, which rules out most cards.
bool CDrops::MayLose(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) const {
    const auto& rFields = rCard.aFIELDS;
    for (std::size_t i = 0; i < rFields.size(); ++i) {
        if (rFields[i].size() == THRU.size() && rFields[i] == THRU) return true;
        if (i >= rUse.nREACHED && HoldsSomething(rFields[i])) return true;
    }
    for (const T_FIELDUSE_D::T_SKIP_D& rSkip : rUse.aSKIPPED) {
        if (HoldsSomething(rFields[rSkip.iFIELD])) return true;
    }
    for (const T_UNWRITTEN_D& rUnwritten : m_aUnwritten) {
        if (rUnwritten.iFIELD == NOWHERE) return true;
        if (rUnwritten.iFIELD >= rFields.size()) continue;
        if (HoldsSomething(rFields[rUnwritten.iFIELD], rUnwritten.dNEUTRAL)) return true;
    }
    return false;
}

T_DROPPED_D CDrops::Find(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) const {
    T_DROPPED_D dropped;
    if (!MayLose(rCard, rUse)) return dropped;
    const auto& rFields = rCard.aFIELDS;
    const auto isThru = [&](std::size_t i) {
        return rFields[i] == THRU && !std::binary_search(rUse.aWORDS.begin(), rUse.aWORDS.end(), i);
    };
    CNameList fields, pastRead;
    auto pSkip = rUse.aSKIPPED.begin();
    m_names.Walk(rCard, [&](std::size_t i, T_NAME_D name) {
        const bool bSkipped = pSkip != rUse.aSKIPPED.end() && pSkip->iFIELD == i;
        if (bSkipped && pSkip->sNAME) name = {pSkip->sNAME};
        if (bSkipped) ++pSkip;
        if (isThru(i)) dropped.bTHRU = true;
        if (isThru(i) || (i > 0 && isThru(i - 1))) return;
        if (i >= rUse.nREACHED) {
            if (HoldsSomething(rFields[i])) pastRead.Add(name);
        } else if (bSkipped ? HoldsSomething(rFields[i]) : IsUnwritten(name, rFields[i])) {
            fields.Add(name);
        }
    });
    dropped.sFIELDS = fields.m_sText;
    dropped.sPASTREAD = pastRead.m_sText;
    return dropped;
}
