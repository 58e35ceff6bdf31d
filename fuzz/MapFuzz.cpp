// The keyed table against its rules, told as plainly as can be.

#include "Fuzz.h"
#include "store/Map.h"

#include <algorithm>
#include <list>
#include <map>
#include <utility>
#include <vector>

namespace {

using PAIRS = std::vector<std::pair<std::int32_t, std::uint32_t>>;

std::uint32_t HashByTheRules(std::int32_t iKey) {
    const long long q = iKey / 127773;
    const long long r = iKey % 127773;
    auto h = static_cast<std::int32_t>(16807 * r - 2836 * q); // both products and their difference fit in 32 bits
    if (h < 0) h += 2147483647;
    return static_cast<std::uint32_t>(h);
}

/// A chain a bucket; a new key is linked in at its head.
class CModel {
  public:
    explicit CModel(std::uint32_t nBuckets) : m_nBuckets(nBuckets) {}
    std::uint32_t* Find(std::int32_t iKey) {
        const auto pValue = m_mapValues.find(iKey);
        return pValue == m_mapValues.end() ? nullptr : &pValue->second;
    }
    std::uint32_t& operator[](std::int32_t iKey) {
        if (!Find(iKey)) m_mapChains[HashByTheRules(iKey) % m_nBuckets].push_front(iKey);
        return m_mapValues[iKey];
    }
    PAIRS Walk() {
        PAIRS aPairs;
        for (const auto& [nBucket, rChain] : m_mapChains) {
            for (const std::int32_t iKey : rChain) aPairs.emplace_back(iKey, m_mapValues[iKey]);
        }
        return aPairs;
    }
    PAIRS Sorted() const { return {m_mapValues.begin(), m_mapValues.end()}; }
    std::size_t GetCount() const { return m_mapValues.size(); }

  private:
    std::uint32_t m_nBuckets;
    std::map<std::uint32_t, std::list<std::int32_t>> m_mapChains;
    std::map<std::int32_t, std::uint32_t> m_mapValues;
};

PAIRS Taken(const auto& rWalk) {
    PAIRS aPairs;
    for (const auto& [iKey, rValue] : rWalk) aPairs.emplace_back(iKey, rValue);
    return aPairs;
}

PAIRS Odd(PAIRS aPairs) {
    std::erase_if(aPairs, [](const auto& rPair) { return rPair.second % 2 == 0; });
    return aPairs;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    constexpr std::uint32_t BUCKETS[] = {1, 11, 101, 1001, 10001, 1000001};
    CBytes bytes(pData, nSize);
    const std::uint32_t nBuckets = BUCKETS[bytes.Byte() % std::size(BUCKETS)];
    CMap<std::uint32_t> map(nBuckets);
    CModel model(nBuckets);
    std::uint32_t nValue = 0;
    std::vector<std::pair<std::int32_t, const std::uint32_t*>> aPlaces;
    while (!bytes.IsEmpty()) {
        const std::uint8_t nAct = bytes.Byte();
        std::int32_t iKey = bytes.Int();
        std::uint32_t nStride = 0;
        std::size_t nKeys = 1;
        if (nAct & 1) { // a run of keys
            nStride = static_cast<std::uint32_t>(bytes.Bytes(4));
            nKeys = bytes.Byte() % 64;
        }
        for (; nKeys > 0; --nKeys) {
            ++nValue;
            switch (nAct / 2 % 3) {
            case 0:
                CHECK(map.SetAt(iKey, nValue) == 1);
                model[iKey] = nValue;
                break;
            case 1:
                CHECK(map[iKey] == (model.Find(iKey) ? *model.Find(iKey) : 0));
                map[iKey] = nValue;
                model[iKey] = nValue;
                aPlaces.emplace_back(iKey, map.Find(iKey));
                break;
            default: {
                const std::uint32_t* const pExpected = model.Find(iKey);
                const std::uint32_t* const pFound = std::as_const(map).Find(iKey);
                std::uint32_t nFound = 0;
                CHECK((pFound != nullptr) == (pExpected != nullptr));
                CHECK(map.Lookup(iKey, nFound) == (pExpected ? 1 : 0));
                if (pExpected) CHECK(*pFound == *pExpected && nFound == *pExpected);
                break;
            }
            }
            iKey = static_cast<std::int32_t>(static_cast<std::uint32_t>(iKey) + nStride);
        }
        if (nAct >= 250) {
            CHECK(Taken(map.Walk()) == model.Walk());
        }
    }
    const auto isOdd = [](std::uint32_t n) { return n % 2 == 1; };
    CHECK(map.GetCount() == model.GetCount());
    CHECK(Taken(map.Walk()) == model.Walk());
    CHECK(Taken(std::as_const(map).Walk(isOdd)) == Odd(model.Walk()));
    CHECK(Taken(map.Sorted()) == model.Sorted());
    CHECK(Taken(map.Sorted(isOdd)) == Odd(model.Sorted()));
    for (const auto& [iKey, pValue] : aPlaces) CHECK(map.Find(iKey) == pValue); // records don't move
    return 0;
}
