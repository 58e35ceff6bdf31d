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
        std::int64_t iFirst = 0, iNext = 0; // of the stretch in hand, which is none at first
        const auto keepLongest = [&] {
            if (iNext - iFirst <= std::int64_t(m_iLast) + 1 - m_iFirst) return;
            m_iFirst = static_cast<std::int32_t>(iFirst);
            m_iLast = static_cast<std::int32_t>(iNext - 1);
        };
        rTable.ForEach([&](std::int32_t iID, const RECORD&) {
            if (iID != iNext) {
                keepLongest();
                iFirst = iID;
            }
            iNext = std::int64_t(iID) + 1;
        });
        keepLongest();
    }

  private:
    std::int32_t m_iFirst = 0; // none at all
    std::int32_t m_iLast = -1;
};
