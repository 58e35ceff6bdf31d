#pragma once
// The keyed table: records by a signed 32-bit id. The order of a walk is part of the output and is that of a chained
// hash table with a fixed number of buckets, each chain grown at its head.

#include "store/Blocks.h"
#include "store/KeyIndex.h"
#include "store/Records.h"

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

/// Records lie in the order of insertion; nothing is ever removed. Walks give pairs of key and record. They hold the
/// places that the table had when they were made, so a walk may add to the table without meeting what it adds. Records
/// that have traits are changed through the Update functions alone.
template <class RECORD>
class CMap {
  public:
    /// nBuckets decides the order of walks.
    explicit CMap(std::uint32_t nBuckets) : m_nBuckets(nBuckets) {}
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;
    ~CMap() {
        if constexpr (CRecords<RECORD>::ENDS) {
            for (std::size_t i = 0; i < m_nRecords; ++i) m_records.Unmake(i);
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
            replace(m_records.Get(iPlace), record);
            m_records.Replace(iPlace, std::forward<VALUE>(record));
        } else {
            Append(iKey, std::forward<VALUE>(record));
        }
        return 1;
    }

    /// Stores a record, or what makes one, under a key that has none. False if it has one, which stays.
    template <class VALUE>
    bool Add(std::int32_t iKey, const VALUE& record) {
        if (m_index.Find(iKey) != CKeyIndex::NONE) return false;
        Append(iKey, record);
        return true;
    }

    bool Has(std::int32_t iKey) const { return m_index.Find(iKey) != CKeyIndex::NONE; }

    /// The record of a key, which is as good as a pointer to it; null if there is none.
    typename CRecords<RECORD>::FOUND Find(std::int32_t iKey) const {
        const std::uint32_t iPlace = m_index.Find(iKey);
        if (iPlace == CKeyIndex::NONE) return {};
        return m_records.Found(iPlace);
    }

    /// Copies the record of a key. Returns 1, or 0 if there is none.
    int Lookup(std::int32_t iKey, RECORD& rRecord) const {
        const auto pRecord = Find(iKey);
        if (pRecord) rRecord = *pRecord;
        return pRecord ? 1 : 0;
    }

    /// The record of a key in place; a key that is absent gets a zero record first. Records with traits aren't handed
    /// out like this.
    RECORD& operator[](std::int32_t iKey) requires(!HasTraits<RECORD>) {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return m_records.At(iPlace == CKeyIndex::NONE ? Append(iKey, RECORD()) : iPlace);
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
        UpdatePart(0, m_nRecords, taken, change);
    }
    template <class CHANGE>
    void UpdateEach(CHANGE change) {
        UpdateEach(T_ALL(), change);
    }

    /// The same for the records at the places from iBegin on before iEnd, which may be more than there are. Parts apart
    /// from each other may be changed at a time if no record needs more room than before.
    template <class PREDICATE, class CHANGE>
    void UpdatePart(std::size_t iBegin, std::size_t iEnd, PREDICATE taken, CHANGE change) {
        for (std::size_t i = iBegin; i < std::min(iEnd, m_nRecords); ++i) {
            if (IsTaken(taken, i)) UpdateAt(i, change);
        }
    }

    /// The same in store order; change may add to this table.
    template <class PREDICATE, class CHANGE>
    void UpdateInOrder(PREDICATE taken, CHANGE change) {
        for (const std::uint32_t iPlace : InStoreOrder(taken)) UpdateAt(iPlace, change);
    }

    /// Calls visit(id, record) for all records in the order of insertion.
    template <class VISIT>
    void ForEach(VISIT visit) const {
        for (std::size_t i = 0; i < m_nRecords; ++i) visit(m_aKeys[i], m_records.Get(i));
    }

    /// Calls visit with the keys of all records in the order of insertion, a block of them at a time.
    template <class VISIT>
    void ForEachKeyBlock(VISIT visit) const {
        m_aKeys.ForEachBlock(m_nRecords, visit);
    }

    /// The traits of the record of a key, 0 if there is none.
    std::uint16_t TraitsOf(std::int32_t iKey) const {
        const std::uint32_t iPlace = m_index.Find(iKey);
        return iPlace == CKeyIndex::NONE ? std::uint16_t(0) : m_records.Traits(iPlace);
    }

    /// Number of the records that taken accepts, as Walk does.
    template <class PREDICATE>
    std::size_t Count(PREDICATE taken) const {
        if constexpr (std::is_same_v<PREDICATE, T_ALL>) {
            return m_nRecords;
        } else if constexpr (TakesTraits<PREDICATE>) {
            return m_records.Count(m_nRecords, taken);
        } else {
            std::size_t nTaken = 0;
            ForEachTaken(taken, [&](std::uint32_t) { ++nTaken; });
            return nTaken;
        }
    }

