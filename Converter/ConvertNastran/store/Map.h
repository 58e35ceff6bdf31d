#pragma once
// The keyed table: records by a signed 32-bit id. The order of a walk is part of the output and is that of a chained
// hash table with a fixed number of buckets, each chain grown at its head.

#include "platform/Memory.h"
#include "store/KeyIndex.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

/// Hash of a key: 16807 (k rem 127773) - 2836 (k quot 127773) in 32-bit arithmetic, raised by 2147483647 if negative.
constexpr std::uint32_t HashKey(std::int32_t iKey) {
    const std::int64_t h = 16807 * static_cast<std::int64_t>(iKey % 127773) - std::int64_t(2836) * (iKey / 127773);
    const auto iHash = static_cast<std::int32_t>(static_cast<std::uint32_t>(h)); // wraps as 32-bit arithmetic does
    return iHash < 0 ? static_cast<std::uint32_t>(iHash) + 2147483647u : static_cast<std::uint32_t>(iHash);
}

/// A record's rank in store order: by bucket, in a bucket the last added first, as a chain that grows at its head.
constexpr std::uint64_t StoreOrder(std::uint32_t nBucket, std::uint32_t iPlace) {
    return std::uint64_t(nBucket) << 32 | ~iPlace;
}
constexpr std::uint32_t PlaceOfOrder(std::uint64_t nOrder) {
    return ~static_cast<std::uint32_t>(nOrder);
}

/// The places of records in store order. aOrder has their ranks, by ascending place.
std::vector<std::uint32_t> SortByBucket(std::vector<std::uint64_t> aOrder, std::uint32_t nBuckets);

/// Records with a number that walks choose them by. A table keeps the number and takes it anew whenever a record is
/// stored or may have changed.
template <class RECORD>
concept HasTraits = requires(const RECORD& rRecord) {
    std::uint16_t{rRecord.Traits()};
};

/// Records lie side by side in blocks in the order of insertion and keep their addresses; nothing is ever removed.
/// Walks give pairs of key and record. They hold the places that the table had when they were made, so a walk may add
/// to the table without meeting what it adds. Records that have traits are changed through the Update functions alone.
template <class RECORD>
class CMap {
  public:
    /// nBuckets decides the order of walks.
    explicit CMap(std::uint32_t nBuckets) : m_nBuckets(nBuckets) {}
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;
    ~CMap() {
        if constexpr (!std::is_trivially_destructible_v<RECORD>) {
            for (std::size_t i = 0; i < m_nRecords; ++i) std::destroy_at(&At(i));
        }
    }

    std::size_t GetCount() const { return m_nRecords; }
    bool IsEmpty() const { return m_nRecords == 0; }

