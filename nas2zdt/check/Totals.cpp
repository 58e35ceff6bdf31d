// Adds up, lists and compares.

#include "nas2zdt/check/Totals.h"

#include "nas2zdt/check/Measure.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <tuple>

namespace {

/// Spreads all bits of a number over all bits: the finalizer of SplitMix64.
std::uint64_t Scatter(std::uint64_t n) {
    n = (n ^ (n >> 30)) * 0xBF58476D1CE4E5B9u;
    n = (n ^ (n >> 27)) * 0x94D049BB133111EBu;
    return n ^ (n >> 31);
}

/// Makes the rows of a group.
class CRowList {
  public:
    void Begin(const char* sGroup, std::int32_t iSet = 0) {
        m_sGroup = sGroup;
        m_iSet = iSet;
    }
    void Count(const char* sName, std::uint64_t nCount, std::uint64_t nCheck = 0) {
        m_aRows.push_back({m_sGroup, sName, m_iSet, static_cast<double>(nCount), 0.0, nCheck});
    }
    void Count(const T_LISTSUM_D& rList) { Count("count", rList.nCOUNT, rList.nCHECK); }
    void Value(const char* sName, double dValue, double dSize) {
        m_aRows.push_back({m_sGroup, sName, m_iSet, dValue, dSize});
    }
    void Value(const char* sName, const T_SUM_D& rSum) { Value(sName, rSum.dSUM, rSum.dSIZE); }
    void Vector(const std::array<const char*, 3>& rNames, const T_VECTOR& rVector, double dSize) {
        for (std::size_t i = 0; i < 3; ++i) Value(rNames[i], rVector[i], dSize);
    }
    void Vector(const std::array<const char*, 3>& rNames, const T_VECTORSUM_D& rSum) {
        Vector(rNames, rSum.dSUM, rSum.dSIZE);
    }
    void Resultant(const T_RESULTANT_D& rResultant) {
        Vector({"force x", "force y", "force z"}, rResultant.force);
        Vector({"moment x", "moment y", "moment z"}, rResultant.moment);
    }
    /// Values by ids.
    void Values(const std::map<std::int32_t, double>& rValues) {
        T_LISTSUM_D ids;
        T_SUM_D sum, weighted;
        for (const auto& [iID, dValue] : rValues) {
            ids.Add({iID});
            sum.Add(dValue);
            weighted.Add(WeightOf(iID) * dValue);
        }
        Count(ids);
        Value("sum", sum);
        Value("sum by id", weighted);
    }

    std::vector<T_TOTALROW_D> Take() { return std::move(m_aRows); }

  private:
    std::vector<T_TOTALROW_D> m_aRows;
    const char* m_sGroup = "";
    std::int32_t m_iSet = 0;
};

void ListSet(CRowList& rRows, std::int32_t iSet, const T_SETTOTALS_D& rSet) {
    rRows.Begin("nodal loads", iSet);
    rRows.Count("forces", rSet.nFORCES);
    rRows.Count("moments", rSet.nMOMENTS);
    rRows.Resultant(rSet.nodal);
    rRows.Begin("pressures", iSet);
    rRows.Count("count", rSet.nPRESSURES);
    rRows.Resultant(rSet.pressure);
    rRows.Begin("line loads", iSet);
    rRows.Count("count", rSet.nLINELOADS);
    rRows.Resultant(rSet.line);
    rRows.Begin("gravity", iSet);
    rRows.Vector({"x", "y", "z"}, rSet.gravity);
    rRows.Begin("temperatures", iSet);
    rRows.Values(rSet.mapTEMPERATURES);
    rRows.Begin("element temperatures", iSet);
    rRows.Values(rSet.mapELEMENTTEMPERATURES);
    rRows.Begin("displacements", iSet);
    rRows.Count(rSet.displacements);
    rRows.Value("sum", rSet.displacement);
}

bool AreSame(const T_TOTALROW_D& rA, const T_TOTALROW_D& rB, double dTolerance) {
    if (rA.nCHECK != rB.nCHECK) return false;
    if (rA.dVALUE == rB.dVALUE) return true;
    const bool bA = std::isfinite(rA.dVALUE) && std::isfinite(rA.dSIZE);
    const bool bB = std::isfinite(rB.dVALUE) && std::isfinite(rB.dSIZE);
    if (!bA || !bB) return bA == bB;
    return std::fabs(rA.dVALUE - rB.dVALUE) <= dTolerance * std::max(rA.dSIZE, rB.dSIZE);
}

} // namespace

void T_LISTSUM_D::Add(const std::int32_t* pIDs, std::size_t nIDs) {
    constexpr std::uint64_t STEP = 0x9E3779B97F4A7C15u;
    std::uint64_t nList = nIDs;
    for (std::size_t i = 0; i < nIDs; ++i) nList = Scatter(nList + STEP + static_cast<std::uint32_t>(pIDs[i]));
    ++nCOUNT;
    nCHECK += nList;
}

double WeightOf(std::int32_t iID) {
    constexpr int BITS = 52;
    return 1.0 + std::ldexp(static_cast<double>(Scatter(static_cast<std::uint32_t>(iID)) >> (64 - BITS)), -BITS);
}

void T_TOTALS_D::AddNode(std::int32_t iNode, const T_VECTOR& rPosition) {
    for (std::size_t i = 0; i < 3; ++i) {
        dLOW[i] = nodes.nCOUNT == 0 ? rPosition[i] : std::min(dLOW[i], rPosition[i]);
        dHIGH[i] = nodes.nCOUNT == 0 ? rPosition[i] : std::max(dHIGH[i], rPosition[i]);
    }
    nodes.Add({iNode});
    position.Add(rPosition);
    weighted.Add(Scale(rPosition, WeightOf(iNode)));
}

