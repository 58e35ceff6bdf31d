// Supports and rigid links of a deck.

#include "nas2zdt/check/DeckTotals.h"

#include <algorithm>

namespace {

constexpr std::uint8_t ALL_SIX = 0x3F;

} // namespace

const std::vector<std::int32_t>& CDeckTotals::ReadGrids(std::size_t iFirst, std::size_t iEnd) {
    const auto has = [&](std::int32_t iGrid) { return IsGrid(iGrid); };
    const auto getRange = [&](std::int32_t iLow, std::int32_t iHigh) { return m_rGrids.GetRange(iLow, iHigh); };
    return ReadRanges(has, getRange, iFirst, iEnd);
}

void CDeckTotals::CountRange(std::size_t nIDs) {
    constexpr std::size_t MOST = 50000000;
    m_nRanges += nIDs;
    if (m_nRanges > MOST)
        throw CFileException(m_rDeck.GetFiles()[0], "ranges stand for more than " + std::to_string(MOST) + " ids");
}

void CDeckTotals::TakeSPC() {
    const std::int32_t iSet = m_pCard->Int(0);
    std::vector<T_SUPPORT_D> aSupports;
    for (std::size_t i = 1; i <= 4; i += 3) {
        const std::int32_t iGrid = m_pCard->Int(i);
        const std::uint8_t nComponents = m_pCard->Components(i + 1);
        m_pCard->Real(i + 2);
        if (IsGrid(iGrid)) aSupports.push_back({iSet, iGrid, nComponents});
    }
    if (!IsSound()) return;
    m_supportSets.sets.insert(iSet);
    m_aSupports.insert(m_aSupports.end(), aSupports.begin(), aSupports.end());
}

void CDeckTotals::TakeSPC1() {
    const std::int32_t iSet = m_pCard->Int(0);
    const std::uint8_t nComponents = m_pCard->Components(1);
    const std::vector<std::int32_t> aGrids = ReadGrids(2, m_pCard->GetCount());
    if (!IsSound()) return;
    m_supportSets.sets.insert(iSet);
    for (const std::int32_t iGrid : aGrids) m_aSupports.push_back({iSet, iGrid, nComponents});
}

void CDeckTotals::TakeSum() {
    T_SETS_D& rSets = m_pCard->GetKeyword() == "SPCADD" ? m_supportSets : m_equationSets;
    const std::int32_t iSum = m_pCard->Int(0);
    std::vector<std::int32_t> aSets;
    for (std::size_t i = 1; i < m_pCard->GetCount(); ++i) {
        if (!m_pCard->IsBlank(i)) aSets.push_back(m_pCard->Int(i));
    }
    if (!IsSound()) return;
    std::vector<std::int32_t>& rSum = rSets.mapSUMS[iSum];
    rSum.insert(rSum.end(), aSets.begin(), aSets.end());
}

/// The set that is asked for, and those that it sums up. A deck that nobody asks anything of, as bulk data alone, means
/// the only set that isn't part of a sum; of several the lowest, sums first.
std::set<std::int32_t> CDeckTotals::T_SETS_D::FindTaken(bool bAsked, std::int32_t iAsked) const {
    if (!bAsked) {
        std::set<std::int32_t> tops(sets.upper_bound(0), sets.end()), sums;
        for (const auto& [iSum, aParts] : mapSUMS) {
            if (iSum > 0) sums.insert(iSum);
        }
        tops.insert(sums.begin(), sums.end());
        if (tops.empty()) return {};
        iAsked = sums.empty() ? *tops.begin() : *sums.begin();
        for (const auto& [iSum, aParts] : mapSUMS) {
            for (const std::int32_t iPart : aParts) {
                if (iPart != iSum) tops.erase(iPart);
            }
        }
        if (tops.size() == 1) iAsked = *tops.begin();
    }
    std::set<std::int32_t> taken;
    std::vector<std::int32_t> aStack = {iAsked};
    while (iAsked != 0 && !aStack.empty()) {
        const std::int32_t iSet = aStack.back();
        aStack.pop_back();
        const auto pSum = taken.insert(iSet).second ? mapSUMS.find(iSet) : mapSUMS.end();
        if (pSum != mapSUMS.end()) aStack.insert(aStack.end(), pSum->second.begin(), pSum->second.end());
    }
    return taken;
}

void CDeckTotals::AddSupports() {
    const std::set<std::int32_t> taken = m_supportSets.FindTaken(m_rDeck.AsksForSets(), m_rDeck.GetCase().iSPC);
    CIdValues<std::uint8_t> held;
    for (std::size_t i = 0; i < m_rGrids.GetCount(); ++i) {
        const std::int32_t iGrid = m_rGrids.GetIds()[i];
        const std::uint8_t nPS = m_rGrids.GetKind(i).nPS;
        if (nPS != 0 && m_rGrids.FindRow(iGrid) == i) held.Put(iGrid, nPS);
    }
    for (const T_SUPPORT_D& rSupport : m_aSupports) {
        if (rSupport.nCOMPONENTS == 0 || !taken.contains(rSupport.iSET)) continue;
        held.Put(rSupport.iGRID, rSupport.nCOMPONENTS);
    }
    m_totals.AddSupports(held);
}

