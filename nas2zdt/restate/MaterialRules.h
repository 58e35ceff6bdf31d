#pragma once
// Rules for materials: the three elastic constants, one material an id.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CMaterialRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    std::uint8_t GatherStructural(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherMAT1(const CCardFields& rCard, std::uint32_t iCard);
    void RestateMAT1(CRestateCard& rCard);
    void RestateMAT4(CRestateCard& rCard);
};
