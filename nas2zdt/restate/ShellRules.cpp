// Restates shells and solids.

#include "nas2zdt/restate/ShellRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>

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
    std::vector<T_CARDRULES_D> aCards;
    for (const char* sKeyword :
         {"CQUAD4", "CQUADR", "CQUAD8", "CTRIA3", "CTRIAR", "CTRIA6", "CSHEAR", "CTETRA", "CPENTA", "CHEXA"}) {
        const T_THICKNESS_D places = ThicknessOf(sKeyword);
        aCards.push_back({sKeyword,
                          [this, places](const CCardFields& rCard, std::uint32_t iCard) {
                              m_rModel.m_elements.Put(rCard.Int(0), iCard);
                              const bool bThickness = places.nCORNERS > 0 && rCard.GetCount() > places.iFIRST;
                              return rCard.IsBlank(1) || bThickness ? NEED_ALWAYS : NEED_NOTHING;
                          },
                          [this, places](CRestateCard& rCard) { RestateElement(rCard, places); }});
    }
    return aCards;
}

void CShellRules::RestateElement(CRestateCard& rCard, const T_THICKNESS_D& rPlaces) {
    const std::int32_t iPID = rCard.Int(1, rCard.Int(0));
    if (rCard.IsBlank(1)) {
        rCard.Set(1, iPID);
        rCard.Tell(RULES[SHELL_PID]);
    }
    if (HasThickness(rCard, rPlaces)) RestateThickness(rCard, rPlaces, iPID);
}

void CShellRules::RestateThickness(CRestateCard& rCard, const T_THICKNESS_D& rPlaces, std::int32_t iPID) {
    const T_BASE_D& rBase = FindBase(iPID);
    if (!rBase.bSHELL) return;
    const double dT = ReadThickness(rCard, rPlaces, rBase.dT);
    if (dT == 0.0) return;
    if (dT != rBase.dT) {
        const auto [pShell, bNew] = m_mapShells.try_emplace({iPID, dT}, 0);
        if (bNew) {
            pShell->second = m_rModel.NewPropertyId();
            m_aShells.push_back({pShell->second, iPID, dT, rCard.GetOrigin()});
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
