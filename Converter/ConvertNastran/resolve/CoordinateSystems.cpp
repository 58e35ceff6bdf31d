// The first pass: frames from coordinate cards.

#include "store/DataPool.h"

namespace {

bool NamesFrame(const T_CD2_D& rSystem) {
    return rSystem.iRID != 0;
}

/// Links rFrame to the frame iRID of rTable and returns true, if the table holds it. The link leads to the record in
/// its table, which may change later in the pass.
template <class RECORD>
bool LinkTo(CMap<RECORD>& rTable, std::int32_t iRID, CUCSRect& rFrame) {
    return rTable.Update(iRID, [&](RECORD& rOuter) { rFrame.SetParent(&rOuter.frame); }) != 0;
}

/// Grids count as their cards give them: none has its global position yet, so a CP has no effect.
template <class RECORD>
void PlaceByGrids(CMap<RECORD>& rTable, const CDataPool& rPool) {
    rTable.UpdateEach([&](std::int32_t, T_CD1_D& rSystem) {
        rPool.GetCardPosition(rSystem.iG1, rSystem.dA);
        rPool.GetCardPosition(rSystem.iG2, rSystem.dB);
        rPool.GetCardPosition(rSystem.iG3, rSystem.dC);
        rSystem.frame.SetByThreePoints(rSystem.dA, rSystem.dB, rSystem.dC);
        rSystem.frame.MeasureChain();
    });
}

/// All links must be there: the chains are measured, too.
template <class RECORD>
void PlaceByPoints(CMap<RECORD>& rTable) {
    rTable.UpdateEach([](std::int32_t, T_CD2_D& rSystem) {
        rSystem.frame.SetByThreePoints(rSystem.dA, rSystem.dB, rSystem.dC);
        rSystem.frame.MeasureChain();
    });
}

} // namespace

void CDataPool::ResolveCoordinateSystems() {
    // Every other table is tried, also after a hit: of several frames with one id the last gives the link. A frame's
    // own table is not among them, so a RID of the same kind gives no link.
    CD2R.UpdateInOrder(NamesFrame, [this](std::int32_t, T_CD2R_D& rSystem) {
        LinkTo(CD1R, rSystem.iRID, rSystem.frame);
        LinkTo(CD1C, rSystem.iRID, rSystem.frame);
        LinkTo(CD2C, rSystem.iRID, rSystem.frame);
        LinkTo(CD1S, rSystem.iRID, rSystem.frame);
        LinkTo(CD2S, rSystem.iRID, rSystem.frame);
    });
    CD2C.UpdateInOrder(NamesFrame, [this](std::int32_t, T_CD2C_D& rSystem) {
        LinkTo(CD1R, rSystem.iRID, rSystem.frame);
        LinkTo(CD2R, rSystem.iRID, rSystem.frame);
        LinkTo(CD1C, rSystem.iRID, rSystem.frame);
        LinkTo(CD1S, rSystem.iRID, rSystem.frame);
        LinkTo(CD2S, rSystem.iRID, rSystem.frame);
    });
    CD2S.UpdateInOrder(NamesFrame, [this](std::int32_t iCID, T_CD2S_D& rSystem) {
        LinkTo(CD1R, rSystem.iRID, rSystem.frame);
        LinkTo(CD2R, rSystem.iRID, rSystem.frame); // also one that was copied there below
        LinkTo(CD1C, rSystem.iRID, rSystem.frame);
        // A sphere on a cylinder gets its link in a copy among the rectangular systems, which it joins or replaces one
        // of; the sphere itself keeps the link that it has. Output depends on it.
        T_CD2R_D copy{rSystem};
        if (LinkTo(CD2C, rSystem.iRID, copy.frame)) CD2R.SetAt(iCID, copy);
        LinkTo(CD1S, rSystem.iRID, rSystem.frame);
    });

    PlaceByGrids(CD1R, *this);
    PlaceByGrids(CD1C, *this);
    PlaceByGrids(CD1S, *this);
    PlaceByPoints(CD2R);
    PlaceByPoints(CD2C);
    PlaceByPoints(CD2S);
}

const CUCSBase* CDataPool::FindFrame(std::int32_t iCID) const {
    if (const T_CD1R_D* pSystem = CD1R.Find(iCID)) return &pSystem->frame;
    if (const T_CD2R_D* pSystem = CD2R.Find(iCID)) return &pSystem->frame;
    if (const T_CD1C_D* pSystem = CD1C.Find(iCID)) return &pSystem->frame;
    if (const T_CD1S_D* pSystem = CD1S.Find(iCID)) return &pSystem->frame;
    if (const T_CD2C_D* pSystem = CD2C.Find(iCID)) return &pSystem->frame;
    if (const T_CD2S_D* pSystem = CD2S.Find(iCID)) return &pSystem->frame;
    return nullptr;
}
