#pragma once
// A quick answer to whether a record exists.

#include "store/Map.h"

#include <cstdint>

/// The longest stretch of neighbouring ids in a table. In most decks it holds nearly all of them, so that two
/// comparisons tell that an id exists; of the others only the table knows.
class CIdStretch {
  public:
    bool Has(std::int32_t iID) const { return m_iFirst <= iID && iID <= m_iLast; }

    /// Looks for the stretch in rTable, among ids that were added one after the other.
    template <class RECORD>
    void Measure(const CMap<RECORD>& rTable) {
        CIdStretch current;
        std::int64_t nMost = 0;
        rTable.ForEach([&](std::int32_t iID, const RECORD&) {
            const bool bNext = std::int64_t(current.m_iLast) + 1 == iID && current.m_iFirst <= current.m_iLast;
            if (!bNext) current.m_iFirst = iID;
            current.m_iLast = iID;
            const std::int64_t nIds = std::int64_t(iID) - current.m_iFirst + 1;
            if (nIds <= nMost) return;
            nMost = nIds;
            *this = current;
        });
    }

  private:
    std::int32_t m_iFirst = 0; // none at all
    std::int32_t m_iLast = -1;
};
