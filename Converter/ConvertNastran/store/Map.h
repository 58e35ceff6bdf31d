#pragma once
// The keyed table: records by a signed 32-bit id. The order of a walk is part of the output and is that of a chained
// hash table with a fixed number of buckets, each chain grown at its head.

#include "store/KeyIndex.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
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

/// Places of a table's records sorted by bucket, in a bucket the last added first. aKeys holds the key of each place.
std::vector<std::uint32_t> SortByBucket(const std::vector<std::int32_t>& aKeys, std::vector<std::uint32_t> aPlaces,
                                        std::uint32_t nBuckets);

/// Records that tell in a number what walks choose them by. The number is taken when a record is stored and must not
/// change while it lies in the table.
template <class RECORD>
concept HasTraits = requires(const RECORD& rRecord) {
    std::uint16_t{rRecord.Traits()};
};

/// Records lie side by side in blocks in the order of insertion and keep their addresses; nothing is ever removed.
/// Walks give pairs of key and record. They hold the places that the table had when they were made, so a walk may
/// change records and may add to the table without meeting what it adds.
template <class RECORD>
class CMap {
  public:
    /// nBuckets decides the order of walks.
    explicit CMap(std::uint32_t nBuckets) : m_nBuckets(nBuckets) {}
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;
    ~CMap() {
        if constexpr (!std::is_trivially_destructible_v<RECORD>) {
            for (std::size_t i = 0; i < m_aKeys.size(); ++i) std::destroy_at(&At(i));
        }
        for (RECORD* pBlock : m_aBlocks) ::operator delete(pBlock, std::align_val_t(alignof(RECORD)));
    }

    std::size_t GetCount() const { return m_aKeys.size(); }
    bool IsEmpty() const { return m_aKeys.empty(); }

