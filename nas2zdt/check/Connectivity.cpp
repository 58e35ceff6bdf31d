// Joins grids, and tells those that nothing joins.

#include "nas2zdt/check/Connectivity.h"

#include "nas2zdt/restate/IdList.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr std::size_t LINE = 8, ALL = static_cast<std::size_t>(-1);
constexpr std::uint8_t ALL_SIX = 0x3F;
constexpr double FARTHEST = 1e50; // coordinates beyond are none: products of six lengths must stay numbers

} // namespace

CJoints::CJoints(std::size_t nRows) : m_aLower(nRows) {
    std::iota(m_aLower.begin(), m_aLower.end(), 0u);
}

/// Where a card names grids: at iHEAD, if that isn't 0, and from iFIRST on at every nSTEP-th place, at most nMOST of
/// them, or at nMOST places of each line.
struct CConnectivity::T_TIE_D {
    std::string_view sKEYWORD;
    std::size_t iHEAD = 0, iFIRST = 0, nSTEP = 1, nMOST = ALL;
    bool bLINES = false;
    bool bJOINS = true;                                        // else the grids are used, each for itself
    bool bPART = true;                                         // else they are only named
    void (CConnectivity::*TAKE)(const CCardFields&) = nullptr; // for cards of other forms
};

// In the order of the alphabet. Elements that aren't in the table of these are here.
const std::vector<CConnectivity::T_TIE_D> CConnectivity::TIES = {
    {"CBEAM3", 0, 2, 1, 3},
    {"CBUSH2D", 0, 2, 1, 2},
    {"CDAMP5", 0, 2, 1, 2},
    {"CONM1", 0, 1, 1, 1},
    {"CONM2", 0, 1, 1, 1},
    {"CPLSTN3", 0, 2, 1, 3},
    {"CPLSTN4", 0, 2, 1, 4},
    {"CPLSTN6", 0, 2, 1, 6},
    {"CPLSTN8", 0, 2, 1, 8},
    {"CPLSTS3", 0, 2, 1, 3},
    {"CPLSTS4", 0, 2, 1, 4},
    {"CPLSTS6", 0, 2, 1, 6},
    {"CPLSTS8", 0, 2, 1, 8},
    {"CQUAD", 0, 2, 1, 9},
    {"CQUADX", 0, 2, 1, 9},
    {"CQUADX4", 0, 2, 1, 4},
    {"CQUADX8", 0, 2, 1, 8},
    {"CTRAX3", 0, 2, 1, 3},
    {"CTRAX6", 0, 2, 1, 6},
    {"CTRIAX", 0, 2, 1, 6},
    {"CTRIAX6", 0, 2, 1, 6},
    {"DMIG", 1, 4, 4},
    {"MPC", 0, 1, 3, 2, true},
    {"PLOTEL", 0, 1, 1, 2, false, false, false},
    {"RBAR", 0, 1, 1, 2},
    {"RBAR1", 0, 1, 1, 2},
    {"RBE1", 0, 1, 2, 3, true},
    {"RBE2", 1, 3},
    {.sKEYWORD = "RBE3", .TAKE = &CConnectivity::TakeWeighted},
    {"RROD", 0, 1, 1, 2},
    {"RSPLINE", 2, 3, 2},
    {.sKEYWORD = "SPC", .TAKE = &CConnectivity::TakeSupport},
    {.sKEYWORD = "SPC1", .TAKE = &CConnectivity::TakeSupports},
};

CConnectivity::CConnectivity(const CCheckDeck& rDeck)
    : m_rDeck(rDeck), m_rGrids(rDeck.GetGrids()), m_joints(m_rGrids.GetCount()), m_links(m_rGrids.GetCount()),
      m_aUses(m_rGrids.GetCount()) {
    for (std::size_t i = 0; i < m_aTies.size(); ++i) {
        const auto isOther = [&](const T_TIE_D& r) { return static_cast<std::size_t>(r.sKEYWORD[0] - 'A') != i; };
        const auto pFirst = std::ranges::find_if_not(TIES, isOther);
        m_aTies[i] = {pFirst, std::find_if(pFirst, TIES.end(), isOther)};
    }
    m_low.fill(FARTHEST);
    m_high.fill(-FARTHEST);
    for (const auto& [iCID, frame] : rDeck.GetFrames().GetCards().GetRows()) {
        if (!frame.bGRIDS) continue;
        for (const std::int32_t iGrid : frame.iG) Name(iGrid);
    }
}

void CConnectivity::Name(std::int32_t iGrid) {
    const std::uint32_t iRow = FindRow(iGrid);
    if (iRow != CKeyIndex::NONE) m_aUses[iRow] |= USE_NAMED;
}

