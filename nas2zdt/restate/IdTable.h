#pragma once
// Rows by their ids.

#include "store/KeyIndex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

/// Ids in ascending order, put in order when they are first asked for, which several threads may do.
class CSortedIds {
  public:
    void Clear() { m_aIDs.clear(); }

    /// The ids from iFirst to iLast that there are in rRows, ascending.
    template <class ROWS, class ID>
    std::vector<std::int32_t> GetRange(const ROWS& rRows, ID getId, std::int32_t iFirst, std::int32_t iLast) {
        const std::lock_guard lock(m_mutex);
        if (m_aIDs.empty()) {
            m_aIDs.reserve(rRows.size());
            for (const auto& rRow : rRows) m_aIDs.push_back(getId(rRow));
            if (!std::is_sorted(m_aIDs.begin(), m_aIDs.end())) std::sort(m_aIDs.begin(), m_aIDs.end());
            m_aIDs.erase(std::unique(m_aIDs.begin(), m_aIDs.end()), m_aIDs.end());
        }
        const auto pFirst = std::lower_bound(m_aIDs.begin(), m_aIDs.end(), iFirst);
        return {pFirst, std::max(pFirst, std::upper_bound(pFirst, m_aIDs.end(), iLast))};
    }

  private:
    std::mutex m_mutex;
    std::vector<std::int32_t> m_aIDs;
};

/// Keeps rows in the order of the deck; of two with one id the later one counts.
template <class ROW>
class CIdTable {
  public:
    void Reserve(std::size_t nRows) { m_aRows.reserve(nRows); }

    void Put(std::int32_t iID, ROW row) {
        m_index.Add(iID, static_cast<std::uint32_t>(m_aRows.size()));
        m_aRows.emplace_back(iID, std::move(row));
        m_iLargest = std::max(m_iLargest, iID);
        m_sorted.Clear();
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
        return m_sorted.GetRange(
            m_aRows, [](const auto& rRow) { return rRow.first; }, iFirst, iLast);
    }

  private:
    std::vector<std::pair<std::int32_t, ROW>> m_aRows;
    CKeyIndex m_index;
    std::int32_t m_iLargest = 0;
    mutable CSortedIds m_sorted;
};
