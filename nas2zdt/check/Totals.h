#pragma once
// A model added up, so that two tellings of it can be compared.

#include "nas2zdt/restate/Frame.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
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

    void Add(const std::int32_t* pIDs, std::size_t nIDs);
    void Add(std::initializer_list<std::int32_t> aIDs) { Add(aIDs.begin(), aIDs.size()); }
};

/// Forces and moments about the origin of the basic frame.
struct T_RESULTANT_D {
    T_VECTORSUM_D force, moment;

    void AddForce(const T_VECTOR& rForce, const T_VECTOR& rAt) {
        force.Add(rForce);
        moment.Add(Cross(rAt, rForce), Length(rAt) * Length(rForce));
    }
    void AddMoment(const T_VECTOR& rMoment) { moment.Add(rMoment); }
};

/// A number from 1 to 2 out of an id. A sum of values with such weights tells which id has which.
double WeightOf(std::int32_t iID);

/// What is measured of elements: lengths, areas, volumes. Springs, bushes and gaps aren't measured.
enum E_BODY : std::uint8_t {
    BODY_LINE,
    BODY_TRIANGLE,
    BODY_QUAD,
    BODY_TETRA,
    BODY_WEDGE,
    BODY_HEXA,
    BODY_LINK, // of two nodes, the second 0 for ground
    BODY_COUNT
};

constexpr std::array<std::size_t, BODY_COUNT> BODY_CORNERS = {2, 3, 4, 4, 6, 8, 2};

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
    std::map<std::int32_t, double> mapTEMPERATURES;        // of nodes
    std::map<std::int32_t, double> mapELEMENTTEMPERATURES; // mean
    T_LISTSUM_D displacements;                             // node and component of those that aren't zero
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

    std::map<std::int32_t, std::uint8_t> mapHELD; // components of nodes, bit 0 for component 1
    T_LISTSUM_D rigid;                            // master, component, slave

    std::uint64_t nMASSES = 0;
    T_SUM_D mass;
    T_VECTORSUM_D massMoment; // mass times position
    T_SUM_D inertia;          // traces about the points of the masses, which don't depend on axes

    std::map<std::int32_t, T_SETTOTALS_D> mapSETS;
    std::map<std::int32_t, std::map<std::int32_t, double>> mapCOMBINATIONS; // factors of load sets

    void AddNode(std::int32_t iNode, const T_VECTOR& rPosition);

    /// Axes X, Y, Z of unit length.
    void AddAxes(std::int32_t iNode, const std::array<T_VECTOR, 3>& rAxes);

    /// pNodes are the corners of the body. find(id) gives a const T_VECTOR*, null for a node that doesn't exist.
    template <class FIND>
    void AddElement(E_BODY eBody, std::int32_t iEID, const std::int32_t* pNodes, FIND find);

    void AddMass(double dMass, const T_VECTOR& rAt, const T_SUM_D& rInertia);

  private:
    void AddElementIds(E_BODY eBody, std::int32_t iEID, const std::int32_t* pNodes);
    void AddMeasure(E_BODY eBody, const std::array<T_VECTOR, 8>& rCorners);
};

template <class FIND>
void T_TOTALS_D::AddElement(E_BODY eBody, std::int32_t iEID, const std::int32_t* pNodes, FIND find) {
    AddElementIds(eBody, iEID, pNodes);
    std::array<T_VECTOR, 8> corners = {};
    for (std::size_t i = 0; i < BODY_CORNERS[eBody]; ++i) {
        const T_VECTOR* pPosition = find(pNodes[i]);
        if (!pPosition) return;
        corners[i] = *pPosition;
    }
    AddMeasure(eBody, corners);
}

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
