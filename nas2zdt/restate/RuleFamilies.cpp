// Lists the families.

#include "nas2zdt/restate/RuleFamilies.h"

#include "nas2zdt/restate/BarRules.h"
#include "nas2zdt/restate/BeamPropertyRules.h"
#include "nas2zdt/restate/BushRules.h"
#include "nas2zdt/restate/ElementLoadRules.h"
#include "nas2zdt/restate/GridRules.h"
#include "nas2zdt/restate/LinkRules.h"
#include "nas2zdt/restate/MassRules.h"
#include "nas2zdt/restate/MaterialRules.h"
#include "nas2zdt/restate/NodeLoadRules.h"
#include "nas2zdt/restate/PropertyRules.h"
#include "nas2zdt/restate/ShellRules.h"
#include "nas2zdt/restate/SupportRules.h"
#include "nas2zdt/restate/TemperatureRules.h"

namespace {

template <class... FAMILY>
struct T_FAMILIES_D {
    static std::vector<std::unique_ptr<CRuleFamily>> Make(const T_RULEBENCH_D& rBench) {
        std::vector<std::unique_ptr<CRuleFamily>> aFamilies;
        (aFamilies.push_back(std::make_unique<FAMILY>(rBench)), ...);
        return aFamilies;
    }
    static std::vector<T_RULE_D> GetRules() {
        std::vector<T_RULE_D> aRules;
        (aRules.insert(aRules.end(), FAMILY::RULES.begin(), FAMILY::RULES.end()), ...);
        return aRules;
    }
};

// Supports come last: they are gathered and written anew in a restated deck, too, where cards of the others stay.
using FAMILIES = T_FAMILIES_D<CGridRules, CLinkRules, CMassRules, CBarRules, CBushRules, CShellRules,
                              CBeamPropertyRules, CPropertyRules, CMaterialRules, CNodeLoadRules, CElementLoadRules,
                              CTemperatureRules, CSupportRules>;

} // namespace

std::vector<std::unique_ptr<CRuleFamily>> MakeFamilies(const T_RULEBENCH_D& rBench) {
    return FAMILIES::Make(rBench);
}

std::vector<T_RULE_D> GetFamilyRules() {
    return FAMILIES::GetRules();
}
