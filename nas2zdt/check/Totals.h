#pragma once
// A model added up, so that two tellings of it can be compared.

#include "nas2zdt/check/RecentFinds.h"
#include "nas2zdt/restate/Frame.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// A sum and the sum of the absolute values, in whose digits it is known.
struct T_SUM_D {
    double dSUM = 0.0;
    double dSIZE = 0.0;

    void Add(double dValue) { Add(dValue, dValue < 0.0 ? -dValue : dValue); }
    void Add(double dValue, double dSize) {
        dSUM += dValue;
        dSIZE += dSize;
    }
};

struct T_VECTORSUM_D {
    T_VECTOR dSUM = {};
    double dSIZE = 0.0; // sum of lengths

    void Add(const T_VECTOR& rValue) { Add(rValue, Length(rValue)); }
    void Add(const T_VECTOR& rValue, double dSize) {
        dSUM = ::Add(dSUM, rValue);
        dSIZE += dSize;
    }
};

/// Tells lists of ids apart, whatever the order of the lists.
struct T_LISTSUM_D {
    std::uint64_t nCOUNT = 0;
    std::uint64_t nCHECK = 0;

    /// A list of iFirst and nIDs others.
    void Add(std::int32_t iFirst, const std::int32_t* pIDs, std::size_t nIDs);
    void Add(std::initializer_list<std::int32_t> aIDs) { Add(*aIDs.begin(), aIDs.begin() + 1, aIDs.size() - 1); }
};

/// A number from 1 to 2 out of an id. A sum of values with such weights tells which id has which.
double WeightOf(std::int32_t iID);

/// Values of nodes or elements.
struct T_VALUESUM_D {
    T_LISTSUM_D ids;
    T_SUM_D sum, weighted;

    void Add(std::int32_t iID, double dValue) {
        ids.Add({iID});
        sum.Add(dValue);
        weighted.Add(WeightOf(iID) * dValue);
    }
};

/// Values by ids, of which a later one takes the place of an earlier one.
template <class VALUE>
class CIdValues {
  public:
    void Put(std::int32_t iID, VALUE value) { m_aValues.emplace_back(iID, value); }
    bool IsEmpty() const { return m_aValues.empty(); }

    /// Calls visit(id, value) by ascending id, once for each. Values of one id are joined by join(earlier, later).
    template <class JOIN, class VISIT>
    void Settle(JOIN join, VISIT visit) {
        const auto byId = [](const auto& a, const auto& b) { return a.first < b.first; };
        if (!std::is_sorted(m_aValues.begin(), m_aValues.end(), byId)) {
            std::stable_sort(m_aValues.begin(), m_aValues.end(), byId);
        }
        for (std::size_t i = 0; i < m_aValues.size();) {
            auto [iID, value] = m_aValues[i];
            for (++i; i < m_aValues.size() && m_aValues[i].first == iID; ++i) value = join(value, m_aValues[i].second);
            visit(iID, value);
        }
    }

    /// Adds the last value of each id.
    void AddTo(T_VALUESUM_D& rSum) {
        Settle([](VALUE, VALUE later) { return later; }, [&](std::int32_t iID, VALUE value) { rSum.Add(iID, value); });
    }

  private:
    std::vector<std::pair<std::int32_t, VALUE>> m_aValues;
};

/// Forces and moments about the origin of the basic frame.
struct T_RESULTANT_D {
    T_VECTORSUM_D force, moment;

    void AddForce(const T_VECTOR& rForce, const T_VECTOR& rAt) { AddForce(rForce, Length(rForce), rAt); }
    void AddForce(const T_VECTOR& rForce, double dLength, const T_VECTOR& rAt) {
        force.Add(rForce, dLength);
        moment.Add(Cross(rAt, rForce), Length(rAt) * dLength);
    }
    void AddMoment(const T_VECTOR& rMoment) { moment.Add(rMoment); }
};

/// What is measured of elements: lengths, areas, volumes. Springs, bushes and gaps aren't measured.
enum E_BODY : std::uint8_t {
    BODY_LINE,
    BODY_TRIANGLE,
    BODY_QUAD,
    BODY_TETRA,
    BODY_WEDGE,
    BODY_HEXA,
    BODY_PYRAMID,
    BODY_LINK, // of two nodes, the second 0 for ground
    BODY_COUNT
};

