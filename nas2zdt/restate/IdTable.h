#pragma once
// Rows by their ids.

#include "store/KeyIndex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// Keeps rows in the order of the deck; of two with one id the later one counts.
template <class ROW>
class CIdTable {
  public:
    void Put(std::int32_t iID, ROW row) {
        m_index.Add(iID, static_cast<std::uint32_t>(m_aRows.size()));
        m_aRows.emplace_back(iID, std::move(row));
        m_iLargest = std::max(m_iLargest, iID);
        m_aSorted.clear();
    }

    const ROW* Find(std::int32_t iID) const {
        const std::uint32_t iRow = m_index.Find(iID);
        return iRow == CKeyIndex::NONE ? nullptr : &m_aRows[iRow].second;
    }
    ROW* Find(std::int32_t iID) { return const_cast<ROW*>(std::as_const(*this).Find(iID)); }
    bool Has(std::int32_t iID) const { return Find(iID) != nullptr; }

    /// Zero or the largest id, if that is greater.
    std::int32_t GetLargestId() const { return m_iLargest; }

    bool IsEmpty() const { return m_aRows.empty(); }
    std::vector<std::pair<std::int32_t, ROW>>& GetRows() { return m_aRows; }
    const std::vector<std::pair<std::int32_t, ROW>>& GetRows() const { return m_aRows; }

    /// The ids from iFirst to iLast that there are, ascending.
    std::vector<std::int32_t> GetRange(std::int32_t iFirst, std::int32_t iLast) const {
        if (m_aSorted.empty()) {
            for (const auto& [iID, row] : m_aRows) m_aSorted.push_back(iID);
            std::sort(m_aSorted.begin(), m_aSorted.end());
            m_aSorted.erase(std::unique(m_aSorted.begin(), m_aSorted.end()), m_aSorted.end());
        }
        const auto pFirst = std::lower_bound(m_aSorted.begin(), m_aSorted.end(), iFirst);
        return {pFirst, std::max(pFirst, std::upper_bound(pFirst, m_aSorted.end(), iLast))};
    }

  private:
    std::vector<std::pair<std::int32_t, ROW>> m_aRows;
    CKeyIndex m_index;
    std::int32_t m_iLargest = 0;
    mutable std::vector<std::int32_t> m_aSorted; // made when it is first asked for
};
