#pragma once
// A deck added up as NASTRAN means it. Cards are read here a second time, apart from the rules of restating, so that
// these can be held to it.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/DeckMasses.h"
#include "nas2zdt/check/RecentFinds.h"
#include "nas2zdt/check/Totals.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Adds up what cards mean. Of cards with one id the last counts. Not counted are cards with a field that isn't what it
/// should be; loads that the file has no form for, such as RFORCE; equations that make no rigid link; RBAR and RBE1
/// whose six independent components aren't at one grid; scalar points and what is on them.
class CDeckTotals : public CCardTaker {
  public:
    explicit CDeckTotals(const CCheckDeck& rDeck);

    void TakeCard(const CCardFields& rCard) override;

    /// Once the cards are taken. Throws CFileException if ranges stand for more than any deck needs.
    void Finish();

    /// May be called once.
    T_TOTALS_D TakeTotals() { return std::move(m_totals); }

  private:
    struct T_ROW_D {
        std::string_view sKEYWORD;
        void (CDeckTotals::*TAKE)();
    };
    static const std::vector<T_ROW_D> ROWS;

    void AddNodes();
    void AddElements();
    void Weigh(const T_DECKELEMENT_D& rElement, T_SUMMEDELEMENT_D& rSummed);
    void AddMasses();

    // masses
    void TakeMass();
    void TakePointMatrix();

    // supports and links
    void TakeSPC();
    void TakeSPC1();
    void TakeSum();
    void TakeMPC();
    void TakeRBE2();
    void TakeRBE1();
    void TakeRBAR();
    struct T_SETS_D {
        std::set<std::int32_t> sets; // that have cards
        std::map<std::int32_t, std::vector<std::int32_t>> mapSUMS;
        std::set<std::int32_t> FindTaken(bool bAsked, std::int32_t iAsked) const;
    };
    struct T_END_D {
        std::int32_t iGRID;
        std::uint8_t nCOMPONENTS;
    };
    void AddSupports();
    void AddEquations();
    void AddRigid(std::int32_t iMaster, std::int32_t iSlave, std::uint8_t nComponents);
    void AddRigidBody(const std::vector<T_END_D>& rFree, const std::vector<T_END_D>& rTied);
    const std::vector<std::int32_t>& ReadGrids(std::size_t iFirst, std::size_t iEnd);
    template <class HAS, class GET_RANGE>
    const std::vector<std::int32_t>& ReadRanges(HAS has, GET_RANGE getRange, std::size_t iFirst, std::size_t iEnd);

    // loads
    void TakeForce();
    void TakeForceAlong();
    void TakeForceAcross();
    void TakeGRAV();
    void TakeLOAD();
    void TakePLOAD();
    void TakePLOAD1();
    void TakePLOAD2();
    void TakePLOAD4();
    void TakeTEMP();
    void TakeTEMPD();
    void TakeElementTemperatures();
    void TakeSPCD();
    void AddNodalLoad(std::int32_t iGrid, const T_VECTOR& rLoad);
    bool FindAxes(const T_DECKELEMENT_D& rBar, std::array<T_VECTOR, 3>& rAxes) const;
    struct T_PRESSURE_D {
        std::int32_t iFIRST = 0, iOTHER = 0; // grids that name a face
        std::int32_t iCID = 0;
        T_VECTOR direction = {}; // zero for the normal
    };
    std::span<const std::uint8_t> FindFace(const T_DECKELEMENT_D& rElement, std::int32_t iFirst,
                                           std::int32_t iOther) const;
    struct T_PENDING_D {
        const T_DECKELEMENT_D* pELEMENT;
        T_SETTOTALS_D* pSET;
        std::array<double, 4> dP; // at the corners
        T_PRESSURE_D pressure;
    };
    void TakePressure(const T_DECKELEMENT_D& rElement, const std::array<double, 4>& dP, const T_PRESSURE_D& rPressure);
    void AddPressures();
    void AddPressure(T_PENDING_D pending);
    void AddTemperatures();
    void AddCombinations();
    const std::vector<std::int32_t>& ReadElements(std::size_t iFirst, std::size_t iEnd);
    T_SETTOTALS_D& Set();
    bool IsMoment() const { return m_pCard->GetKeyword().starts_with('M'); }

    /// Whether all fields of the card that were read are what they should be.
    bool IsSound() const { return m_pCard->GetBroken() == CCardFields::NOWHERE; }

