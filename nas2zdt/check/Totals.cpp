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

double WeightOfScattered(std::uint64_t n) {
    return 1.0 + static_cast<double>(static_cast<std::int64_t>(n >> 12)) * 0x1p-52;
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
    void Values(const T_VALUESUM_D& rValues) {
        Count(rValues.ids);
        Value("sum", rValues.sum);
        Value("sum by id", rValues.weighted);
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
    rRows.Values(rSet.temperatures);
    rRows.Begin("element temperatures", iSet);
    rRows.Values(rSet.elementTemperatures);
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

void T_LISTSUM_D::Add(std::int32_t iFirst, const std::int32_t* pIDs, std::size_t nIDs) {
    constexpr std::uint64_t FACTOR =
        0x9E3779B97F4A7C15u; // odd and large: pairs of ids are a list's digits to this base
    const auto digitOf = [](std::int32_t i) { return std::uint64_t{static_cast<std::uint32_t>(i)}; };
    std::uint64_t nList = (nIDs + 1) * FACTOR + digitOf(iFirst);
    std::size_t i = 0;
    for (; i + 1 < nIDs; i += 2) nList = nList * FACTOR + (digitOf(pIDs[i]) | digitOf(pIDs[i + 1]) << 32);
    if (i < nIDs) nList = nList * FACTOR + digitOf(pIDs[i]);
    ++nCOUNT;
    nCHECK += Scatter(nList);
}

double WeightOf(std::int32_t iID) {
    return WeightOfScattered(Scatter(static_cast<std::uint32_t>(iID)));
}

/// The weight's digits serve as the check of the id, too.
void T_TOTALS_D::AddNode(std::int32_t iNode, const T_VECTOR& rPosition) {
    if (nodes.nCOUNT == 0) dLOW = dHIGH = rPosition;
    for (std::size_t i = 0; i < 3; ++i) {
        dLOW[i] = std::min(dLOW[i], rPosition[i]);
        dHIGH[i] = std::max(dHIGH[i], rPosition[i]);
    }
    const std::uint64_t nScattered = Scatter(static_cast<std::uint32_t>(iNode));
    const double dWeight = WeightOfScattered(nScattered), dLength = Length(rPosition);
    ++nodes.nCOUNT;
    nodes.nCHECK += nScattered;
    position.Add(rPosition, dLength);
    weighted.Add(Scale(rPosition, dWeight), dLength * dWeight);
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

T_GROUPTOTALS_D& CElementSum::FindGroup(const T_SUMMEDELEMENT_D& rElement) {
    return *m_groups.Get({rElement.iPID, rElement.iMID}, [&](const T_GROUPIDS_D& r) { return &m_mapGroups[r]; });
}

void CElementSum::AddPlaced(const T_SUMMEDELEMENT_D& rElement, const std::int32_t* pNodes,
                            const std::array<T_VECTOR, 8>* pCorners) {
    m_rTotals.aELEMENTS[rElement.eBODY].Add(rElement.iEID, pNodes, BODY_CORNERS[rElement.eBODY]);
    ++m_rTotals.aFORMS[rElement.eFORM];
    T_GROUPTOTALS_D& rGroup = FindGroup(rElement);
    ++rGroup.nELEMENTS;
    if (pCorners && rElement.eBODY != BODY_LINK) AddMeasure(rElement, *pCorners, rGroup);
}

void CElementSum::AddMeasure(const T_SUMMEDELEMENT_D& rElement, const std::array<T_VECTOR, 8>& rCorners,
                             T_GROUPTOTALS_D& rGroup) {
    const double dMeasure = MeasureBody(rElement.eBODY, rCorners);
    const double dMass = rElement.dMASS * dMeasure, dAdded = rElement.dADDED * dMeasure;
    m_rTotals.aMEASURES[rElement.eBODY].Add(dMeasure);
    rGroup.measure.Add(dMeasure);
    if (dMass != 0.0 || dAdded != 0.0) rGroup.mass.Add(dMass + dAdded);
    const std::span<const T_VECTOR> aCorners(rCorners.data(), BODY_CORNERS[rElement.eBODY]);
    if (dMass != 0.0) m_rTotals.structure.Add(dMass, aCorners);
    if (dAdded != 0.0) m_rTotals.added.Add(dAdded, aCorners);
}

void CElementSum::Finish() {
    for (const auto& [rIDs, rGroup] : m_mapGroups) {
        if (rIDs.first != 0) m_rTotals.mapPROPERTIES[rIDs.first].Add(rGroup);
        if (rIDs.second != 0) m_rTotals.mapMATERIALS[rIDs.second].Add(rGroup);
    }
}

void T_MASSTOTALS_D::Add(double dMass, std::span<const T_VECTOR> aPoints) {
    const double dShare = dMass / static_cast<double>(aPoints.size()), dSize = std::fabs(dShare);
    T_VECTOR first = {};
    std::array<double, 6> dProducts = {};
    double dReach = 0.0, dReaches = 0.0;
    for (const T_VECTOR& p : aPoints) {
        const double dSum = std::fabs(p[0]) + std::fabs(p[1]) + std::fabs(p[2]);
        dReach += dSum;
        dReaches += dSum * dSum;
        first = ::Add(first, p);
        dProducts[0] += p[0] * p[0];
        dProducts[1] += p[1] * p[1];
        dProducts[2] += p[2] * p[2];
        dProducts[3] += p[0] * p[1];
        dProducts[4] += p[0] * p[2];
        dProducts[5] += p[1] * p[2];
    }
    mass.Add(dMass);
    moment.Add(Scale(first, dShare), dSize * dReach);
    for (std::size_t i = 0; i < dProducts.size(); ++i) dSECOND[i] += dShare * dProducts[i];
    dSECONDSIZE += dSize * dReaches;
}

T_VECTOR T_MASSTOTALS_D::GetCentre() const {
    return Scale(moment.dSUM, 1.0 / mass.dSUM);
}

std::array<double, 6> T_MASSTOTALS_D::GetInertia() const {
    const T_VECTOR c = GetCentre();
    const std::array<double, 6> dProducts = {c[0] * c[0], c[1] * c[1], c[2] * c[2],
                                             c[0] * c[1], c[0] * c[2], c[1] * c[2]};
    std::array<double, 6> d = {};
    for (std::size_t i = 0; i < d.size(); ++i) d[i] = dSECOND[i] - mass.dSUM * dProducts[i];
    return {d[1] + d[2], d[0] + d[2], d[0] + d[1], d[3], d[4], d[5]};
}

T_MASSTOTALS_D operator+(const T_MASSTOTALS_D& rA, const T_MASSTOTALS_D& rB) {
    T_MASSTOTALS_D sum = rA;
    sum.mass.Add(rB.mass.dSUM, rB.mass.dSIZE);
    sum.moment.Add(rB.moment.dSUM, rB.moment.dSIZE);
    for (std::size_t i = 0; i < sum.dSECOND.size(); ++i) sum.dSECOND[i] += rB.dSECOND[i];
    sum.dSECONDSIZE += rB.dSECONDSIZE;
    return sum;
}

/// Moments of inertia I and the second moments S that they are made of: Ixx = Syy + Szz, Ixy = Sxy.
void T_TOTALS_D::AddMass(double dMass, const T_VECTOR& rAt, const std::array<double, 6>& rInertia,
                         const std::array<T_VECTOR, 3>& rAxes) {
    const auto& [d11, d21, d22, d31, d32, d33] = rInertia;
    ++nMASSES;
    mass.Add(dMass);
    massMoment.Add(Scale(rAt, dMass));
    double dSize = 0.0;
    for (const double d : rInertia) dSize += std::fabs(d);
    inertia.Add(d11 + d22 + d33, dSize);
    points.Add(dMass, {&rAt, 1});
    if (dSize == 0.0) return;
    const double dHalf = (d11 + d22 + d33) / 2;
    const double dS[3][3] = {{dHalf - d11, d21, d31}, {d21, dHalf - d22, d32}, {d31, d32, dHalf - d33}};
    constexpr std::size_t PAIRS[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
    for (std::size_t k = 0; k < points.dSECOND.size(); ++k) {
        double dSum = 0.0;
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) dSum += dS[i][j] * rAxes[i][PAIRS[k][0]] * rAxes[j][PAIRS[k][1]];
        }
        points.dSECOND[k] += dSum;
    }
    points.dSECONDSIZE += dSize;
}

void T_TOTALS_D::AddSupports(CIdValues<std::uint8_t>& rHeld) {
    const auto both = [](std::uint8_t n, std::uint8_t nMore) { return static_cast<std::uint8_t>(n | nMore); };
    rHeld.Settle(both, [&](std::int32_t iNode, std::uint8_t nHeld) {
        if (nHeld != 0) ++nHELD;
        for (std::size_t i = 0; i < aHELD.size(); ++i) {
            if (nHeld & (1u << i)) aHELD[i].Add({iNode});
        }
    });
}

std::vector<T_TOTALROW_D> ListTotals(const T_TOTALS_D& rTotals) {
    static constexpr const char* BODIES[BODY_COUNT] = {"lines",  "triangles", "quads",    "tetrahedra",
                                                       "wedges", "hexahedra", "pyramids", "links"};
    static constexpr const char* MEASURES[BODY_COUNT] = {"length", "area",   "area",   "volume",
                                                         "volume", "volume", "volume", ""};
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
    for (std::size_t i = 0; i < 6; ++i) rows.Count(COMPONENTS[i], rTotals.aHELD[i].nCOUNT, rTotals.aHELD[i].nCHECK);
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
        T_VALUESUM_D factors;
        for (const auto& [iPart, dFactor] : rFactors) factors.Add(iPart, dFactor);
        rows.Values(factors);
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
