// Rules for materials.

#include "nas2zdt/restate/MaterialRules.h"

const std::vector<T_RULE_D> CMaterialRules::RULES = {};

std::vector<T_CARDRULES_D> CMaterialRules::GetCards() {
    return {};
}
