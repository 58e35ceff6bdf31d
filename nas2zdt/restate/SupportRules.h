#pragma once
// Rules for supports, enforced displacements and equations: one set, an entry a grid.

#include "nas2zdt/restate/IdList.h"
#include "nas2zdt/restate/RuleFamily.h"
#include "nas2zdt/restate/SetChoice.h"
#include "nas2zdt/restate/SupportTable.h"

#include <vector>

/// The file has one set of supports and equations, so all that are taken are put into one.
class CSupportRules : public CRuleFamily {
  public:
    using CRuleFamily::CRuleFamily;
    std::vector<T_CARDRULES_D> GetCards() override;
    void Begin() override;
    void Finish(CCardWriter& rWriter) override;

    static const std::vector<T_RULE_D> RULES;

  private:
    std::uint8_t GatherSPC(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherSPC1(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherSPCD(const CCardFields& rCard);
    std::uint8_t GatherMPC(const CCardFields& rCard, std::uint32_t iCard);
    std::uint8_t GatherSum(const CCardFields& rCard, std::uint32_t iCard, CSetChoice& rSets);
    void TellBroken(const CCardFields& rCard);
    void RestateSPCD(CRestateCard& rCard);

    struct T_SUPPORT_D {
        std::int32_t iSET;
        T_IDRANGE_D ids;
        std::uint32_t iCARD;
        std::uint8_t nCOMPONENTS; // bit 0 for component 1
        bool bSPC1;
    };
    struct T_DISPLACEMENT_D {
        std::int32_t iSET, iGRID;
        std::uint8_t nCOMPONENTS;
        double dVALUE;
        std::uint32_t iCARD;
    };
    struct T_EQUATION_D {
        std::int32_t iSET;
        std::uint32_t iCARD;
        std::int32_t iDEPENDENT, iOTHER;
        std::int32_t iCOMPONENT; // 0 if it can be no rigid link
        bool bPLAIN;             // whether it has the form of a link already
    };

    void ChooseSets();
    void TellLeft();
    void TellCases(const CSetChoice& rSets, std::int32_t T_CASE_D::*pAsked, const char* sKeyword,
                   std::uint32_t iFirstCard);
    void MergeSupports();
    void TellSupports();
    void FindLinks();
    bool IsLink(const T_EQUATION_D& rEquation) const;
    void EnforceDisplacements();
    std::vector<std::int32_t> FindLoadSets(bool& rAll) const;
    void Tell(std::size_t iRule, const char* sKeyword, std::uint32_t iCard, std::string_view sDetail = {},
              std::uint64_t nCount = 1) {
        m_rTold.Tell(RULES[iRule], sKeyword, m_rCards[iCard].origin, sDetail, nCount);
    }

    CSetChoice m_supportSets, m_equationSets;
    std::int32_t m_iSet = 0;                                     // of the restated deck
    std::vector<std::pair<std::uint32_t, std::int32_t>> m_aSums; // SPCADD: card and set
    std::vector<T_SUPPORT_D> m_aSupports;
    std::vector<T_EQUATION_D> m_aEquations;
    std::vector<T_EQUATION_D> m_aLinks;
    std::vector<T_DISPLACEMENT_D> m_aDisplacements; // of SPCD
    std::vector<T_DISPLACEMENT_D> m_aEnforced;      // of SPC
    std::vector<T_DISPLACEMENT_D> m_aWritten;       // of SPC, in load sets
    CSupportTable m_held;
};
