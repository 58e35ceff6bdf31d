#pragma once
// Bytes as base64.

#include "platform/File.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

/// Writes bytes to a file as base64. Finish ends the text.
class CBase64 {
  public:
    explicit CBase64(CFile& rFile) : m_rFile(rFile) {}

    /// A value as its bytes in memory.
    template <class VALUE>
    void Add(VALUE value) {
        static_assert(sizeof(VALUE) <= MOST);
        std::memcpy(m_aBytes.data() + m_nUsed, &value, sizeof value);
        m_nUsed += sizeof value;
        if (m_nUsed >= FULL) Send(FULL);
    }
    void AddBytes(std::span<const std::uint8_t> aBytes);
    void Finish() { Send(m_nUsed); }

  private:
    static constexpr std::size_t MOST = 8; // bytes of a value
    static constexpr std::size_t FULL = std::size_t{3} * 4096;

    void Send(std::size_t nBytes);

    CFile& m_rFile;
    std::array<std::uint8_t, FULL + MOST> m_aBytes = {};
    std::size_t m_nUsed = 0;
};
