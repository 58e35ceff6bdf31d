#pragma once
// Remembers what searches found.

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

/// For ids, or pairs of ids, of which few come again and again in any order, such as the properties of elements: a
/// search in a map costs more than what is done with the value that it finds.
template <class VALUE, class ID = std::int32_t>
class CRecentFinds {
  public:
    /// What find(iID) gives, which has to be the same at any time, unless it is null.
    template <class FIND>
    VALUE* Get(ID iID, FIND find) {
        T_ENTRY_D& rEntry = m_aEntries[PlaceOf(iID)];
        if (!rEntry.pVALUE || rEntry.iID != iID) rEntry = {iID, find(iID)};
        return rEntry.pVALUE;
    }

  private:
    static constexpr std::size_t SIZE = 256;

    static std::size_t PlaceOf(std::int32_t iID) { return static_cast<std::uint32_t>(iID) % SIZE; }
    static std::size_t PlaceOf(const std::pair<std::int32_t, std::int32_t>& rIDs) {
        return (static_cast<std::uint32_t>(rIDs.first) + static_cast<std::uint32_t>(rIDs.second)) % SIZE;
    }

    struct T_ENTRY_D {
        ID iID = {};
        VALUE* pVALUE = nullptr;
    };
    std::array<T_ENTRY_D, SIZE> m_aEntries;
};
