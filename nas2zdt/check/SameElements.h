#pragma once
// Elements that have all their corners in common.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/GeometryTold.h"

#include <cstdint>
#include <span>
#include <vector>

/// Links aren't told: several between the same grids are usual.
class CSameElements {
  public:
    explicit CSameElements(const CCheckDeck& rDeck) : m_rDeck(rDeck) {}

    void Reserve(std::size_t nElements) { m_aEntries.reserve(nElements); }
    void Add(const T_DECKELEMENT_D& rElement, E_BODY eBody, std::span<const std::int32_t> aCorners);
    void Tell(CGeometryTold& rTold);

  private:
    void TellRun(std::size_t iFirst, std::size_t iEnd, CGeometryTold& rTold);

    const CCheckDeck& m_rDeck;
    std::vector<std::uint64_t> m_aEntries; // places of elements, by a key out of body and corners
};
