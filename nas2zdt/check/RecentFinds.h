#pragma once
// Remembers what searches found.

#include <array>
#include <cstddef>
#include <cstdint>

/// For ids of which few come again and again in any order, such as the properties of elements: a search in a map costs
/// more than what is done with the value that it finds.
template <class VALUE>
class CRecentFinds {
  public:
    /// What find(iID) gives, which has to be the same at any time, unless it is null.
    template <class FIND>
    VALUE* Get(std::int32_t iID, FIND find) {
        T_ENTRY_D& rEntry = m_aEntries[static_cast<std::uint32_t>(iID) % SIZE];
        if (!rEntry.pVALUE || rEntry.iID != iID) rEntry = {iID, find(iID)};
        return rEntry.pVALUE;
    }

  private:
    static constexpr std::size_t SIZE = 256;

    struct T_ENTRY_D {
        std::int32_t iID = 0;
        VALUE* pVALUE = nullptr;
    };
    std::array<T_ENTRY_D, SIZE> m_aEntries;
};
