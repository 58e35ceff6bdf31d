#pragma once
// Grids and elements on their way into the tables.

#include "store/ElementStore.h"
#include "store/GridRecords.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Records in the order of their cards, in few words, since another core reads them.
class CTakenRecords {
  public:
    /// Forgets all of them.
    void Clear() { m_aWords.clear(); }

    /// Where the next record will be.
    std::size_t GetEnd() const { return m_aWords.size(); }

    void Add(std::int32_t iID, const T_NODS_D& record);
    void Add(std::int32_t iID, const T_ELEM_D& record);

    /// Takes the record at rPlace out and moves on behind it. Returns its id.
    std::int32_t Take(std::size_t& rPlace, T_NODS_D& rRecord) const;
    std::int32_t Take(std::size_t& rPlace, T_ELEM_D& rRecord) const;

  private:
    std::uint32_t* MakeRoom(std::size_t nWords) {
        m_aWords.resize(m_aWords.size() + nWords);
        return &m_aWords[m_aWords.size() - nWords];
    }

    std::vector<std::uint32_t> m_aWords;
};
