// Loads and temperatures of a deck.

#include "nas2zdt/check/DeckTotals.h"
#include "nas2zdt/check/KeySort.h"
#include "nas2zdt/check/Measure.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t MOST_PAIRS = 3; // of TEMP

bool IsPlate(const T_DECKELEMENT_D& rElement) {
    const E_BODY eBody = rElement.GetKind().eBODY;
    return eBody == BODY_TRIANGLE || eBody == BODY_QUAD;
}

} // namespace

const std::vector<std::int32_t>& CDeckTotals::ReadElements(std::size_t iFirst, std::size_t iEnd) {
    const auto has = [&](std::int32_t iEID) { return m_rDeck.FindElement(iEID) != nullptr; };
    const auto getRange = [&](std::int32_t iLow, std::int32_t iHigh) { return m_rDeck.GetElementRange(iLow, iHigh); };
    return ReadRanges(has, getRange, iFirst, iEnd);
}

void CDeckTotals::AddNodalLoad(std::int32_t iGrid, const T_VECTOR& rLoad) {
    if (!IsSound()) return;
    T_SETTOTALS_D& rSet = Set();
    const T_VECTOR* pAt = m_rDeck.FindPosition(iGrid);
    const double dSize = std::fabs(rLoad[0]) + std::fabs(rLoad[1]) + std::fabs(rLoad[2]);
    if (!pAt || dSize <= T_SETTOTALS_D::NO_LOAD) return;
    if (IsMoment()) {
        ++rSet.nMOMENTS;
        rSet.nodal.AddMoment(rLoad);
    } else {
        ++rSet.nFORCES;
        rSet.nodal.AddForce(rLoad, *pAt);
    }
}

void CDeckTotals::TakeForce() {
    const std::int32_t iGrid = m_pCard->Int(1);
    const T_FRAME_D* pFrame = m_rDeck.FindFrame(m_pCard->Int(2));
    const T_VECTOR load = Scale({m_pCard->Real(4), m_pCard->Real(5), m_pCard->Real(6)}, m_pCard->Real(3));
    const T_VECTOR* pAt = m_rDeck.FindPosition(iGrid);
    AddNodalLoad(iGrid, pFrame && pAt ? pFrame->VectorToBasic(load, *pAt) : T_VECTOR{});
}

/// From grid to grid.
void CDeckTotals::TakeForceAlong() {
    const T_VECTOR *pFrom = m_rDeck.FindPosition(m_pCard->Int(3)), *pTo = m_rDeck.FindPosition(m_pCard->Int(4));
    const T_VECTOR direction = pFrom && pTo ? Unit(Subtract(*pTo, *pFrom)) : T_VECTOR{};
    AddNodalLoad(m_pCard->Int(1), Scale(direction, m_pCard->Real(2)));
}

/// Along the product of the lines from grid to grid of two pairs.
void CDeckTotals::TakeForceAcross() {
    std::array<T_VECTOR, 4> points = {};
    bool bAll = true;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const T_VECTOR* pPoint = m_rDeck.FindPosition(m_pCard->Int(3 + i));
        bAll = bAll && pPoint;
        if (pPoint) points[i] = *pPoint;
    }
    const T_VECTOR direction = Unit(Cross(Subtract(points[1], points[0]), Subtract(points[3], points[2])));
    AddNodalLoad(m_pCard->Int(1), bAll ? Scale(direction, m_pCard->Real(2)) : T_VECTOR{});
}

/// Several of one set add up. A vector in a frame that isn't rectangular is along the axes at its origin.
void CDeckTotals::TakeGRAV() {
    const T_FRAME_D* pFrame = m_rDeck.FindFrame(m_pCard->Int(1));
    const T_VECTOR load = Scale({m_pCard->Real(3), m_pCard->Real(4), m_pCard->Real(5)}, m_pCard->Real(2));
    if (!IsSound()) return;
    T_SETTOTALS_D& rSet = Set();
    if (pFrame) rSet.gravity.Add(pFrame->VectorToBasic(load, pFrame->dORIGIN));
}

