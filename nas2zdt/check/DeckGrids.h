#pragma once
// The grids of a deck.

#include "nas2zdt/check/DenseRows.h"
#include "nas2zdt/restate/DeckFrames.h"
#include "nas2zdt/restate/Rule.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <tuple>
#include <vector>

/// What grids have beside their places. Few grids of a deck differ in it.
struct T_GRIDKIND_D {
    std::int32_t iCP = 0;
    std::int32_t iCD = 0;
    std::uint8_t nPS = 0;     // bit 0 for component 1
    std::uint8_t nBLANKS = 0; // what is left to defaults
    bool bPLACED = true;      // whether CP is known

    auto Key() const { return std::tie(iCP, iCD, nPS, nBLANKS); }
    bool operator==(const T_GRIDKIND_D& r) const { return Key() == r.Key(); }
    bool operator<(const T_GRIDKIND_D& r) const { return Key() < r.Key(); }
};

/// Fields that are left to GRDSET.
enum E_GRIDBLANK : std::uint8_t { BLANK_CP = 1, BLANK_CD = 2, BLANK_PS = 4 };

/// Lines of rows that are added in the order of the deck.
class CRowLines {
  public:
    void Reserve(std::size_t nRows) { m_aLines.reserve(nRows); }
    void Clear() {
        m_aLines.clear();
        m_aFiles.clear();
    }
    void Add(const T_ORIGINLINE_D& rOrigin) {
        if (m_aFiles.empty() || m_aFiles.back().iFILE != rOrigin.iFILE)
            m_aFiles.push_back({m_aLines.size(), rOrigin.iFILE});
        m_aLines.push_back(rOrigin.iLINE);
    }
    std::int32_t GetLine(std::size_t iRow) const { return m_aLines[iRow]; }
    T_ORIGINLINE_D Get(std::size_t iRow) const {
        const auto pBehind = std::ranges::upper_bound(m_aFiles, iRow, {}, &T_FILEROWS_D::iROW);
        return {(pBehind - 1)->iFILE, m_aLines[iRow]};
    }

  private:
    struct T_FILEROWS_D {
        std::size_t iROW; // the first
        std::uint32_t iFILE;
    };
    std::vector<std::int32_t> m_aLines;
    std::vector<T_FILEROWS_D> m_aFiles;
};

/// Of grids with one id the last counts. Tables apart from each other: most who look for a grid want its position.
class CDeckGrids {
  public:
    void Reserve(std::size_t nGrids);
    void Clear();
    void Add(std::int32_t iID, const T_VECTOR& rX, const T_GRIDKIND_D& rKind, const T_ORIGINLINE_D& rOrigin);

    /// Adds the grids from iFirst to iEnd of another table, whose lines count from that of origin.
    void Append(const CDeckGrids& rOther, std::size_t iFirst, std::size_t iEnd, const T_ORIGINLINE_D& rOrigin);

    /// Once all are added: fills in what kinds leave to defaults, and makes rows findable.
    void Finish(const T_GRIDKIND_D& rDefaults);

    /// Works out the frames, and makes coordinates basic where their frame is known.
    void Resolve(CDeckFrames& rFrames);

    std::size_t GetCount() const { return m_aIDs.size(); }
    const std::vector<std::int32_t>& GetIds() const { return m_aIDs; }
    const T_VECTOR& GetPosition(std::size_t iRow) const { return m_aPositions[iRow]; } // as on the card if not placed
    const T_GRIDKIND_D& GetKind(std::size_t iRow) const { return m_aKinds[m_aKindRows[iRow]]; }
    T_ORIGINLINE_D GetOrigin(std::size_t iRow) const { return m_lines.Get(iRow); }

    /// Row of the grid that counts, CKeyIndex::NONE if there is none.
    std::uint32_t FindRow(std::int32_t iID) const { return m_rows.Find(iID); }
    bool Has(std::int32_t iID) const { return FindRow(iID) != CKeyIndex::NONE; }

    /// Null if there is none, or if its frame isn't known.
    const T_VECTOR* FindPosition(std::int32_t iID) const {
        const std::uint32_t iRow = FindRow(iID);
        return iRow != CKeyIndex::NONE && (m_bAllPlaced || GetKind(iRow).bPLACED) ? &m_aPositions[iRow] : nullptr;
    }

    /// Ids from iFirst to iLast that there are, ascending.
    std::vector<std::int32_t> GetRange(std::int32_t iFirst, std::int32_t iLast) const {
        return m_sorted.GetRange(
            m_aIDs, [](std::int32_t iID) { return iID; }, iFirst, iLast);
    }

  private:
    std::uint32_t FindKind(const T_GRIDKIND_D& rKind);

    std::vector<std::int32_t> m_aIDs;
    std::vector<T_VECTOR> m_aPositions;
    std::vector<std::uint32_t> m_aKindRows;
    CRowLines m_lines;
    std::vector<T_GRIDKIND_D> m_aKinds;
    std::map<T_GRIDKIND_D, std::uint32_t> m_mapKinds;
    CDenseRows m_rows;
    bool m_bAllPlaced = true;
    mutable CSortedIds m_sorted;
};
