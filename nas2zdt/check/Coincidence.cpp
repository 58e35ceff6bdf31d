// Finds grids at the same place by cells of space.

#include "nas2zdt/check/Coincidence.h"

#include "nas2zdt/check/KeySort.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// Looks through the grids that are used. Cells are larger than the tolerance, and a grid within the tolerance of a
/// cell's side counts for the cell behind that, too: then all that is close to a grid is in that one's own cell.
class CCells {
  public:
    CCells(const CCheckDeck& rDeck, CConnectivity& rConnectivity, CGeometryTold& rTold)
        : m_rGrids(rDeck.GetGrids()), m_rConnectivity(rConnectivity), m_rTold(rTold) {}

    void Tell(double dTolerance, double dEdge);

  private:
    using T_CELL = std::array<std::int64_t, 3>;
    static constexpr unsigned SIDES = 8; // a value is the row times it, and a bit for each side that is passed

    const T_VECTOR& Position(std::uint32_t iRow) const { return m_rGrids.GetPosition(iRow); }
    void Fill(double dCells);
    double CountWork() const;
    double Place(std::uint32_t iRow, std::size_t iAxis) const;
    T_CELL FindCell(std::uint32_t nValue) const;
    void TellRun(std::size_t iFirst, std::size_t iEnd);
    void TellCell();

    const CDeckGrids& m_rGrids;
    CConnectivity& m_rConnectivity;
    CGeometryTold& m_rTold;
    double m_dTolerance = 0.0;
    double m_dScale = 1.0; // cells in a unit of length
    std::vector<std::uint64_t> m_aEntries;
    std::vector<std::uint32_t> m_aCell; // values of a cell, ascending
    std::vector<std::uint32_t> m_aKept; // rows of it that stand for others
};

void CCells::Tell(double dTolerance, double dEdge) {
    constexpr double SHARE = 1e-5;      // what fields of eight columns with a minus sign and a point can tell apart
    constexpr double EDGE_SHARE = 1e-2; // for a grid that strayed far off
    constexpr double DIGITS = 1e-15;    // what doubles can tell apart
    constexpr double MOST_WORK = 32.0;  // comparisons of a grid
    if (m_rGrids.GetCount() > CKeyIndex::NONE / SIDES) return;
    if (m_rConnectivity.GetLow()[0] > m_rConnectivity.GetHigh()[0]) return; // no grids
    const double dExtent = Length(Subtract(m_rConnectivity.GetHigh(), m_rConnectivity.GetLow()));
    if (dTolerance < 0.0) {
        dTolerance = SHARE * dExtent;
        if (dEdge > 0.0) dTolerance = std::min(dTolerance, EDGE_SHARE * dEdge);
    }
    m_dTolerance = std::max(dTolerance, DIGITS * dExtent);
    for (const double dCells : {64.0, 16.0, 4.0}) { // large cells cost least, unless many grids are in them
        Fill(dCells);
        KeepRepeated(m_aEntries);
        SortByKey(m_aEntries);
        if (CountWork() <= MOST_WORK * static_cast<double>(m_aEntries.size())) break;
    }
    VisitSameKeys(m_aEntries, [&](std::size_t iFirst, std::size_t iEnd) { TellRun(iFirst, iEnd); });
}

/// A coordinate in cells.
double CCells::Place(std::uint32_t iRow, std::size_t iAxis) const {
    constexpr double BESIDE = 0.371; // keeps the sides of the box, where grids are many, off those of cells
    return (Position(iRow)[iAxis] - m_rConnectivity.GetLow()[iAxis]) * m_dScale + BESIDE;
}

