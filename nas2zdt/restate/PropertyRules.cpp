// Rules for properties of rods, shells, springs and gaps.

#include "nas2zdt/restate/PropertyRules.h"

const std::vector<T_RULE_D> CPropertyRules::RULES = {};

std::vector<T_CARDRULES_D> CPropertyRules::GetCards() {
    return {};
}
