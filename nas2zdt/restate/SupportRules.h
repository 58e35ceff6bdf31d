#pragma once
// Rules for supports, enforced displacements and equations: one set, an entry a grid.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CSupportRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;
};
