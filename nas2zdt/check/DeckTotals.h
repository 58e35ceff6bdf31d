#pragma once
// A deck added up as NASTRAN means it. Cards are read here a second time, apart from the rules of restating, so that
// these can be held to it.

#include "nas2zdt/check/Totals.h"
#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/DeckModel.h"
#include "nas2zdt/restate/Restate.h"
#include "nas2zdt/restate/SourceDeck.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Adds up what the converted cards mean. Of cards with one id the last counts. Not counted are cards with a field
/// that isn't what it should be, and those that aren't converted in any form, such as CPYRAM, CMASS2, RFORCE, SPOINT,
/// RBE3; equations that make no rigid link; RBAR and RBE1 whose six independent components aren't at one grid; CONM1
/// that is no mass in a point.
class CDeckTotals {
  public:
    /// Throws CFileException if the deck can't be joined, or if its ranges stand for more than any deck needs.
    CDeckTotals(const std::string& sDeck, const T_CHOICE_D& rChoice);

    const T_TOTALS_D& GetTotals() const { return m_totals; }

  private:
    /// Cards of a phase need what those of the phases before tell.
    enum E_PHASE : std::uint8_t { PHASE_DEFAULTS, PHASE_MODEL, PHASE_REST, PHASE_COUNT };
    struct T_ROW_D {
        std::string_view sKEYWORD;
        E_PHASE ePHASE;
        void (CDeckTotals::*TAKE)();
    };
    static const std::vector<T_ROW_D> ROWS;

    void ChooseCase(const CSourceDeck& rSource, const T_CHOICE_D& rChoice);
    void AddModel();
    void AddElements();
    void AddMasses();

    // defaults
    void TakeGRDSET();
    void TakeBAROR() { m_barDefaults = ReadOrientation(4); }
    void TakeBEAMOR() { m_beamDefaults = ReadOrientation(4); }

    // grids, frames, elements
    void TakeGRID();
    void TakeByGrids();
    void TakeByPoints();
    template <E_BODY BODY, std::size_t FIRST>
    void TakeElement() {
        TakeBody(BODY, FIRST);
    }
    void TakeBody(E_BODY eBody, std::size_t iFirst);
    void TakeSpring();
    void TakeMass();
    void TakePointMatrix();
    struct T_ORIENTATION_D {
        std::optional<std::int32_t> iG0;
        std::optional<T_VECTOR> vector;
        bool bBASIC = false; // the vector, else in the axes of the first grid
    };
    T_ORIENTATION_D ReadOrientation(std::size_t iFirst) const;

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
    std::vector<std::int32_t> ReadGrids(std::size_t iFirst, std::size_t iEnd);
    using GET_RANGE = std::function<std::vector<std::int32_t>(std::int32_t, std::int32_t)>;
    std::vector<std::int32_t> ReadRanges(const GET_RANGE& getRange, std::size_t iFirst, std::size_t iEnd);

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
    struct T_DECKBODY_D {
        E_BODY eBODY;
        std::array<std::int32_t, 8> aNODES;
        bool bBAR = false;
        T_ORIENTATION_D orientation = {};
    };
    void AddNodalLoad(std::int32_t iGrid, const T_VECTOR& rLoad);
    bool FindAxes(const T_DECKBODY_D& rBar, std::array<T_VECTOR, 3>& rAxes) const;
    struct T_PRESSURE_D {
        std::int32_t iFIRST = 0, iOTHER = 0; // grids that name a face
        std::int32_t iCID = 0;
        T_VECTOR direction = {}; // zero for the normal
    };
    static std::vector<std::size_t> FindFace(const T_DECKBODY_D& rBody, std::int32_t iFirst, std::int32_t iOther);
    void AddPressure(const T_DECKBODY_D& rBody, std::array<double, 4> dP, const T_PRESSURE_D& rPressure);
    void AddTemperatures();
    void AddCombinations();
    std::vector<std::int32_t> ReadElements(std::size_t iFirst, std::size_t iEnd);
    T_SETTOTALS_D& Set() { return m_totals.mapSETS[m_card.Int(0)]; }
    bool IsMoment() const { return m_card.GetKeyword().starts_with('M'); }

    /// Whether all fields of the card that were read are what they should be.
    bool IsSound() const { return m_card.GetBroken() == CCardFields::NOWHERE; }

    /// Counts ids that ranges stand for. Throws CFileException if they are more than any deck needs.
    void CountRange(std::size_t nIDs);

    bool IsGrid(std::int32_t iGrid) const { return m_model.m_grids.Has(iGrid); }
    bool FindCorners(const T_DECKBODY_D& rBody, std::array<T_VECTOR, 8>& rCorners) const;

    std::string m_sDeck;
    std::size_t m_nRanges = 0;
    CDeckModel m_model;
    CCardFields m_card; // the card in hand
    T_TOTALS_D m_totals;
    bool m_bAsked = false; // whether case control asks for sets
    T_CASE_D m_case;

    struct T_GRIDDEFAULTS_D {
        std::int32_t iCP = 0, iCD = 0;
        std::uint8_t nPS = 0;
    };
    T_GRIDDEFAULTS_D m_gridDefaults;
    T_ORIENTATION_D m_barDefaults, m_beamDefaults;
    CIdTable<T_DECKBODY_D> m_bodies;

    struct T_DECKMASS_D {
        std::int32_t iGRID, iCID;
        double dMASS;
        T_VECTOR offset;
        T_SUM_D inertia; // the trace, in the digits of all values
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
    std::map<std::int32_t, double> m_mapDefaultTemperatures;
    std::map<std::int32_t, std::map<std::int32_t, double>> m_mapCombinations;
};

inline T_TOTALS_D TotalDeck(const std::string& sDeck, const T_CHOICE_D& rChoice) {
    return CDeckTotals(sDeck, rChoice).GetTotals();
}
