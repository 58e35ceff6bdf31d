#include "nas2zdt/check/FrameCheck.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view KEYWORDS[2][3] = {{"CORD2R", "CORD2C", "CORD2S"}, {"CORD1R", "CORD1C", "CORD1S"}};

/// Checks all frames of a deck.
class CFrameCheck {
  public:
    CFrameCheck(const CCheckDeck& rDeck, const CDeckIds& rIds, CFindings& rFindings)
        : m_rFrames(rDeck.GetFrames()), m_rDeck(rDeck), m_rIds(rIds), m_rFindings(rFindings) {}

    void Check() {
        for (const auto& [iCID, frame] : m_rFrames.GetCards().GetRows()) {
            CheckTwice(iCID, frame);
            CheckReferences(iCID, frame);
            if (!m_left.contains(iCID)) FindRings(iCID);
        }
        for (const auto& [iCID, frame] : m_rFrames.GetCards().GetRows()) {
            if (!m_inRings.contains(iCID) && !m_rFrames.Find(iCID)) CheckPoints(iCID, frame);
        }
    }

  private:
    static T_CARDPLACE_D PlaceOf(std::int32_t iCID, const T_FRAMECARD_D& rFrame) {
        return {KEYWORDS[rFrame.bGRIDS][rFrame.eKIND], iCID, rFrame.origin};
    }

    void CheckTwice(std::int32_t iCID, const T_FRAMECARD_D& rFrame) const {
        const T_FRAMECARD_D& rLast = *m_rFrames.GetCards().Find(iCID);
        if (&rLast == &rFrame) return;
        const bool bSame = rLast.eKIND == rFrame.eKIND && rLast.bGRIDS == rFrame.bGRIDS && rLast.iRID == rFrame.iRID &&
                           rLast.iG == rFrame.iG && rLast.dPOINTS == rFrame.dPOINTS;
        Tell(m_rFindings, bSame ? TWICE_SAME : TWICE, PlaceOf(iCID, rLast), [&] {
            return "there is a " + std::string(PlaceOf(iCID, rFrame).sKEYWORD) + " " + std::to_string(iCID) + " at " +
                   m_rDeck.GetPlace(rFrame.origin);
        });
    }

    void CheckReferences(std::int32_t iCID, const T_FRAMECARD_D& rFrame) const {
        const auto miss = [&](E_REFERENCE eKind, const char* sName, std::int32_t iID) {
            Tell(m_rFindings, eKind, PlaceOf(iCID, rFrame),
                 [&] { return sName + std::to_string(iID) + " doesn't exist"; });
        };
        if (!rFrame.bGRIDS) {
            if (rFrame.iRID > 0 && !m_rIds.HasFrame(rFrame.iRID)) {
                miss(REFERENCE_FRAME, "coordinate system ", rFrame.iRID);
            }
            return;
        }
        for (const std::int32_t iGrid : rFrame.iG) {
            if (iGrid > 0 && !m_rIds.HasGrid(iGrid)) miss(REFERENCE_GRID, "GRID ", iGrid);
        }
    }

    /// The frames that a frame is defined in, 0 for the basic one.
    std::array<std::int32_t, 3> OuterFrames(std::int32_t iCID) const {
        const T_FRAMECARD_D* pFrame = m_rFrames.GetCards().Find(iCID);
        if (!pFrame) return {};
        if (!pFrame->bGRIDS) return {pFrame->iRID, 0, 0};
        std::array<std::int32_t, 3> aOuter = {};
        for (std::size_t i = 0; i < 3; ++i) {
            const std::uint32_t iRow = m_rDeck.GetGrids().FindRow(pFrame->iG[i]);
            if (iRow != CKeyIndex::NONE) aOuter[i] = m_rDeck.GetGrids().GetKind(iRow).iCP;
        }
        return aOuter;
    }

