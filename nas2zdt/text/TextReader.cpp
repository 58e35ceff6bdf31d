// Reads the lines of a file unchanged, whatever their length.

#include "nas2zdt/text/TextReader.h"

#include <cstring>

namespace {
constexpr std::size_t BLOCK_SIZE = std::size_t{64} * 1024; // small: each level of includes has a buffer
}

int CTextReader::Open(const std::string& sPath, std::string& rCause) {
    m_aBuffer.resize(BLOCK_SIZE + SLACK);
    m_iNext = m_iEnd = 0;
    m_bEnd = m_bFailed = false;
    return m_file.Open(sPath, rCause);
}

bool CTextReader::Fill() {
    if (m_bEnd) return false;
    if (m_iNext > 0) {
        std::memmove(m_aBuffer.data(), m_aBuffer.data() + m_iNext, m_iEnd - m_iNext);
        m_iEnd -= m_iNext;
        m_iNext = 0;
    } else if (m_iEnd == m_aBuffer.size() - SLACK) {
        m_aBuffer.resize(2 * m_aBuffer.size());
    }
    const std::ptrdiff_t nRead = m_file.Read(m_aBuffer.data() + m_iEnd, m_aBuffer.size() - SLACK - m_iEnd);
    m_bFailed = nRead < 0;
    m_bEnd = nRead <= 0;
    m_iEnd += m_bEnd ? 0 : static_cast<std::size_t>(nRead);
    m_aBuffer[m_iEnd] = '\0';
    return !m_bEnd;
}

bool CTextReader::Read(std::string_view& rLine) {
    std::size_t nSearched = 0; // bytes of the line already searched for its line feed
    for (;;) {
        const char* pText = m_aBuffer.data() + m_iNext;
        const std::size_t nText = m_iEnd - m_iNext;
        const auto* pFeed = static_cast<const char*>(std::memchr(pText + nSearched, '\n', nText - nSearched));
        if (!pFeed) nSearched = nText;
        if (!pFeed && Fill()) continue;
        if (m_bFailed || (!pFeed && nText == 0)) return false;
        rLine = {m_aBuffer.data() + m_iNext, pFeed ? static_cast<std::size_t>(pFeed - pText) + 1 : nText};
        m_iNext += rLine.size();
        return true;
    }
}
