#include "nas2zdt/check/SetCheck.h"

#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/restate/IdList.h"

#include <algorithm>
#include <set>

namespace {

/// Whether one of the fields isn't zero. A field that can't be read counts as if it weren't.
bool HasValue(const CCardFields& rCard, std::size_t iFirst, std::size_t nFields) {
    for (std::size_t i = iFirst; i < iFirst + nFields; ++i) {
        double dValue = 0.0;
        if (!rCard.IsBlank(i) && (!ReadReal(rCard.Text(i), dValue) || dValue != 0.0)) return true;
    }
    return false;
}

/// Whether a card of loads has a load, by itself.
bool HasLoad(const CCardFields& rCard) {
    const std::string_view sKeyword = rCard.GetKeyword();
    if (sKeyword == "FORCE" || sKeyword == "MOMENT") return HasValue(rCard, 3, 1) && HasValue(rCard, 4, 3);
    if (sKeyword == "GRAV") return HasValue(rCard, 2, 1) && HasValue(rCard, 3, 3);
    if (sKeyword == "PLOAD4") return HasValue(rCard, 2, 4);
    if (sKeyword == "PLOAD1") return HasValue(rCard, 5, 1) || HasValue(rCard, 7, 1);
    if (sKeyword == "PLOAD" || sKeyword == "PLOAD2") return HasValue(rCard, 1, 1);
    if (sKeyword.starts_with("FORCE") || sKeyword.starts_with("MOMENT")) return HasValue(rCard, 2, 1);
    return true;
}

/// What a request of case control asks for, and what makes it.
struct T_REQUESTED_D {
    std::int32_t T_CASE_D::*pASKED;
    const char* sKEYWORD;
    E_SETKIND eKIND;
    const char* sCARDS;
};
constexpr T_REQUESTED_D REQUESTED[] = {
    {&T_CASE_D::iSPC, "SPC", SETS_SUPPORTS, "SPC, SPC1 or SPCADD"},
    {&T_CASE_D::iMPC, "MPC", SETS_EQUATIONS, "MPC or MPCADD"},
    {&T_CASE_D::iLOAD, "LOAD", SETS_LOADS, "load"},
    {&T_CASE_D::iTEMPERATURE, "TEMPERATURE", SETS_TEMPERATURES, "TEMP or TEMPD"},
    {&T_CASE_D::iMETHOD, "METHOD", SETS_METHODS, "EIGRL, EIGR or EIGB"},
};

bool IsOfLoads(std::string_view sKeyword) {
    return sKeyword.starts_with("FORCE") || sKeyword.starts_with("MOMENT") || sKeyword.starts_with("PLOAD") ||
           sKeyword.starts_with("TEMP") || sKeyword == "GRAV" || sKeyword == "RFORCE" ||
           sKeyword.starts_with("ACCEL") || sKeyword == "SLOAD" || sKeyword == "SPCD";
}

} // namespace

void CSetCheck::TakeCard(const CCardFields& rCard) {
    if (m_sKeyword != rCard.GetKeyword()) {
        m_sKeyword = rCard.GetKeyword();
        m_bSupports = m_sKeyword == "SPC" || m_sKeyword == "SPC1";
        m_bMakesSet = m_bSupports || (IsOfLoads(m_sKeyword) && FindCardFormat(m_sKeyword));
        m_pSet = nullptr;
    }
    if (m_sKeyword == "SPCADD") {
        for (const T_IDRANGE_D& rRange : ReadIdList(rCard, 1, rCard.GetCount())) {
            m_mapSums[rCard.Int(0)].emplace_back(rRange.iFIRST, rRange.iLAST);
        }
    }
    std::int32_t iSet = 0;
    if (!m_bMakesSet || !ReadInteger(rCard.Text(0), iSet)) return;
    if (!m_pSet || m_iSet != iSet) {
        m_iSet = iSet;
        m_pSet = &m_rIds.GetSets(m_bSupports ? SETS_SUPPORTS : SETS_LOADS)[iSet];
    }
    if (!m_pSet->bACTS) m_pSet->bACTS = m_bSupports ? Holds(rCard) : Acts(rCard);
    if (m_sKeyword != "TEMPD") return;
    for (std::size_t i = 2; i < rCard.GetCount(); i += 2) { // each of its pairs is of a set
        if (rCard.HasInt(i)) m_rIds.GetSets(SETS_LOADS)[rCard.Int(i)].bACTS = true;
    }
}

