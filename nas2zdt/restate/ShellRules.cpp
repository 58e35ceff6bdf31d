// Rules for shells and solids.

#include "nas2zdt/restate/ShellRules.h"

const std::vector<T_RULE_D> CShellRules::RULES = {};

std::vector<T_CARDRULES_D> CShellRules::GetCards() {
    return {};
}
