#include "nas2zdt/check/CardCheck.h"

#include "nas2zdt/check/FaceCheck.h"
#include "nas2zdt/check/ValueRules.h"
#include "nas2zdt/restate/FieldText.h"

#include <algorithm>

namespace {

constexpr E_REFERENCE VERDICT_KINDS[VERDICT_COUNT] = {
    REFERENCE_COUNT, FIELD_BLANK, FIELD_NUMBER,     FIELD_REAL, FIELD_INTEGER,
    FIELD_LARGE,     FIELD_ID,    FIELD_COMPONENTS, VALUE_ZERO, VALUE_NEGATIVE,
};

/// What is missing, as texts name it.
constexpr const char* TARGET_NAMES[TARGET_COUNT] = {
    "",
    "GRID",
    "GRID",
    "coordinate system",
    "MAT",
    "property",
    "element",
    "element",
    "element",
    "element",
    "set of supports",
    "set of equations",
    "set of loads",
};

bool Serves(E_REFERRED eTarget, const T_ELEMENTKIND_D& rKind) {
    const bool bSurface = rKind.eBODY == BODY_TRIANGLE || rKind.eBODY == BODY_QUAD;
    switch (eTarget) {
    case TARGET_BAR:
        return rKind.sKEYWORD == "CBAR" || rKind.sKEYWORD == "CBEAM" || rKind.sKEYWORD == "CBEND";
    case TARGET_LINE:
        return rKind.eBODY == BODY_LINE;
    case TARGET_SURFACE:
        return bSurface;
    default:
        return bSurface || BODY_CORNERS[rKind.eBODY] > 4 || rKind.eBODY == BODY_TETRA;
    }
}

E_SETKIND SetKindOf(E_REFERRED eTarget) {
    return eTarget == TARGET_SUPPORTS ? SETS_SUPPORTS : eTarget == TARGET_EQUATIONS ? SETS_EQUATIONS : SETS_LOADS;
}

} // namespace

void CCardCheck::TakeCard(const CCardFields& rCard) {
    if (m_sKeyword != rCard.GetKeyword()) {
        m_sKeyword = rCard.GetKeyword();
        m_pFormat = FindCardFormat(m_sKeyword);
    }
    if (!m_pFormat) return CheckKeyword(rCard);
    m_place = {m_pFormat->sKEYWORD, 0, rCard.GetOrigin()};
    if (!ReadInteger(rCard.Text(0), m_place.iID)) m_place.iID = 0;
    CheckFields(rCard);
    CheckValues(rCard, m_place, m_rFindings);
    if (m_pFormat->sKEYWORD == "RBE3") CheckWeights(rCard);
    if (m_pFormat->sKEYWORD == "PLOAD4") CheckPressure(rCard);
}

/// The grids that name the face of a PLOAD4, or the last of its elements.
void CCardCheck::CheckPressure(const CCardFields& rCard) {
    std::int32_t iElement = 0;
    if (!m_bReferences || !ReadInteger(rCard.Text(1), iElement)) return;
    if (!m_rIds.IsSurface(iElement)) CheckFace(m_rDeck, rCard, m_place, m_rFindings);
    if (!rCard.Is(6, "THRU")) return;
    const T_FIELD_D& rField = m_pFormat->aFIELDS[1];
    std::int32_t iLast = 0;
    if (CheckField(rCard, 7, rField, iLast)) CheckTarget(TARGET_FACE, iLast, m_place);
}

/// Keywords that aren't known are left alone, as long as they may be any.
void CCardCheck::CheckKeyword(const CCardFields& rCard) {
    if (!m_sKeyword.empty() && m_sKeyword[0] >= 'A' && m_sKeyword[0] <= 'Z') return;
    Tell(m_rFindings, TEXT_NOKEYWORD, {"", 0, rCard.GetOrigin()},
         [&] { return "the line begins with no keyword: " + m_sKeyword; });
}

/// Whether the field is what it should be.
bool CCardCheck::CheckField(const CCardFields& rCard, std::size_t i, const T_FIELD_D& rField, std::int32_t& rID) {
    const E_VERDICT eVerdict = JudgeField(rCard.Text(i), rField, rID);
    if (eVerdict == VERDICT_FINE) return true;
    Tell(m_rFindings, VERDICT_KINDS[eVerdict], m_place, [&] { return TellVerdict(eVerdict, rField, rCard.Text(i)); });
    return false;
}

