#pragma once
// Rules for grids and frames: positions and frames in basic terms, axes at the grid.

#include "nas2zdt/restate/RuleFamily.h"

#include <array>
#include <map>
#include <vector>

class CGridRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;
    void Close() override;
    void Finish(CCardWriter& rWriter) override;

    static const std::vector<T_RULE_D> RULES;

  private:
    std::uint8_t GatherGRID(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherGRDSET(const CCardFields& rCard);
    std::uint8_t GatherByGrids(const CCardFields& rCard, E_FRAME eKind);
    std::uint8_t GatherByPoints(const CCardFields& rCard, E_FRAME eKind);
    void RestateGRID(CRestateCard& rCard);
    void RestateByGrids(CRestateCard& rCard);
    void RestateByPoints(CRestateCard& rCard);
    bool WriteFrame(CRestateCard& rCard, std::int32_t iCID);
    std::int32_t AxesFrame(std::int32_t iCD, const T_VECTOR& rPosition, const T_ORIGINLINE_D& rOrigin);

    /// Fields of a GRID that are blank take these.
    struct T_DEFAULTS_D {
        bool bGIVEN = false;
        std::int32_t iCP = 0, iCD = 0;
        std::uint8_t nPS = 0;
    };
    T_DEFAULTS_D m_defaults;

    struct T_AXES_D {
        std::int32_t iCID;
        std::array<T_VECTOR, 3> dAXES;
        T_ORIGINLINE_D origin;
    };
    std::map<std::array<T_VECTOR, 3>, std::int32_t> m_mapAxes; // frames at the basic origin that were made
    std::vector<T_AXES_D> m_aAxes;
};
