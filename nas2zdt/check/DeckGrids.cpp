// Keeps grids as small as a review needs them.

#include "nas2zdt/check/DeckGrids.h"

void CDeckGrids::Reserve(std::size_t nGrids) {
    m_aIDs.reserve(nGrids);
    m_aPositions.reserve(nGrids);
    m_aKindRows.reserve(nGrids);
    m_lines.Reserve(nGrids);
}

void CDeckGrids::Clear() {
    m_aIDs.clear();
    m_aPositions.clear();
    m_aKindRows.clear();
    m_lines.Clear();
    m_aKinds.clear();
    m_mapKinds.clear();
}

/// Most grids are of the kind of the one before.
std::uint32_t CDeckGrids::FindKind(const T_GRIDKIND_D& rKind) {
    if (!m_aKindRows.empty() && m_aKinds[m_aKindRows.back()] == rKind) return m_aKindRows.back();
    const auto [pKind, bNew] = m_mapKinds.emplace(rKind, static_cast<std::uint32_t>(m_aKinds.size()));
    if (bNew) m_aKinds.push_back(rKind);
    return pKind->second;
}

void CDeckGrids::Add(std::int32_t iID, const T_VECTOR& rX, const T_GRIDKIND_D& rKind, const T_ORIGINLINE_D& rOrigin) {
    m_aKindRows.push_back(FindKind(rKind));
    m_aIDs.push_back(iID);
    m_aPositions.push_back(rX);
    m_lines.Add(rOrigin);
}

void CDeckGrids::Append(const CDeckGrids& rOther, std::size_t iFirst, std::size_t iEnd, const T_ORIGINLINE_D& rOrigin) {
    const auto append = [&](auto& rTable, const auto& rFrom) {
        const auto pFrom = rFrom.begin();
        rTable.insert(rTable.end(), pFrom + static_cast<std::ptrdiff_t>(iFirst),
                      pFrom + static_cast<std::ptrdiff_t>(iEnd));
    };
    append(m_aIDs, rOther.m_aIDs);
    append(m_aPositions, rOther.m_aPositions);
    for (std::size_t i = iFirst; i < iEnd; ++i) {
        const bool bSame = i > iFirst && rOther.m_aKindRows[i] == rOther.m_aKindRows[i - 1];
        m_aKindRows.push_back(bSame ? m_aKindRows.back() : FindKind(rOther.GetKind(i)));
        m_lines.Add({rOrigin.iFILE, rOrigin.iLINE + rOther.m_lines.GetLine(i)});
    }
}

void CDeckGrids::Finish(const T_GRIDKIND_D& rDefaults) {
    for (T_GRIDKIND_D& rKind : m_aKinds) {
        if (rKind.nBLANKS & BLANK_CP) rKind.iCP = rDefaults.iCP;
        if (rKind.nBLANKS & BLANK_CD) rKind.iCD = rDefaults.iCD;
        if (rKind.nBLANKS & BLANK_PS) rKind.nPS = rDefaults.nPS;
    }
    m_mapKinds.clear();
    m_rows.Fill(m_aIDs, [](std::int32_t iID) { return iID; });
}

void CDeckGrids::Resolve(CDeckFrames& rFrames) {
    rFrames.Resolve([this](std::int32_t iGrid) -> std::optional<T_CARDPOSITION_D> {
        const std::uint32_t iRow = FindRow(iGrid);
        if (iRow == CKeyIndex::NONE) return std::nullopt;
        return T_CARDPOSITION_D{GetKind(iRow).iCP, GetPosition(iRow)};
    });
    bool bAllBasic = true;
    for (T_GRIDKIND_D& rKind : m_aKinds) {
        rKind.bPLACED = rFrames.Find(rKind.iCP) != nullptr;
        m_bAllPlaced = m_bAllPlaced && rKind.bPLACED;
        bAllBasic = bAllBasic && rKind.iCP == 0;
    }
    for (std::size_t i = 0; i < GetCount() && !bAllBasic; ++i) {
        if (GetKind(i).iCP != 0) rFrames.Place(GetKind(i).iCP, m_aPositions[i]);
    }
}
