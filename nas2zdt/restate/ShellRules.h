#pragma once
// Rules for shells and solids: thicknesses of their own, defaults.

#include "nas2zdt/restate/PlateThickness.h"
#include "nas2zdt/restate/RuleFamily.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

class CShellRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;
    void Finish(CCardWriter& rWriter) override;

    static const std::vector<T_RULE_D> RULES;

  private:
    /// A PSHELL, as far as a thickness needs it.
    struct T_BASE_D {
        bool bSHELL = false;
        double dT = 0.0;
        std::vector<std::string> aFIELDS;
    };

    void RestateElement(CRestateCard& rCard, const T_THICKNESS_D& rPlaces);
    void RestateThickness(CRestateCard& rCard, const T_THICKNESS_D& rPlaces, std::int32_t iPID);
    const T_BASE_D& FindBase(std::int32_t iPID);

    std::map<std::int32_t, T_BASE_D> m_mapBases;                         // of the properties that were asked for
    std::map<std::pair<std::int32_t, double>, std::int32_t> m_mapShells; // PSHELLs that were made
    struct T_SHELL_D {
        std::int32_t iPID, iBASE;
        double dT;
        T_ORIGINLINE_D origin;
    };
    std::vector<T_SHELL_D> m_aShells;
};
