#pragma once
// Which keyword stored the record of an id.

#include "store/KeyIndex.h"

#include <cstdint>
#include <vector>

/// Ids of a deck mostly ascend, so those that do are kept as stretches of neighbours with one keyword; the rest, and
/// ids whose keyword changes, go through an index.
class CIdOwners {
  public:
    static constexpr std::int32_t NONE = -1;

    /// Makes iKeyword the owner of iID. Returns the owner before, NONE if there was none.
    std::int32_t Take(std::int32_t iID, std::uint8_t iKeyword) {
        if (!m_aStretches.empty()) {
            T_STRETCH_D& rLast = m_aStretches.back();
            if (iID <= rLast.iLAST) return TakeEarlier(iID, iKeyword);
            if (iID - 1 == rLast.iLAST && iKeyword == rLast.iKEYWORD) {
                rLast.iLAST = iID;
                return NONE;
            }
        }
        m_aStretches.push_back({iID, iID, iKeyword});
        return NONE;
    }

  private:
    std::int32_t TakeEarlier(std::int32_t iID, std::uint8_t iKeyword);

    struct T_STRETCH_D {
        std::int32_t iFIRST;
        std::int32_t iLAST;
        std::uint8_t iKEYWORD;
    };
    std::vector<T_STRETCH_D> m_aStretches; // ascending
    CKeyIndex m_index;                     // stands above them
    std::vector<std::uint8_t> m_aKeywords; // by the index
};
