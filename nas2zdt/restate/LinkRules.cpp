// Rules for rigid elements.

#include "nas2zdt/restate/LinkRules.h"

const std::vector<T_RULE_D> CLinkRules::RULES = {};

std::vector<T_CARDRULES_D> CLinkRules::GetCards() {
    return {};
}
