// Rules for loads on elements.

#include "nas2zdt/restate/ElementLoadRules.h"

const std::vector<T_RULE_D> CElementLoadRules::RULES = {};

std::vector<T_CARDRULES_D> CElementLoadRules::GetCards() {
    return {};
}
