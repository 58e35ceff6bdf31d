// Gathers supports.

#include "nas2zdt/restate/SupportTable.h"

#include <algorithm>
#include <numeric>

void CSupportTable::SetGrids(std::vector<std::int32_t> aGrids) {
    m_aGrids = std::move(aGrids);
    m_aComponents.assign(m_aGrids.size(), 0);
    m_aFirstCards.assign(m_aGrids.size(), NO_CARD);
}

std::size_t CSupportTable::FindBegin(const T_IDRANGE_D& rRange) const {
    return static_cast<std::size_t>(std::lower_bound(m_aGrids.begin(), m_aGrids.end(), rRange.iFIRST) -
                                    m_aGrids.begin());
}

std::size_t CSupportTable::FindEnd(const T_IDRANGE_D& rRange) const {
    return static_cast<std::size_t>(std::upper_bound(m_aGrids.begin(), m_aGrids.end(), rRange.iLAST) -
                                    m_aGrids.begin());
}

std::size_t CSupportTable::Find(std::int32_t iGrid) const {
    const std::size_t i = FindBegin({iGrid, iGrid});
    return i < m_aGrids.size() && m_aGrids[i] == iGrid ? i : NOWHERE;
}

void CSupportTable::HoldAt(std::size_t i, std::uint8_t nComponents, std::uint32_t iCard) {
    if (nComponents != 0 && m_aFirstCards[i] == NO_CARD) m_aFirstCards[i] = iCard;
    m_aComponents[i] |= nComponents;
}

/// A range goes from grid to grid that hasn't the component yet, so overlapping ranges cost no more than separate ones.
void CSupportTable::Hold(const T_IDRANGE_D& rRange, std::uint8_t nComponents, std::uint32_t iCard) {
    const std::size_t iBegin = FindBegin(rRange), iEnd = FindEnd(rRange);
    if (rRange.iSTEP != 1 || iEnd - iBegin <= 1) {
        for (std::size_t i = iBegin; i < iEnd; ++i) {
            if ((std::int64_t{m_aGrids[i]} - rRange.iFIRST) % rRange.iSTEP == 0) HoldAt(i, nComponents, iCard);
        }
        return;
    }
    for (std::size_t k = 0; k < m_aNextFree.size(); ++k) {
        const auto nBit = static_cast<std::uint8_t>(1u << k);
        if (!(nComponents & nBit)) continue;
        std::vector<std::size_t>& rNext = m_aNextFree[k];
        if (rNext.empty()) {
            rNext.resize(m_aGrids.size() + 1);
            std::iota(rNext.begin(), rNext.end(), std::size_t{0});
        }
        const auto findFree = [&](std::size_t i) {
            while (rNext[i] != i) i = rNext[i] = rNext[rNext[i]];
            return i;
        };
        for (std::size_t i = findFree(iBegin); i < iEnd; i = findFree(i)) {
            HoldAt(i, nBit, iCard);
            rNext[i] = i + 1;
        }
    }
}

bool CSupportTable::IsEmpty() const {
    return std::all_of(m_aComponents.begin(), m_aComponents.end(), [](std::uint8_t n) { return n == 0; });
}
