#pragma once
// Sixteen characters at a time; the compiler makes vector instructions of the operators.

#include <array>
#include <cstdint>
#include <cstring>

using T_BYTES = unsigned char __attribute__((vector_size(16)));

inline T_BYTES LoadBytes(const char* p) {
    T_BYTES bytes;
    std::memcpy(&bytes, p, sizeof bytes);
    return bytes;
}

/// As numbers, the first character in the lowest byte of the first on little-endian platforms.
inline std::array<std::uint64_t, 2> HalvesOf(T_BYTES bytes) {
    std::array<std::uint64_t, 2> aHalves;
    std::memcpy(&aHalves, &bytes, sizeof bytes);
    return aHalves;
}

inline bool AnySet(T_BYTES bytes) {
    const auto [nFirst, nSecond] = HalvesOf(bytes);
    return (nFirst | nSecond) != 0;
}

/// Of a comparison: all bits of the characters for which it holds.
inline T_BYTES Mask(auto comparison) {
    return reinterpret_cast<T_BYTES>(comparison);
}

/// Two fields of eight columns.
using T_FIELDS = std::uint64_t __attribute__((vector_size(16)));

/// Something in each field whose bytes that aren't blank, those that are set in bFilled, aren't side by side.
inline T_FIELDS TornFields(T_BYTES bFilled) {
    // adding its lowest bit to a run of ones carries it all away; a second run stays
    const auto filled = reinterpret_cast<T_FIELDS>(bFilled);
    return (filled + (filled & -filled)) & filled;
}

inline constexpr T_BYTES PLACES_OF_BYTES = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
