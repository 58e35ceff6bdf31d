// Loads on grids and elements, temperatures, load combinations and eigenvalue extraction.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

/// Most ids of a THRU range: a typing error mustn't fill the memory.
constexpr std::int32_t LONGEST_RANGE = 10000000;

/// Calls take for each id above 0 from iBefore + 1 to iLast, the THRU range of a card. rTotal counts those of the whole
/// run. Throws CRunError for too many of them, in this range or in all.
template <class TAKE>
void WalkRange(const T_DATA_D& rCard, std::int32_t iBefore, std::int32_t iLast, const T_LIMITS_D& rLimits,
               std::int64_t& rTotal, TAKE take) {
    const std::int64_t iFirst = std::max<std::int64_t>(std::int64_t(iBefore) + 1, 1);
    const std::int64_t nIds = std::max<std::int64_t>(iLast - iFirst + 1, 0);
    const std::int32_t iLine = rCard.aLINES.front();
    if (nIds > LONGEST_RANGE) throw CRunError(FAILURE_RANGE_TOO_LONG, iLine, LONGEST_RANGE);
    rTotal += nIds;
    if (rTotal > rLimits.nRANGES) throw CRunError(FAILURE_LIMIT_RANGES, iLine, rLimits.nRANGES);
    for (std::int64_t iID = iFirst; iID <= iLast; ++iID) take(static_cast<std::int32_t>(iID));
}

/// A force or moment, whose grid is the next field. Forms 1 and 2 keep the magnitude alone; their direction is worked
/// out once all grids are known.
T_MBLD_D ReadNodalLoad(CFieldCursor& rFields, E_LOAD_KIND eKind, E_LOAD_FORM eForm) {
    T_MBLD_D entry;
    entry.iKIND = eKind;
    entry.iFORM = eForm;
    entry.iID = rFields.Int();
    if (eForm == FORM_PLAIN) {
        entry.iCID = rFields.Int();
        const double dF = rFields.Real();
        for (std::size_t i = 0; i < 3; ++i) entry.dV[i] = dF * rFields.Real(); // N1 to N3, of any length
    } else {
        entry.dV[0] = rFields.Real();
        const std::size_t nGrids = eForm == FORM_CROSS ? 4 : 2;
        for (std::size_t i = 0; i < nGrids; ++i) entry.iG[i] = rFields.Int();
    }
    return entry;
}

/// TYPE of PLOAD1: what the load is and where it points.
struct T_BEAMLOADTYPE_D {
    std::string_view sTYPE;
    E_LOAD_KIND eKIND;
    E_LOAD_DIRECTION eDIR;
};

// clang-format off
constexpr T_BEAMLOADTYPE_D TYPES[] = {
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
    for (const T_BEAMLOADTYPE_D& rRow : TYPES) {
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

/// Reads three pairs of id and temperature and calls add with them: the first with any id, the others with one above 0.
/// Always 1.
template <class ADD>
int ReadTemperaturePairs(CFieldCursor& rFields, ADD add) {
    for (int iPair = 0; iPair < 3; ++iPair) {
        if (iPair > 0 && rFields.Peek().empty()) {
            rFields.Skip(CFieldCursor::BY_PLACE, CFieldCursor::BY_PLACE);
            continue;
        }
        const std::int32_t iID = rFields.Int();
        const double dTemperature = rFields.Real();
        if (iPair == 0 || iID > 0) add(iID, dTemperature);
    }
    return 1;
}

} // namespace

/// The load set that a card names, made on first mention. It becomes the current one, which the next cards of the set
/// take without a search: records of a table keep their addresses.
T_LOAD_D& CConvertNastran::EnsureLoadSet(std::int32_t iSID) {
    if (!m_pCurLoadSet || iSID != m_iCurLoadSet) {
        m_pCurLoadSet = &m_pDataPool->LOAD[iSID];
        m_iCurLoadSet = iSID;
    }
    return *m_pCurLoadSet;
}

/// Adds an entry to a load set. Always 1.
int CConvertNastran::AddLoad(std::int32_t iSID, const T_MBLD_D& rEntry) {
    if (m_pDataPool->m_pTaken) {
        m_pDataPool->m_pTaken->Add(iSID, rEntry);
    } else {
        EnsureLoadSet(iSID).aMBLD.Add(rEntry);
    }
    return 1;
}
int CConvertNastran::AddTemperature(std::int32_t iSID, const T_NTLD_D& rEntry) {
    if (m_pDataPool->m_pTaken) {
        m_pDataPool->m_pTaken->Add(iSID, rEntry);
    } else {
        EnsureLoadSet(iSID).aNTLD.Add(rEntry);
    }
    return 1;
}

int CConvertNastran::ParseFORCE(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return AddLoad(iSID, ReadNodalLoad(fields, LOAD_FORCE, FORM_PLAIN));
}

int CConvertNastran::ParseFORCE1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return AddLoad(iSID, ReadNodalLoad(fields, LOAD_FORCE, FORM_TWO_GRIDS));
}

