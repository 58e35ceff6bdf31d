#pragma once
// Rules for sections of bars and beams.

#include "nas2zdt/restate/RuleFamily.h"

#include <vector>

class CBeamPropertyRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;
};
