// Which id the n-th card of a kind has.

#include "deckgen/IdOrder.h"

#include "deckgen/Random.h"

#include <algorithm>
#include <bit>

CIdOrder::CIdOrder(E_ID_ORDER iOrder, std::uint64_t nCount, std::uint64_t nSeed)
    : m_iOrder(iOrder), m_nCount(std::max<std::uint64_t>(nCount, 1)), m_nSeed(nSeed) {
    // up to 97 apart: no two ids are neighbours to anything that keeps ids in pages
    m_nGap = std::clamp<std::uint64_t>(GREATEST / m_nCount, 1, 97);
}

std::int64_t CIdOrder::At(std::uint64_t iPlace) const {
    switch (m_iOrder) {
    case ORDER_SHUFFLED:
        return static_cast<std::int64_t>(1 + Permute(iPlace, m_nCount));
    case ORDER_SPARSE:
        return static_cast<std::int64_t>(1 + iPlace * m_nGap + RandomAt(m_nSeed, iPlace) % m_nGap);
    case ORDER_SCATTERED:
        return static_cast<std::int64_t>(1 + Permute(iPlace, GREATEST));
    default:
        return static_cast<std::int64_t>(1 + iPlace);
    }
}

/// One to one among the numbers below nCount. Odd multiples and shifted exclusive ors are one to one among numbers of
/// so many bits; what falls past nCount goes round again until it doesn't.
std::uint64_t CIdOrder::Permute(std::uint64_t n, std::uint64_t nCount) const {
    const int nBits = std::max(2, static_cast<int>(std::bit_width(nCount - 1)));
    const int nHalf = (nBits + 1) / 2;
    const std::uint64_t nMask = (std::uint64_t{1} << nBits) - 1;
    do {
        n = ((n ^ m_nSeed) * 0x9E3779B97F4A7C15ull) & nMask;
        n = ((n ^ (n >> nHalf)) * 0xBF58476D1CE4E5B9ull) & nMask;
        n = ((n ^ (n >> nHalf)) * 0x94D049BB133111EBull) & nMask;
        n = n ^ (n >> nHalf);
    } while (n >= nCount);
    return n;
}
