// Rules for forces, moments, gravity and combinations.

#include "nas2zdt/restate/NodeLoadRules.h"

const std::vector<T_RULE_D> CNodeLoadRules::RULES = {};

std::vector<T_CARDRULES_D> CNodeLoadRules::GetCards() {
    return {};
}