    /// Stores a record under a key. A record that is there already is replaced and keeps its place; replace(old, new)
    /// is called before. Always 1.
    template <class VALUE>
    int SetAt(std::int32_t iKey, VALUE&& record) {
        return SetAt(iKey, std::forward<VALUE>(record), [](const RECORD&, const RECORD&) {});
    }
    template <class VALUE, class REPLACE>
    int SetAt(std::int32_t iKey, VALUE&& record, REPLACE replace) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        if (iPlace != CKeyIndex::NONE) {
            replace(At(iPlace), record);
            At(iPlace) = std::forward<VALUE>(record);
            if constexpr (HasTraits<RECORD>) TraitsAt(iPlace) = At(iPlace).Traits();
        } else {
            Append(iKey, std::forward<VALUE>(record));
        }
        return 1;
    }

    /// The record of a key, null if there is none.
    const RECORD* Find(std::int32_t iKey) const {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return iPlace == CKeyIndex::NONE ? nullptr : &At(iPlace);
    }

    /// Copies the record of a key. Returns 1, or 0 if there is none.
    int Lookup(std::int32_t iKey, RECORD& rRecord) const {
        const RECORD* pRecord = Find(iKey);
        if (pRecord) rRecord = *pRecord;
        return pRecord ? 1 : 0;
    }

    /// The record of a key in place; a key that is absent gets a zero record first. Records with traits aren't handed
    /// out like this.
    RECORD& operator[](std::int32_t iKey) requires(!HasTraits<RECORD>) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return iPlace == CKeyIndex::NONE ? Append(iKey, RECORD()) : At(iPlace);
    }

    /// Calls change(record) for the record of a key. Returns 1, or 0 if there is none.
    template <class CHANGE>
    int Update(std::int32_t iKey, CHANGE change) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        if (iPlace == CKeyIndex::NONE) return 0;
        const auto changeIt = [&](std::int32_t, RECORD& rRecord) { change(rRecord); };
        UpdateAt(iPlace, changeIt);
        return 1;
    }

    /// Calls change(id, record) for the records that taken accepts, as Walk does, in the order of insertion, which is
    /// the cheapest: for work on each record by itself. change adds none to this table.
    template <class PREDICATE, class CHANGE>
    void UpdateEach(PREDICATE taken, CHANGE change) {
        for (std::size_t i = 0; i < m_nRecords; ++i) {
            if (IsTaken(taken, i)) UpdateAt(i, change);
        }
    }
    template <class CHANGE>
    void UpdateEach(CHANGE change) {
        UpdateEach(All, change);
    }

    /// The same in store order; change may add to this table.
    template <class PREDICATE, class CHANGE>
    void UpdateInOrder(PREDICATE taken, CHANGE change) {
        for (const std::uint32_t iPlace : InStoreOrder(taken)) UpdateAt(iPlace, change);
    }

    /// Calls visit(id, record) for all records in the order of insertion.
    template <class VISIT>
    void ForEach(VISIT visit) const {
        for (std::size_t i = 0; i < m_nRecords; ++i) visit(KeyAt(i), At(i));
    }

    /// Calls visit with the keys of all records in the order of insertion, a block of them at a time.
    template <class VISIT>
    void ForEachKeyBlock(VISIT visit) const {
        for (std::size_t iBegin = 0; iBegin < m_nRecords; iBegin += BLOCK) {
            visit(std::span(&KeyAt(iBegin), std::min(BLOCK, m_nRecords - iBegin)));
        }
    }

    /// The traits of the record of a key, 0 if there is none.
    std::uint16_t TraitsOf(std::int32_t iKey) const {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return iPlace == CKeyIndex::NONE ? std::uint16_t(0) : TraitsAt(iPlace);
    }

    /// Number of the records that taken accepts, as Walk does.
    template <class PREDICATE>
    std::size_t Count(PREDICATE taken) const {
        std::size_t nTaken = 0;
        if constexpr (TakesTraits<PREDICATE>) { // block by block
            for (std::size_t iBegin = 0; iBegin < m_nRecords; iBegin += BLOCK) {
                const std::uint16_t* const pTraits = &TraitsAt(iBegin);
                nTaken += static_cast<std::size_t>(
                    std::count_if(pTraits, pTraits + std::min(BLOCK, m_nRecords - iBegin), taken));
            }
        } else {
            ForEachTaken(taken, [&](std::uint32_t) { ++nTaken; });
        }
        return nTaken;
    }

    /// Some of the records, in a given order.
    class CWalk {
      public:
        CWalk(const CMap& rMap, std::vector<std::uint32_t> aPlaces) : m_pMap(&rMap), m_aPlaces(std::move(aPlaces)) {}
        std::size_t GetCount() const { return m_aPlaces.size(); }
        class CPosition {
          public:
            CPosition(const CWalk& rWalk, std::size_t i) : m_pWalk(&rWalk), m_i(i) {}
            std::pair<std::int32_t, const RECORD&> operator*() const {
                const std::uint32_t iPlace = m_pWalk->m_aPlaces[m_i];
                return {m_pWalk->m_pMap->KeyAt(iPlace), m_pWalk->m_pMap->At(iPlace)};
            }
            CPosition& operator++() {
                ++m_i;
                m_pWalk->FetchAhead(m_i);
                return *this;
            }
            bool operator!=(const CPosition& rOther) const { return m_i != rOther.m_i; }

          private:
            const CWalk* m_pWalk;
            std::size_t m_i;
        };
        CPosition begin() const { return {*this, 0}; }
        CPosition end() const { return {*this, m_aPlaces.size()}; }

      private:
        /// Store order leads all over the memory, which takes long to answer: a record is asked for some steps before
        /// its turn.
        void FetchAhead(std::size_t i) const {
            constexpr std::size_t AHEAD = 8;
            if (i + AHEAD < m_aPlaces.size()) __builtin_prefetch(m_pMap->Room(m_aPlaces[i + AHEAD]));
        }

        const CMap* m_pMap;
        std::vector<std::uint32_t> m_aPlaces;
    };

    /// The records that taken accepts, in store order: buckets ascending, in a bucket the last added first. taken looks
    /// at a record or, where a table has them, at its traits, which costs a fraction.
    template <class PREDICATE>
    CWalk Walk(PREDICATE taken) const {
        return {*this, InStoreOrder(taken)};
    }

    /// All records in store order.
    CWalk Walk() const { return Walk(All); }

    /// The records that taken accepts, by ascending id.
    template <class PREDICATE>
    CWalk Sorted(PREDICATE taken) const {
        std::vector<std::uint32_t> aPlaces(Count(taken));
        auto pPlace = aPlaces.begin();
        ForEachTaken(taken, [&](std::uint32_t i) { *pPlace++ = i; });
        if (!m_bAscending) {
            std::sort(aPlaces.begin(), aPlaces.end(),
                      [this](std::uint32_t a, std::uint32_t b) { return KeyAt(a) < KeyAt(b); });
        }
        return {*this, std::move(aPlaces)};
    }
    CWalk Sorted() const { return Sorted(All); }

  private:
    // Records in a block: a power of two makes finding one a shift and a mask. Memory that isn't touched isn't taken,
    // so a block may be large.
    static constexpr std::size_t BLOCK = std::bit_floor((std::size_t(1) << 20) / sizeof(RECORD));

    struct T_BLOCK_D {
        std::array<std::int32_t, BLOCK> aKEYS;
        std::array<std::uint16_t, HasTraits<RECORD> ? BLOCK : 0> aTRAITS;
        alignas(RECORD) std::array<std::byte, BLOCK * sizeof(RECORD)> aRECORDS; // made and destroyed one by one
    };

    static bool All(const RECORD&) { return true; }

    template <class PREDICATE>
    static constexpr bool TakesTraits = HasTraits<RECORD>&& std::is_invocable_v<PREDICATE, std::uint16_t>;

    RECORD* Room(std::size_t i) const {
        return reinterpret_cast<RECORD*>(m_aBlocks[i / BLOCK]->aRECORDS.data()) + i % BLOCK;
    }
    RECORD& At(std::size_t i) { return *Room(i); }
    const RECORD& At(std::size_t i) const { return *Room(i); }
    std::int32_t& KeyAt(std::size_t i) const { return m_aBlocks[i / BLOCK]->aKEYS[i % BLOCK]; }
    std::uint16_t& TraitsAt(std::size_t i) const { return m_aBlocks[i / BLOCK]->aTRAITS[i % BLOCK]; }

    /// change(id, record) may change what the traits are made of.
    template <class CHANGE>
    void UpdateAt(std::size_t i, CHANGE& rChange) {
        rChange(std::as_const(KeyAt(i)), At(i));
        if constexpr (HasTraits<RECORD>) TraitsAt(i) = At(i).Traits();
    }

    template <class PREDICATE>
    bool IsTaken(PREDICATE& rTaken, std::size_t i) const {
        if constexpr (TakesTraits<PREDICATE>) {
            return rTaken(TraitsAt(i));
        } else {
            return rTaken(At(i));
        }
    }

    /// Calls visit(place) for the records that taken accepts.
    template <class PREDICATE, class VISIT>
    void ForEachTaken(PREDICATE taken, VISIT visit) const {
        for (std::size_t i = 0; i < m_nRecords; ++i) {
            if (IsTaken(taken, i)) visit(static_cast<std::uint32_t>(i));
        }
    }

    template <class PREDICATE>
    std::vector<std::uint32_t> InStoreOrder(PREDICATE taken) const {
        std::vector<std::uint64_t> aOrder(Count(taken));
        auto pOrder = aOrder.begin();
        ForEachTaken(taken, [&](std::uint32_t i) { *pOrder++ = StoreOrder(HashKey(KeyAt(i)) % m_nBuckets, i); });
        return SortByBucket(std::move(aOrder), m_nBuckets);
    }

    template <class VALUE>
    RECORD& Append(std::int32_t iKey, VALUE&& record) {
        const std::size_t iPlace = m_nRecords;
        if (iPlace >= CKeyIndex::NONE) throw std::length_error("CMap: too many records");
        if (iPlace == m_aBlocks.size() * BLOCK) {
            m_aBlocks.push_back(std::make_unique_for_overwrite<T_BLOCK_D>());
            if (iPlace > 0) TakePages(m_aBlocks.back().get(), sizeof(T_BLOCK_D)); // a table this long will fill it
        }
        // Each step leaves the table whole if it throws: the index comes first, the count that everything goes by last.
        RECORD* pRecord = std::construct_at(Room(iPlace), std::forward<VALUE>(record));
        try {
            m_index.Add(iKey, static_cast<std::uint32_t>(iPlace));
        } catch (...) {
            std::destroy_at(pRecord);
            throw;
        }
        m_bAscending = m_bAscending && (iPlace == 0 || KeyAt(iPlace - 1) < iKey);
        if constexpr (HasTraits<RECORD>) TraitsAt(iPlace) = pRecord->Traits();
        KeyAt(iPlace) = iKey;
        ++m_nRecords;
        return *pRecord;
    }

    std::uint32_t m_nBuckets;
    bool m_bAscending = true; // whether the keys came in ascending order
    std::size_t m_nRecords = 0;
    CKeyIndex m_index;
    std::vector<std::unique_ptr<T_BLOCK_D>> m_aBlocks;
};
