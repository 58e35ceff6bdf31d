// Rules for elements of two grids: orientations in basic terms, defaults.

#include "nas2zdt/restate/BarRules.h"

const std::vector<T_RULE_D> CBarRules::RULES = {};

std::vector<T_CARDRULES_D> CBarRules::GetCards() {
    return {};
}
