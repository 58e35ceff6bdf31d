// Rules for sections of bars and beams.

#include "nas2zdt/restate/BeamPropertyRules.h"

const std::vector<T_RULE_D> CBeamPropertyRules::RULES = {};

std::vector<T_CARDRULES_D> CBeamPropertyRules::GetCards() {
    return {};
}
