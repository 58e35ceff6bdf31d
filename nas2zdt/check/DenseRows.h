#pragma once
// Places of rows by ids that leave few gaps, as those of most decks.

#include "store/KeyIndex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

/// Costs less than a CKeyIndex, which it falls back to if there are too many gaps. Rows whose ids follow each other
/// need nothing. Of two rows with one id the later counts.
class CDenseRows {
  public:
    /// getId(row) gives the id of one of aRows.
    template <class ROWS, class GET_ID>
    void Fill(const ROWS& aRows, GET_ID getId) {
        constexpr std::int64_t MOST_GAPS = 3; // for each row
        std::int64_t iLow = std::numeric_limits<std::int32_t>::max(), iHigh = std::numeric_limits<std::int32_t>::min();
        bool bFollowing = true;
        std::int64_t iNext = aRows.empty() ? 0 : getId(aRows[0]);
        for (const auto& rRow : aRows) {
            const std::int64_t iID = getId(rRow);
            iLow = std::min(iLow, iID);
            iHigh = std::max(iHigh, iID);
            bFollowing = bFollowing && iID == iNext++;
        }
        m_bDense = iHigh - iLow <= (MOST_GAPS + 1) * static_cast<std::int64_t>(aRows.size());
        if (aRows.empty()) return;
        if (!m_bDense) {
            for (std::size_t i = 0; i < aRows.size(); ++i) m_index.Add(getId(aRows[i]), static_cast<std::uint32_t>(i));
            return;
        }
        m_iLow = static_cast<std::int32_t>(iLow);
        m_nIDs = static_cast<std::size_t>(iHigh - iLow) + 1;
        if (bFollowing) return;
        m_aPlaces.assign(m_nIDs, CKeyIndex::NONE);
        for (std::size_t i = 0; i < aRows.size(); ++i) {
            m_aPlaces[Offset(getId(aRows[i]))] = static_cast<std::uint32_t>(i);
        }
    }

    /// Place of the row, CKeyIndex::NONE if there is none.
    std::uint32_t Find(std::int32_t iID) const {
        if (!m_bDense) return m_index.Find(iID);
        const std::uint32_t iOffset = Offset(iID);
        if (iOffset >= m_nIDs) return CKeyIndex::NONE;
        return m_aPlaces.empty() ? iOffset : m_aPlaces[iOffset];
    }

  private:
    std::uint32_t Offset(std::int32_t iID) const {
        return static_cast<std::uint32_t>(iID) - static_cast<std::uint32_t>(m_iLow);
    }

    bool m_bDense = true;
    std::int32_t m_iLow = 0;
    std::size_t m_nIDs = 0;               // from the lowest to the highest
    std::vector<std::uint32_t> m_aPlaces; // by id, from the lowest on; empty if that is the order of the rows
    CKeyIndex m_index;                    // if they aren't dense
};