constexpr std::array<std::size_t, BODY_COUNT> BODY_CORNERS = {2, 3, 4, 4, 6, 8, 5, 2};

/// What an element is for the analysis.
enum E_FORM : std::uint8_t {
    FORM_ROD,
    FORM_BEAM,
    FORM_TRIANGLE,
    FORM_QUAD,
    FORM_SHEAR,
    FORM_TETRA,
    FORM_WEDGE,
    FORM_HEXA,
    FORM_PYRAMID,
    FORM_SPRING,
    FORM_LINK, // bushes and gaps
    FORM_DAMPER,
    FORM_SCALARMASS,
    FORM_COUNT
};

/// Elements of one property or material.
struct T_GROUPTOTALS_D {
    std::uint64_t nELEMENTS = 0;
    T_SUM_D measure; // length, area or volume
    T_SUM_D mass;    // by density and non-structural

    void Add(const T_GROUPTOTALS_D& r) {
        nELEMENTS += r.nELEMENTS;
        measure.Add(r.measure.dSUM, r.measure.dSIZE);
        mass.Add(r.mass.dSUM, r.mass.dSIZE);
    }
};

/// Masses, their first moments, and their second moments xx, yy, zz, xy, xz, yz about the origin.
struct T_MASSTOTALS_D {
    T_SUM_D mass;
    T_VECTORSUM_D moment;
    std::array<double, 6> dSECOND = {};
    double dSECONDSIZE = 0.0; // of each of these

    /// A mass in equal parts at some points.
    void Add(double dMass, std::span<const T_VECTOR> aPoints);

    /// No numbers if there is no mass, as of the next.
    T_VECTOR GetCentre() const;

    /// Ixx, Iyy, Izz, then the sums of m x y, m x z, m y z, about the centre of gravity.
    std::array<double, 6> GetInertia() const;
};
T_MASSTOTALS_D operator+(const T_MASSTOTALS_D& rA, const T_MASSTOTALS_D& rB);

/// A load set. Loads on nodes and elements that don't exist are none, and neither is one of at most NO_LOAD.
struct T_SETTOTALS_D {
    static constexpr double NO_LOAD = 1e-20;

    std::uint64_t nFORCES = 0, nMOMENTS = 0;
    T_RESULTANT_D nodal;
    std::uint64_t nPRESSURES = 0; // elements with one
    T_RESULTANT_D pressure;
    std::uint64_t nLINELOADS = 0;
    T_RESULTANT_D line;
    T_VECTORSUM_D gravity;
    T_VALUESUM_D temperatures;        // of nodes
    T_VALUESUM_D elementTemperatures; // mean
    T_LISTSUM_D displacements;        // node and component of those that aren't zero
    T_SUM_D displacement;
};

/// Lengths and positions are in units of the deck, positions and vectors basic.
struct T_TOTALS_D {
    T_LISTSUM_D nodes;
    T_VECTORSUM_D position;
    T_VECTORSUM_D weighted; // position, weighted by id
    T_VECTOR dLOW = {}, dHIGH = {};
    T_LISTSUM_D axes; // nodes whose axes aren't the basic ones
    T_VECTORSUM_D axisX, axisY;

    std::array<T_LISTSUM_D, BODY_COUNT> aELEMENTS; // by id and corners in order
    std::array<T_SUM_D, BODY_COUNT> aMEASURES;     // of elements whose nodes exist

    std::array<std::uint64_t, FORM_COUNT> aFORMS = {};
    std::map<std::int32_t, T_GROUPTOTALS_D> mapPROPERTIES; // of elements but solids
    std::map<std::int32_t, T_GROUPTOTALS_D> mapMATERIALS;
    T_MASSTOTALS_D structure; // of elements by density, each with equal parts at its corners
    T_MASSTOTALS_D added;     // likewise, non-structural
    T_MASSTOTALS_D points;    // masses at nodes

    std::array<T_LISTSUM_D, 6> aHELD; // nodes, by component
    std::uint64_t nHELD = 0;          // nodes with any
    T_LISTSUM_D rigid;                // master, component, slave