    /// Stores a record under a key. A record that is there already is replaced and keeps its place. Always 1.
    template <class VALUE>
    int SetAt(std::int32_t iKey, VALUE&& record) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        if (iPlace != CKeyIndex::NONE) {
            At(iPlace) = std::forward<VALUE>(record);
            if constexpr (HasTraits<RECORD>) m_aTraits[iPlace] = At(iPlace).Traits();
        } else {
            Append(iKey, std::forward<VALUE>(record));
        }
        return 1;
    }

    /// The record of a key, null if there is none.
    RECORD* Find(std::int32_t iKey) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return iPlace == CKeyIndex::NONE ? nullptr : &At(iPlace);
    }
    const RECORD* Find(std::int32_t iKey) const { return const_cast<CMap*>(this)->Find(iKey); }

    /// Asks for the record of a key, which is wanted soon, to be fetched from memory meanwhile.
    void Prefetch(std::int32_t iKey) const {
        if (const RECORD* pRecord = Find(iKey)) __builtin_prefetch(pRecord);
    }

    /// Copies the record of a key. Returns 1, or 0 if there is none.
    int Lookup(std::int32_t iKey, RECORD& rRecord) const {
        const RECORD* pRecord = Find(iKey);
        if (pRecord) rRecord = *pRecord;
        return pRecord ? 1 : 0;
    }

    /// The record of a key in place; a key that is absent gets a zero record first.
    RECORD& operator[](std::int32_t iKey) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return iPlace == CKeyIndex::NONE ? Append(iKey, RECORD()) : At(iPlace);
    }

    /// Calls visit(id, record) for all records in the order of insertion, which is the cheapest: for work on each
    /// record by itself. visit may change the record but adds none to this table.
    template <class VISIT>
    void ForEach(VISIT visit) {
        for (std::size_t i = 0; i < m_aKeys.size(); ++i) visit(m_aKeys[i], At(i));
    }
    template <class VISIT>
    void ForEach(VISIT visit) const {
        for (std::size_t i = 0; i < m_aKeys.size(); ++i) visit(m_aKeys[i], At(i));
    }

    /// The same for the records that taken accepts by their traits: the others aren't touched.
    template <class PREDICATE, class VISIT>
    void ForEach(PREDICATE taken, VISIT visit) {
        for (std::size_t i = 0; i < m_aTraits.size(); ++i) {
            if (taken(m_aTraits[i])) visit(m_aKeys[i], At(i));
        }
    }

    /// The traits of all records in the order of insertion.
    const std::vector<std::uint16_t>& GetTraits() const { return m_aTraits; }

    /// Some of the records, in an order of their own.
    template <class MAP, class ITEM>
    class CWalk {
      public:
        CWalk(MAP& rMap, std::vector<std::uint32_t> aPlaces) : m_pMap(&rMap), m_aPlaces(std::move(aPlaces)) {}
        std::size_t GetCount() const { return m_aPlaces.size(); }
        class CPosition {
          public:
            CPosition(MAP* pMap, const std::uint32_t* pPlace) : m_pMap(pMap), m_pPlace(pPlace) {}
            std::pair<std::int32_t, ITEM&> operator*() const {
                return {m_pMap->m_aKeys[*m_pPlace], m_pMap->At(*m_pPlace)};
            }
            CPosition& operator++() {
                ++m_pPlace;
                return *this;
            }
            bool operator!=(const CPosition& rOther) const { return m_pPlace != rOther.m_pPlace; }

          private:
            MAP* m_pMap;
            const std::uint32_t* m_pPlace;
        };
        CPosition begin() const { return {m_pMap, m_aPlaces.data()}; }
        CPosition end() const { return {m_pMap, m_aPlaces.data() + m_aPlaces.size()}; }

      private:
        MAP* m_pMap;
        std::vector<std::uint32_t> m_aPlaces;
    };
    using WALK = CWalk<CMap, RECORD>;
    using CONST_WALK = CWalk<const CMap, const RECORD>;

    /// The records that taken accepts, in store order: buckets ascending, in a bucket the last added first. taken looks
    /// at a record or, where a table has them, at its traits, which costs a fraction.
    template <class PREDICATE>
    WALK Walk(PREDICATE taken) {
        return {*this, SortByBucket(m_aKeys, Places(taken), m_nBuckets)};
    }
    template <class PREDICATE>
    CONST_WALK Walk(PREDICATE taken) const {
        return {*this, SortByBucket(m_aKeys, Places(taken), m_nBuckets)};
    }

    /// All records in store order.
    WALK Walk() { return Walk(All); }
    CONST_WALK Walk() const { return Walk(All); }

    /// The records that taken accepts, by ascending id.
    template <class PREDICATE>
    CONST_WALK Sorted(PREDICATE taken) const {
        std::vector<std::uint32_t> aPlaces = Places(taken);
        if (!m_bAscending) {
            std::sort(aPlaces.begin(), aPlaces.end(),
                      [this](std::uint32_t a, std::uint32_t b) { return m_aKeys[a] < m_aKeys[b]; });
        }
        return {*this, std::move(aPlaces)};
    }
    CONST_WALK Sorted() const { return Sorted(All); }

  private:
    template <class, class>
    friend class CWalk;

    // Records in a block: a power of two makes finding one a shift and a mask. Memory that isn't touched isn't taken, so
    // a block may be large.
    static constexpr std::size_t BLOCK = std::bit_floor((std::size_t(1) << 20) / sizeof(RECORD));

    static bool All(const RECORD&) { return true; }

    RECORD& At(std::size_t i) { return m_aBlocks[i / BLOCK][i % BLOCK]; }
    const RECORD& At(std::size_t i) const { return m_aBlocks[i / BLOCK][i % BLOCK]; }

    template <class PREDICATE>
    std::vector<std::uint32_t> Places(PREDICATE taken) const {
        std::vector<std::uint32_t> aPlaces;
        if constexpr (std::is_same_v<PREDICATE, bool (*)(const RECORD&)>) aPlaces.reserve(m_aKeys.size());
        const auto accepted = [&](std::size_t i) {
            if constexpr (HasTraits<RECORD> && std::is_invocable_v<PREDICATE, std::uint16_t>) {
                return taken(m_aTraits[i]);
            } else {
                return taken(At(i));
            }
        };
        for (std::size_t i = 0; i < m_aKeys.size(); ++i) {
            if (accepted(i)) aPlaces.push_back(static_cast<std::uint32_t>(i));
        }
        return aPlaces;
    }

    template <class VALUE>
    RECORD& Append(std::int32_t iKey, VALUE&& record) {
        const std::size_t iPlace = m_aKeys.size();
        if (iPlace >= CKeyIndex::NONE) throw std::length_error("CMap: too many records");
        if (iPlace == m_aBlocks.size() * BLOCK) {
            if (m_aBlocks.size() == m_aBlocks.capacity()) m_aBlocks.reserve(m_aBlocks.size() * 2 + 1);
            void* pBlock = ::operator new(BLOCK * sizeof(RECORD), std::align_val_t(alignof(RECORD)));
            m_aBlocks.push_back(static_cast<RECORD*>(pBlock)); // there is room: see above
        }
        // Each step leaves the table whole if it throws: the index comes first, the count that everything goes by last.
        if (iPlace == m_aKeys.capacity()) {
            const std::size_t nPlaces = iPlace + iPlace / 2 + 16;
            if constexpr (HasTraits<RECORD>) m_aTraits.reserve(nPlaces);
            m_aKeys.reserve(nPlaces);
        }
        RECORD* pRecord = std::construct_at(&At(iPlace), std::forward<VALUE>(record));
        try {
            m_index.Add(iKey, static_cast<std::uint32_t>(iPlace));
        } catch (...) {
            std::destroy_at(pRecord);
            throw;
        }
        m_bAscending = m_bAscending && (iPlace == 0 || m_aKeys.back() < iKey);
        if constexpr (HasTraits<RECORD>) m_aTraits.push_back(pRecord->Traits());
        m_aKeys.push_back(iKey);
        return *pRecord;
    }

    std::uint32_t m_nBuckets;
    bool m_bAscending = true; // whether the keys came in ascending order
    CKeyIndex m_index;
    std::vector<std::int32_t> m_aKeys;    // key of each place
    std::vector<std::uint16_t> m_aTraits; // traits of each place, if records have them
    std::vector<RECORD*> m_aBlocks;
};