void CConnectivity::UseFirst(std::uint32_t iRow) {
    m_aUses[iRow] |= USE_PART;
    if (!m_rGrids.GetKind(iRow).bPLACED) return;
    const T_VECTOR& rX = m_rGrids.GetPosition(iRow);
    for (const double d : rX) {
        if (!(std::abs(d) <= FARTHEST)) return;
    }
    m_aUses[iRow] |= USE_PLACED;
    for (std::size_t k = 0; k < 3; ++k) {
        m_low[k] = std::min(m_low[k], rX[k]);
        m_high[k] = std::max(m_high[k], rX[k]);
    }
}

void CConnectivity::Join(CJoints& rJoints, std::span<const std::uint32_t> aRows) {
    std::uint32_t iJoined = CKeyIndex::NONE;
    for (const std::uint32_t iRow : aRows) {
        if (iRow == CKeyIndex::NONE) continue;
        iJoined = iJoined == CKeyIndex::NONE ? rJoints.Find(iRow) : rJoints.Join(iJoined, iRow);
    }
}

void CConnectivity::AddElement(const T_DECKELEMENT_D& rElement, E_BODY eBody, std::span<const std::uint32_t> aRows) {
    for (const std::uint32_t iRow : aRows) {
        if (iRow != CKeyIndex::NONE) Use(iRow);
    }
    Join(m_joints, aRows);
    if (eBody == BODY_LINK) Join(m_links, aRows);
    if (eBody != BODY_LINE) return;
    const T_ORIENTATION_D* pOrientation = m_rDeck.FindOrientation(rElement);
    if (pOrientation && pOrientation->iG0) Name(*pOrientation->iG0);
}

const CConnectivity::T_TIE_D* CConnectivity::FindTie(std::string_view sKeyword) const {
    if (sKeyword.empty() || sKeyword[0] < 'A' || sKeyword[0] > 'Z') return nullptr;
    const std::span<const T_TIE_D> aTies = m_aTies[static_cast<std::size_t>(sKeyword[0] - 'A')];
    const auto pTie = std::ranges::find(aTies, sKeyword, &T_TIE_D::sKEYWORD);
    return pTie == aTies.end() ? nullptr : &*pTie;
}

void CConnectivity::TakeCard(const CCardFields& rCard) {
    const T_TIE_D* pTie = FindTie(rCard.GetKeyword());
    if (!pTie) return;
    if (pTie->TAKE) {
        (this->*pTie->TAKE)(rCard);
    } else {
        TakeTie(rCard, *pTie);
    }
}

void CConnectivity::AddRow(std::int32_t iGrid) {
    const std::uint32_t iRow = FindRow(iGrid);
    if (iRow != CKeyIndex::NONE) m_aRows.push_back(iRow);
}

void CConnectivity::TakeTie(const CCardFields& rCard, const T_TIE_D& rTie) {
    m_aRows.clear();
    const auto addGrid = [&](std::size_t i) {
        if (rCard.HasInt(i)) AddRow(rCard.Int(i));
    };
    if (rTie.iHEAD != 0) addGrid(rTie.iHEAD);
    for (std::size_t iLine = 0; iLine < rCard.GetCount(); iLine += rTie.bLINES ? LINE : rCard.GetCount()) {
        std::size_t i = iLine + rTie.iFIRST;
        for (std::size_t n = 0; n < rTie.nMOST && i < rCard.GetCount(); ++n, i += rTie.nSTEP) addGrid(i);
    }
    for (const std::uint32_t iRow : m_aRows) {
        if (rTie.bPART) {
            Use(iRow);
        } else {
            m_aUses[iRow] |= USE_NAMED;
        }
    }
    if (!rTie.bJOINS) return;
    Join(m_joints, m_aRows);
    Join(m_links, m_aRows);
}

/// The grid that follows, then groups of a weight, components and grids; those behind "UM" are grids of these.
void CConnectivity::TakeWeighted(const CCardFields& rCard) {
    m_aRows.clear();
    AddRow(rCard.Int(2));
    for (std::size_t i = 4; i < rCard.GetCount() && !rCard.Is(i, "UM") && !rCard.Is(i, "ALPHA"); ++i) {
        if (rCard.HasReal(i)) {
            ++i;
        } else if (rCard.HasInt(i)) {
            AddRow(rCard.Int(i));
        }
    }
    for (const std::uint32_t iRow : m_aRows) Use(iRow);
    Join(m_joints, m_aRows);
    Join(m_links, m_aRows);
}