    std::uint64_t nMASSES = 0;
    T_SUM_D mass;
    T_VECTORSUM_D massMoment; // mass times position
    T_SUM_D inertia;          // traces about the points of the masses, which don't depend on axes

    std::map<std::int32_t, T_SETTOTALS_D> mapSETS;
    std::map<std::int32_t, std::map<std::int32_t, double>> mapCOMBINATIONS; // factors of load sets

    void AddNode(std::int32_t iNode, const T_VECTOR& rPosition);

    /// Axes X, Y, Z of unit length.
    void AddAxes(std::int32_t iNode, const std::array<T_VECTOR, 3>& rAxes);

    /// rInertia are I11, I21, I22, I31, I32, I33 about rAt in axes of unit length.
    void AddMass(double dMass, const T_VECTOR& rAt, const std::array<double, 6>& rInertia,
                 const std::array<T_VECTOR, 3>& rAxes);

    /// Adds up held components of nodes, bit 0 for component 1.
    void AddSupports(CIdValues<std::uint8_t>& rHeld);
};

/// An element to be added up.
struct T_SUMMEDELEMENT_D {
    E_FORM eFORM;
    E_BODY eBODY;
    std::int32_t iEID;
    std::int32_t iPID = 0, iMID = 0;  // 0 for none
    double dMASS = 0.0, dADDED = 0.0; // for each unit of its measure: by density, non-structural
};

/// Adds elements to totals, which must outlive it.
class CElementSum {
  public:
    explicit CElementSum(T_TOTALS_D& rTotals) : m_rTotals(rTotals) {}

    /// pNodes are the corners of the body. find(id, position) gives false for a node that doesn't exist.
    template <class FIND>
    void Add(const T_SUMMEDELEMENT_D& rElement, const std::int32_t* pNodes, FIND find) {
        std::array<T_VECTOR, 8> corners;
        bool bFound = true;
        for (std::size_t i = 0; bFound && i < BODY_CORNERS[rElement.eBODY]; ++i) bFound = find(pNodes[i], corners[i]);
        AddPlaced(rElement, pNodes, bFound ? &corners : nullptr);
    }
    /// The same with the positions of all corners, null if one of them doesn't exist.
    void AddPlaced(const T_SUMMEDELEMENT_D& rElement, const std::int32_t* pNodes,
                   const std::array<T_VECTOR, 8>* pCorners);

    /// Once all elements are added.
    void Finish();

  private:
    using T_GROUPIDS_D = std::pair<std::int32_t, std::int32_t>; // property and material

    T_GROUPTOTALS_D& FindGroup(const T_SUMMEDELEMENT_D& rElement);
    void AddMeasure(const T_SUMMEDELEMENT_D& rElement, const std::array<T_VECTOR, 8>& rCorners,
                    T_GROUPTOTALS_D& rGroup);

    T_TOTALS_D& m_rTotals;
    std::map<T_GROUPIDS_D, T_GROUPTOTALS_D> m_mapGroups;
    CRecentFinds<T_GROUPTOTALS_D, T_GROUPIDS_D> m_groups;
};

/// One number of the totals.
struct T_TOTALROW_D {
    const char* sGROUP; // "nodes", "lines", "supports", "nodal loads", ...
    const char* sNAME;  // "count", "length", "force x", ...
    std::int32_t iSET;  // load set or combination, 0 for none
    double dVALUE;
    double dSIZE;             // in whose digits it is known; 0 for what must be equal
    std::uint64_t nCHECK = 0; // of the lists that are counted
};

/// All numbers, those of load sets by ascending id.
std::vector<T_TOTALROW_D> ListTotals(const T_TOTALS_D& rTotals);

struct T_DIFFERENCE_D {
    std::string sGROUP, sNAME;
    std::int32_t iSET = 0;
    double dA = 0.0, dB = 0.0;

    /// "set 3: nodal loads, force x: 1 and 2".
    std::string GetText() const;
};

/// The numbers that differ by more than dTolerance times the larger of their sizes. What isn't finite in both says
/// nothing and counts as equal.
std::vector<T_DIFFERENCE_D> FindDifferences(const T_TOTALS_D& rA, const T_TOTALS_D& rB, double dTolerance = 1e-6);
