#pragma once
// Rules for bushes: the vector that gives the file's angle the meaning of the card.

#include "nas2zdt/restate/BushValues.h"
#include "nas2zdt/restate/RuleFamily.h"

#include <array>
#include <map>
#include <utility>
#include <vector>

class CBushRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;
    void Finish(CCardWriter& rWriter) override;

    static const std::vector<T_RULE_D> RULES;

  private:
    /// What the axes of a bush are to be.
    struct T_MEANT_D {
        T_VECTOR dY = {};      // a basic vector in the plane of its X and Y axes
        std::size_t iTURN = 0; // axis of the frame of CID that is its X axis
    };

    std::uint8_t GatherCBUSH(const CCardFields& rCard, std::uint32_t iCard);
    void RestateCBUSH(CRestateCard& rCard);
    void RestateAxes(CRestateCard& rCard, const T_VECTOR& rFrom, const T_VECTOR& rAlong);
    bool FindMeant(const CCardFields& rCard, const T_VECTOR& rFrom, const T_VECTOR& rAlong, T_MEANT_D& rMeant) const;
    T_VECTOR ReadByConverter(const CCardFields& rCard, const T_VECTOR& rFrom) const;
    const std::vector<T_BUSHLINE_D>& FindLines(std::int32_t iPID);
    std::int32_t TurnedProperty(std::int32_t iPID, std::size_t iTurn, const T_ORIGINLINE_D& rOrigin);
    std::int32_t AxesFrame(const T_VECTOR& rAlong, const T_VECTOR& rY, const T_ORIGINLINE_D& rOrigin);

    template <class VALUE>
    struct T_MADE_D {
        std::int32_t iID;
        VALUE value;
        T_ORIGINLINE_D origin;
    };
    std::map<std::int32_t, std::vector<T_BUSHLINE_D>> m_mapLines;             // of the PBUSHs that were asked for
    std::map<std::pair<std::int32_t, std::size_t>, std::int32_t> m_mapTurned; // PBUSHs that were made
    std::vector<T_MADE_D<std::vector<T_BUSHLINE_D>>> m_aTurned;
    std::map<std::array<T_VECTOR, 2>, std::int32_t> m_mapAxes; // frames that were made
    std::vector<T_MADE_D<std::array<T_VECTOR, 2>>> m_aAxes;
};