    /// Goes outward from a frame, and back from each once. Without recursion: frames may stand on frames to any depth.
    void FindRings(std::int32_t iFirst) {
        struct T_STEP_D {
            std::int32_t iCID;
            std::size_t iNext;
            std::array<std::int32_t, 3> aOuter;
        };
        std::vector<T_STEP_D> aPath = {{iFirst, 0, OuterFrames(iFirst)}};
        std::set<std::int32_t> onPath = {iFirst};
        while (!aPath.empty()) {
            T_STEP_D& rStep = aPath.back();
            if (rStep.iNext == rStep.aOuter.size()) {
                onPath.erase(rStep.iCID);
                m_left.insert(rStep.iCID);
                aPath.pop_back();
                continue;
            }
            const std::int32_t iOuter = rStep.aOuter[rStep.iNext++];
            if (iOuter == 0 || m_left.contains(iOuter)) continue;
            if (onPath.insert(iOuter).second) {
                aPath.push_back({iOuter, 0, OuterFrames(iOuter)});
                continue;
            }
            std::vector<std::int32_t> aRing;
            for (std::size_t i = aPath.size(); i-- > 0;) {
                aRing.push_back(aPath[i].iCID);
                if (aPath[i].iCID == iOuter) break;
            }
            TellRing(aRing);
        }
    }

    void TellRing(std::vector<std::int32_t> aRing) {
        const bool bKnown = std::ranges::all_of(aRing, [&](std::int32_t i) { return m_inRings.contains(i); });
        m_inRings.insert(aRing.begin(), aRing.end());
        if (bKnown) return; // by other grids of the same frames
        std::reverse(aRing.begin(), aRing.end());
        std::rotate(aRing.begin(), std::min_element(aRing.begin(), aRing.end()), aRing.end());
        const std::int32_t iCID = aRing.front();
        Tell(m_rFindings, FRAME_RING, PlaceOf(iCID, *m_rFrames.GetCards().Find(iCID)), [&] {
            constexpr std::size_t MOST = 10;
            std::string sText = "coordinate systems are defined by each other: ";
            for (std::size_t i = 0; i < std::min(aRing.size(), MOST); ++i) sText += std::to_string(aRing[i]) + " in ";
            return sText + (aRing.size() > MOST ? "... in " : "") + std::to_string(iCID);
        });
    }

    /// The basic positions of the three points, nothing if they aren't known.
    std::optional<std::array<T_VECTOR, 3>> FindPoints(const T_FRAMECARD_D& rFrame) const {
        std::array<T_VECTOR, 3> points = rFrame.dPOINTS;
        const T_FRAME_D* pOuter = rFrame.bGRIDS ? nullptr : m_rFrames.Find(rFrame.iRID);
        for (std::size_t i = 0; i < 3; ++i) {
            const T_VECTOR* pPosition = rFrame.bGRIDS ? m_rDeck.FindPosition(rFrame.iG[i]) : nullptr;
            if (!pOuter && !pPosition) return std::nullopt;
            points[i] = pOuter ? pOuter->ToBasic(points[i]) : *pPosition;
        }
        return points;
    }

    /// A frame that can't be made although its points are known.
    void CheckPoints(std::int32_t iCID, const T_FRAMECARD_D& rFrame) const {
        const auto points = FindPoints(rFrame);
        if (!points) return;
        const T_VECTOR &rA = (*points)[0], &rB = (*points)[1], &rC = (*points)[2];
        Tell(m_rFindings, FRAME_LINE, PlaceOf(iCID, rFrame), [&] {
            if (rA == rB) return std::string("points A and B are in one place");
            if (rA == rC) return std::string("points A and C are in one place");
            if (rB == rC) return std::string("points B and C are in one place");
            return std::string("points A, B and C are on a line");
        });
    }

    const CDeckFrames& m_rFrames;
    const CCheckDeck& m_rDeck;
    const CDeckIds& m_rIds;
    CFindings& m_rFindings;
    std::set<std::int32_t> m_left;    // frames that were gone through
    std::set<std::int32_t> m_inRings; // these can't be made, whatever their points are
};

} // namespace

void CheckFrames(const CCheckDeck& rDeck, const CDeckIds& rIds, CFindings& rFindings) {
    CFrameCheck(rDeck, rIds, rFindings).Check();
}
