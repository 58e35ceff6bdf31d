// Restates materials.

#include "nas2zdt/restate/MaterialRules.h"

#include <cmath>

namespace {

enum E_RULE { MATERIAL_CONSTANTS, MATERIAL_THERMAL };

enum E_FIELD : std::size_t { FIELD_MID, FIELD_E, FIELD_G, FIELD_NU };

} // namespace

const std::vector<T_RULE_D> CMaterialRules::RULES = {
    {"material-constants", CLASS_NOTE, "MAT1", "G and one of E, NU", "restated: the other of E, NU filled in"},
    {"material-thermal", CLASS_NOTE, "MAT4", "the id of a structural material",
     "left out: a thermal material with the id of a structural one, since the file has one material an id"},
};

std::vector<T_CARDRULES_D> CMaterialRules::GetCards() {
    std::vector<T_CARDRULES_D> aCards = {
        {"MAT1", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherMAT1(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateMAT1(rCard); }},
        {"MAT4", nullptr, [this](CRestateCard& rCard) { RestateMAT4(rCard); }},
    };
    for (const char* const sKeyword : {"MAT2", "MAT3", "MAT8", "MAT9", "MAT11", "MATHP", "MATHE"}) {
        aCards.push_back(
            {sKeyword, [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherStructural(rCard, iCard); },
             nullptr});
    }
    return aCards;
}

std::uint8_t CMaterialRules::GatherStructural(const CCardFields& rCard, std::uint32_t iCard) {
    m_rModel.m_materials.Put(rCard.Int(FIELD_MID), iCard);
    return NEED_NOTHING;
}

std::uint8_t CMaterialRules::GatherMAT1(const CCardFields& rCard, std::uint32_t iCard) {
    m_rModel.m_materials.Put(rCard.Int(FIELD_MID), iCard);
    const bool bMissing = rCard.IsBlank(FIELD_E) != rCard.IsBlank(FIELD_NU);
    return bMissing && !rCard.IsBlank(FIELD_G) ? NEED_ALWAYS : NEED_NOTHING;
}

/// E = 2 (1 + NU) G. The file has E and NU. One of the three alone says nothing of the others: they are zero.
void CMaterialRules::RestateMAT1(CRestateCard& rCard) {
    const double dE = rCard.Real(FIELD_E), dG = rCard.Real(FIELD_G), dNU = rCard.Real(FIELD_NU);
    const bool bE = rCard.IsBlank(FIELD_E);
    const double dValue = bE ? 2.0 * (1.0 + dNU) * dG : dE / (2.0 * dG) - 1.0;
    if (!std::isfinite(dValue)) return;
    rCard.Set(bE ? FIELD_E : FIELD_NU, dValue);
    rCard.Tell(RULES[MATERIAL_CONSTANTS]);
}

void CMaterialRules::RestateMAT4(CRestateCard& rCard) {
    if (!m_rModel.m_materials.Has(rCard.Int(FIELD_MID))) return;
    rCard.Drop();
    rCard.Tell(RULES[MATERIAL_THERMAL]);
}
