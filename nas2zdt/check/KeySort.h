#pragma once
// Sorts many entries by small keys.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

/// An entry with its key in the upper half.
constexpr std::uint64_t MakeKeyed(std::uint32_t nKey, std::uint32_t nValue) {
    return std::uint64_t{nKey} << 32 | nValue;
}
constexpr std::uint32_t GetKey(std::uint64_t nKeyed) {
    return static_cast<std::uint32_t>(nKeyed >> 32);
}
constexpr std::uint32_t GetValue(std::uint64_t nKeyed) {
    return static_cast<std::uint32_t>(nKeyed);
}

/// Sorts by the keys alone, a few bits after the other; entries with one key stay in their order.
inline void SortByKey(std::vector<std::uint64_t>& rEntries) {
    constexpr std::size_t BITS = 11, SIZE = std::size_t{1} << BITS;
    std::vector<std::uint64_t> aOther(rEntries.size());
    for (std::size_t nShift = 32; nShift < 64; nShift += BITS) {
        std::array<std::size_t, SIZE> aPlaces = {};
        for (const std::uint64_t nEntry : rEntries) ++aPlaces[nEntry >> nShift & (SIZE - 1)];
        std::exclusive_scan(aPlaces.begin(), aPlaces.end(), aPlaces.begin(), std::size_t{0});
        for (const std::uint64_t nEntry : rEntries) aOther[aPlaces[nEntry >> nShift & (SIZE - 1)]++] = nEntry;
        rEntries.swap(aOther);
    }
}

/// Drops entries whose key comes once, or most of them where there are very many. The others stay in their order.
inline void KeepRepeated(std::vector<std::uint64_t>& rEntries) {
    constexpr std::size_t BITS_EACH = 16, MOST_BITS = std::size_t{1} << 26, WORD = 64;
    const std::size_t nBits = std::bit_ceil(std::clamp(rEntries.size() * BITS_EACH, WORD, MOST_BITS));
    std::vector<std::uint64_t> aSeen(nBits / WORD), aAgain(nBits / WORD);
    const auto findBit = [&](std::uint64_t nEntry) { return GetKey(nEntry) & (nBits - 1); };
    for (const std::uint64_t nEntry : rEntries) {
        const std::size_t i = findBit(nEntry);
        const std::uint64_t nBit = std::uint64_t{1} << i % WORD;
        if (aSeen[i / WORD] & nBit) aAgain[i / WORD] |= nBit;
        aSeen[i / WORD] |= nBit;
    }
    std::erase_if(rEntries, [&](std::uint64_t nEntry) {
        const std::size_t i = findBit(nEntry);
        return (aAgain[i / WORD] >> i % WORD & 1) == 0;
    });
}

/// Calls visit(first, end) for the entries of each key that comes more than once.
template <class VISIT>
void VisitSameKeys(const std::vector<std::uint64_t>& rSorted, VISIT visit) {
    for (std::size_t i = 0; i < rSorted.size();) {
        std::size_t iEnd = i + 1;
        while (iEnd < rSorted.size() && GetKey(rSorted[iEnd]) == GetKey(rSorted[i])) ++iEnd;
        if (iEnd - i > 1) visit(i, iEnd);
        i = iEnd;
    }
}

/// Scatters a number over all its bits.
constexpr std::uint64_t Scatter(std::uint64_t n) {
    n *= 0x9E3779B97F4A7C15ull;
    n ^= n >> 32;
    n *= 0xD6E8FEB86659FD93ull;
    return n ^ n >> 29;
}
