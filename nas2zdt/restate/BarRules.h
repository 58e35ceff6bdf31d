#pragma once
// Rules for elements of two grids: orientations in basic terms, defaults, rods.

#include "nas2zdt/restate/RuleFamily.h"

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <vector>

class CBarRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    /// Fields of a bar that are blank take these of BAROR or BEAMOR, at the same places.
    static constexpr std::size_t DEFAULTS = 8;
    using T_DEFAULTS = std::array<std::string, DEFAULTS>;

    std::uint8_t GatherLine(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherBar(const CCardFields& rCard, std::uint32_t iCard, E_NEED eDefaults);
    std::uint8_t GatherDefaults(const CCardFields& rCard, E_NEED eNeed, T_DEFAULTS& rDefaults);
    void RestatePID(CRestateCard& rCard, const T_DEFAULTS& rDefaults);
    void RestateBar(CRestateCard& rCard, const T_DEFAULTS& rDefaults);
    void RestateGap(CRestateCard& rCard);
    void RestateCONROD(CRestateCard& rCard);

    T_DEFAULTS m_bar, m_beam;
    std::map<std::tuple<std::int32_t, double, double, double, double>, std::int32_t> m_mapRods; // PRODs that were made
};
