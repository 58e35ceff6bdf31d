#pragma once
// Rules for forces, moments, gravity and combinations.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CNodeLoadRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;
};