void CCardCheck::CheckFields(const CCardFields& rCard) {
    const std::size_t nFixed = m_pFormat->aFIELDS.size();
    const bool bList = !m_pFormat->bIDS && !m_pFormat->aLIST.empty();
    for (std::size_t i = 0; i < (bList ? std::max(nFixed, rCard.GetCount()) : nFixed); ++i) {
        const T_FIELD_D& rField = *m_pFormat->Find(i);
        if (!rField.bNEEDED && rCard.IsBlank(i)) continue;
        std::int32_t iID = 0;
        if (CheckField(rCard, i, rField, iID) && iID != 0) CheckTarget(rField.pTYPE->eTARGET, iID, m_place);
    }
    if (m_pFormat->bIDS) CheckIdList(rCard);
}

/// Ids with THRU, BY and EXCEPT. Of a range, one must be there.
void CCardCheck::CheckIdList(const CCardFields& rCard) {
    const T_FIELD_D& rField = m_pFormat->aLIST[0];
    const T_FIELD_D last{rField.sNAME, rField.pTYPE, true};
    const E_REFERRED eTarget = rField.pTYPE->eTARGET;
    std::size_t i = m_pFormat->aFIELDS.size();
    while (i < rCard.GetCount()) {
        if (m_pFormat->bENDSATREAL && IsReal(rCard.Text(i))) return;
        std::int32_t iFirst = 0, iLast = 0;
        const bool bFine = rCard.Is(i, "ALL") || CheckField(rCard, i, rField, iFirst);
        if (!rCard.Is(i + 1, "THRU")) {
            if (bFine && iFirst != 0) CheckTarget(eTarget, iFirst, m_place);
            ++i;
            continue;
        }
        if (CheckField(rCard, i + 2, last, iLast) && bFine) CheckRange(eTarget, iFirst, iLast);
        i += 3;
        if (rCard.Is(i, "BY")) i += 2;
        if (!rCard.Is(i, "EXCEPT")) continue;
        const auto isExcepted = [&] {
            return rCard.IsBlank(i) || rCard.Is(i, "THRU") ||
                   (rCard.HasInt(i) && rCard.Int(i) >= iFirst && rCard.Int(i) <= iLast);
        };
        for (++i; i < rCard.GetCount() && isExcepted();) ++i;
    }
}

void CCardCheck::CheckRange(E_REFERRED eTarget, std::int32_t iFirst, std::int32_t iLast) {
    if (!m_bReferences || eTarget == TARGET_NOTHING) return;
    if (iLast < iFirst) std::swap(iFirst, iLast);
    const bool bPoints = eTarget == TARGET_GRID || eTarget == TARGET_POINT;
    const bool bSets = eTarget >= TARGET_SUPPORTS;
    if (bPoints ? m_rIds.HasPointIn(iFirst, iLast)
        : bSets ? m_rIds.HasSetIn(SetKindOf(eTarget), iFirst, iLast)
                : m_rIds.HasElementIn(iFirst, iLast)) {
        return;
    }
    Tell(m_rFindings,
         bPoints ? REFERENCE_GRID
         : bSets ? REFERENCE_SET
                 : REFERENCE_ELEMENT,
         m_place, [&] {
             return std::string("no ") + TARGET_NAMES[eTarget] + " from " + std::to_string(iFirst) + " to " +
                    std::to_string(iLast) + " exists";
         });
}

/// RBE3 goes on with weights, the components and grids of each; UM begins pairs of grids and components.
void CCardCheck::CheckWeights(const CCardFields& rCard) {
    const T_FIELD_D weight{"WT1", FindFieldType("real"), true};
    const T_FIELD_D components{"C", FindFieldType("comps"), true}, grid{"G", FindFieldType("grid"), true};
    std::int32_t iNone = 0;
    CheckField(rCard, m_pFormat->aFIELDS.size(), weight, iNone);
    bool bPairs = false, bComponents = true;
    for (std::size_t i = m_pFormat->aFIELDS.size() + 1; i < rCard.GetCount(); ++i) {
        if (rCard.IsBlank(i) || rCard.Is(i, "THRU")) continue;
        if (rCard.Is(i, "ALPHA") || rCard.Is(i, "TREF")) return;
        if (rCard.Is(i, "UM")) {
            bPairs = true;
            bComponents = false;
        } else if (!bPairs && IsReal(rCard.Text(i))) {
            bComponents = true;
        } else if (bComponents) {
            CheckField(rCard, i, components, iNone);
            bComponents = false;
        } else {
            std::int32_t iGrid = 0;
            if (CheckField(rCard, i, grid, iGrid)) CheckTarget(TARGET_GRID, iGrid, m_place);
            bComponents = bPairs;
        }
    }
}

