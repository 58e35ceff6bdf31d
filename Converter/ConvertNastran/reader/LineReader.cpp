// Blocks in, lines out.

#include "reader/LineReader.h"

#include "messages/RunError.h"
#include "reader/NastranStrParser.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t BLOCK_SIZE = std::size_t(256) * 1024;

} // namespace

int CLineReader::Open(const std::string& sPath, std::string& rCause) {
    Close();
    if (!m_file.Open(sPath, rCause)) return 0;
    if (!m_pBuffer) m_pBuffer = std::make_unique_for_overwrite<char[]>(BLOCK_SIZE + CNastranStrParser::SLACK);
    m_pBytes = m_pBuffer.get();
    m_nSize = m_file.GetUnread();
    m_nBefore = m_nBytesRead = m_nBytesTold = 0;
    m_iLine = m_iNext = m_iEnd = 0;
    m_bEnd = m_bSpecial = false;
    return 1;
}

void CLineReader::Close() {
    m_pChunk = nullptr;
    m_pChunks = nullptr;
    m_file.Close();
}

void CLineReader::Share(std::size_t nThreads, CDeckChunks::LOOK look) {
    m_pChunks = std::make_unique<CDeckChunks>(m_file, nThreads, std::move(look));
}

bool CLineReader::Fill(std::size_t nWanted) {
    if (m_pChunks) return m_iNext < m_iEnd || TakeChunk();
    if (m_iEnd - m_iNext >= nWanted || m_bEnd) return m_iEnd > m_iNext;
    std::memmove(m_pBuffer.get(), m_pBuffer.get() + m_iNext, m_iEnd - m_iNext);
    m_iEnd -= m_iNext;
    m_iNext = 0;
    while (m_iEnd < nWanted && !m_bEnd) {
        const std::ptrdiff_t nRead = m_file.Read(m_pBuffer.get() + m_iEnd, BLOCK_SIZE - m_iEnd);
        if (nRead < 0) throw CRunError(FAILURE_DECK_NOT_READ);
        m_bEnd = nRead == 0;
        m_bSpecial = m_bSpecial || HoldsSpecialBytes(m_pBuffer.get() + m_iEnd, static_cast<std::size_t>(nRead));
        m_iEnd += static_cast<std::size_t>(nRead);
        m_nBytesRead += static_cast<std::uint64_t>(nRead);
    }
    std::memset(m_pBuffer.get() + m_iEnd, 0, CNastranStrParser::SLACK);
    return m_iEnd > m_iNext;
}

/// Goes on to the next chunk. False at the end of the deck.
bool CLineReader::TakeChunk() {
    m_nBefore += m_iEnd;
    m_iLine = m_iNext = m_iEnd = m_iRun = 0;
    m_pChunk = m_pChunks->Take();
    if (!m_pChunk) return false;
    m_pBytes = m_pChunk->pBYTES.get();
    m_iEnd = m_pChunk->nBYTES;
    m_bSpecial = m_bSpecial || m_pChunk->bSPECIAL;
    return true;
}

/// Of a deck that is shared: counts as if it were read by blocks when fewer than nWanted bytes are left at a line of
/// the chunk.
void CLineReader::CountBlocks(std::size_t iLine, std::size_t nWanted) {
    const std::uint64_t nGiven = m_nBefore + iLine;
    if (m_nBytesRead - nGiven < nWanted) m_nBytesRead = std::max(m_nBytesRead, std::min(nGiven + BLOCK_SIZE, m_nSize));
}

bool CLineReader::Read(std::string_view& rText) {
    if (!Fill(LONGEST_PIECE)) return false;
    if (m_pChunk) CountBlocks(m_iNext, LONGEST_PIECE);
    const char* pText = m_pBytes + m_iNext;
    const std::size_t nMost = std::min(m_iEnd - m_iNext, LONGEST_PIECE);
    const auto* pFeed = static_cast<const char*>(std::memchr(pText, '\n', nMost));
    const std::size_t nText = pFeed ? static_cast<std::size_t>(pFeed - pText) : nMost;
    rText = {pText, nText};
    m_iLine = m_iNext;
    m_iNext += nText + (pFeed ? 1 : 0);
    return true;
}

const T_CARDRUN_D* CLineReader::FindRun(bool bLast) {
    if (!m_pChunk) return nullptr;
    const std::vector<T_CARDRUN_D>& rRuns = m_pChunk->aRUNS;
    const std::size_t iLine = bLast ? m_iLine : m_iNext;
    while (m_iRun < rRuns.size() && rRuns[m_iRun].iBEGIN < iLine) ++m_iRun;
    return m_iRun < rRuns.size() && rRuns[m_iRun].iBEGIN == iLine ? &rRuns[m_iRun] : nullptr;
}

void CLineReader::Pass(const T_CARDRUN_D& rRun, std::int32_t nLines) {
    const auto lineBehind = [&](std::size_t iByte) { // the run has one
        const void* const pFeed = std::memchr(m_pBytes + iByte, '\n', m_iEnd - iByte);
        return static_cast<std::size_t>(static_cast<const char*>(pFeed) + 1 - m_pBytes);
    };
    m_iNext = rRun.iEND;
    if (nLines < rRun.nLINES) {
        m_iNext = rRun.iBEGIN;
        for (std::int32_t i = 0; i < nLines; ++i) m_iNext = lineBehind(m_iNext);
    }
    // the lines at which a block would be read
    for (std::size_t iLine = rRun.iBEGIN; iLine < m_iNext;) {
        CountBlocks(iLine, LONGEST_PIECE);
        if (m_nBytesRead >= m_nSize) break;
        const std::uint64_t nFew = m_nBytesRead - LONGEST_PIECE + 1;
        if (nFew >= m_nBefore + m_iNext) break;
        iLine = lineBehind(static_cast<std::size_t>(nFew - m_nBefore) - 1);
    }
}

bool CLineReader::HasReadMore() {
    return std::exchange(m_nBytesTold, m_nBytesRead) != m_nBytesRead;
}

int CLineReader::PeekByte() {
    if (!Fill(1)) return -1;
    if (m_pChunk) CountBlocks(m_iNext, 1);
    return static_cast<unsigned char>(m_pBytes[m_iNext]);
}
