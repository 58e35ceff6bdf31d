#pragma once
// The whole finite element model in memory.

#include "messages/FormatText.h"
#include "store/ElementStore.h"
#include "store/Frames.h"
#include "store/GridStore.h"
#include "store/IdStretch.h"
#include "store/Left.h"
#include "store/LoadRecords.h"
#include "store/Map.h"
#include "store/PropertyRecords.h"
#include "store/Taken.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

class CZdtMsgMgr;

/// A plain bag of tables, filled by the card handlers, rewritten by the resolution passes, read by the writers. A
/// record refers to another by id alone. The numbers are bucket counts: with the hash they decide the order of lines
/// in the output file.
class CDataPool {
  public:
    virtual ~CDataPool() = default;

    CZdtMsgMgr* m_pMsgMgr = nullptr;  // the run's log, not owned; set just before the passes
    CLeftSink* m_pLeftSink = nullptr; // who is told what the file won't say, likewise; null for nobody
    std::int64_t m_nMostCarried = std::numeric_limits<std::int64_t>::max(); // limit on frames, likewise
    std::size_t m_nThreads = 1;                                             // that the passes may use, likewise
    CTakenRecords* m_pTaken = nullptr; // where records go instead of their tables as far as it has any, not owned
    std::vector<CLocalAxis> m_aLocalAxis;

    CMap<T_CD1R_D> CD1R{101};
    CMap<T_CD2R_D> CD2R{101};
    CMap<T_CD1C_D> CD1C{101};
    CMap<T_CD2C_D> CD2C{101};
    CMap<T_CD1S_D> CD1S{101};
    CMap<T_CD2S_D> CD2S{101};
    CMap<T_RBE2_D> RBE2{1001};
    CMap<T_CEL1_D> CEL1{1001};
    CMap<T_CEL2_D> CEL2{1001};
    CMap<T_CNRD_D> CNRD{10001};
    CMap<T_LDCB_D> LDCB{1001};
    CMap<T_EIGB_D> EIGB{11};
    CMap<T_EIRL_D> EIRL{11};
    CMap<std::int32_t> m_mapNodeId{1000001}; // renumbered node ids; nothing renumbers
    std::int32_t m_iLastCNST = 0;            // SID of the last SPC or MPC card
    CMap<T_MATL_D> MATL{101};
    CMap<T_PROP_D> PROP{1000001};
    CMap<T_NODS_D> NODS{1000001};
    CMap<T_ELEM_D> ELEM{1000001};
    CMap<T_CNST_D> CNST{1001};
    CMap<T_LOAD_D> LOAD{101};

    /// Inserts a record, or replaces the one of that id, which is told. Always 1.
    template <class RECORD, class VALUE>
    int Set(CMap<RECORD>& rTable, std::int32_t iID, VALUE&& record) {
        return rTable.SetAt(iID, std::forward<VALUE>(record), [this](const RECORD& rOld, const RECORD& rNew) {
            if (m_pLeftSink) TellReplaced(KeywordOf(rOld), rOld == rNew);
        });
    }
    void TellReplaced(const char* sKeyword, bool bSame) {
        if (m_pLeftSink) m_pLeftSink->OnReplaced(sKeyword, bSame);
    }

    /// The same by the table's name.
    int SetNODS(std::int32_t iID, const T_NODS_D& record) {
        return m_pTaken ? Keep(iID, record) : Set(NODS, iID, record);
    }
    int SetELEM(std::int32_t iID, const T_ELEM_D& record) {
        return m_pTaken ? Keep(iID, record) : Set(ELEM, iID, record);
    }
    int SetPROP(std::int32_t iID, T_PROP_D record) { return Set(PROP, iID, std::move(record)); }
    int SetMATL(std::int32_t iID, T_MATL_D record) { return Set(MATL, iID, std::move(record)); }
    int SetEIGB(std::int32_t iID, T_EIGB_D record) { return Set(EIGB, iID, std::move(record)); }
    int SetEIRL(std::int32_t iID, T_EIRL_D record) { return Set(EIRL, iID, std::move(record)); }

    /// Adds constrained grids to a set, which is made on first mention. bLast tells whether it becomes m_iLastCNST.
    /// Always 1.
    int AddSupports(std::int32_t iSID, std::span<const T_CNND_D> aGrids, bool bLast) {
        if (m_pTaken) return Keep(iSID, aGrids, bLast);
        if (bLast) m_iLastCNST = iSID;
        for (CArray<T_CNND_D>& rGrids = CNST[iSID].aCNND; const T_CNND_D& rGrid : aGrids) rGrids.Add(rGrid);
        return 1;
    }

    /// Output id of a node: its renumbered id, or the id itself. Always 1.
    int MapNodeId(std::int32_t iID, std::int32_t& rOut) const {
        const std::int32_t* pMapped = m_mapNodeId.IsEmpty() ? nullptr : m_mapNodeId.Find(iID);
        rOut = pMapped ? *pMapped : iID;
        return 1;
    }
    std::int32_t MapNodeId(std::int32_t iID) const {
        MapNodeId(iID, iID);
        return iID;
    }

    /// Global position of a node. Returns 1, or 0 and (0, 0, 0) if there is no such node.
    int GetNodePosition(std::int32_t iID, double (&rPosition)[3]) const {
        const auto pNode = NODS.Find(iID);
        rPosition[0] = pNode ? pNode->dGX : 0.0;
        rPosition[1] = pNode ? pNode->dGY : 0.0;
        rPosition[2] = pNode ? pNode->dGZ : 0.0;
        return pNode ? 1 : 0;
    }