int CConvertNastran::ParseFORCE2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return AddLoad(iSID, ReadNodalLoad(fields, LOAD_FORCE, FORM_CROSS));
}

int CConvertNastran::ParseMOMENT(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return AddLoad(iSID, ReadNodalLoad(fields, LOAD_MOMENT, FORM_PLAIN));
}

int CConvertNastran::ParseMOMENT1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return AddLoad(iSID, ReadNodalLoad(fields, LOAD_MOMENT, FORM_TWO_GRIDS));
}

int CConvertNastran::ParseMOMENT2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return AddLoad(iSID, ReadNodalLoad(fields, LOAD_MOMENT, FORM_CROSS));
}

/// Gravity is part of the set: a second card overwrites the first.
int CConvertNastran::ParseGRAV(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    T_LOAD_D& rSet = EnsureLoadSet(fields.Int());
    if (rSet.bGRAV) m_pDataPool->TellReplaced("GRAV", false);
    rSet.bGRAV = 1;
    rSet.iGRAVCID = fields.Int();
    const double dA = fields.Real();
    rSet.dGRAVX = dA * fields.Real();
    rSet.dGRAVY = dA * fields.Real();
    rSet.dGRAVZ = dA * fields.Real();
    return 1;
}

/// A combination, not a load set. Cards of one SID add their pairs.
int CConvertNastran::ParseLOAD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    T_LDCB_D& rCombination = m_pDataPool->LDCB[fields.Int()];
    rCombination.dSCALE = fields.Real();
    for (int iPair = 0; iPair < 4; ++iPair) { // S1, L1 to S4, L4; further pairs aren't read
        const double dFactor = fields.Real();
        const std::int32_t iSet = fields.Int();
        if (iSet == 0) continue;
        rCombination.aFACTORS.Add(dFactor);
        rCombination.aLOADS.Add(iSet);
    }
    return 1;
}

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
    return AddLoad(iSID, entry);
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
        WalkRange(rCard, entry.iID, fields.Int(), m_options.limits, m_nRanged, AddCopy);
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
        entry.dV[iCorner] = dP == 0.0 ? entry.dV[0] : dP; // a zero counts as a blank
    }
    if (fields.Peek() == "THRU") {
        fields.Skip("THRU", "EID2"); // the first element alone takes the load
    } else {
        entry.iFACEG1 = fields.Int();
        entry.iFACEG34 = fields.Int();
    }
    entry.iCID = fields.Int();
    for (double& rN : entry.dN) rN = fields.Real();
    return AddLoad(iSID, entry);
}

/// A load, not a constraint. The first pair is taken with any grid.
int CConvertNastran::ParseSPCD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    for (int iPair = 0; iPair < 2; ++iPair) {
        if (iPair > 0 && fields.Peek().empty()) {
            fields.Skip("G2", "C2", "D2");
            break;
        }
        T_MBLD_D entry;
        entry.iKIND = LOAD_DISPLACEMENT;
        entry.iID = fields.Int();
        const std::array<bool, 6> bDOF = ComponentsOrAll(fields.Text());
        const double dD = fields.Real();
        for (std::size_t i = 0; i < 6; ++i) entry.dV[i] = bDOF[i] ? dD : 0.0;
        if (iPair == 0 || entry.iID != 0) AddLoad(iSID, entry);
    }
    return 1;
}

