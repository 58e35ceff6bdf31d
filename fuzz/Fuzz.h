#pragma once
// What the fuzz targets share.

#include "support/Deck.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Ends the process, which is how a target tells of a fault.
#define CHECK(condition)                                                                 \
    do {                                                                                 \
        if (!(condition)) {                                                              \
            std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                \
        }                                                                                \
    } while (false)

/// Hands out values from the bytes of an input, zeros when they are used up.
class CBytes {
  public:
    CBytes(const std::uint8_t* pData, std::size_t nSize) : m_pData(pData), m_nLeft(nSize) {}
    bool IsEmpty() const { return m_nLeft == 0; }
    std::uint8_t Byte() {
        if (m_nLeft == 0) return 0;
        --m_nLeft;
        return *m_pData++;
    }
    std::uint64_t Bytes(int nBytes) {
        std::uint64_t nValue = 0;
        for (; nBytes > 0; --nBytes) nValue = nValue << 8 | Byte();
        return nValue;
    }
    std::int32_t Int() { return static_cast<std::int32_t>(static_cast<std::uint32_t>(Bytes(4))); }
    /// All that is left.
    std::string_view Rest() {
        const std::string_view sRest(reinterpret_cast<const char*>(m_pData), m_nLeft);
        m_nLeft = 0;
        return sRest;
    }

  private:
    const std::uint8_t* m_pData;
    std::size_t m_nLeft;
};

/// Makes a folder for the files of this process, once, and the current one of it: where TMPDIR says, which should be
/// in memory.
void EnterScratchFolder();

/// Whether a THRU could stand for more ids than a fast run has time for.
bool HasLongRange(std::string_view sDeck);

/// Runs DECK.DAT of the current folder and tests what holds for every run; twice for some inputs.
void CheckRun(std::string_view sInput);
