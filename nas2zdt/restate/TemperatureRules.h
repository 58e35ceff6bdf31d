#pragma once
// Rules for temperatures.

#include "nas2zdt/restate/ElementLook.h"
#include "nas2zdt/restate/RuleFamily.h"

#include <cstdint>
#include <utility>
#include <vector>

class CTemperatureRules : public CRuleFamily {
  public:
    explicit CTemperatureRules(const T_RULEBENCH_D& rBench)
        : CRuleFamily(rBench), m_elements(rBench.rMODEL, rBench.rCARDS) {}
    std::vector<T_CARDRULES_D> GetCards() override;
    void Close() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    std::uint8_t GatherTEMP(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherTEMPP1(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherTEMPRB(const CCardFields& rCard, std::uint32_t iCard);
    void RestateTEMP(CRestateCard& rCard);
    void RestateTEMPD(CRestateCard& rCard);
    void RestateTEMPP1(CRestateCard& rCard);
    void RestateTEMPRB(CRestateCard& rCard);
    std::vector<std::int32_t> TakeElements(CRestateCard& rCard, std::size_t iRest, E_ELEMENT eKind);

    CElementLook m_elements;

    /// Places of cards that go through as they stand, and a grid or an element of theirs.
    using T_NAMED = std::vector<std::pair<std::uint32_t, std::int32_t>>;
    T_NAMED m_aGrids, m_aElements;
};