bool CSetCheck::Holds(const CCardFields& rCard) const {
    if (rCard.GetKeyword() == "SPC1") {
        for (const T_IDRANGE_D& rRange : ReadIdList(rCard, 2, rCard.GetCount())) {
            const bool bHeld = rCard.Components(1) != 0 || !m_rDeck.HasGrid(rRange.iFIRST);
            if (bHeld && m_rIds.HasPointIn(rRange.iFIRST, rRange.iLAST)) return true;
        }
        return false;
    }
    for (std::size_t i = 1; i < 7; i += 3) {
        const std::int32_t iPoint = rCard.HasInt(i) ? rCard.Int(i) : 0;
        const bool bGrid = m_rDeck.HasGrid(iPoint); // a scalar point has no components
        if (iPoint > 0 && m_rIds.HasPoint(iPoint) && (!bGrid || rCard.Components(i + 1) != 0)) return true;
    }
    return false;
}

/// Whether the load isn't zero and is on something.
bool CSetCheck::Acts(const CCardFields& rCard) const {
    const std::string_view sKeyword = rCard.GetKeyword();
    if (!HasLoad(rCard)) return false;
    const std::int32_t iOn = rCard.HasInt(1) ? rCard.Int(1) : 0;
    if (sKeyword.starts_with("FORCE") || sKeyword.starts_with("MOMENT")) return m_rIds.HasPoint(iOn);
    if (sKeyword == "PLOAD1" || sKeyword == "PLOAD4") return m_rDeck.FindElement(iOn) || m_rIds.IsOtherElement(iOn);
    return true;
}

/// Sums may sum up sums, in circles, too.
bool CSetCheck::HoldsAnything(std::int32_t iSet) const {
    const auto& rSets = m_rIds.GetSets(SETS_SUPPORTS);
    std::vector<std::int32_t> aStack = {iSet};
    std::set<std::int32_t> seen;
    while (!aStack.empty()) {
        const std::int32_t iTop = aStack.back();
        aStack.pop_back();
        if (!seen.insert(iTop).second) continue;
        const auto pSet = rSets.find(iTop);
        if (m_rIds.IsOtherSet(iTop) || (pSet != rSets.end() && pSet->second.bACTS)) return true;
        const auto pSum = m_mapSums.find(iTop);
        if (pSum == m_mapSums.end()) continue;
        for (const auto& [iFirst, iLast] : pSum->second) {
            if (iFirst == iLast) {
                aStack.push_back(iFirst);
                continue;
            }
            for (auto p = rSets.lower_bound(iFirst); p != rSets.end() && p->first <= iLast; ++p) {
                aStack.push_back(p->first);
            }
        }
    }
    return false;
}

void CSetCheck::TellSets(CFindings& rFindings) const {
    bool bCase = false;
    for (const T_CONTROL_D& rLine : m_rDeck.GetControl()) {
        bCase = bCase || StartsWithoutCase(rLine.sTEXT, "CEND");
        const T_CASELINE_D line = ReadCaseLine(rLine.sTEXT);
        if (!bCase || !line.pASKED || line.iVALUE <= 0) continue;
        const auto* pRequested = std::ranges::find(REQUESTED, line.pASKED, &T_REQUESTED_D::pASKED);
        const T_CARDPLACE_D place{pRequested->sKEYWORD, line.iVALUE, rLine.origin};
        if (!m_rIds.HasSet(pRequested->eKIND, line.iVALUE)) {
            Tell(rFindings, REFERENCE_SET, place, [&] {
                return "set " + std::to_string(line.iVALUE) + " doesn't exist: no " + pRequested->sCARDS + " has it";
            });
        } else if (pRequested->eKIND == SETS_SUPPORTS && !HoldsAnything(line.iVALUE)) {
            Tell(rFindings, SET_SUPPORTS, place,
                 [&] { return "set " + std::to_string(line.iVALUE) + " holds nothing"; });
        }
    }
    for (const auto& rEntry : m_rIds.GetSets(SETS_LOADS)) {
        const T_SET_D& rSet = rEntry.second;
        if (!rSet.bACTS && rSet.bOWN && !m_rIds.IsOtherSet(rEntry.first)) {
            Tell(rFindings, SET_LOADS, {rSet.sKEYWORD, rEntry.first, rSet.origin},
                 [&] { return "no load of set " + std::to_string(rEntry.first) + " acts"; });
        }
    }
}