void CDeckTotals::TakeLOAD() {
    const std::int32_t iSum = m_pCard->Int(0);
    const double dScale = m_pCard->Real(1);
    std::vector<std::pair<std::int32_t, double>> aParts;
    for (std::size_t i = 2; i < m_pCard->GetCount(); i += 2) aParts.emplace_back(m_pCard->Int(i + 1), m_pCard->Real(i));
    if (!IsSound()) return;
    for (const auto& [iSet, dFactor] : aParts) {
        if (iSet != 0) m_mapCombinations[iSum][iSet] += dScale * dFactor;
    }
}

/// Only sets with loads can be combined.
void CDeckTotals::AddCombinations() {
    for (const auto& [iSum, rParts] : m_mapCombinations) {
        for (const auto& [iSet, dFactor] : rParts) {
            if (m_totals.mapSETS.contains(iSet)) m_totals.mapCOMBINATIONS[iSum][iSet] = dFactor;
        }
    }
}

/// The axes of a bar: X from end to end, Y in the plane of X and the orientation.
bool CDeckTotals::FindAxes(const T_DECKELEMENT_D& rBar, std::array<T_VECTOR, 3>& rAxes) const {
    std::array<T_VECTOR, 8> corners = {};
    T_VECTOR vector;
    if (!FindCorners(rBar, corners) || !m_rDeck.FindVector(rBar, vector)) return false;
    rAxes[0] = Unit(Subtract(corners[1], corners[0]));
    rAxes[2] = Unit(Cross(rAxes[0], vector));
    rAxes[1] = Cross(rAxes[2], rAxes[0]);
    return Length(rAxes[2]) > 0.0;
}

/// A load at X1, or from X1 to X2. Lengths and fractions, and a load in a basic direction for each unit of length or of
/// that length as it is seen across the direction.
void CDeckTotals::TakePLOAD1() {
    const T_DECKELEMENT_D* pBar = m_rDeck.FindElement(m_pCard->Int(1));
    std::string sType, sScale;
    for (const char c : m_pCard->Text(2)) sType += ToUpper(c);
    for (const char c : m_pCard->Text(3)) sScale += ToUpper(c);
    double dX1 = m_pCard->Real(4), dX2 = m_pCard->Real(6, dX1);
    const double dP1 = m_pCard->Real(5), dGiven = m_pCard->Real(7, dP1), dP2 = dX1 == dX2 ? dP1 : dGiven;
    const bool bKnown = (sType.size() == 2 || (sType.size() == 3 && sType[2] == 'E')) &&
                        (sType[0] == 'F' || sType[0] == 'M') && sType[1] >= 'X' && sType[1] <= 'Z';
    const bool bFractions = sScale.starts_with("FR"), bProjected = sScale == "LEPR" || sScale == "FRPR";
    if (!IsSound()) return;
    T_SETTOTALS_D& rSet = Set();
    std::array<T_VECTOR, 8> corners = {};
    if (!bKnown || !pBar || pBar->GetKind().eBODY != BODY_LINE || !FindCorners(*pBar, corners)) return;
    if (sScale != "LE" && sScale != "FR" && !bProjected) return;
    const T_VECTOR along = Subtract(corners[1], corners[0]);
    const double dLength = Length(along);
    if (!(dLength > 0.0) || std::fabs(dP1) + std::fabs(dP2) <= T_SETTOTALS_D::NO_LOAD) return;
    if (!bFractions) {
        dX1 /= dLength;
        dX2 /= dLength;
    }
    const auto iAxis = static_cast<std::size_t>(sType[1] - 'X');
    const bool bOwn = sType.size() == 3;
    std::array<T_VECTOR, 3> axes = T_FRAME_D().dAXES;
    if (bOwn && iAxis == 0) {
        axes[0] = Unit(along);
    } else if (bOwn && !FindAxes(*pBar, axes)) {
        return;
    }
    const bool bMoment = sType[0] == 'M';
    ++rSet.nLINELOADS;
    if (dX1 != dX2) {
        const double dSeen = bProjected && !bOwn ? Length(Cross(axes[iAxis], along)) / dLength : 1.0;
        AddLineLoad(rSet.line, {corners[0], corners[1], axes[iAxis], bMoment, dX1, dP1 * dSeen, dX2, dP2 * dSeen});
    } else if (bMoment) {
        rSet.line.AddMoment(Scale(axes[iAxis], dP1));
    } else {
        rSet.line.AddForce(Scale(axes[iAxis], dP1), Add(corners[0], Scale(along, dX1)));
    }
}