    /// From one node to another, in global terms; a missing node counts as the origin. Returns whether there are both.
    bool GetNodeVector(std::int32_t iFrom, std::int32_t iTo, double (&rVector)[3]) const {
        double dFrom[3];
        const int bFrom = GetNodePosition(iFrom, dFrom);
        const int bTo = GetNodePosition(iTo, rVector);
        for (int i = 0; i < 3; ++i) rVector[i] -= dFrom[i];
        return bFrom && bTo;
    }

    /// The coordinates of a node as its card gives them. Returns 1, or 0 and (0, 0, 0) if there is no such node.
    int GetCardPosition(std::int32_t iID, double (&rPosition)[3]) const {
        const auto pNode = NODS.Find(iID);
        rPosition[0] = pNode ? pNode->dX1 : 0.0;
        rPosition[1] = pNode ? pNode->dX2 : 0.0;
        rPosition[2] = pNode ? pNode->dX3 : 0.0;
        return pNode ? 1 : 0;
    }

    // Whether a record is missing, for those who tell it: while nobody is to be told, nothing is looked for.
    bool IsGridMissing(std::int32_t iID) const { return m_pLeftSink && !m_grids.Has(iID) && !NODS.Has(iID); }
    bool IsElementMissing(std::int32_t iID) const { return m_pLeftSink && !m_elements.Has(iID) && !ELEM.Has(iID); }
    bool IsPropertyMissing(std::int32_t iID) const { return m_pLeftSink && !PROP.Find(iID); }
    bool IsMaterialMissing(std::int32_t iID) const { return m_pLeftSink && !MATL.Find(iID); }

    /// Whether one of some grids may be missing: a quick answer for those who tell it, false while nobody is to be
    /// told.
    template <std::size_t COUNT>
    bool MayMissGrid(std::span<const std::int32_t, COUNT> aGrids) const {
        return m_pLeftSink && !m_grids.HasAll(aGrids);
    }

    /// Finds the first of some grids that is missing. False for none, also while nobody is to be told.
    bool FindMissingGrid(std::span<const std::int32_t> aGrids, std::int32_t& rMissing) const {
        if (!MayMissGrid(aGrids)) return false;
        const auto isMissing = [this](std::int32_t iGrid) { return IsGridMissing(iGrid); };
        const auto pMissing = std::find_if(aGrids.begin(), aGrids.end(), isMissing);
        if (pMissing == aGrids.end()) return false;
        rMissing = *pMissing;
        return true;
    }

    /// Replaces rIds by the ids of all load sets, ascending. Returns 1, or 0 if there are none.
    int GetSortedLoadIds(CArray<std::int32_t>& rIds) const;

    /// From the cards to global terms: runs the passes below in order. m_pMsgMgr must be set. Always 1; what can't be
    /// resolved stays as it was read. Throws CRunError if points are carried through more than m_nMostCarried frames.
    int ResolveModel();

    /// The frames of all coordinate systems, and their links to the frames that they are defined in.
    void ResolveCoordinateSystems();
    /// The position of each grid in the basic frame. Logs a CP that doesn't exist.
    void ResolveGridPositions();
    /// The reference point of each line element. Logs missing grids.
    void ResolveElementOrientations();
    /// The components of loads whose direction is given by grids.
    void ResolveLoadDirections();
    /// A row of m_aLocalAxis for each grid with an existing CD.
    void ResolveNodeLocalAxes();

    /// The frame of a coordinate system of any kind, null if there is none. Of several with one id, the first by kind.
    const CUCSBase* FindFrame(std::int32_t iCID) const;

    /// Whether a coordinate system is a cylindrical or spherical one.
    bool IsPolarFrame(std::int32_t iCID) const;
    /// Whether a vector in the axes of a coordinate system that exists has other components in the basic ones. A long
    /// way to the basic frame counts as a turn.
    bool TurnsVectors(std::int32_t iCID) const;

    /// Angle in degrees by which the orientation (dVX, dVY, dVZ), in global axes, turns a link about the line between
    /// two nodes; 0 if it lies along that line. Goes by the card's coordinates; a missing first node counts as the
    /// origin, a missing second one as the first. An angle that the arithmetic can't give is a not-a-number: positive
    /// if the cosine is out of range by rounding, negative if it comes of infinite values. Always 1.
    int ComputeBetaAngle(std::int32_t iNode1, std::int32_t iNode2, double dVX, double dVY, double dVZ,
                         double& rAngle) const;

    /// Distance between the first two nodes of an element in global terms; what is missing counts as the origin.
    /// Always 1.
    int ComputeElementLength(std::int32_t iElement, double& rLength) const;

  private:
    template <class... RECORD>
    int Keep(std::int32_t iID, const RECORD&... record) {
        m_pTaken->Add(iID, record...);
        return 1;
    }
    void MeasureStretches();
    void TellFrames() const;
    void TellParents() const;
    void TellFramesOnGrids() const;
    void TellSharedFrameIds() const;
    void TellFlatFrames() const;
    E_LEFT FindAxesLoss(std::int32_t iCD, const CUCSBase& rFrame) const;
    bool IsCopiedSphere(std::int32_t iCID) const;
    void TellLeft(const T_LEFT_D& rLeft) const {
        if (m_pLeftSink) m_pLeftSink->OnLeft(rLeft);
    }
    void CarryOut(const CUCSBase& rFrame, double (&rPoint)[3]);

    int LogMessage(std::string_view sFormat, TEXT_ARGS aArgs) const;

    CIdStretch m_grids, m_elements; // measured before the passes if anybody is to be told
    std::int64_t m_nCarried = 0;    // frames that points went through
};
