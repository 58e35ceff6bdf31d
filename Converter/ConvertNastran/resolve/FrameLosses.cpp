// What becomes of coordinate systems that can't be carried over. It is told once the grids have their positions.

#include "store/DataPool.h"

#include <algorithm>
#include <utility>

namespace {

/// Where the frame takes its origin and a step along each axis.
struct T_CORNERS_D {
    double dAT[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    explicit T_CORNERS_D(const CUCSBase& rFrame) {
        for (auto& d : dAT) rFrame.ToGlobal(d[0], d[1], d[2]);
    }
    bool IsAtOrigin() const { return dAT[0][0] == 0.0 && dAT[0][1] == 0.0 && dAT[0][2] == 0.0; }
    bool LacksAxis() const {
        return std::any_of(dAT + 1, dAT + 4, [this](const auto& d) { return std::equal(d, d + 3, dAT[0]); });
    }
    bool HasBasicAxes() const {
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t k = 0; k < 3; ++k) {
                if (dAT[i + 1][k] - dAT[0][k] != (i == k ? 1.0 : 0.0)) return false;
            }
        }
        return true;
    }
};

/// So many frames are gone through for a closer look; in longer chains each frame's look would cost the whole chain.
constexpr std::size_t FEW_FRAMES = 8;

/// Whether points keep their coordinates on their way out of the frame.
bool IsBasic(const CUCSBase& rFrame) {
    if (rFrame.GetFrameCount() > FEW_FRAMES) return false;
    const T_CORNERS_D corners(rFrame);
    return corners.IsAtOrigin() && corners.HasBasicAxes();
}

/// Whether the points of a system are the same ones in X, Y, Z and in cylindrical or spherical coordinates.
bool ArePointsPlain(const T_CD2_D& rSystem, bool bSphere) {
    for (const auto* pPoint : {&rSystem.dA, &rSystem.dB, &rSystem.dC}) {
        const auto& [d1, d2, d3] = *pPoint;
        if (d2 != 0.0 || (bSphere && (d1 != 0.0 || d3 != 0.0))) return false;
    }
    return true;
}

bool IsRect(const CMap<T_CD2R_D>&) {
    return true;
}
template <class RECORD>
bool IsRect(const CMap<RECORD>&) {
    return false;
}

} // namespace

bool CDataPool::IsPolarFrame(std::int32_t iCID) const {
    return CD1C.Find(iCID) || CD1S.Find(iCID) || CD2C.Find(iCID) || CD2S.Find(iCID);
}

bool CDataPool::TurnsVectors(std::int32_t iCID) const {
    const CUCSBase* const pFrame = FindFrame(iCID);
    if (!pFrame) return false;
    return IsPolarFrame(iCID) || pFrame->GetFrameCount() > FEW_FRAMES || !T_CORNERS_D(*pFrame).HasBasicAxes();
}

/// Whether a sphere has a copy among the rectangular systems.
bool CDataPool::IsCopiedSphere(std::int32_t iCID) const {
    const T_CD2S_D* const pSphere = CD2S.Find(iCID);
    return pSphere && pSphere->iRID != 0 && CD2C.Find(pSphere->iRID);
}

void CDataPool::MeasureStretches() {
    m_grids.Measure(NODS);
    m_elements.Measure(ELEM);
}

void CDataPool::TellFrames() const {
    TellParents();
    TellFramesOnGrids();
    TellSharedFrameIds();
    TellFlatFrames();
}

