#pragma once
// Rules for elements of two grids: orientations in basic terms, defaults.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CBarRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;
};
