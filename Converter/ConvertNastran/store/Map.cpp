// The store order of a keyed table.

#include "store/Map.h"

#include <algorithm>
#include <array>

std::vector<std::uint32_t> SortByBucket(std::vector<std::uint64_t> aOrder, std::uint32_t nBuckets) {
    constexpr std::size_t FEW = 64;
    if (aOrder.size() < FEW) { // most tables of most decks; counting digits would cost more
        std::sort(aOrder.begin(), aOrder.end());
    } else {
        // From the last place on, and by bucket without changing the order of equals.
        std::reverse(aOrder.begin(), aOrder.end());
        constexpr std::uint32_t DIGIT_BITS = 11;
        constexpr std::size_t DIGITS = std::size_t(1) << DIGIT_BITS;
        std::vector<std::uint64_t> aOther(aOrder.size());
        for (std::uint32_t nShift = 0; nBuckets >> nShift > 0; nShift += DIGIT_BITS) {
            const auto Digit = [nShift](std::uint64_t nOrder) { return (nOrder >> 32 >> nShift) % DIGITS; };
            std::array<std::size_t, DIGITS + 1> aStart{};
            for (const std::uint64_t nOrder : aOrder) ++aStart[Digit(nOrder) + 1];
            for (std::size_t i = 1; i <= DIGITS; ++i) aStart[i] += aStart[i - 1];
            for (const std::uint64_t nOrder : aOrder) aOther[aStart[Digit(nOrder)]++] = nOrder;
            aOrder.swap(aOther);
        }
    }
    std::vector<std::uint32_t> aPlaces(aOrder.size());
    std::transform(aOrder.begin(), aOrder.end(), aPlaces.begin(), PlaceOfOrder);
    return aPlaces;
}