/// Enters the grids in cells that are dCells times as large as the tolerance.
void CCells::Fill(double dCells) {
    constexpr double LEAST = 1e-300; // if all is at one place
    constexpr std::uint64_t FACTORS[3] = {0x9E3779B97F4A7C15ull, 0xC2B2AE3D27D4EB4Full, 0x165667B19E3779F9ull};
    m_dScale = 1.0 / std::max(dCells * m_dTolerance, LEAST);
    m_aEntries.clear();
    m_aEntries.reserve(m_rGrids.GetCount() + m_rGrids.GetCount() / 8);
    const double dLow = m_dTolerance * m_dScale, dHigh = 1.0 - dLow;
    for (std::uint32_t iRow = 0; iRow < m_rGrids.GetCount(); ++iRow) {
        if (!m_rConnectivity.IsPlaced(iRow)) continue;
        std::array<std::uint64_t, 3> nParts, nBeside;
        unsigned nSides = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            const double dPlace = Place(iRow, k);
            const auto iCell = static_cast<std::int64_t>(dPlace);
            const double dRest = dPlace - static_cast<double>(iCell);
            const std::uint64_t nFactor = FACTORS[k];
            nParts[k] = static_cast<std::uint64_t>(iCell) * nFactor;
            nBeside[k] = dRest < 0.5 ? nParts[k] - nFactor : nParts[k] + nFactor;
            if (dRest <= dLow || dRest >= dHigh) nSides |= 1u << k;
        }
        // all subsets of the sides, down to none
        for (unsigned n = nSides;; n = (n - 1) & nSides) {
            std::uint64_t nSum = 0;
            for (std::size_t k = 0; k < 3; ++k) nSum += n >> k & 1 ? nBeside[k] : nParts[k];
            m_aEntries.push_back(MakeKeyed(static_cast<std::uint32_t>(Scatter(nSum) >> 32), iRow * SIDES + n));
            if (n == 0) break;
        }
    }
}

double CCells::CountWork() const {
    double dWork = 0.0;
    VisitSameKeys(m_aEntries, [&](std::size_t iFirst, std::size_t iEnd) {
        dWork += static_cast<double>(iEnd - iFirst) * static_cast<double>(iEnd - iFirst);
    });
    return dWork;
}

CCells::T_CELL CCells::FindCell(std::uint32_t nValue) const {
    T_CELL cell;
    for (std::size_t k = 0; k < 3; ++k) {
        const double dPlace = Place(nValue / SIDES, k);
        cell[k] = static_cast<std::int64_t>(dPlace);
        if (nValue >> k & 1) cell[k] += dPlace - static_cast<double>(cell[k]) < 0.5 ? -1 : 1;
    }
    return cell;
}

/// Cells may have a key in common: in a long run they are told apart.
void CCells::TellRun(std::size_t iFirst, std::size_t iEnd) {
    constexpr std::size_t SHORT = 32;
    m_aCell.clear();
    if (iEnd - iFirst <= SHORT) {
        for (std::size_t i = iFirst; i < iEnd; ++i) m_aCell.push_back(GetValue(m_aEntries[i]));
        TellCell();
        return;
    }
    std::vector<std::pair<T_CELL, std::uint32_t>> aSorted;
    aSorted.reserve(iEnd - iFirst);
    for (std::size_t i = iFirst; i < iEnd; ++i) {
        const std::uint32_t nValue = GetValue(m_aEntries[i]);
        aSorted.emplace_back(FindCell(nValue), nValue);
    }
    std::sort(aSorted.begin(), aSorted.end());
    for (std::size_t i = 0; i < aSorted.size(); ++i) {
        m_aCell.push_back(aSorted[i].second);
        if (i + 1 < aSorted.size() && aSorted[i + 1].first == aSorted[i].first) continue;
        TellCell();
        m_aCell.clear();
    }
}

/// Those that stand for others are more than the tolerance apart, so that a cell hasn't room for many.
void CCells::TellCell() {
    const double dMost = m_dTolerance * m_dTolerance;
    m_aKept.clear();
    for (const std::uint32_t nValue : m_aCell) {
        const std::uint32_t iRow = nValue / SIDES;
        bool bKept = true;
        for (const std::uint32_t iOther : m_aKept) {
            const T_VECTOR way = Subtract(Position(iRow), Position(iOther));
            if (!(Dot(way, way) <= dMost)) continue;
            bKept = false;
            if (m_rConnectivity.AreLinked(iRow, iOther)) continue;
            if (nValue % SIDES == 0) { // in a cell that it only counts for, it is told by its own
                m_rTold.TellGrid(GEOMETRY_COINCIDENT, iRow, [&] {
                    return m_rTold.NameGrid(iOther) + " is " + ShowNumber(Length(way)) +
                           " away, and nothing links them";
                });
            }
            break;
        }
        if (bKept) m_aKept.push_back(iRow);
    }
}

} // namespace

void TellCoincident(const CCheckDeck& rDeck, CConnectivity& rConnectivity, double dTolerance, double dEdge,
                    CGeometryTold& rTold) {
    if (dTolerance < 0.0 || dTolerance > 0.0) CCells(rDeck, rConnectivity, rTold).Tell(dTolerance, dEdge);
}
