#pragma once
// Long arrays of plain values that never move.

#include "platform/Memory.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

/// Values lie in large blocks, whose memory is taken as it is touched. A value is unknown until it is set.
template <class VALUE>
class CBlocks {
    static_assert(std::is_trivially_copyable_v<VALUE>);

  public:
    /// Values in a block: a power of two makes finding one a shift and a mask.
    static constexpr std::size_t BLOCK = std::bit_floor((std::size_t(1) << 20) / sizeof(VALUE));

    VALUE& operator[](std::size_t i) { return m_aBlocks[i / BLOCK][i % BLOCK]; }
    const VALUE& operator[](std::size_t i) const { return m_aBlocks[i / BLOCK][i % BLOCK]; }

    /// Sets the value behind the last block's, or one before it. If it throws, nothing has changed.
    void Set(std::size_t i, const VALUE& value) {
        if (i == m_aBlocks.size() * BLOCK) AddBlock();
        (*this)[i] = value;
    }

    /// Calls visit with the first nValues values, a block of them at a time.
    template <class VISIT>
    void ForEachBlock(std::size_t nValues, VISIT visit) const {
        for (std::size_t iBegin = 0; iBegin < nValues; iBegin += BLOCK) {
            visit(std::span(&(*this)[iBegin], std::min(BLOCK, nValues - iBegin)));
        }
    }

  private:
    void AddBlock() {
        m_aBlocks.push_back(std::make_unique_for_overwrite<VALUE[]>(BLOCK));
        // a table this long will fill it
        if (m_aBlocks.size() > 1) TakePages(m_aBlocks.back().get(), BLOCK * sizeof(VALUE));
    }

    std::vector<std::unique_ptr<VALUE[]>> m_aBlocks;
};

/// Stretches of words. A few take little memory, many lie in blocks and never move.
class CWords {
  public:
    /// The place of nWords words behind all others, which are unknown until they are set. Throws std::length_error if
    /// there are too many in all. If it throws, nothing has changed.
    std::uint32_t Add(std::size_t nWords) {
        if (nWords > m_nRoom) MakeRoom(nWords);
        const std::uint32_t iPlace = m_iNext;
        m_iNext += static_cast<std::uint32_t>(nWords);
        m_nRoom -= nWords;
        return iPlace;
    }

    std::uint32_t* At(std::uint32_t iPlace) { return &m_aBlocks[iPlace / BLOCK][iPlace % BLOCK]; }
    const std::uint32_t* At(std::uint32_t iPlace) const { return &m_aBlocks[iPlace / BLOCK][iPlace % BLOCK]; }

  private:
    static constexpr std::size_t BLOCK = std::size_t(1) << 16; // words; no stretch is as long

    void MakeRoom(std::size_t nWords);

    std::vector<std::unique_ptr<std::uint32_t[]>> m_aBlocks; // of BLOCK words; the first grows to that
    std::uint32_t m_iNext = 0;
    std::size_t m_nRoom = 0; // in the last block
};

/// Puts values into words, or takes them out in the same order.
class CWordWriter {
  public:
    explicit CWordWriter(std::uint32_t* pWords) : m_pWords(pWords) {}
    void Int(std::int32_t i) { *m_pWords++ = static_cast<std::uint32_t>(i); }
    void Ints(std::span<const std::int32_t> aValues) {
        for (const std::int32_t i : aValues) Int(i);
    }
    void Real(double d) {
        const auto n = std::bit_cast<std::uint64_t>(d);
        *m_pWords++ = static_cast<std::uint32_t>(n);
        *m_pWords++ = static_cast<std::uint32_t>(n >> 32);
    }

  private:
    std::uint32_t* m_pWords;
};
class CWordReader {
  public:
    explicit CWordReader(const std::uint32_t* pWords) : m_pWords(pWords) {}
    std::int32_t Int() { return static_cast<std::int32_t>(*m_pWords++); }
    void Ints(std::span<std::int32_t> aValues) {
        for (std::int32_t& r : aValues) r = Int();
    }
    double Real() {
        const std::uint64_t n = m_pWords[0] | std::uint64_t(m_pWords[1]) << 32;
        m_pWords += 2;
        return std::bit_cast<double>(n);
    }

  private:
    const std::uint32_t* m_pWords;
};

constexpr std::size_t REAL_WORDS = sizeof(double) / sizeof(std::uint32_t);

/// Whether two values are the same to the last bit, as zeros of both signs aren't.
constexpr bool IsSameReal(double dA, double dB) {
    return std::bit_cast<std::uint64_t>(dA) == std::bit_cast<std::uint64_t>(dB);
}
