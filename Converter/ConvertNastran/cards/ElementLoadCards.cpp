// PLOAD1, PLOAD2 and PLOAD4: loads on elements.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

/// TYPE of PLOAD1: what the load is and where it points.
struct T_PLTY_D {
    std::string_view sTYPE;
    E_LOAD_KIND eKIND;
    E_LOAD_DIRECTION eDIR;
};

// clang-format off
constexpr T_PLTY_D TYPES[] = {
    {"FX",  LOAD_BEAM_FORCE, DIR_X}, {"MX",  LOAD_BEAM_MOMENT, DIR_X},
    {"FY",  LOAD_BEAM_FORCE, DIR_Y}, {"MY",  LOAD_BEAM_MOMENT, DIR_Y},
    {"FZ",  LOAD_BEAM_FORCE, DIR_Z}, {"MZ",  LOAD_BEAM_MOMENT, DIR_Z},
    {"FXE", LOAD_BEAM_FORCE, DIR_XE}, {"MXE", LOAD_BEAM_MOMENT, DIR_XE},
    {"FYE", LOAD_BEAM_FORCE, DIR_YE}, {"MYE", LOAD_BEAM_MOMENT, DIR_YE},
    {"FZE", LOAD_BEAM_FORCE, DIR_ZE}, {"MZE", LOAD_BEAM_MOMENT, DIR_ZE},
};
// clang-format on

/// Sets kind and direction; a TYPE that isn't known leaves both 0.
void SetBeamLoadType(T_MBLD_D& rEntry, std::string_view sType) {
    for (const T_PLTY_D& rRow : TYPES) {
        if (rRow.sTYPE != sType) continue;
        rEntry.iKIND = rRow.eKIND;
        rEntry.iDIR = rRow.eDIR;
    }
}

E_LOAD_SCALE TextToScale(std::string_view sScale) {
    if (sScale == "FR") return SCALE_FR;
    if (sScale == "LEPR") return SCALE_LEPR;
    if (sScale == "FPPR") return SCALE_FPPR;
    return sScale.empty() || sScale == "LE" ? SCALE_LE : SCALE_OTHER; // FRPR too, which is the usual word
}

} // namespace

int CConvertNastran::ParsePLOAD1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_MBLD_D entry;
    entry.iID = fields.Int();
    SetBeamLoadType(entry, fields.Text());
    entry.iSCALE = TextToScale(fields.Text());
    entry.dV[0] = fields.Real(); // X1
    entry.dV[1] = fields.Real(); // P1
    entry.dV[2] = fields.Real(); // X2, 0 for a load at one point
    entry.dV[3] = fields.Real(); // P2
    EnsureLoadSet(iSID).aMBLD.Add(entry);
    return 1;
}

int CConvertNastran::ParsePLOAD2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    CLoadEntries& rEntries = EnsureLoadSet(fields.Int()).aMBLD;
    T_MBLD_D entry;
    entry.iKIND = LOAD_PRESSURE;
    entry.iFORM = FORM_PLAIN;
    entry.dV[0] = fields.Real();
    entry.iID = fields.Int();
    rEntries.Add(entry);
    const auto AddCopy = [&](std::int32_t iEID) {
        entry.iID = iEID;
        rEntries.Add(entry);
    };
    if (fields.TakeWord("THRU")) {
        WalkRange(TakeRange(rCard, entry.iID, fields.Int()), AddCopy);
        return 1;
    }
    for (int iField = 0; iField < 5; ++iField) { // EID2 to EID6; no line behind the first is read
        const std::int32_t iEID = fields.Int();
        if (iEID > 0) AddCopy(iEID);
    }
    return 1;
}

int CConvertNastran::ParsePLOAD4(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_MBLD_D entry;
    entry.iKIND = LOAD_PRESSURE;
    entry.iFORM = FORM_CORNERS;
    entry.iID = fields.Int();
    entry.dV[0] = fields.Real();
    for (std::size_t iCorner = 1; iCorner < 4; ++iCorner) {
        const double dP = fields.Real();
        entry.dV[iCorner] = dP == 0.0 ? entry.dV[0] : dP; // a zero isn't told from a blank
    }
    if (fields.Peek() == "THRU") {
        fields.Skip("THRU", "EID2"); // the first element alone takes the load
    } else {
        entry.iFACEG1 = fields.Int();
        entry.iFACEG34 = fields.Int();
    }
    entry.iCID = fields.Int();
    for (double& rN : entry.dN) rN = fields.Real();
    EnsureLoadSet(iSID).aMBLD.Add(entry);
    return 1;
}
