#pragma once
// Rules for masses and scalar springs.

#include "nas2zdt/restate/RuleFamily.h"

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

class CMassRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;
    void Begin() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    std::uint8_t GatherMass(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherSpring(const CCardFields& rCard, bool bProperty);
    void RestateCONM1(CRestateCard& rCard);
    void RestateCONM2(CRestateCard& rCard);
    void RestateSpring(CRestateCard& rCard, bool bProperty);
    CFieldValue FreeId(CRestateCard& rCard);
    bool FindAxes(const CCardFields& rCard, std::array<T_VECTOR, 3>& rAxes) const;

    std::vector<std::pair<std::int32_t, std::uint32_t>> m_aMasses; // ids, and places of their cards
};
