#pragma once
// Records on their way into the tables.

#include "store/ElementStore.h"
#include "store/GridStore.h"
#include "store/LoadRecords.h"
#include "store/Map.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// What a taken record belongs to.
enum E_TAKEN : std::uint8_t { TAKEN_GRID, TAKEN_ELEMENT, TAKEN_LOAD, TAKEN_TEMPERATURE, TAKEN_SUPPORT };

/// Records in the order of their cards, in few words, since another core reads them. Each begins with its id, that of
/// its set if it belongs to one.
class CTakenRecords {
  public:
    /// Forgets all of them.
    void Clear() { m_aWords.clear(); }

    /// Where the next record will be.
    std::size_t GetEnd() const { return m_aWords.size(); }

    /// What the last record belongs to.
    E_TAKEN GetLast() const { return m_eLast; }

    void Add(std::int32_t iID, const T_NODS_D& record);
    void Add(std::int32_t iID, const T_ELEM_D& record);
    void Add(std::int32_t iSID, const T_MBLD_D& entry);
    void Add(std::int32_t iSID, const T_NTLD_D& entry);

    /// The grids that a card constrains, which may be none. bLast tells whether its set becomes CDataPool::m_iLastCNST.
    void Add(std::int32_t iSID, std::span<const T_CNND_D> aGrids, bool bLast);

    std::int32_t IdAt(std::size_t iPlace) const { return static_cast<std::int32_t>(m_aWords[iPlace]); }

    /// Puts the record at rPlace into its table and moves on behind it. False if its id is there already.
    bool Put(std::size_t& rPlace, CMap<T_NODS_D>& rTable) const;
    bool Put(std::size_t& rPlace, CMap<T_ELEM_D>& rTable) const;

    /// Adds the entry at rPlace to its set and moves on behind it.
    void Put(std::size_t& rPlace, CLoadEntries& rEntries) const;
    void Put(std::size_t& rPlace, CArray<T_NTLD_D>& rEntries) const;

    /// The same with the grids of a card. Returns its bLast.
    bool Put(std::size_t& rPlace, CArray<T_CNND_D>& rEntries) const;

  private:
    std::uint32_t* MakeRoom(E_TAKEN eTaken, std::int32_t iID, std::size_t nWords);

    std::vector<std::uint32_t> m_aWords;
    E_TAKEN m_eLast = TAKEN_GRID;
};