void CConnectivity::TakeSupport(const CCardFields& rCard) {
    for (const std::size_t i : {std::size_t{1}, std::size_t{4}}) {
        if (rCard.Components(i + 1) == ALL_SIX) m_aHeld.push_back({rCard.Int(i), rCard.Int(i)});
    }
}

void CConnectivity::TakeSupports(const CCardFields& rCard) {
    if (rCard.Components(1) != ALL_SIX) return;
    for (const T_IDRANGE_D& rRange : ReadIdList(rCard, 2, rCard.GetCount())) {
        m_aHeld.push_back({rRange.iFIRST, rRange.iLAST});
    }
}

void CConnectivity::TellFreeGrids(CGeometryTold& rTold) {
    std::vector<std::pair<std::int32_t, std::uint32_t>> aFree; // ids and rows
    for (std::uint32_t i = 0; i < m_aUses.size(); ++i) {
        if (m_aUses[i] != 0) continue;
        const std::int32_t iGrid = m_rGrids.GetIds()[i];
        if (FindRow(iGrid) == i && m_rGrids.GetKind(i).nPS != ALL_SIX) aFree.emplace_back(iGrid, i);
    }
    if (aFree.empty()) return;
    std::ranges::sort(aFree);
    std::vector<std::int32_t> aHolds(aFree.size() + 1); // how many more or less hold it than the one before
    using T_FREE = std::pair<std::int32_t, std::uint32_t>;
    for (const T_HELD_D& rHeld : m_aHeld) {
        ++aHolds[static_cast<std::size_t>(std::ranges::lower_bound(aFree, rHeld.iFIRST, {}, &T_FREE::first) -
                                          aFree.begin())];
        --aHolds[static_cast<std::size_t>(std::ranges::upper_bound(aFree, rHeld.iLAST, {}, &T_FREE::first) -
                                          aFree.begin())];
    }
    std::int32_t nHolds = 0;
    for (std::size_t i = 0; i < aFree.size(); ++i) {
        nHolds += aHolds[i];
        if (nHolds == 0) {
            rTold.TellGrid(GEOMETRY_FREE_GRID, aFree[i].second, [] { return "no element or link uses it"; });
        }
    }
}

void CConnectivity::TellParts(CGeometryTold& rTold) {
    constexpr std::size_t MOST_PARTS = 4, MOST_GRIDS = 3;
    struct T_PART_D {
        std::uint32_t iROW; // lowest
        std::uint32_t nGRIDS;
        std::vector<std::int32_t> aLOWEST = {}; // ids
    };
    std::vector<std::uint32_t> aSizes(m_aUses.size());
    std::vector<std::uint32_t> aRoots;
    for (std::uint32_t i = 0; i < m_aUses.size(); ++i) {
        if (IsUsed(i) && ++aSizes[m_joints.Find(i)] == 1) aRoots.push_back(m_joints.Find(i));
    }
    if (aRoots.size() < 2) return;
    const std::size_t nShown = std::min(aRoots.size(), MOST_PARTS);
    std::ranges::partial_sort(aRoots, aRoots.begin() + static_cast<std::ptrdiff_t>(nShown), {},
                              [&](std::uint32_t i) { return std::pair(aSizes[i], i); });
    std::vector<T_PART_D> aShown;
    for (std::size_t i = 0; i < nShown; ++i) aShown.push_back({aRoots[i], aSizes[aRoots[i]]});
    for (std::uint32_t i = 0; i < m_aUses.size(); ++i) {
        if (!IsUsed(i)) continue;
        const auto pPart = std::ranges::find(aShown, m_joints.Find(i), &T_PART_D::iROW);
        if (pPart == aShown.end()) continue;
        std::vector<std::int32_t>& rLowest = pPart->aLOWEST;
        const std::int32_t iGrid = m_rGrids.GetIds()[i];
        rLowest.insert(std::ranges::upper_bound(rLowest, iGrid), iGrid);
        if (rLowest.size() > MOST_GRIDS) rLowest.pop_back();
    }
    std::string sText = std::to_string(aRoots.size()) + " parts that nothing joins; the smallest: ";
    for (const T_PART_D& rPart : aShown) {
        if (&rPart != aShown.data()) sText += "; ";
        sText += std::to_string(rPart.nGRIDS) + (rPart.nGRIDS == 1 ? " grid (" : " grids (");
        for (std::size_t i = 0; i < rPart.aLOWEST.size(); ++i) {
            sText += (i == 0 ? "" : ", ") + std::to_string(rPart.aLOWEST[i]);
        }
        sText += rPart.nGRIDS > rPart.aLOWEST.size() ? ", ...)" : ")";
    }
    rTold.TellDeck(GEOMETRY_PARTS, sText);
}
