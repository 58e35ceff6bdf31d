#pragma once
// Numbers that look random and are the same on every platform.

#include <cstdint>

/// The output function of the splitmix64 generator: every bit of n moves every bit of the result.
constexpr std::uint64_t Mix(std::uint64_t n) {
    n = (n ^ (n >> 30)) * 0xBF58476D1CE4E5B9ull;
    n = (n ^ (n >> 27)) * 0x94D049BB133111EBull;
    return n ^ (n >> 31);
}

/// Number iPlace, from 0, of the splitmix64 generator started with nSeed. Any place can be asked for in any order, so
/// a card's values don't depend on the cards before it.
constexpr std::uint64_t RandomAt(std::uint64_t nSeed, std::uint64_t iPlace) {
    return Mix(nSeed + (iPlace + 1) * 0x9E3779B97F4A7C15ull);
}