    /// A key with its record, or with a reference to it.
    struct T_ENTRY_D {
        std::int32_t iKEY;
        decltype(std::declval<const CRecords<RECORD>&>().Get(0)) record;
    };

    /// Some of the records, in a given order.
    class CWalk {
      public:
        CWalk(const CMap& rMap, std::vector<std::uint32_t> aPlaces) : m_pMap(&rMap), m_aPlaces(std::move(aPlaces)) {}
        std::size_t GetCount() const { return m_aPlaces.size(); }
        class CPosition {
          public:
            CPosition(const CWalk& rWalk, std::size_t i) : m_pWalk(&rWalk), m_i(i) {}
            auto operator*() const {
                const std::uint32_t iPlace = m_pWalk->m_aPlaces[m_i];
                const CMap& rMap = *m_pWalk->m_pMap;
                return T_ENTRY_D{rMap.m_aKeys[iPlace], rMap.m_records.Get(iPlace)};
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

        /// Those from iBegin on before iEnd. The walk must outlive it.
        struct T_PART_D {
            CPosition first, last;
            CPosition begin() const { return first; }
            CPosition end() const { return last; }
        };
        T_PART_D Part(std::size_t iBegin, std::size_t iEnd) const { return {{*this, iBegin}, {*this, iEnd}}; }

      private:
        /// Store order leads all over the memory, which takes long to answer: a record is asked for some steps before
        /// its turn.
        void FetchAhead(std::size_t i) const {
            constexpr std::size_t AHEAD = 8;
            if (i + AHEAD < m_aPlaces.size()) m_pMap->m_records.Fetch(m_aPlaces[i + AHEAD]);
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
    CWalk Walk() const { return Walk(T_ALL()); }

    /// The records that taken accepts, by ascending id.
    template <class PREDICATE>
    CWalk Sorted(PREDICATE taken) const {
        std::vector<std::uint32_t> aPlaces(Count(taken));
        auto pPlace = aPlaces.begin();
        ForEachTaken(taken, [&](std::uint32_t i) { *pPlace++ = i; });
        if (!m_bAscending) {
            std::sort(aPlaces.begin(), aPlaces.end(),
                      [this](std::uint32_t a, std::uint32_t b) { return m_aKeys[a] < m_aKeys[b]; });
        }
        return {*this, std::move(aPlaces)};
    }
    CWalk Sorted() const { return Sorted(T_ALL()); }

  private:
    /// Accepts all records, which needn't be looked at for it.
    struct T_ALL {};

    template <class PREDICATE>
    static constexpr bool TakesTraits = HasTraits<RECORD>&& std::is_invocable_v<PREDICATE, std::uint16_t>;

    /// change(id, record).
    template <class CHANGE>
    void UpdateAt(std::size_t i, CHANGE& rChange) {
        m_records.Change(i, [&](RECORD& rRecord) { rChange(std::as_const(m_aKeys[i]), rRecord); });
    }

    template <class PREDICATE>
    bool IsTaken(PREDICATE& rTaken, std::size_t i) const {
        if constexpr (std::is_same_v<PREDICATE, T_ALL>) {
            return true;
        } else if constexpr (TakesTraits<PREDICATE>) {
            return rTaken(m_records.Traits(i));
        } else {
            return rTaken(m_records.Get(i));
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
        ForEachTaken(taken, [&](std::uint32_t i) { *pOrder++ = StoreOrder(HashKey(m_aKeys[i]) % m_nBuckets, i); });
        return SortByBucket(std::move(aOrder), m_nBuckets);
    }

    /// Gives the place of the new record.
    template <class VALUE>
    std::uint32_t Append(std::int32_t iKey, VALUE&& record) {
        const std::size_t iPlace = m_nRecords;
        if (iPlace >= CKeyIndex::NONE) throw std::length_error("CMap: too many records");
        // Each step leaves the table whole if it throws: the count that everything goes by comes last.
        m_aKeys.Set(iPlace, iKey);
        m_records.Make(iPlace, std::forward<VALUE>(record));
        try {
            m_index.Add(iKey, static_cast<std::uint32_t>(iPlace));
        } catch (...) {
            m_records.Unmake(iPlace);
            throw;
        }
        m_bAscending = m_bAscending && (iPlace == 0 || m_aKeys[iPlace - 1] < iKey);
        ++m_nRecords;
        return static_cast<std::uint32_t>(iPlace);
    }

    std::uint32_t m_nBuckets;
    bool m_bAscending = true; // whether the keys came in ascending order
    std::size_t m_nRecords = 0;
    CKeyIndex m_index;
    CBlocks<std::int32_t> m_aKeys;
    CRecords<RECORD> m_records;
};