/// A rigid link is an equation of two terms that makes a component of two grids equal. Terms begin in fields 1 and 4 of
/// each line.
void CDeckTotals::TakeMPC() {
    constexpr std::size_t LINE = 8;
    const std::int32_t iSet = m_pCard->Int(0);
    std::vector<std::array<std::int32_t, 2>> aEnds;
    std::vector<double> aFactors;
    for (std::size_t iLine = 0; iLine < m_pCard->GetCount(); iLine += LINE) {
        for (const std::size_t i : {iLine + 1, iLine + 4}) {
            const std::int32_t iGrid = m_pCard->Int(i), iComponent = m_pCard->Int(i + 1);
            const double dFactor = m_pCard->Real(i + 2);
            if (iGrid == 0 || dFactor == 0.0) continue;
            aEnds.push_back({iGrid, iComponent});
            aFactors.push_back(dFactor);
        }
    }
    if (!IsSound()) return;
    m_equationSets.sets.insert(iSet);
    if (aEnds.size() != 2 || aFactors[0] != -aFactors[1]) return;
    const auto [iSlave, iComponent] = aEnds[0];
    if (iComponent == aEnds[1][1] && iComponent >= 1 && iComponent <= 6 && iSlave != aEnds[1][0]) {
        m_aEquations.push_back({iSet, aEnds[1][0], iSlave, iComponent});
    }
}

/// Equal components are along the axes of each grid, which must be the same.
void CDeckTotals::AddEquations() {
    constexpr double SAME = 1e-9;
    const std::set<std::int32_t> taken = m_equationSets.FindTaken(m_rDeck.AsksForSets(), m_rDeck.GetCase().iMPC);
    for (const T_EQUATION_D& rEquation : m_aEquations) {
        if (!taken.contains(rEquation.iSET) || !IsGrid(rEquation.iMASTER) || !IsGrid(rEquation.iSLAVE)) continue;
        const std::uint32_t iMaster = m_rGrids.FindRow(rEquation.iMASTER), iSlave = m_rGrids.FindRow(rEquation.iSLAVE);
        const T_FRAME_D* pFirst = m_rDeck.FindFrame(m_rGrids.GetKind(iMaster).iCD);
        const T_FRAME_D* pSecond = m_rDeck.FindFrame(m_rGrids.GetKind(iSlave).iCD);
        if (!pFirst || !pSecond) continue;
        const auto iAxis = static_cast<std::size_t>(rEquation.iCOMPONENT - 1) % 3;
        const T_VECTOR first = pFirst->AxesAt(m_rGrids.GetPosition(iMaster))[iAxis];
        if (Length(Subtract(first, pSecond->AxesAt(m_rGrids.GetPosition(iSlave))[iAxis])) > SAME) continue;
        AddRigid(rEquation.iMASTER, rEquation.iSLAVE, static_cast<std::uint8_t>(1u << (rEquation.iCOMPONENT - 1)));
    }
}

void CDeckTotals::AddRigid(std::int32_t iMaster, std::int32_t iSlave, std::uint8_t nComponents) {
    if (!IsGrid(iMaster) || !IsGrid(iSlave)) return;
    for (std::int32_t i = 0; i < 6; ++i) {
        if (nComponents & (1u << i)) m_totals.rigid.Add({iMaster, i + 1, iSlave});
    }
}

/// A thermal expansion at the end is no grid.
void CDeckTotals::TakeRBE2() {
    const std::int32_t iMaster = m_pCard->Int(1);
    const std::uint8_t nComponents = m_pCard->Components(2);
    std::size_t iEnd = m_pCard->GetCount();
    if (iEnd > 4 && m_pCard->HasReal(iEnd - 1)) --iEnd;
    const std::vector<std::int32_t> aSlaves = ReadGrids(3, iEnd);
    if (!IsSound()) return;
    for (const std::int32_t iSlave : aSlaves) AddRigid(iMaster, iSlave, nComponents);
}

/// The body follows the one grid that has all six independent components.
void CDeckTotals::AddRigidBody(const std::vector<T_END_D>& rFree, const std::vector<T_END_D>& rTied) {
    if (!IsSound()) return;
    std::int32_t iMaster = 0;
    for (const T_END_D& rEnd : rFree) {
        if (rEnd.nCOMPONENTS == 0) continue;
        if (iMaster != 0 || rEnd.nCOMPONENTS != ALL_SIX) return;
        iMaster = rEnd.iGRID;
    }
    for (const T_END_D& rEnd : rTied) AddRigid(iMaster, rEnd.iGRID, rEnd.nCOMPONENTS);
}

/// Three grids with components on each line; those behind "UM" are dependent.
void CDeckTotals::TakeRBE1() {
    constexpr std::size_t LINE = 8;
    std::vector<T_END_D> aFree, aTied;
    bool bTied = false;
    for (std::size_t iLine = 0; iLine < m_pCard->GetCount(); iLine += LINE) {
        bTied = bTied || m_pCard->Is(iLine, "UM");
        for (const std::size_t i : {iLine + 1, iLine + 3, iLine + 5}) {
            const T_END_D end = {m_pCard->Int(i), m_pCard->Components(i + 1)};
            if (end.iGRID != 0) (bTied ? aTied : aFree).push_back(end);
        }
    }
    AddRigidBody(aFree, aTied);
}

/// Without dependent components all that aren't independent are.
void CDeckTotals::TakeRBAR() {
    const std::int32_t iA = m_pCard->Int(1), iB = m_pCard->Int(2);
    const T_END_D freeA = {iA, m_pCard->Components(3)}, freeB = {iB, m_pCard->Components(4)};
    T_END_D tiedA = {iA, m_pCard->Components(5)}, tiedB = {iB, m_pCard->Components(6)};
    if (tiedA.nCOMPONENTS == 0 && tiedB.nCOMPONENTS == 0) {
        tiedA.nCOMPONENTS = static_cast<std::uint8_t>(ALL_SIX & ~freeA.nCOMPONENTS);
        tiedB.nCOMPONENTS = static_cast<std::uint8_t>(ALL_SIX & ~freeB.nCOMPONENTS);
    }
    AddRigidBody({freeA, freeB}, {tiedA, tiedB});
}
