#pragma once
// How a keyed table keeps its records.

#include "platform/Memory.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/// Records with a number that walks choose them by.
template <class RECORD>
concept HasTraits = requires(const RECORD& rRecord) {
    std::uint16_t{rRecord.Traits()};
};

/// Records by their places, counted from 0 in the order of insertion: side by side in blocks, with addresses that they
/// keep. Records of which there are millions are kept in less room by classes of their own with the same functions:
/// those give copies.
template <class RECORD>
class CRecords {
  public:
    using FOUND = const RECORD*;                                            // what a search gives
    static constexpr bool ENDS = !std::is_trivially_destructible_v<RECORD>; // whether records must be unmade

    const RECORD& Get(std::size_t i) const { return *Room(i); }
    RECORD& At(std::size_t i) { return *Room(i); }
    FOUND Found(std::size_t i) const { return Room(i); }

    /// Makes a record in the place behind the last. If it throws, nothing has changed.
    template <class VALUE>
    void Make(std::size_t i, VALUE&& record) {
        if (i == m_aBlocks.size() * BLOCK) {
            m_aBlocks.push_back(std::make_unique_for_overwrite<T_BLOCK_D>());
            if (i > 0) TakePages(m_aBlocks.back().get(), sizeof(T_BLOCK_D)); // a table this long will fill it
        }
        std::construct_at(Room(i), std::forward<VALUE>(record));
    }
    void Unmake(std::size_t i) noexcept { std::destroy_at(Room(i)); }

    template <class VALUE>
    void Replace(std::size_t i, VALUE&& record) {
        At(i) = std::forward<VALUE>(record);
    }

    /// Calls change(record).
    template <class CHANGE>
    void Change(std::size_t i, CHANGE change) {
        change(At(i));
    }

    std::uint16_t Traits(std::size_t i) const requires HasTraits<RECORD> { return Get(i).Traits(); }

    /// Number of the first nRecords whose traits taken accepts.
    template <class PREDICATE>
    std::size_t Count(std::size_t nRecords, PREDICATE taken) const requires HasTraits<RECORD> {
        std::size_t nTaken = 0;
        for (std::size_t i = 0; i < nRecords; ++i) nTaken += taken(Traits(i));
        return nTaken;
    }

    /// Asks for a record's memory, which takes long to answer, before it is needed.
    void Fetch(std::size_t i) const { __builtin_prefetch(Room(i)); }

  private:
    // Memory that isn't touched isn't taken, so a block may be large.
    static constexpr std::size_t BLOCK = std::bit_floor((std::size_t(1) << 20) / sizeof(RECORD));

    struct T_BLOCK_D {
        alignas(RECORD) std::array<std::byte, BLOCK * sizeof(RECORD)> aRECORDS; // made and destroyed one by one
    };

    RECORD* Room(std::size_t i) const {
        return reinterpret_cast<RECORD*>(m_aBlocks[i / BLOCK]->aRECORDS.data()) + i % BLOCK;
    }

    std::vector<std::unique_ptr<T_BLOCK_D>> m_aBlocks;
};