/// On a face of grids, towards its normal.
void CDeckTotals::TakePLOAD() {
    const double dP = m_pCard->Real(1);
    std::vector<T_VECTOR> aCorners;
    bool bAll = true;
    for (std::size_t i = 2; i < 6; ++i) {
        const std::int32_t iGrid = m_pCard->Int(i);
        if (iGrid == 0 && i == 5) break;
        const T_VECTOR* pCorner = m_rDeck.FindPosition(iGrid);
        bAll = bAll && pCorner;
        if (pCorner) aCorners.push_back(*pCorner);
    }
    if (!IsSound()) return;
    T_SETTOTALS_D& rSet = Set();
    if (!bAll || std::fabs(dP) <= T_SETTOTALS_D::NO_LOAD) return;
    ++rSet.nPRESSURES;
    AddFaceLoad(rSet.pressure, {aCorners, {dP, dP, dP, dP}, {}, {}});
}

void CDeckTotals::TakePLOAD2() {
    const double dP = m_pCard->Real(1);
    const std::vector<std::int32_t>& aElements = ReadElements(2, m_pCard->GetCount());
    if (!IsSound()) return;
    Set();
    for (const std::int32_t iEID : aElements) {
        const T_DECKELEMENT_D& rElement = *m_rDeck.FindElement(iEID);
        if (IsPlate(rElement)) TakePressure(rElement, {dP, dP, dP, dP}, {});
    }
}

/// A vector in a frame that isn't rectangular is along the axes at the middle of the face.
void CDeckTotals::TakePLOAD4() {
    T_PRESSURE_D pressure;
    const double dP = m_pCard->Real(2);
    const std::array<double, 4> dCorners = {dP, m_pCard->Real(3, dP), m_pCard->Real(4, dP), m_pCard->Real(5, dP)};
    const bool bThru = m_pCard->Is(6, "THRU");
    pressure.iFIRST = bThru ? 0 : m_pCard->Int(6);
    pressure.iOTHER = bThru ? 0 : m_pCard->Int(7);
    pressure.iCID = m_pCard->Int(8);
    pressure.direction = {m_pCard->Real(9), m_pCard->Real(10), m_pCard->Real(11)};
    const std::int32_t iFirst = m_pCard->Int(1), iLast = bThru ? m_pCard->Int(7) : iFirst;
    if (!IsSound()) return;
    Set();
    if (!bThru) {
        const T_DECKELEMENT_D* pElement = m_rDeck.FindElement(iFirst);
        if (pElement) TakePressure(*pElement, dCorners, pressure);
        return;
    }
    const std::vector<std::int32_t> aElements = m_rDeck.GetElementRange(iFirst, iLast);
    CountRange(aElements.size());
    for (const std::int32_t iEID : aElements) TakePressure(*m_rDeck.FindElement(iEID), dCorners, pressure);
}

/// The corners of the face that a load on a solid names: a triangle by a corner of it, or for a tetrahedron by the
/// corner beyond; four corners by two that are opposite in it. All corners of a plate.
std::span<const std::uint8_t> CDeckTotals::FindFace(const T_DECKELEMENT_D& rElement, std::int32_t iFirst,
                                                    std::int32_t iOther) const {
    static constexpr std::array<std::uint8_t, 4> PLATE = {0, 1, 2, 3};
    const E_BODY eBody = rElement.GetKind().eBODY;
    if (IsPlate(rElement)) return std::span(PLATE).first(BODY_CORNERS[eBody]);
    const std::span<const std::int32_t> aNodes = m_rDeck.GetCorners(rElement);
    const bool bTetra = eBody == BODY_TETRA;
    if (bTetra && std::find(aNodes.begin(), aNodes.end(), iOther) == aNodes.end()) return {};
    for (std::int32_t iFace = 1; !FaceCorners(eBody, iFace).empty(); ++iFace) {
        const std::span<const std::uint8_t> corners = FaceCorners(eBody, iFace);
        const auto placeOf = [&](std::int32_t iGrid) {
            for (std::size_t i = 0; i < corners.size(); ++i) {
                if (aNodes[corners[i]] == iGrid) return static_cast<std::int32_t>(i);
            }
            return -1;
        };
        const std::int32_t iAt = placeOf(iFirst), iBeyond = placeOf(iOther);
        const bool bHit = corners.size() == 4 ? iAt >= 0 && iBeyond >= 0 && (iAt ^ iBeyond) == 2
                          : bTetra            ? iAt >= 0 && iBeyond < 0
                                              : iAt >= 0 && iOther == 0;
        if (bHit) return corners;
    }
    return {};
}

