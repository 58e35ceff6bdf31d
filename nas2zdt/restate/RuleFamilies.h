#pragma once
// All families of rules.

#include "nas2zdt/restate/RuleFamily.h"

#include <memory>
#include <vector>

/// In the order in which they finish.
std::vector<std::unique_ptr<CRuleFamily>> MakeFamilies(const T_RULEBENCH_D& rBench);

std::vector<T_RULE_D> GetFamilyRules();
