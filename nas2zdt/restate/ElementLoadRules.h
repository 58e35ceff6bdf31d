#pragma once
// Rules for loads on elements.

#include "nas2zdt/restate/ElementLook.h"
#include "nas2zdt/restate/RuleFamily.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <vector>

class CElementLoadRules : public CRuleFamily {
  public:
    explicit CElementLoadRules(const T_RULEBENCH_D& rBench)
        : CRuleFamily(rBench), m_elements(rBench.rMODEL, rBench.rCARDS) {}
    std::vector<T_CARDRULES_D> GetCards() override;
    void Close() override;
    void Begin() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    using T_CORNERS = std::array<std::int32_t, 4>; // of a plate; the last is 0 for a triangle

    std::uint8_t GatherPLOAD1(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherPLOAD2(const CCardFields& rCard);
    std::uint8_t GatherPLOAD4(const CCardFields& rCard, std::uint32_t iCard);
    void RestatePLOAD(CRestateCard& rCard);
    void RestatePLOAD1(CRestateCard& rCard);
    void RestatePLOAD2(CRestateCard& rCard);
    void RestatePLOAD4(CRestateCard& rCard);
    bool SpreadPressure(CRestateCard& rCard, const T_CORNERS& rCorners);
    void WritePressure(CRestateCard& rCard, std::int32_t iEID, bool bAlone);
    bool SetDirection(CRestateCard& rCard, std::int32_t iEID, std::vector<CFieldValue>& rFields);
    bool SetWedgeFace(CRestateCard& rCard, const std::vector<std::int32_t>& rCorners,
                      std::vector<CFieldValue>& rFields);
    void TellOnce(CRestateCard& rCard, std::size_t iRule);
    double GetLength(std::int32_t iEID);
    bool FindCentre(std::int32_t iEID, T_VECTOR& rCentre);

    CElementLook m_elements;
    std::set<std::size_t> m_told; // of the PLOAD4 in hand

    /// A card that goes through as it stands unless its element gives a reason.
    struct T_LATER_D {
        std::uint32_t iCARD;
        std::int32_t iEID;
        bool bPRESSURE; // on a solid, or else a PLOAD1
        bool bVARIES;
    };
    std::vector<T_LATER_D> m_aLater;

    bool m_bPatches = false; // whether there is a PLOAD
    struct T_PLATE_D {
        std::int32_t iEID;
        T_CORNERS iCORNERS;
    };
    std::map<T_CORNERS, T_PLATE_D> m_mapPlates; // by their corners, ascending
};