int CConvertNastran::ParseTEMP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    return ReadTemperaturePairs(fields, [&](std::int32_t iGrid, double dTemperature) {
        AddTemperature(iSID, {iGrid, dTemperature});
    });
}

/// Four pairs of set and default temperature. A blank set is set 0, which is made by its mention, but its temperature
/// isn't read: the pairs behind it start one field early.
int CConvertNastran::ParseTEMPD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    for (int iPair = 0; iPair < 4; ++iPair) {
        const std::int32_t iSID = fields.Int();
        T_LOAD_D& rSet = EnsureLoadSet(iSID);
        if (iPair > 0 && iSID == 0) continue;
        const double dTemperature = fields.Real();
        if (rSet.bTEMPD) m_pDataPool->TellReplaced("TEMPD", rSet.dTEMPD == dTemperature);
        rSet.bTEMPD = 1;
        rSet.dTEMPD = dTemperature;
    }
    return 1;
}

/// The words THRU are looked for at two places, counted on a card whose fields are closed up. On small field cards the
/// blank end of line 1 shifts them, so that only the ids that are written get an entry.
int CConvertNastran::ParseTEMPP1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    CArray<T_ETLD_D>& rEntries = EnsureLoadSet(fields.Int()).aETLD;
    T_ETLD_D entry;
    entry.iELEM = fields.Int();
    entry.dTBAR = fields.Real();
    fields.Skip("TPRIME"); // the gradient comes from T1 and T2
    entry.dT1 = fields.Real();
    entry.dT2 = fields.Real();
    rEntries.Add(entry);
    const auto AddCopy = [&](std::int32_t iEID) {
        entry.iELEM = iEID;
        rEntries.Add(entry);
    };
    const auto TakeId = [&] {
        const std::int32_t iEID = fields.Int();
        if (iEID > 0) AddCopy(iEID);
        return iEID;
    };
    const auto AddRange = [&](std::int32_t iBefore) {
        const std::int32_t iLast = fields.Int();
        WalkRange(rCard, iBefore, iLast, m_options.limits, m_nRanged, AddCopy);
        return std::max(iBefore, iLast);
    };

    std::int32_t iLast = TakeId();
    if (fields.TakeWord("THRU")) {
        iLast = AddRange(iLast);
    } else {
        for (int iField = 0; iField < 3; ++iField) iLast = TakeId();
    }
    if (fields.TakeWord("THRU")) {
        AddRange(iLast);
    } else {
        for (int iField = 0; iField < 2; ++iField) TakeId();
    }
    return 1;
}

/// Read as three pairs like TEMP, though the later fields of the card have another meaning.
int CConvertNastran::ParseTEMPRB(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    CArray<T_ETLD_D>& rEntries = EnsureLoadSet(fields.Int()).aETLD;
    return ReadTemperaturePairs(fields, [&](std::int32_t iEID, double dTemperature) {
        rEntries.Add({iEID, dTemperature});
    });
}

int CConvertNastran::ParseEIGB(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_EIGB_D buckling;
    buckling.iMETHOD = fields.Text() == "SINV" ? 1 : 0;
    buckling.dL1 = fields.Real();
    buckling.dL2 = fields.Real();
    buckling.iNEP = fields.Int();
    fields.Skip("NDP"); // NDN takes its place, a blank one too
    buckling.iNDN = fields.Int();
    fields.Skip("-");
    buckling.iNORM = fields.Text() == "POINT" ? 1 : 0;
    buckling.iG = fields.Int();
    buckling.iC = fields.Int();
    return m_pDataPool->SetEIGB(iSID, buckling);
}

int CConvertNastran::ParseEIGRL(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_EIRL_D modes;
    modes.dV1 = fields.Real();
    modes.dV2 = fields.Real();
    modes.iND = fields.Int();
    modes.iMSGLVL = fields.Int();
    modes.iMAXSET = fields.Int();
    modes.dSHFSCL = fields.Real();
    modes.iNORM = fields.Text() == "MAX" ? 1 : 0;
    return m_pDataPool->SetEIRL(iSID, modes);
}