/// Tells of each system with a RID what the first pass made of it: it links to the last table that holds RID, in the
/// order rectangular, cylindrical, spherical, and never to the system's own one.
void CDataPool::TellParents() const {
    const auto isRect = [this](std::int32_t iCID) { return !IsCopiedSphere(iCID) && CD2R.Find(iCID); };
    const auto tell = [&](const auto& rOwn, const char* sKeyword, std::int32_t iCID, const T_CD2_D& rSystem) {
        const std::int32_t iRID = rSystem.iRID;
        const auto say = [&](E_LEFT eReason) {
            TellLeft({.eREASON = eReason, .iID = iCID, .iOTHER = iRID, .sKEYWORD = sKeyword});
        };
        const auto* const pOwn = rOwn.Find(iRID);
        const bool bSphere = CD1S.Find(iRID) || CD2S.Find(iRID);
        const bool bCylinder = CD1C.Find(iRID) || CD2C.Find(iRID);
        if (rSystem.frame.LeadsInCircle()) {
            say(LEFT_FRAME_CIRCLE);
        } else if (pOwn && !(IsRect(rOwn) && IsCopiedSphere(iRID))) {
            const bool bPlain = IsRect(rOwn) || ArePointsPlain(rSystem, bSphere);
            if (iRID == iCID || !bPlain || !IsBasic(pOwn->frame)) say(LEFT_FRAME_OWN_KIND);
        } else if (bSphere || bCylinder) {
            if (!ArePointsPlain(rSystem, bSphere)) say(LEFT_FRAME_POLAR);
        } else if (!CD1R.Find(iRID) && !isRect(iRID)) {
            say(LEFT_FRAME_NO_PARENT);
        }
    };
    for (const auto& [iCID, rSystem] : CD2R.Sorted()) {
        if (rSystem.iRID != 0 && !IsCopiedSphere(iCID)) tell(CD2R, "CORD2R", iCID, rSystem);
    }
    for (const auto& [iCID, rSystem] : CD2C.Sorted()) {
        if (rSystem.iRID != 0) tell(CD2C, "CORD2C", iCID, rSystem);
    }
    for (const auto& [iCID, rSystem] : CD2S.Sorted()) {
        if (IsCopiedSphere(iCID)) {
            TellLeft({LEFT_FRAME_COPIED, iCID, rSystem.iRID});
        } else if (rSystem.iRID != 0) {
            tell(CD2S, "CORD2S", iCID, rSystem);
        }
    }
}

/// Tells of each system on grids the first one that isn't where the system takes it to be.
void CDataPool::TellFramesOnGrids() const {
    const auto tell = [this](const auto& rTable, const char* sKeyword) {
        for (const auto& [iCID, rSystem] : rTable.Sorted()) {
            for (const std::int32_t iGrid : {rSystem.iG1, rSystem.iG2, rSystem.iG3}) {
                const auto p = NODS.Find(iGrid);
                if (p && p->dX1 == p->dGX && p->dX2 == p->dGY && p->dX3 == p->dGZ) continue;
                TellLeft({.eREASON = p ? LEFT_FRAME_GRID_MOVED : LEFT_FRAME_NO_GRID,
                          .iID = iCID,
                          .iOTHER = iGrid,
                          .sKEYWORD = sKeyword});
                break;
            }
        }
    };
    tell(CD1R, "CORD1R");
    tell(CD1C, "CORD1C");
    tell(CD1S, "CORD1S");
}

/// Tells the ids that systems of several tables share.
void CDataPool::TellSharedFrameIds() const {
    std::vector<std::pair<std::int32_t, const char*>> aIds;
    const auto collect = [&](const auto& rTable, const char* sKeyword) {
        rTable.ForEach([&](std::int32_t iCID, const auto&) { aIds.emplace_back(iCID, sKeyword); });
    };
    collect(CD1R, "CORD1R");
    collect(CD1C, "CORD1C");
    collect(CD1S, "CORD1S");
    CD2R.ForEach([&](std::int32_t iCID, const T_CD2R_D&) {
        if (!IsCopiedSphere(iCID)) aIds.emplace_back(iCID, "CORD2R");
    });
    collect(CD2C, "CORD2C");
    collect(CD2S, "CORD2S");
    const auto byId = [](const auto& a, const auto& b) { return a.first < b.first; };
    std::stable_sort(aIds.begin(), aIds.end(), byId);
    for (auto p = aIds.begin(); p != aIds.end();) {
        const auto pNext = std::upper_bound(p, aIds.end(), *p, byId);
        if (pNext - p > 1) TellLeft({.eREASON = LEFT_FRAME_TWICE, .iID = p->first, .sKEYWORD = (p + 1)->second});
        p = pNext;
    }
}

/// Tells the systems that take different points to one place.
void CDataPool::TellFlatFrames() const {
    const auto tell = [this](const auto& rTable, const char* sKeyword) {
        for (const auto& [iCID, rSystem] : rTable.Sorted()) {
            if (rSystem.frame.GetFrameCount() > FEW_FRAMES || !T_CORNERS_D(rSystem.frame).LacksAxis()) continue;
            TellLeft({.eREASON = LEFT_FRAME_LINE, .iID = iCID, .sKEYWORD = sKeyword});
        }
    };
    tell(CD1R, "CORD1R");
    tell(CD1C, "CORD1C");
    tell(CD1S, "CORD1S");
    tell(CD2R, "CORD2R");
    tell(CD2C, "CORD2C");
    tell(CD2S, "CORD2S");
}
