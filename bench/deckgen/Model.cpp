// What the cards of a deck are about.

#include "deckgen/Model.h"

#include <algorithm>

namespace {

constexpr std::int64_t PITCH = 2'500'000;
constexpr std::uint64_t WOBBLE = 1'000'000;

/// The greatest n whose iPower-th power isn't above nValue.
std::uint64_t Root(std::uint64_t nValue, int iPower) {
    const auto fits = [&](std::uint64_t n) { return iPower == 2 ? n * n <= nValue : n * n * n <= nValue; };
    std::uint64_t n = 1;
    while (fits(n * 2)) n *= 2;
    for (std::uint64_t nStep = n / 2; nStep > 0; nStep /= 2) {
        if (fits(n + nStep)) n += nStep;
    }
    return n;
}

} // namespace

E_SPACE CModel::SpaceOf(E_GROUP iGroup) {
    if (iGroup == GROUP_GRIDS) return SPACE_GRIDS;
    if (iGroup <= GROUP_SPRINGS) return SPACE_ELEMENTS;
    if (iGroup == GROUP_FRAMES) return SPACE_FRAMES;
    if (iGroup <= GROUP_SUPPORTS) return SPACE_ENTRIES;
    if (iGroup == GROUP_SETS) return SPACE_SETS;
    return iGroup == GROUP_MATERIALS ? SPACE_MATERIALS : SPACE_PROPERTIES;
}

CModel::CModel(const std::array<std::uint64_t, GROUPS>& aCounts, E_ID_ORDER iOrder, std::uint64_t nSeed)
    : m_aCounts(aCounts), m_nSeed(nSeed), m_nGrids(std::max<std::uint64_t>(aCounts[GROUP_GRIDS], 1)) {
    std::array<std::uint64_t, SPACES> aTotals{};
    for (std::size_t i = 0; i < GROUPS; ++i) {
        std::uint64_t& rTotal = aTotals[static_cast<std::size_t>(SpaceOf(static_cast<E_GROUP>(i)))];
        m_aFirst[i] = rTotal;
        rTotal += aCounts[i];
    }
    for (std::size_t i = 0; i < SPACES; ++i) m_aIds[i] = CIdOrder(iOrder, aTotals[i], RandomAt(nSeed, i));
    // a plate, or a block where there are solids; what is left over stands beside it
    if (aCounts[GROUP_SOLIDS] > 0) m_nZ = std::max<std::uint64_t>(Root(m_nGrids, 3), 1);
    m_nX = Root(m_nGrids / m_nZ, 2);
    m_nY = std::max<std::uint64_t>(m_nGrids / m_nZ / m_nX, 1);
}

std::int64_t CModel::OneOf(E_GROUP iGroup, std::uint64_t n) const {
    if (Count(iGroup) == 0) return 0;
    return Id(SpaceOf(iGroup), First(iGroup) + n % Count(iGroup));
}

std::int64_t CModel::CornerId(std::uint64_t n, int nSpan, T_CORNER_D corner) const {
    const auto nWide = static_cast<std::uint64_t>(nSpan);
    const auto cells = [nWide](std::uint64_t nSide) { return nSide > nWide ? (nSide - 1) / nWide : 1; };
    const auto at = [](std::uint64_t n0, int i) { return n0 + static_cast<std::uint64_t>(i); };
    const std::uint64_t nCellsX = cells(m_nX);
    const std::uint64_t nCellsY = cells(m_nY);
    const std::uint64_t nX = at(n % nCellsX * nWide, corner.iX);
    const std::uint64_t nY = at(n / nCellsX % nCellsY * nWide, corner.iY);
    const std::uint64_t nZ = at(n / nCellsX / nCellsY % cells(m_nZ) * nWide, corner.iZ);
    return GridId(nX + (nY + nZ * m_nY) * m_nX);
}

std::array<std::int64_t, 3> CModel::Coordinates(std::uint64_t n) const {
    const auto along = [&](std::uint64_t nSteps, std::uint64_t nSalt) {
        return static_cast<std::int64_t>(nSteps) * PITCH + static_cast<std::int64_t>(Pick(n, nSalt, WOBBLE));
    };
    const std::uint64_t nPlace = n % m_nGrids;
    return {along(nPlace % m_nX, 1), along(nPlace / m_nX % m_nY, 2), along(nPlace / m_nX / m_nY, 3)};
}
