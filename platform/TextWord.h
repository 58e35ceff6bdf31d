#pragma once
// Between texts and numbers. Up to eight characters are taken as one number, the first in its lowest byte on every
// platform: text is searched and numbers are made of digits by arithmetic on all eight at once.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

using TEXTWORD = std::uint64_t;

constexpr std::size_t WORD_LENGTH = sizeof(TEXTWORD);
constexpr TEXTWORD EIGHT_ZEROS = 0x3030303030303030; // "00000000"

/// The same character eight times.
constexpr TEXTWORD RepeatInWord(char c) {
    return TEXTWORD(0x0101010101010101) * static_cast<unsigned char>(c);
}

/// The highest bit of each character that isn't c.
constexpr TEXTWORD FindOthers(TEXTWORD nWord, char c) {
    constexpr TEXTWORD LOW_BITS = RepeatInWord(0x7F);
    const TEXTWORD nOther = nWord ^ RepeatInWord(c);
    return (((nOther & LOW_BITS) + LOW_BITS) | nOther) & ~LOW_BITS;
}

/// From the platform's order of bytes to that of a word, and back.
constexpr TEXTWORD OrderWord(TEXTWORD nWord) {
    return std::endian::native == std::endian::big ? __builtin_bswap64(nWord) : nWord;
}

/// The eight characters at p.
inline TEXTWORD LoadWord(const char* p) {
    TEXTWORD nWord = 0;
    std::memcpy(&nWord, p, WORD_LENGTH);
    return OrderWord(nWord);
}

/// The first nText characters at p, at most eight; the bytes behind them are 0. Nothing else is read.
inline TEXTWORD LoadWord(const char* p, std::size_t nText) {
    const auto byte = [p](std::size_t i) { return TEXTWORD(static_cast<unsigned char>(p[i])) << (8 * i); };
    if (nText < 4) return nText == 0 ? 0 : byte(0) | byte(nText / 2) | byte(nText - 1);
    // two halves, which may overlap: where they do, they agree
    std::uint32_t nFirst = 0, nLast = 0;
    std::memcpy(&nFirst, p, sizeof nFirst);
    std::memcpy(&nLast, p + nText - sizeof nLast, sizeof nLast);
    if constexpr (std::endian::native == std::endian::big) {
        nFirst = __builtin_bswap32(nFirst);
        nLast = __builtin_bswap32(nLast);
    }
    return nFirst | TEXTWORD(nLast) << (8 * (nText - 4));
}

/// Writes all eight characters to p.
inline void StoreWord(char* p, TEXTWORD nWord) {
    nWord = OrderWord(nWord);
    std::memcpy(p, &nWord, WORD_LENGTH);
}

/// The powers of ten that are exact as doubles.
constexpr int MOST_EXACT_POWER = 22;
constexpr std::array<double, MOST_EXACT_POWER + 1> EXACT_POWERS = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
