#pragma once
// Places of rows by ids that leave few gaps, as those of most decks.

#include "store/KeyIndex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

/// Costs less than a CKeyIndex for a walk over all ids. Of two rows with one id the later counts.
class CDenseRows {
  public:
    /// getId(row) gives the id of one of aRows.
    template <class ROWS, class GET_ID>
    CDenseRows(const ROWS& aRows, GET_ID getId) {
        constexpr std::int64_t MOST_GAPS = 3; // for each row
        std::int64_t iLow = std::numeric_limits<std::int32_t>::max(), iHigh = std::numeric_limits<std::int32_t>::min();
        for (const auto& rRow : aRows) {
            iLow = std::min<std::int64_t>(iLow, getId(rRow));
            iHigh = std::max<std::int64_t>(iHigh, getId(rRow));
        }
        m_bDense = iHigh - iLow <= (MOST_GAPS + 1) * static_cast<std::int64_t>(aRows.size());
        if (!m_bDense || aRows.empty()) return;
        m_iLow = static_cast<std::int32_t>(iLow);
        m_aPlaces.assign(static_cast<std::size_t>(iHigh - iLow) + 1, CKeyIndex::NONE);
        for (std::size_t i = 0; i < aRows.size(); ++i)
            m_aPlaces[Offset(getId(aRows[i]))] = static_cast<std::uint32_t>(i);
    }

    /// Place of the row, CKeyIndex::NONE if there is none. find(id) gives it if there are too many gaps.
    template <class FIND>
    std::uint32_t Find(std::int32_t iID, FIND find) const {
        if (!m_bDense) return find(iID);
        return Offset(iID) < m_aPlaces.size() ? m_aPlaces[Offset(iID)] : CKeyIndex::NONE;
    }

  private:
    std::uint32_t Offset(std::int32_t iID) const {
        return static_cast<std::uint32_t>(iID) - static_cast<std::uint32_t>(m_iLow);
    }

    bool m_bDense;
    std::int32_t m_iLow = 0;
    std::vector<std::uint32_t> m_aPlaces; // by id, from the lowest on
};
