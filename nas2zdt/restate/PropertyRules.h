#pragma once
// Rules for properties of shells, rods, springs, bushes and gaps.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CPropertyRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    void RestatePTUBE(CRestateCard& rCard);
    void RestatePBUSH(CRestateCard& rCard);
    void RestatePGAP(CRestateCard& rCard);
};
