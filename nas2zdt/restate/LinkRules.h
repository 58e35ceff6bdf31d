#pragma once
// Rules for rigid elements.

#include "nas2zdt/restate/RuleFamily.h"

#include <map>
#include <string_view>
#include <utility>
#include <vector>

class CLinkRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    void RestateRBE2(CRestateCard& rCard);
    void RestateRBAR(CRestateCard& rCard);
    void RestateRBAR1(CRestateCard& rCard);
    void RestateRBE1(CRestateCard& rCard);
    void WriteLink(CRestateCard& rCard, const CFieldValue& rID, std::int32_t iIndependent, std::string_view sComponents,
                   const std::vector<std::int32_t>& rDependent);
    void WriteRigid(CRestateCard& rCard, std::int32_t iIndependent, std::uint8_t nTied, std::int32_t iDependent,
                    double dAlpha);

    /// Grids and their components, in the order of the card; those of RBE1.
    struct T_ENDS_D {
        std::vector<std::pair<std::int32_t, std::uint8_t>> aINDEPENDENT;
        std::vector<std::pair<std::int32_t, std::uint8_t>> aDEPENDENT;
        bool bEXPANDS = false; // whether it has an ALPHA other than 0
    };
    static T_ENDS_D ReadEnds(const CCardFields& rCard);
};
