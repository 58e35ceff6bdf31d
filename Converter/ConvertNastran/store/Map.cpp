// The store order of a keyed table.

#include "store/Map.h"

#include <array>

std::vector<std::uint32_t> SortByBucket(const std::vector<std::int32_t>& aKeys, std::vector<std::uint32_t> aPlaces,
                                        std::uint32_t nBuckets) {
    // A chain grows at its head, so among keys of one bucket the later place comes first.
    constexpr std::size_t FEW = 64;
    if (aPlaces.size() < FEW) { // most tables of most decks; counting digits would cost more
        std::sort(aPlaces.begin(), aPlaces.end(), [&](std::uint32_t a, std::uint32_t b) {
            const std::uint32_t nBucketA = HashKey(aKeys[a]) % nBuckets;
            const std::uint32_t nBucketB = HashKey(aKeys[b]) % nBuckets;
            return nBucketA != nBucketB ? nBucketA < nBucketB : a > b;
        });
        return aPlaces;
    }
    // Start from the last place and sort by bucket without changing the order of equals.
    std::reverse(aPlaces.begin(), aPlaces.end());
    std::vector<std::uint32_t> aBuckets(aPlaces.size());
    for (std::size_t i = 0; i < aPlaces.size(); ++i) aBuckets[i] = HashKey(aKeys[aPlaces[i]]) % nBuckets;

    constexpr std::size_t DIGIT_BITS = 11;
    constexpr std::size_t DIGITS = std::size_t(1) << DIGIT_BITS;
    std::vector<std::uint32_t> aOtherPlaces(aPlaces.size());
    std::vector<std::uint32_t> aOtherBuckets(aPlaces.size());
    for (std::uint32_t nShift = 0; nBuckets >> nShift > 0; nShift += DIGIT_BITS) {
        std::array<std::size_t, DIGITS + 1> aStart{};
        for (const std::uint32_t nBucket : aBuckets) ++aStart[(nBucket >> nShift) % DIGITS + 1];
        for (std::size_t i = 1; i <= DIGITS; ++i) aStart[i] += aStart[i - 1];
        for (std::size_t i = 0; i < aPlaces.size(); ++i) {
            const std::size_t iTo = aStart[(aBuckets[i] >> nShift) % DIGITS]++;
            aOtherPlaces[iTo] = aPlaces[i];
            aOtherBuckets[iTo] = aBuckets[i];
        }
        aPlaces.swap(aOtherPlaces);
        aBuckets.swap(aOtherBuckets);
    }
    return aPlaces;
}
