#pragma once
// From the id of a record to its place among the records of a table.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Ids are kept in pages of sixteen neighbours, and the pages are found through open addressing: the dense ids of an
/// ordinary deck cost four bytes each and a walk along them stays in the cache. When pages crowd in the directory they
/// are scattered anew, so no choice of ids makes a search long. The order of a walk doesn't come from here.
class CKeyIndex {
  public:
    static constexpr std::uint32_t NONE = 0xFFFFFFFF;

    /// Place of iKey, or NONE.
    std::uint32_t Find(std::int32_t iKey) const {
        const auto nKey = static_cast<std::uint32_t>(iKey);
        const std::uint32_t iPage = FindPage(nKey / PAGE);
        return iPage == NONE ? NONE : m_aPages[iPage][nKey % PAGE];
    }

    /// Sets the place of iKey. If it throws, nothing has changed for any key.
    void Add(std::int32_t iKey, std::uint32_t iPlace);

  private:
    static constexpr std::uint32_t PAGE = 16;

    struct T_ENTRY_D {
        std::uint32_t nGroup; // key / PAGE
        std::uint32_t iPage;  // NONE in an empty entry
    };
    using DIRECTORY = std::vector<T_ENTRY_D>;

    static std::size_t Home(const DIRECTORY& aEntries, std::uint32_t nGroup, std::uint64_t nSeed) {
        return (((nGroup ^ nSeed) * 0x9E3779B97F4A7C15ull) >> 32) & (aEntries.size() - 1);
    }

    std::uint32_t FindPage(std::uint32_t nGroup) const {
        if (m_aEntries.empty()) return NONE;
        for (std::size_t i = Home(m_aEntries, nGroup, m_nSeed);; i = (i + 1) & (m_aEntries.size() - 1)) {
            const T_ENTRY_D& rEntry = m_aEntries[i];
            if (rEntry.iPage == NONE || rEntry.nGroup == nGroup) return rEntry.iPage;
        }
    }

    static bool TryPut(DIRECTORY& rEntries, T_ENTRY_D entry, std::uint64_t nSeed);
    void Rebuild(std::size_t nSize, T_ENTRY_D added);

    DIRECTORY m_aEntries; // its size is a power of two
    std::uint64_t m_nSeed = 0;
    std::vector<std::array<std::uint32_t, PAGE>> m_aPages;
};
