// Restates shells and solids.

#include "nas2zdt/restate/ShellRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <array>
#include <cmath>

namespace {

enum E_RULE { SHELL_PID, SHELL_THICKNESS };

enum E_PSHELL : std::size_t { PSHELL_PID = 0, PSHELL_T = 2 };

} // namespace

const std::vector<T_RULE_D> CShellRules::RULES = {
    {"shell-pid", CLASS_NOTE, "CQUAD4 CQUADR CQUAD8 CTRIA3 CTRIAR CTRIA6 CSHEAR CTETRA CPENTA CHEXA", "a blank PID",
     "restated: PID is EID", "element-property-blank"},
    {"shell-thickness", CLASS_NOTE, "CQUAD4 CQUADR CQUAD8 CTRIA3 CTRIAR CTRIA6",
     "thicknesses of its own that are equal at all corners", "restated: a PSHELL of the element's thickness"},
};

std::vector<T_CARDRULES_D> CShellRules::GetCards() {
    const std::vector<std::pair<const char*, T_PLACES_D>> aKeywords = {
        {"CQUAD4", {10, 4, 9}}, {"CQUADR", {10, 4, 9}},  {"CQUAD8", {10, 4, 16}}, {"CTRIA3", {10, 3, 9}},
        {"CTRIAR", {10, 3, 9}}, {"CTRIA6", {10, 3, 13}}, {"CSHEAR", {}},          {"CTETRA", {}},
        {"CPENTA", {}},         {"CHEXA", {}},
    };
    std::vector<T_CARDRULES_D> aCards;
    for (const auto& [sKeyword, places] : aKeywords) {
        aCards.push_back({sKeyword,
                          [this, places = places](const CCardFields& rCard, std::uint32_t iCard) {
                              m_rModel.m_elements.Put(rCard.Int(0), iCard);
                              const bool bThickness = places.nCORNERS > 0 && rCard.GetCount() > places.iFIRST;
                              return rCard.IsBlank(1) || bThickness ? NEED_ALWAYS : NEED_NOTHING;
                          },
                          [this, places = places](CRestateCard& rCard) { RestateElement(rCard, places); }});
    }
    return aCards;
}

void CShellRules::RestateElement(CRestateCard& rCard, const T_PLACES_D& rPlaces) {
    const std::int32_t iPID = rCard.Int(1, rCard.Int(0));
    if (rCard.IsBlank(1)) {
        rCard.Set(1, iPID);
        rCard.Tell(RULES[SHELL_PID]);
    }
    for (std::size_t i = 0; i < rPlaces.nCORNERS; ++i) {
        if (!rCard.IsBlank(rPlaces.iFIRST + i)) return RestateThickness(rCard, rPlaces, iPID);
    }
}

/// A blank corner has the property's thickness. With TFLAG 1 corners have parts of it.
void CShellRules::RestateThickness(CRestateCard& rCard, const T_PLACES_D& rPlaces, std::int32_t iPID) {
    const T_BASE_D& rBase = FindBase(iPID);
    if (!rBase.bSHELL) return;
    const bool bPart = rCard.Int(rPlaces.iFLAG) == 1;
    std::array<double, 4> aT = {};
    for (std::size_t i = 0; i < rPlaces.nCORNERS; ++i) {
        aT[i] = bPart ? rCard.Real(rPlaces.iFIRST + i, 1.0) * rBase.dT : rCard.Real(rPlaces.iFIRST + i, rBase.dT);
        if (aT[i] != aT[0]) return;
    }
    if (!std::isfinite(aT[0]) || !(aT[0] > 0.0)) return;
    if (aT[0] != rBase.dT) {
        const auto [pShell, bNew] = m_mapShells.try_emplace({iPID, aT[0]}, 0);
        if (bNew) {
            pShell->second = m_rModel.NewPropertyId();
            m_aShells.push_back({pShell->second, iPID, aT[0], rCard.GetOrigin()});
        }
        rCard.Set(1, pShell->second);
    }
    for (std::size_t i = 0; i < rPlaces.nCORNERS; ++i) rCard.Set(rPlaces.iFIRST + i, {});
    rCard.Set(rPlaces.iFLAG, {});
    rCard.Tell(RULES[SHELL_THICKNESS]);
}

const CShellRules::T_BASE_D& CShellRules::FindBase(std::int32_t iPID) {
    const auto [pBase, bNew] = m_mapBases.try_emplace(iPID);
    T_BASE_D& rBase = pBase->second;
    const std::uint32_t* pCard = bNew ? m_rModel.m_properties.Find(iPID) : nullptr;
    if (!pCard) return rBase;
    CCardFields card;
    card.Read(m_rCards[*pCard]);
    rBase.dT = card.Real(PSHELL_T);
    rBase.bSHELL = card.GetKeyword() == "PSHELL" && card.GetBroken() == CCardFields::NOWHERE;
    for (std::size_t i = 0; rBase.bSHELL && i < card.GetCount(); ++i) rBase.aFIELDS.emplace_back(card.Text(i));
    return rBase;
}

void CShellRules::Finish(CCardWriter& rWriter) {
    for (const T_SHELL_D& rShell : m_aShells) {
        std::vector<CFieldValue> aFields;
        for (const std::string& rField : m_mapBases[rShell.iBASE].aFIELDS) {
            aFields.emplace_back(std::string_view(rField));
        }
        aFields.resize(std::max<std::size_t>(aFields.size(), PSHELL_T + 1));
        aFields[PSHELL_PID] = rShell.iPID;
        aFields[PSHELL_T] = rShell.dT;
        rWriter.SetOrigin(rShell.origin);
        rWriter.Write("PSHELL", aFields);
    }
}