void CCardCheck::CheckTarget(E_REFERRED eTarget, std::int32_t iID, const T_CARDPLACE_D& rPlace) {
    if (!m_bReferences) return;
    const auto miss = [&](E_REFERENCE eKind) {
        Tell(m_rFindings, eKind, rPlace,
             [&] { return std::string(TARGET_NAMES[eTarget]) + " " + std::to_string(iID) + " doesn't exist"; });
    };
    switch (eTarget) {
    case TARGET_GRID:
        if (!m_rIds.HasGrid(iID)) miss(REFERENCE_GRID);
        break;
    case TARGET_POINT:
        if (!m_rIds.HasPoint(iID)) miss(REFERENCE_GRID);
        break;
    case TARGET_FRAME:
        if (!m_rIds.HasFrame(iID)) miss(REFERENCE_FRAME);
        break;
    case TARGET_MATERIAL:
        if (!m_rIds.HasMaterial(iID)) miss(REFERENCE_MATERIAL);
        break;
    case TARGET_PROPERTY:
        CheckProperty(iID, rPlace);
        break;
    case TARGET_BAR:
    case TARGET_LINE:
        CheckElement(eTarget, iID, rPlace);
        break;
    case TARGET_SURFACE:
    case TARGET_FACE:
        if (!m_rIds.IsSurface(iID)) CheckElement(eTarget, iID, rPlace);
        break;
    case TARGET_SUPPORTS:
    case TARGET_EQUATIONS:
    case TARGET_LOADS:
        if (!m_rIds.HasSet(SetKindOf(eTarget), iID)) {
            miss(REFERENCE_SET);
        } else {
            CheckSet(SetKindOf(eTarget), iID, rPlace);
        }
        break;
    case TARGET_NOTHING:
    case TARGET_COUNT:
        break;
    }
}

void CCardCheck::CheckElement(E_REFERRED eTarget, std::int32_t iEID, const T_CARDPLACE_D& rPlace) {
    const T_DECKELEMENT_D* const pElement = m_rDeck.FindElement(iEID);
    if (!pElement && !m_rIds.IsOtherElement(iEID)) {
        Tell(m_rFindings, REFERENCE_ELEMENT, rPlace,
             [&] { return "element " + std::to_string(iEID) + " doesn't exist"; });
    } else if (pElement && !Serves(eTarget, pElement->GetKind())) {
        Tell(m_rFindings, REFERENCE_ELEMENTKIND, rPlace,
             [&] { return "element " + std::to_string(iEID) + " is a " + std::string(pElement->GetKind().sKEYWORD); });
    }
}

/// The property of the element whose keyword rPlace has.
void CCardCheck::CheckProperty(std::int32_t iPID, const T_CARDPLACE_D& rPlace) {
    const std::size_t iFamily = FindFamilyOfElement(rPlace.sKEYWORD);
    if (iFamily == NO_FAMILY || m_rIds.FindProperty(iFamily, iPID) || m_rIds.IsOtherProperty(iPID)) return;
    for (std::size_t iOther = 0; iOther < FAMILY_COUNT; ++iOther) {
        if (const T_PROPERTY_D* pOther = m_rIds.FindProperty(iOther, iPID)) {
            return Tell(m_rFindings, REFERENCE_PROPERTYKIND, rPlace,
                        [&] { return "property " + std::to_string(iPID) + " is a " + std::string(pOther->sKEYWORD); });
        }
    }
    Tell(m_rFindings, REFERENCE_PROPERTY, rPlace,
         [&] { return std::string(GetFamilies()[iFamily].sNAME) + " " + std::to_string(iPID) + " doesn't exist"; });
}

/// A sum may have no sum of another card in it.
void CCardCheck::CheckSet(E_SETKIND eKind, std::int32_t iSet, const T_CARDPLACE_D& rPlace) {
    const T_SET_D* const pSet = m_rIds.FindSet(eKind, iSet);
    if (!pSet || pSet->bOWN || iSet == rPlace.iID) return;
    Tell(m_rFindings, REFERENCE_SETOFSETS, rPlace,
         [&] { return "set " + std::to_string(iSet) + " is a " + std::string(pSet->sKEYWORD); });
}
