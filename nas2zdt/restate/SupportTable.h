#pragma once
// The components that are held at each grid.

#include "nas2zdt/restate/IdList.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

/// Gathers supports of ids and ranges. Grids are counted by their places in ascending order.
class CSupportTable {
  public:
    static constexpr std::size_t NOWHERE = std::numeric_limits<std::size_t>::max();
    static constexpr std::uint32_t NO_CARD = std::numeric_limits<std::uint32_t>::max();

    /// The ids of all grids, ascending.
    void SetGrids(std::vector<std::int32_t> aGrids);

    /// Holds components (bit 0 for component 1) of the grids that a range has.
    void Hold(const T_IDRANGE_D& rRange, std::uint8_t nComponents, std::uint32_t iCard);

    /// Number of grids between the ends of a range.
    std::size_t CountGrids(const T_IDRANGE_D& rRange) const { return FindEnd(rRange) - FindBegin(rRange); }

    /// Place of a grid, or NOWHERE.
    std::size_t Find(std::int32_t iGrid) const;

    std::size_t GetCount() const { return m_aGrids.size(); }
    std::int32_t GetGrid(std::size_t i) const { return m_aGrids[i]; }
    std::uint8_t GetComponents(std::size_t i) const { return m_aComponents[i]; }

    /// The first card that held any component of a grid, or NO_CARD.
    std::uint32_t GetFirstCard(std::size_t i) const { return m_aFirstCards[i]; }

    bool IsEmpty() const;

  private:
    std::size_t FindBegin(const T_IDRANGE_D& rRange) const;
    std::size_t FindEnd(const T_IDRANGE_D& rRange) const;
    void HoldAt(std::size_t i, std::uint8_t nComponents, std::uint32_t iCard);

    std::vector<std::int32_t> m_aGrids;
    std::vector<std::uint8_t> m_aComponents;
    std::vector<std::uint32_t> m_aFirstCards;
    std::array<std::vector<std::size_t>, 6> m_aNextFree; // by component: the next grid that may not have it yet
};
