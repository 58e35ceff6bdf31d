#pragma once
// Rules for masses and scalar springs.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CMassRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;
};
