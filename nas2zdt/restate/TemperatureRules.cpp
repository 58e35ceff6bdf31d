// Rules for temperatures.

#include "nas2zdt/restate/TemperatureRules.h"

const std::vector<T_RULE_D> CTemperatureRules::RULES = {};

std::vector<T_CARDRULES_D> CTemperatureRules::GetCards() {
    return {};
}
