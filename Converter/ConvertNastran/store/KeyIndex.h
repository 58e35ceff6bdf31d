#pragma once
// From the id of a record to its place among the records of a table.

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

/// Ids are kept in pages of sixteen neighbours, and the pages are found through open addressing: the dense ids of an
/// ordinary deck cost four bytes each and a walk along them stays in the cache. Pages that find no place in the
/// directory within a few steps are kept in a tree, so no choice of ids makes a search long. The order of
/// walks doesn't depend on it.
class CKeyIndex {
  public:
    static constexpr std::uint32_t NONE = 0xFFFFFFFF;

    /// Place of iKey, or NONE.
    std::uint32_t Find(std::int32_t iKey) const {
        const auto nKey = static_cast<std::uint32_t>(iKey);
        const std::uint32_t iPage = FindPage(nKey / PAGE);
        return iPage == NONE ? NONE : Page(iPage)[nKey % PAGE];
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

    // With half of the entries free and good scattering a search is a few steps; one this long means that pages crowd.
    static constexpr std::size_t LONGEST_SEARCH = 64;

    static std::size_t Home(const DIRECTORY& aEntries, std::uint32_t nGroup) {
        return ((nGroup * 0x9E3779B97F4A7C15ull) >> 32) & (aEntries.size() - 1);
    }

    using T_PAGE_D = std::array<std::uint32_t, PAGE>; // places of neighbours, NONE without a record
    static constexpr std::uint32_t BLOCK = 1024;
    using T_BLOCK_D = std::array<T_PAGE_D, BLOCK>;

    T_PAGE_D& Page(std::uint32_t iPage) const { return (*m_aBlocks[iPage / BLOCK])[iPage % BLOCK]; }

    std::uint32_t FindPage(std::uint32_t nGroup) const {
        if (m_aEntries.empty()) return NONE;
        std::size_t i = Home(m_aEntries, nGroup);
        for (std::size_t nSteps = 0; nSteps < LONGEST_SEARCH; ++nSteps, i = (i + 1) & (m_aEntries.size() - 1)) {
            const T_ENTRY_D& rEntry = m_aEntries[i];
            if (rEntry.iPage == NONE || rEntry.nGroup == nGroup) return rEntry.iPage;
        }
        return FindCrowded(nGroup);
    }

    std::uint32_t FindCrowded(std::uint32_t nGroup) const;
    static bool TryPut(DIRECTORY& rEntries, T_ENTRY_D entry);
    void Grow();

    DIRECTORY m_aEntries;                                // its size is a power of two
    std::map<std::uint32_t, std::uint32_t> m_mapCrowded; // from a group to its page, those without a place above
    std::vector<std::unique_ptr<T_BLOCK_D>> m_aBlocks;   // the pages; they never move
    std::uint32_t m_nPages = 0;
    std::uint32_t m_nLastGroup = 0; // of the last key that was added: the next one often is its neighbour
    std::uint32_t m_iLastPage = 0;
};
