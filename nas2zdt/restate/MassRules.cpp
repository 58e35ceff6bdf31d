// Rules for masses and scalar springs.

#include "nas2zdt/restate/MassRules.h"

const std::vector<T_RULE_D> CMassRules::RULES = {};

std::vector<T_CARDRULES_D> CMassRules::GetCards() {
    return {};
}