void CDeckTotals::TakePressure(const T_DECKELEMENT_D& rElement, const std::array<double, 4>& dP,
                               const T_PRESSURE_D& rPressure) {
    constexpr std::size_t MOST_PENDING = std::size_t{1} << 16;
    m_aPending.push_back({&rElement, &Set(), dP, rPressure});
    if (m_aPending.size() == MOST_PENDING) AddPressures();
}

/// Cards name elements in any order. In that of the table those that stand together use the same memory.
void CDeckTotals::AddPressures() {
    std::vector<std::uint64_t> aOrder;
    aOrder.reserve(m_aPending.size());
    for (const T_PENDING_D& rPending : m_aPending) {
        const auto iRow = static_cast<std::uint32_t>(rPending.pELEMENT - m_rDeck.GetElements().data());
        aOrder.push_back(MakeKeyed(iRow, static_cast<std::uint32_t>(aOrder.size())));
    }
    SortByKey(aOrder);
    for (const std::uint64_t nKeyed : aOrder) AddPressure(m_aPending[GetValue(nKeyed)]);
    m_aPending.clear();
}

/// The pressures of a solid's face that aren't alike count as their mean, since their order around it isn't settled.
void CDeckTotals::AddPressure(T_PENDING_D pending) {
    const T_DECKELEMENT_D& rElement = *pending.pELEMENT;
    const T_PRESSURE_D& rPressure = pending.pressure;
    std::array<double, 4>& dP = pending.dP;
    std::array<T_VECTOR, 8> corners = {};
    const std::span<const std::uint8_t> aPlaces = FindFace(rElement, rPressure.iFIRST, rPressure.iOTHER);
    const bool bSolid = !IsPlate(rElement);
    const std::size_t nPlaces = aPlaces.size();
    if (nPlaces == 0 || !FindCorners(rElement, corners)) return;
    double dSize = 0.0, dMean = 0.0;
    for (std::size_t i = 0; i < nPlaces; ++i) {
        dSize += std::fabs(dP[i]);
        dMean += dP[i] / static_cast<double>(nPlaces);
    }
    if (dSize <= T_SETTOTALS_D::NO_LOAD) return;
    if (bSolid) dP.fill(dMean);
    std::array<T_VECTOR, 4> aFace = {};
    T_VECTOR middle = {}, inside = {};
    for (std::size_t i = 0; i < nPlaces; ++i) {
        aFace[i] = corners[aPlaces[i]];
        middle = Add(middle, Scale(aFace[i], 1.0 / static_cast<double>(nPlaces)));
    }
    const std::size_t nCorners = rElement.GetKind().nCORNERS;
    for (std::size_t i = 0; i < nCorners; ++i) {
        inside = Add(inside, Scale(corners[i], 1.0 / static_cast<double>(nCorners)));
    }
    T_FACELOAD_D load = {std::span(aFace).first(nPlaces), dP, {}, {}};
    if (bSolid) load.inside = inside;
    if (!IsZero(rPressure.direction)) {
        const T_FRAME_D* pFrame = m_rDeck.FindFrame(rPressure.iCID);
        if (!pFrame) return;
        load.direction = pFrame->VectorToBasic(rPressure.direction, middle);
    }
    ++pending.pSET->nPRESSURES;
    AddFaceLoad(pending.pSET->pressure, load);
}

