#pragma once
// A set of ids that is asked often.

#include "nas2zdt/check/CardFormats.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// A bit for each id up to the largest: those of a large deck stay in the cache, and at most 12 MB are needed. Ids that
/// NASTRAN doesn't allow are left out.
class CIdSet {
  public:
    void Add(std::int32_t iID) {
        if (iID < 0 || iID > LARGEST_ID) return;
        const auto iWord = static_cast<std::size_t>(iID) / 64;
        if (iWord >= m_aWords.size()) m_aWords.resize(iWord + 1);
        m_aWords[iWord] |= std::uint64_t{1} << (iID % 64);
    }

    bool Has(std::int32_t iID) const {
        const auto iWord = static_cast<std::size_t>(iID) / 64; // a negative id lies behind all words
        return iWord < m_aWords.size() && (m_aWords[iWord] >> (iID % 64) & 1) != 0;
    }

  private:
    std::vector<std::uint64_t> m_aWords;
};
