// Works out frames in frames.

#include "nas2zdt/restate/DeckFrames.h"

#include <vector>

namespace {

const T_FRAME_D BASIC;

} // namespace

const T_FRAME_D* CDeckFrames::Find(std::int32_t iCID) const {
    if (iCID == 0) return &BASIC;
    const auto pFound = m_mapFrames.find(iCID);
    return pFound == m_mapFrames.end() ? nullptr : &pFound->second;
}

bool CDeckFrames::Place(std::int32_t iCP, T_VECTOR& rX) const {
    const T_FRAME_D* pFrame = Find(iCP);
    if (pFrame) rX = pFrame->ToBasic(rX);
    return pFrame != nullptr;
}

/// A frame that has to be known before the one of rCard, 0 if there is none.
std::int32_t CDeckFrames::FindMissing(const T_FRAMECARD_D& rCard, const FIND_GRID& findGrid) const {
    const auto isMissing = [&](std::int32_t iCID) { return !Find(iCID) && !m_badFrames.contains(iCID); };
    if (!rCard.bGRIDS) return isMissing(rCard.iRID) ? rCard.iRID : 0;
    for (const std::int32_t iGrid : rCard.iG) {
        const std::optional<T_CARDPOSITION_D> grid = findGrid(iGrid);
        if (grid && isMissing(grid->iCP)) return grid->iCP;
    }
    return 0;
}

/// Makes a frame of others that are known or bad.
bool CDeckFrames::MakeFrame(std::int32_t iCID, const T_FRAMECARD_D& rCard, const FIND_GRID& findGrid) {
    std::array<T_VECTOR, 3> points = rCard.dPOINTS;
    for (std::size_t i = 0; i < 3; ++i) {
        std::int32_t iOuter = rCard.iRID;
        if (rCard.bGRIDS) {
            const std::optional<T_CARDPOSITION_D> grid = findGrid(rCard.iG[i]);
            if (!grid) return false;
            points[i] = grid->dX;
            iOuter = grid->iCP;
        }
        if (!Place(iOuter, points[i])) return false;
    }
    T_FRAME_D frame;
    frame.eKIND = rCard.eKIND;
    if (!frame.SetByThreePoints(points[0], points[1], points[2])) return false;
    m_mapFrames[iCID] = frame;
    return true;
}

/// Without recursion, since frames may stand on frames to any depth. Frames in a circle are bad.
void CDeckFrames::ResolveFrame(std::int32_t iCID, const FIND_GRID& findGrid) {
    std::vector<std::int32_t> aStack = {iCID};
    std::set<std::int32_t> begun = {iCID};
    while (!aStack.empty()) {
        const std::int32_t iTop = aStack.back();
        const T_FRAMECARD_D* pCard = m_cards.Find(iTop);
        const std::int32_t iMissing = pCard ? FindMissing(*pCard, findGrid) : 0;
        if (iMissing != 0 && begun.insert(iMissing).second) {
            aStack.push_back(iMissing);
            continue;
        }
        if (iMissing != 0 || !pCard || !MakeFrame(iTop, *pCard, findGrid)) m_badFrames.insert(iTop);
        aStack.pop_back();
        begun.erase(iTop);
    }
}

void CDeckFrames::Resolve(const FIND_GRID& findGrid) {
    for (const auto& [iCID, card] : m_cards.GetRows()) {
        if (!Find(iCID) && !m_badFrames.contains(iCID)) ResolveFrame(iCID, findGrid);
    }
}