    /// Counts ids that ranges stand for. Throws CFileException if they are more than any deck needs.
    void CountRange(std::size_t nIDs);

    bool IsGrid(std::int32_t iGrid) const { return m_rDeck.HasGrid(iGrid); }
    bool FindCorners(const T_DECKELEMENT_D& rElement, std::array<T_VECTOR, 8>& rCorners) const;

    const CCheckDeck& m_rDeck;
    const CDeckGrids& m_rGrids;
    std::map<std::string_view, const T_ROW_D*> m_mapRows;
    const T_ROW_D* m_pRow = nullptr;      // of the last card
    const CCardFields* m_pCard = nullptr; // the card in hand
    std::vector<std::int32_t> m_aIDs;     // of its list
    std::size_t m_nRanges = 0;
    CDeckMasses m_elementMasses;
    T_TOTALS_D m_totals;
    T_SETTOTALS_D* m_pSet = nullptr; // of the last load
    std::int32_t m_iSet = 0;
    std::vector<T_PENDING_D> m_aPending; // pressures that wait for others nearby
    CRecentFinds<const T_PROPERTYMASS_D> m_properties;

    struct T_DECKMASS_D {
        std::int32_t iGRID, iCID;
        double dMASS;
        T_VECTOR offset;
        std::array<double, 6> dINERTIA; // I11, I21, I22, I31, I32, I33 about its point, in the axes of its frame
    };
    CIdTable<T_DECKMASS_D> m_masses;

    struct T_SUPPORT_D {
        std::int32_t iSET, iGRID;
        std::uint8_t nCOMPONENTS;
    };
    T_SETS_D m_supportSets, m_equationSets;
    std::vector<T_SUPPORT_D> m_aSupports;
    struct T_EQUATION_D {
        std::int32_t iSET, iMASTER, iSLAVE, iCOMPONENT;
    };
    std::vector<T_EQUATION_D> m_aEquations;
    std::map<std::int32_t, CIdValues<double>> m_mapTemperatures, m_mapElementTemperatures;
    std::map<std::int32_t, double> m_mapDefaultTemperatures;
    std::map<std::int32_t, std::map<std::int32_t, double>> m_mapCombinations;
};

/// Ids of a table that a list names: single ones, "a THRU b", "a THRU b BY n", "a THRU b EXCEPT c d ...". They are
/// valid until the next list.
template <class HAS, class GET_RANGE>
const std::vector<std::int32_t>& CDeckTotals::ReadRanges(HAS has, GET_RANGE getRange, std::size_t iFirst,
                                                         std::size_t iEnd) {
    m_aIDs.clear();
    for (std::size_t i = iFirst; i < iEnd; ++i) {
        if (m_pCard->IsBlank(i)) continue;
        const std::int32_t iFrom = m_pCard->Int(i);
        if (!m_pCard->Is(i + 1, "THRU")) {
            if (has(iFrom)) m_aIDs.push_back(iFrom);
            continue;
        }
        const std::int32_t iTo = m_pCard->Int(i + 2);
        const std::int32_t iLow = std::min(iFrom, iTo), iHigh = std::max(iFrom, iTo);
        i += 2;
        std::int64_t nStep = 1;
        if (m_pCard->Is(i + 1, "BY")) {
            nStep = std::max(m_pCard->Int(i + 2, 1), 1);
            i += 2;
        }
        std::set<std::int32_t> excepted;
        if (m_pCard->Is(i + 1, "EXCEPT")) {
            for (++i; m_pCard->HasInt(i + 1) && m_pCard->Int(i + 1) >= iLow && m_pCard->Int(i + 1) <= iHigh; ++i) {
                excepted.insert(m_pCard->Int(i + 1));
            }
        }
        const std::vector<std::int32_t> aRange = getRange(iLow, iHigh);
        CountRange(aRange.size());
        for (const std::int32_t iID : aRange) {
            if ((std::int64_t{iID} - iLow) % nStep == 0 && !excepted.contains(iID)) m_aIDs.push_back(iID);
        }
    }
    return m_aIDs;
}

/// The totals of a deck. Throws CFileException if its ranges stand for more than any deck needs.
T_TOTALS_D TotalDeck(const CCheckDeck& rDeck);

/// The same of a file. Throws CFileException if the deck can't be joined, or if its ranges stand for more than any
/// deck needs.
T_TOTALS_D TotalDeck(const std::string& sDeck, const T_CHOICE_D& rChoice);
