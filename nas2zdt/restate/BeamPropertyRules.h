#pragma once
// Rules for sections of bars and beams: shapes that the file can name, values else, both ends of a beam.

#include "nas2zdt/restate/BarSections.h"
#include "nas2zdt/restate/RuleFamily.h"

#include <cstddef>
#include <string>
#include <vector>

class CBeamPropertyRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;

    static const std::vector<T_RULE_D> RULES;

  private:
    /// Dimensions and mass of a section, as on the card, at a place of a beam.
    struct T_STATION_D {
        double dX = 0.0;
        std::vector<double> aDIM;
        std::string sNSM;
    };

    void RestatePBARL(CRestateCard& rCard);
    void RestatePBEAML(CRestateCard& rCard);
    void RestatePBEAM(CRestateCard& rCard);
    void WriteShape(CRestateCard& rCard, const T_SECTIONSHAPE_D& rShape, std::string_view sNSM);
    void WriteEnds(CRestateCard& rCard, const std::string& rType, const T_STATION_D& rA, const T_STATION_D& rB);
};