void CDeckTotals::TakeTEMP() {
    std::vector<std::pair<std::int32_t, double>> aPairs;
    for (std::size_t i = 0; i < MOST_PAIRS; ++i) {
        if (!m_pCard->IsBlank(1 + 2 * i)) aPairs.emplace_back(m_pCard->Int(1 + 2 * i), m_pCard->Real(2 + 2 * i));
    }
    if (!IsSound()) return;
    Set();
    CIdValues<double>& rValues = m_mapTemperatures[m_pCard->Int(0)];
    for (const auto& [iGrid, dValue] : aPairs) {
        if (IsGrid(iGrid)) rValues.Put(iGrid, dValue);
    }
}

void CDeckTotals::TakeTEMPD() {
    std::vector<std::pair<std::int32_t, double>> aPairs;
    for (std::size_t i = 0; i < m_pCard->GetCount(); i += 2) {
        if (!m_pCard->IsBlank(i)) aPairs.emplace_back(m_pCard->Int(i), m_pCard->Real(i + 1));
    }
    if (!IsSound()) return;
    for (const auto& [iSet, dValue] : aPairs) {
        m_totals.mapSETS[iSet];
        m_mapDefaultTemperatures[iSet] = dValue;
    }
}

/// All grids without a temperature of their own have the default one.
void CDeckTotals::AddTemperatures() {
    for (const auto& [iSet, dValue] : m_mapDefaultTemperatures) {
        CIdValues<double> values;
        CountRange(m_rGrids.GetCount());
        for (const std::int32_t iGrid : m_rGrids.GetIds()) values.Put(iGrid, dValue);
        const auto own = [&](std::int32_t iGrid, double dOwn) { values.Put(iGrid, dOwn); };
        const auto pOwn = m_mapTemperatures.find(iSet);
        if (pOwn != m_mapTemperatures.end()) pOwn->second.Settle([](double, double dLater) { return dLater; }, own);
        m_mapTemperatures[iSet] = std::move(values);
    }
    for (auto& [iSet, rValues] : m_mapTemperatures) rValues.AddTo(m_totals.mapSETS[iSet].temperatures);
    for (auto& [iSet, rValues] : m_mapElementTemperatures) rValues.AddTo(m_totals.mapSETS[iSet].elementTemperatures);
}

/// Of plates the mean temperature, of bars the mean of both ends; on further elements of the kind, too.
void CDeckTotals::TakeElementTemperatures() {
    const bool bBar = m_pCard->GetKeyword() == "TEMPRB";
    const double dMean = bBar ? (m_pCard->Real(2) + m_pCard->Real(3)) / 2 : m_pCard->Real(2);
    std::vector<std::int32_t> aElements = ReadElements(1, 2);
    const std::size_t iList = bBar ? 16 : 6; // of a plate, also in the places that the format leaves blank
    const std::vector<std::int32_t> aFurther = ReadElements(iList, m_pCard->GetCount());
    aElements.insert(aElements.end(), aFurther.begin(), aFurther.end());
    if (!IsSound()) return;
    Set();
    CIdValues<double>& rValues = m_mapElementTemperatures[m_pCard->Int(0)];
    for (const std::int32_t iEID : aElements) {
        const T_DECKELEMENT_D& rElement = *m_rDeck.FindElement(iEID);
        if (bBar ? rElement.GetKind().eBODY == BODY_LINE : IsPlate(rElement)) rValues.Put(iEID, dMean);
    }
}

void CDeckTotals::TakeSPCD() {
    std::vector<std::pair<std::array<std::int32_t, 2>, double>> aMoved;
    for (std::size_t i = 1; i <= 4; i += 3) {
        const std::int32_t iGrid = m_pCard->Int(i);
        const std::uint8_t nComponents = m_pCard->Components(i + 1);
        const double dValue = m_pCard->Real(i + 2);
        for (std::int32_t k = 0; k < 6 && IsGrid(iGrid) && dValue != 0.0; ++k) {
            if (nComponents & (1u << k)) aMoved.push_back({{iGrid, k + 1}, dValue});
        }
    }
    if (!IsSound()) return;
    T_SETTOTALS_D& rSet = Set();
    for (const auto& [aPlace, dValue] : aMoved) {
        rSet.displacements.Add({aPlace[0], aPlace[1]});
        rSet.displacement.Add(dValue);
    }
}
