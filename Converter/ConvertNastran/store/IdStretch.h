#pragma once
// A quick answer to whether a record exists.

#include "store/Map.h"

#include <cstdint>
#include <span>

/// The longest stretch of neighbouring ids in a table. In most decks it holds nearly all of them, so that one
/// comparison tells that an id exists; of the others only the table knows.
class CIdStretch {
  public:
    bool Has(std::int32_t iID) const { return From(m_iFirst, iID) < m_nIds; }
    template <std::size_t COUNT>
    bool HasAll(std::span<const std::int32_t, COUNT> aIds) const {
        bool bAll = true;
        for (const std::int32_t iID : aIds) bAll &= Has(iID);
        return bAll;
    }

    /// Looks for the stretch in rTable, among ids that were added one after the other.
    template <class RECORD>
    void Measure(const CMap<RECORD>& rTable) {
        std::int64_t iFirst = 0, iNext = 0; // of the stretch in hand, which is none at first
        const auto keepLongest = [&] {
            if (iNext - iFirst <= m_nIds) return;
            m_iFirst = static_cast<std::int32_t>(iFirst);
            m_nIds = static_cast<std::uint32_t>(iNext - iFirst);
        };
        rTable.ForEachKeyBlock([&](std::span<const std::int32_t> aIds) {
            const auto nIds = static_cast<std::uint32_t>(aIds.size());
            std::uint32_t nOff = 0; // none of the usual block, which needs no look at its single ids
            for (std::uint32_t i = 0; i < nIds; ++i) nOff |= From(static_cast<std::int32_t>(iNext), aIds[i]) - i;
            if (nOff == 0) {
                iNext += nIds;
                return;
            }
            for (const std::int32_t iID : aIds) {
                if (iID != iNext) {
                    keepLongest();
                    iFirst = iID;
                }
                iNext = std::int64_t(iID) + 1;
            }
        });
        keepLongest();
    }

  private:
    /// Steps from one id up to another, which are many if that is smaller.
    static std::uint32_t From(std::int32_t iFirst, std::int32_t iID) {
        return static_cast<std::uint32_t>(iID) - static_cast<std::uint32_t>(iFirst);
    }

    std::int32_t m_iFirst = 0;
    std::uint32_t m_nIds = 0;
};
