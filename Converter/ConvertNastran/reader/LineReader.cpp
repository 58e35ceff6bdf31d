// Blocks in, lines out.

#include "reader/LineReader.h"

#include "driver/RunError.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr std::size_t BLOCK_SIZE = 256 * 1024;
constexpr std::size_t LONGEST_PIECE = 499;
} // namespace

int CLineReader::Open(const std::string& sPath, std::string& rCause) {
    m_aBuffer.resize(BLOCK_SIZE);
    m_iNext = m_iEnd = 0;
    m_bEnd = false;
    return m_file.Open(sPath, rCause);
}

bool CLineReader::Fill(std::size_t nWanted) {
    if (m_iEnd - m_iNext >= nWanted || m_bEnd) return m_iEnd > m_iNext;
    std::memmove(m_aBuffer.data(), m_aBuffer.data() + m_iNext, m_iEnd - m_iNext);
    m_iEnd -= m_iNext;
    m_iNext = 0;
    while (m_iEnd < nWanted && !m_bEnd) {
        const std::ptrdiff_t nRead = m_file.Read(m_aBuffer.data() + m_iEnd, m_aBuffer.size() - m_iEnd);
        if (nRead < 0) throw CRunError(FAILURE_DECK_NOT_READ);
        m_bEnd = nRead == 0;
        m_iEnd += static_cast<std::size_t>(nRead);
    }
    return m_iEnd > m_iNext;
}

bool CLineReader::Read(std::string_view& rText) {
    if (!Fill(LONGEST_PIECE)) return false;
    const char* pText = m_aBuffer.data() + m_iNext;
    const std::size_t nMost = std::min(m_iEnd - m_iNext, LONGEST_PIECE);
    const auto* pFeed = static_cast<const char*>(std::memchr(pText, '\n', nMost));
    const std::size_t nText = pFeed ? static_cast<std::size_t>(pFeed - pText) : nMost;
    rText = {pText, nText};
    m_iNext += nText + (pFeed ? 1 : 0);
    return true;
}

int CLineReader::PeekByte() {
    return Fill(1) ? static_cast<unsigned char>(m_aBuffer[m_iNext]) : -1;
}
