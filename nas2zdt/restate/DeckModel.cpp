// Works out the positions of grids, and gives new ids.

#include "nas2zdt/restate/DeckModel.h"

#include "nas2zdt/flatten/DeckError.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace {

/// The next id behind rLast; where ids end, the lowest that has(id) doesn't know.
template <class HAS>
std::int32_t NextId(std::int32_t& rLast, HAS has) {
    if (rLast < std::numeric_limits<std::int32_t>::max()) return ++rLast;
    std::int32_t iFree = 1;
    while (has(iFree)) ++iFree;
    return iFree;
}

/// Moves rLast behind what cards refer to.
void PassReferences(std::int32_t& rLast, std::function<std::int32_t()>& rFindLast) {
    if (rFindLast) rLast = std::max(rLast, rFindLast());
    rFindLast = nullptr;
}

} // namespace

std::int32_t CDeckModel::NewFrameId() {
    PassReferences(m_iLastFrame, m_findLastFrame);
    return NextId(m_iLastFrame,
                  [&](std::int32_t i) { return m_frames.GetCards().Has(i) || !m_newIds.insert(i).second; });
}

std::int32_t CDeckModel::NewElementId() {
    return NextId(m_iLastElement, [&](std::int32_t i) { return m_elements.Has(i) || !m_newIds.insert(i).second; });
}

std::int32_t CDeckModel::NewPropertyId() {
    PassReferences(m_iLastProperty, m_findLastProperty);
    return NextId(m_iLastProperty, [&](std::int32_t i) { return m_properties.Has(i) || !m_newIds.insert(i).second; });
}

void CDeckModel::CountRange(std::size_t nIDs) {
    m_nRanges += static_cast<std::int64_t>(nIDs);
    if (m_nRanges <= m_nMostRanges) return;
    throw CDeckError(FAILURE_LIMIT_RANGES, {m_sDeck, 0},
                     "limit on ranges: ranges stand for more than " + std::to_string(m_nMostRanges) +
                         " ids in all; the option --limit ranges=N sets it");
}

void CDeckModel::Resolve() {
    m_frames.Resolve([this](std::int32_t iGrid) -> std::optional<T_CARDPOSITION_D> {
        const T_POINT_D* pGrid = m_grids.Find(iGrid);
        if (!pGrid) return std::nullopt;
        return T_CARDPOSITION_D{pGrid->iCP, pGrid->dX};
    });
    for (auto& [iID, rGrid] : m_grids.GetRows()) {
        if (rGrid.iCP != 0) rGrid.bPLACED = m_frames.Place(rGrid.iCP, rGrid.dX);
    }
    m_iLastFrame = m_frames.GetCards().GetLargestId();
    m_iLastElement = std::max(m_iLastElement, m_elements.GetLargestId());
    m_iLastProperty = m_properties.GetLargestId();
}
