// The keyed table: what is found, and in which order it is walked.

#include "store/Map.h"

#include "store/Array.h"
#include "store/LoadRecords.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace {

constexpr std::int32_t MOST = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t LEAST = std::numeric_limits<std::int32_t>::min();

using KEYS = std::vector<std::int32_t>;

template <class MAP>
KEYS Walked(const MAP& rMap) {
    KEYS aKeys;
    for (const auto& [iKey, rValue] : rMap.Walk()) aKeys.push_back(iKey);
    return aKeys;
}

// Worked out by hand: 127773 is the modulus, 16807 and 2836 the factors.
static_assert(HashKey(0) == 0);
static_assert(HashKey(1) == 16807);
static_assert(HashKey(-7) == 2147483647 - 117649);
static_assert(HashKey(127773) == 2147483647 - 2836);
static_assert(HashKey(MOST) == 0);                   // 16807 * 2836 - 2836 * 16807
static_assert(HashKey(LEAST) == 2147483647 - 16807); // 16807 * -2837 + 2836 * 16807

TEST(Map, WalksBucketsAndInABucketTheLastAddedFirst) {
    CMap<int> map(101);
    for (const int iKey : {1, 2, 3, 102, -7, 203}) map.SetAt(iKey, iKey);
    // buckets: 1, 102 and 203 in 41, 2 in 82, 3 in 22, -7 in 49
    EXPECT_EQ(Walked(map), (KEYS{3, 203, 102, 1, -7, 2}));
    EXPECT_EQ(map.GetCount(), 6u);
}

TEST(Map, AReplacedRecordKeepsItsPlace) {
    CMap<int> map(101);
    for (const int iKey : {1, 102, 203}) map.SetAt(iKey, iKey);
    map.SetAt(1, 10);
    map[102] = 20;
    EXPECT_EQ(Walked(map), (KEYS{203, 102, 1}));
    EXPECT_EQ(*map.Find(1), 10);
    int iFound = 0;
    EXPECT_EQ(map.Lookup(102, iFound), 1);
    EXPECT_EQ(iFound, 20);
    EXPECT_EQ(map.Lookup(4, iFound), 0);
    EXPECT_EQ(map[4], 0); // made on first mention
    EXPECT_EQ(map.GetCount(), 4u);
}

TEST(Map, RowsKeepTheirAddressesAndWalksDoNotMeetWhatIsAdded) {
    CMap<int> map(101);
    const int* pFirst = &map[0];
    int nMet = 0;
    for ([[maybe_unused]] const auto& rPair : map.Walk()) {
        ++nMet;
        for (int i = 1; i < 5000; ++i) map.SetAt(i, i);
    }
    EXPECT_EQ(nMet, 1);
    EXPECT_EQ(&map[0], pFirst);
}

/// A record that walks choose by what is in it.
struct T_CHOSEN_D {
    std::uint16_t nTRAITS = 0;
    std::uint16_t Traits() const { return nTRAITS; }
};

template <class RECORD>
concept CanBeHandedOut = requires(CMap<RECORD>& rMap) {
    rMap[1];
};
static_assert(CanBeHandedOut<int> && !CanBeHandedOut<T_CHOSEN_D>);
static_assert(std::is_same_v<decltype(std::declval<CMap<T_CHOSEN_D>&>().Find(1)), const T_CHOSEN_D*>);

TEST(Map, WalksGoByWhatARecordIsNow) {
    CMap<T_CHOSEN_D> map(101);
    for (const int iKey : {1, 2, 3, 102}) map.SetAt(iKey, T_CHOSEN_D{static_cast<std::uint16_t>(iKey)});
    EXPECT_EQ(map.Update(2, [](T_CHOSEN_D& rRecord) { rRecord.nTRAITS = 5; }), 1);
    EXPECT_EQ(map.Update(7, [](T_CHOSEN_D&) { FAIL(); }), 0);
    EXPECT_EQ(map.TraitsOf(2), 5);
    const auto isOdd = [](std::uint16_t nTraits) { return nTraits % 2 == 1; };
    KEYS aMet;
    const auto makeEven = [&](std::int32_t iKey, T_CHOSEN_D& rRecord) {
        aMet.push_back(iKey);
        rRecord.nTRAITS = 4;
    };
    map.UpdateInOrder(isOdd, makeEven);
    EXPECT_EQ(aMet, (KEYS{3, 1, 2}));
    map.UpdateEach(isOdd, makeEven);
    EXPECT_EQ(aMet.size(), 3u); // none is odd any more
    map.UpdateEach([](std::int32_t, T_CHOSEN_D& rRecord) { rRecord.nTRAITS += 1; });
    aMet.clear();
    for (const auto& [iKey, rRecord] : map.Walk(isOdd)) aMet.push_back(iKey);
    EXPECT_EQ(aMet, (KEYS{3, 102, 1, 2}));
}

