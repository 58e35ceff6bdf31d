#pragma once
// Where text is put together.

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

/// Text grows at the end of a buffer. What happens when that is full is the matter of who makes room.
class CTextSink {
  public:
    CTextSink() = default;
    CTextSink(const CTextSink&) = delete;
    CTextSink& operator=(const CTextSink&) = delete;
    virtual ~CTextSink() = default;

    /// Room for nSize bytes at the end of what was written; Commit takes those that were filled.
    char* Reserve(std::size_t nSize) {
        if (nSize > m_nBuffer - m_nUsed) MakeRoom(nSize);
        return m_pBuffer.get() + m_nUsed;
    }
    void Commit(std::size_t nSize) { m_nUsed += nSize; }

    void Write(std::string_view sText) {
        if (sText.empty()) return;
        std::memcpy(Reserve(sText.size()), sText.data(), sText.size());
        Commit(sText.size());
    }

  protected:
    /// Makes room for nSize bytes behind m_nUsed.
    virtual void MakeRoom(std::size_t nSize) = 0;

    std::unique_ptr<char[]> m_pBuffer; // not initialized: a small file touches little of it
    std::size_t m_nBuffer = 0;
    std::size_t m_nUsed = 0;
};

/// Text in memory.
class CTextPiece : public CTextSink {
  private:
    friend class CFile; // which takes the text

    void MakeRoom(std::size_t nSize) override {
        constexpr std::size_t LEAST = std::size_t(1) << 16;
        const std::size_t nBuffer = std::max({LEAST, 2 * m_nBuffer, m_nUsed + nSize});
        auto pBuffer = std::make_unique_for_overwrite<char[]>(nBuffer);
        if (m_nUsed > 0) std::memcpy(pBuffer.get(), m_pBuffer.get(), m_nUsed);
        m_pBuffer = std::move(pBuffer);
        m_nBuffer = nBuffer;
    }
};
