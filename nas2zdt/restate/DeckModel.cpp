// Works out frames in frames and the positions of grids.

#include "nas2zdt/restate/DeckModel.h"

#include "nas2zdt/flatten/DeckError.h"

#include <algorithm>
#include <limits>

namespace {

const T_FRAME_D BASIC;

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
    return NextId(m_iLastFrame, [&](std::int32_t i) { return m_frameCards.Has(i) || !m_newIds.insert(i).second; });
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

const T_FRAME_D* CDeckModel::FindFrame(std::int32_t iCID) const {
    if (iCID == 0) return &BASIC;
    const auto pFound = m_mapFrames.find(iCID);
    return pFound == m_mapFrames.end() ? nullptr : &pFound->second;
}

/// The position of a grid that is still as on its card, if its frame is known.
bool CDeckModel::PlaceInFrame(const T_POINT_D& rGrid, T_VECTOR& rPosition) const {
    const T_FRAME_D* pFrame = FindFrame(rGrid.iCP);
    if (pFrame) rPosition = pFrame->ToBasic(rGrid.dX);
    return pFrame != nullptr;
}

/// A frame that has to be known before the one of rCard, 0 if there is none.
std::int32_t CDeckModel::FindMissing(const T_FRAMECARD_D& rCard) const {
    const auto isMissing = [&](std::int32_t iCID) { return !FindFrame(iCID) && !m_badFrames.contains(iCID); };
    if (!rCard.bGRIDS) return isMissing(rCard.iRID) ? rCard.iRID : 0;
    for (const std::int32_t iGrid : rCard.iG) {
        const T_POINT_D* pGrid = m_grids.Find(iGrid);
        if (pGrid && isMissing(pGrid->iCP)) return pGrid->iCP;
    }
    return 0;
}

/// Makes a frame of others that are known or bad.
bool CDeckModel::MakeFrame(std::int32_t iCID, const T_FRAMECARD_D& rCard) {
    std::array<T_VECTOR, 3> points = rCard.dPOINTS;
    const T_FRAME_D* pFrame = rCard.bGRIDS ? nullptr : FindFrame(rCard.iRID);
    for (std::size_t i = 0; i < 3; ++i) {
        if (pFrame) {
            points[i] = pFrame->ToBasic(points[i]);
        } else if (const T_POINT_D* pGrid = rCard.bGRIDS ? m_grids.Find(rCard.iG[i]) : nullptr; pGrid) {
            if (!PlaceInFrame(*pGrid, points[i])) return false;
        } else {
            return false;
        }
    }
    T_FRAME_D frame;
    frame.eKIND = rCard.eKIND;
    if (!frame.SetByThreePoints(points[0], points[1], points[2])) return false;
    m_mapFrames[iCID] = frame;
    return true;
}

/// Without recursion, since frames may stand on frames to any depth. Frames in a circle are bad.
void CDeckModel::ResolveFrame(std::int32_t iCID) {
    std::vector<std::int32_t> aStack = {iCID};
    std::set<std::int32_t> begun = {iCID};
    while (!aStack.empty()) {
        const std::int32_t iTop = aStack.back();
        const T_FRAMECARD_D* pCard = m_frameCards.Find(iTop);
        const std::int32_t iMissing = pCard ? FindMissing(*pCard) : 0;
        if (iMissing != 0 && begun.insert(iMissing).second) {
            aStack.push_back(iMissing);
            continue;
        }
        if (iMissing != 0 || !pCard || !MakeFrame(iTop, *pCard)) m_badFrames.insert(iTop);
        aStack.pop_back();
        begun.erase(iTop);
    }
}

void CDeckModel::Resolve() {
    for (const auto& [iCID, card] : m_frameCards.GetRows()) {
        if (!FindFrame(iCID) && !m_badFrames.contains(iCID)) ResolveFrame(iCID);
    }
    for (auto& [iID, rGrid] : m_grids.GetRows()) {
        if (rGrid.iCP == 0) continue;
        T_VECTOR position = rGrid.dX;
        rGrid.bPLACED = PlaceInFrame(rGrid, position);
        rGrid.dX = position;
    }
    m_iLastFrame = m_frameCards.GetLargestId();
    m_iLastElement = std::max(m_iLastElement, m_elements.GetLargestId());
    m_iLastProperty = m_properties.GetLargestId();
}