void T_TOTALS_D::AddAxes(std::int32_t iNode, const std::array<T_VECTOR, 3>& rAxes) {
    constexpr double SAME = 1e-9;
    const T_FRAME_D basic;
    bool bBasic = true;
    for (std::size_t i = 0; i < 3; ++i) bBasic = bBasic && Length(Subtract(rAxes[i], basic.dAXES[i])) < SAME;
    if (bBasic) return;
    axes.Add({iNode});
    axisX.Add(rAxes[0]);
    axisY.Add(rAxes[1]);
}

void T_TOTALS_D::AddElementIds(E_BODY eBody, std::int32_t iEID, const std::int32_t* pNodes) {
    std::array<std::int32_t, 9> aIDs = {iEID};
    std::copy_n(pNodes, BODY_CORNERS[eBody], aIDs.begin() + 1);
    aELEMENTS[eBody].Add(aIDs.data(), BODY_CORNERS[eBody] + 1);
}

void T_TOTALS_D::AddMeasure(E_BODY eBody, const std::array<T_VECTOR, 8>& rCorners) {
    aMEASURES[eBody].Add(MeasureBody(eBody, rCorners));
}

void T_TOTALS_D::AddMass(double dMass, const T_VECTOR& rAt, const T_SUM_D& rInertia) {
    ++nMASSES;
    mass.Add(dMass);
    massMoment.Add(Scale(rAt, dMass));
    inertia.Add(rInertia.dSUM, rInertia.dSIZE);
}

std::vector<T_TOTALROW_D> ListTotals(const T_TOTALS_D& rTotals) {
    static constexpr const char* BODIES[BODY_COUNT] = {"lines",  "triangles", "quads", "tetrahedra",
                                                       "wedges", "hexahedra", "links"};
    static constexpr const char* MEASURES[BODY_COUNT] = {"length", "area", "area", "volume", "volume", "volume", ""};
    CRowList rows;
    rows.Begin("nodes");
    rows.Count(rTotals.nodes);
    rows.Vector({"sum of x", "sum of y", "sum of z"}, rTotals.position);
    rows.Vector({"sum of x by id", "sum of y by id", "sum of z by id"}, rTotals.weighted);
    const double dExtent = std::max(Length(rTotals.dLOW), Length(rTotals.dHIGH));
    rows.Vector({"lowest x", "lowest y", "lowest z"}, rTotals.dLOW, dExtent);
    rows.Vector({"highest x", "highest y", "highest z"}, rTotals.dHIGH, dExtent);
    rows.Begin("local axes");
    rows.Count(rTotals.axes);
    rows.Vector({"x axes, x", "x axes, y", "x axes, z"}, rTotals.axisX);
    rows.Vector({"y axes, x", "y axes, y", "y axes, z"}, rTotals.axisY);
    for (std::size_t i = 0; i < BODY_COUNT; ++i) {
        rows.Begin(BODIES[i]);
        rows.Count(rTotals.aELEMENTS[i]);
        if (i != BODY_LINK) rows.Value(MEASURES[i], rTotals.aMEASURES[i]);
    }
    rows.Begin("supports");
    static constexpr const char* COMPONENTS[6] = {"component 1", "component 2", "component 3",
                                                  "component 4", "component 5", "component 6"};
    for (std::size_t i = 0; i < 6; ++i) {
        T_LISTSUM_D held;
        for (const auto& [iNode, nHeld] : rTotals.mapHELD) {
            if (nHeld & (1u << i)) held.Add({iNode});
        }
        rows.Count(COMPONENTS[i], held.nCOUNT, held.nCHECK);
    }
    rows.Begin("rigid links");
    rows.Count(rTotals.rigid);
    rows.Begin("masses");
    rows.Count("count", rTotals.nMASSES);
    rows.Value("mass", rTotals.mass);
    rows.Vector({"mass by x", "mass by y", "mass by z"}, rTotals.massMoment);
    rows.Value("inertia", rTotals.inertia);
    for (const auto& [iSet, rSet] : rTotals.mapSETS) ListSet(rows, iSet, rSet);
    for (const auto& [iSet, rFactors] : rTotals.mapCOMBINATIONS) {
        rows.Begin("combinations", iSet);
        rows.Values(rFactors);
    }
    return rows.Take();
}

std::string T_DIFFERENCE_D::GetText() const {
    std::array<char, 80> aValues;
    std::snprintf(aValues.data(), aValues.size(), "%.9g and %.9g", dA, dB);
    return (iSET == 0 ? "" : "set " + std::to_string(iSET) + ": ") + sGROUP + ", " + sNAME + ": " + aValues.data();
}

std::vector<T_DIFFERENCE_D> FindDifferences(const T_TOTALS_D& rA, const T_TOTALS_D& rB, double dTolerance) {
    using KEY = std::tuple<std::int32_t, std::string, std::string>;
    std::map<KEY, std::array<T_TOTALROW_D, 2>> mapRows;
    for (const auto& [pTotals, i] : {std::pair{&rA, std::size_t{0}}, std::pair{&rB, std::size_t{1}}}) {
        for (const T_TOTALROW_D& rRow : ListTotals(*pTotals)) mapRows[{rRow.iSET, rRow.sGROUP, rRow.sNAME}][i] = rRow;
    }
    std::vector<T_DIFFERENCE_D> aFound;
    for (const auto& [key, rRows] : mapRows) {
        if (AreSame(rRows[0], rRows[1], dTolerance)) continue;
        const auto& [iSet, sGroup, sName] = key;
        aFound.push_back({sGroup, sName, iSet, rRows[0].dVALUE, rRows[1].dVALUE});
    }
    return aFound;
}
