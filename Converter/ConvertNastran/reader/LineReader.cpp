// Blocks in, lines out.

#include "reader/LineReader.h"

#include "reader/NastranStrParser.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr std::size_t BLOCK_SIZE = std::size_t(256) * 1024;
constexpr std::size_t LONGEST_PIECE = 499;

bool HasSpecial(const char* pText, std::size_t nText) {
    return std::memchr(pText, '\0', nText) || std::memchr(pText, CTRL_Z, nText);
}

} // namespace

int CLineReader::Open(const std::string& sPath, std::string& rCause) {
    if (!m_pBuffer) m_pBuffer = std::make_unique_for_overwrite<char[]>(BLOCK_SIZE + CNastranStrParser::SLACK);
    m_iNext = m_iEnd = 0;
    m_nBytesRead = 0;
    m_bEnd = m_bSpecial = false;
    return m_file.Open(sPath, rCause);
}

bool CLineReader::Fill(std::size_t nWanted) {
    if (m_iEnd - m_iNext >= nWanted || m_bEnd) return m_iEnd > m_iNext;
    std::memmove(m_pBuffer.get(), m_pBuffer.get() + m_iNext, m_iEnd - m_iNext);
    m_iEnd -= m_iNext;
    m_iNext = 0;
    while (m_iEnd < nWanted && !m_bEnd) {
        const std::ptrdiff_t nRead = m_file.Read(m_pBuffer.get() + m_iEnd, BLOCK_SIZE - m_iEnd);
        if (nRead < 0) throw CRunError(FAILURE_DECK_NOT_READ);
        m_bEnd = nRead == 0;
        m_bSpecial = m_bSpecial || HasSpecial(m_pBuffer.get() + m_iEnd, static_cast<std::size_t>(nRead));
        m_iEnd += static_cast<std::size_t>(nRead);
        m_nBytesRead += static_cast<std::uint64_t>(nRead);
        m_bReadMore = true;
    }
    std::memset(m_pBuffer.get() + m_iEnd, 0, CNastranStrParser::SLACK);
    return m_iEnd > m_iNext;
}

bool CLineReader::Read(std::string_view& rText) {
    if (!Fill(LONGEST_PIECE)) return false;
    const char* pText = m_pBuffer.get() + m_iNext;
    const std::size_t nMost = std::min(m_iEnd - m_iNext, LONGEST_PIECE);
    const auto* pFeed = static_cast<const char*>(std::memchr(pText, '\n', nMost));
    const std::size_t nText = pFeed ? static_cast<std::size_t>(pFeed - pText) : nMost;
    rText = {pText, nText};
    m_iNext += nText + (pFeed ? 1 : 0);
    return true;
}

int CLineReader::PeekByte() {
    return Fill(1) ? static_cast<unsigned char>(m_pBuffer[m_iNext]) : -1;
}
