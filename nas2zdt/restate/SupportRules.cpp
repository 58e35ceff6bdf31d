// Rules for supports, enforced displacements and equations: one set, an entry a grid.

#include "nas2zdt/restate/SupportRules.h"

const std::vector<T_RULE_D> CSupportRules::RULES = {};

std::vector<T_CARDRULES_D> CSupportRules::GetCards() {
    return {};
}
