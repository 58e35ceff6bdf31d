#pragma once
// Rules for forces, moments, gravity and combinations.

#include "nas2zdt/restate/RuleFamily.h"

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

class CNodeLoadRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;
    void Close() override;
    void Begin() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    std::uint8_t GatherForce(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherGRAV(const CCardFields& rCard);
    std::uint8_t GatherLOAD(const CCardFields& rCard);
    void RestateForce(CRestateCard& rCard);
    void RestateByGrids(CRestateCard& rCard, bool bCross);
    void RestateGRAV(CRestateCard& rCard);
    void RestateLOAD(CRestateCard& rCard);
    bool DropWithoutGrid(CRestateCard& rCard);
    T_VECTOR DirectionOf(std::int32_t iFrom, std::int32_t iTo) const;

    std::vector<std::pair<std::uint32_t, std::int32_t>> m_aLoaded; // places of cards, and their grids

    struct T_GRAVITY_D {
        std::int32_t iSID, iCID;
        T_VECTOR dA;
    };
    struct T_GRAVITYSUM_D {
        std::size_t nCARDS = 0; // those whose frame is known
        T_VECTOR dA = {};
        bool bWRITTEN = false;
    };
    std::vector<T_GRAVITY_D> m_aGravity;
    std::map<std::int32_t, T_GRAVITYSUM_D> m_mapGravity;

    struct T_SHARE_D {
        std::int32_t iSET;
        double dFACTOR; // that of S included
    };
    struct T_COMBINATION_D {
        std::vector<T_SHARE_D> aSHARES;
        std::map<std::int32_t, std::size_t> mapPlaces; // of sets in aSHARES
        std::size_t nInLast = 0;                       // sets of the last card
        bool bPLAIN = true;                            // the cards are as they would be written
        bool bBROKEN = false;                          // one isn't what it should be, so that all stay
        bool bWRITTEN = false;
    };
    std::map<std::int32_t, T_COMBINATION_D> m_mapCombinations;
};
