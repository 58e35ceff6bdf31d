#pragma once
// Which id the n-th card of a kind has.

#include <cstdint>

/// Orders of the ids in a deck.
enum E_ID_ORDER : int {
    ORDER_ASCENDING, // 1, 2, 3
    ORDER_SHUFFLED,  // the same ids, mixed up
    ORDER_SPARSE,    // ascending with gaps
    ORDER_SCATTERED, // anywhere up to the greatest id
};

/// The ids of one kind of thing. No two places have the same id.
class CIdOrder {
  public:
    static constexpr std::uint64_t GREATEST = 99'999'999; // eight columns of small field

    CIdOrder() = default;

    /// Ids of nCount things, at most GREATEST.
    CIdOrder(E_ID_ORDER iOrder, std::uint64_t nCount, std::uint64_t nSeed);

    /// Id of thing iPlace, from 0.
    std::int64_t At(std::uint64_t iPlace) const;

  private:
    std::uint64_t Permute(std::uint64_t n, std::uint64_t nCount) const;

    E_ID_ORDER m_iOrder = ORDER_ASCENDING;
    std::uint64_t m_nCount = 1;
    std::uint64_t m_nSeed = 0;
    std::uint64_t m_nGap = 1;
};