TEST(LoadEntries, WalksGoByWhatAnEntryIsNow) {
    CLoadEntries entries;
    entries.Add({.iID = 1, .iKIND = LOAD_FORCE});
    entries.Add({.iID = 2, .iKIND = LOAD_MOMENT});
    entries.UpdateEach([](std::int8_t iKind) { return iKind == LOAD_FORCE; },
                       [](T_MBLD_D& rEntry) { rEntry.iKIND = LOAD_PRESSURE; });
    EXPECT_TRUE(entries.Walk(LOAD_FORCE).IsEmpty());
    EXPECT_EQ((*entries.Walk(LOAD_PRESSURE).begin()).iID, 1);
    EXPECT_EQ((*entries.Walk(LOAD_MOMENT).begin()).iID, 2);
}

TEST(Map, SortsBySignedId) {
    CMap<int> map(101);
    for (const int iKey : {30, MOST, -1, 2, LEAST, 0}) map.SetAt(iKey, iKey);
    KEYS aKeys;
    for (const auto& [iKey, rValue] : map.Sorted([](int iValue) { return iValue != 2; })) aKeys.push_back(iKey);
    EXPECT_EQ(aKeys, (KEYS{LEAST, -1, 0, 30, MOST}));
}

/// The table as it is told: a chain for each bucket, grown at its head.
KEYS WalkedByTheRules(const KEYS& aKeys, std::uint32_t nBuckets) {
    std::map<std::uint32_t, KEYS> mapChains;
    for (const std::int32_t iKey : aKeys) {
        KEYS& rChain = mapChains[HashKey(iKey) % nBuckets];
        if (std::find(rChain.begin(), rChain.end(), iKey) == rChain.end()) rChain.insert(rChain.begin(), iKey);
    }
    KEYS aWalked;
    for (const auto& [nBucket, rChain] : mapChains) aWalked.insert(aWalked.end(), rChain.begin(), rChain.end());
    return aWalked;
}

TEST(Map, KeepsTheRulesForKeysOfAllKinds) {
    struct T_STRIDE_D {
        std::int64_t nStride;
        int nKeys;
        std::uint32_t nBuckets;
    };
    for (const auto [nStride, nKeys, nBuckets] :
         {T_STRIDE_D{1, 3000, 1000001}, T_STRIDE_D{-1, 3000, 1000001}, T_STRIDE_D{16, 5000, 1001},
          T_STRIDE_D{65536, 5000, 101}, T_STRIDE_D{1000001, 2000, 1000001}, T_STRIDE_D{715827883, 4000, 11}}) {
        SCOPED_TRACE(nStride);
        CMap<std::int64_t> map(nBuckets);
        KEYS aKeys;
        for (int i = 0; i < nKeys; ++i) {
            aKeys.push_back(static_cast<std::int32_t>(i * nStride)); // wraps
            map.SetAt(aKeys.back(), i * nStride);
        }
        EXPECT_EQ(Walked(map), WalkedByTheRules(aKeys, nBuckets));
        for (const std::int32_t iKey : aKeys) {
            ASSERT_NE(map.Find(iKey), nullptr);
            EXPECT_EQ(static_cast<std::int32_t>(*map.Find(iKey)), iKey);
        }
        EXPECT_EQ(map.Find(123456789), nullptr);
    }
}

/// Keys that the index looks for in one place, more than it keeps there.
TEST(Map, FindsKeysThatCrowdInItsIndex) {
    CMap<int> map(101);
    std::map<int, int> mapExpected;
    for (std::uint32_t nPage = 0; mapExpected.size() < 300; ++nPage) {
        if ((nPage * 0x9E3779B97F4A7C15u >> 32) % 1024 != 0) continue;
        mapExpected[static_cast<int>(nPage) * 16] = static_cast<int>(nPage);
        EXPECT_EQ(map.Find(static_cast<int>(nPage) * 16), nullptr);
        map.SetAt(static_cast<int>(nPage) * 16, static_cast<int>(nPage));
        EXPECT_EQ(map.Find(static_cast<int>(nPage) * 16 + 1), nullptr);
    }
    for (int iKey = 1; iKey < 20000; iKey += 2) { // grows, so all are moved
        map.SetAt(iKey, -iKey);
        mapExpected[iKey] = -iKey;
    }
    for (const auto& [iKey, iValue] : mapExpected) {
        ASSERT_NE(map.Find(iKey), nullptr) << iKey;
        EXPECT_EQ(*map.Find(iKey), iValue);
    }
    EXPECT_EQ(map.GetCount(), mapExpected.size());
}

TEST(Arrays, TestTheirRange) {
    CArray<int> array;
    array.Add(5);
    EXPECT_EQ(array[0], 5);
    EXPECT_THROW(array[1], std::invalid_argument);
    CSlotArray<double, 3> slots;
    slots.Set(1, 2.5);
    EXPECT_EQ(slots[1], 2.5);
    EXPECT_EQ(slots[2], 0.0);
    EXPECT_THROW(slots[3], std::invalid_argument);
    EXPECT_THROW(slots.Set(3, 1.0), std::invalid_argument);
}

} // namespace
