// Reads the lines of a file unchanged, whatever their length.

#include "nas2zdt/text/TextReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {
constexpr std::size_t BLOCK_SIZE = std::size_t{64} * 1024; // small: each level of includes has a buffer
constexpr std::size_t CHUNK_SIZE = std::size_t{256} * 1024;
constexpr std::uint64_t LONG_DECK = std::uint64_t{1} << 21; // bytes; a shorter one is read before a thread pays
} // namespace

int CTextReader::Open(const std::string& sPath, std::string& rCause) {
    m_iNext = m_iEnd = 0;
    m_bEnd = m_bFailed = false;
    return m_file.Open(sPath, rCause);
}

void CTextReader::LookAhead(CLinesAhead& rAhead) {
    const std::size_t nThreads = m_file.GetUnread() < LONG_DECK ? 1 : rAhead.GetThreads();
    const std::size_t nSlots = CWorkRing::SlotsFor(nThreads);
    rAhead.Begin(nSlots);
    m_aChunks.resize(nSlots);
    const auto look = [this, &rAhead](std::size_t iSlot) {
        T_CHUNK_D& rChunk = m_aChunks[iSlot];
        rChunk.aRUNS.clear();
        rAhead.Look(iSlot, {rChunk.pBYTES.get(), rChunk.nBYTES}, rChunk.aRUNS);
    };
    m_ring.emplace(
        nThreads, [this](std::size_t iSlot) { return ReadChunk(m_aChunks[iSlot]); }, look);
}

/// Fills a chunk. False at the end of the file.
bool CTextReader::ReadChunk(T_CHUNK_D& rChunk) {
    if (m_bFileEnd) return false;
    std::size_t nBytes = m_sTail.size(), nWhole = 0;
    const auto makeRoom = [&](std::size_t nRoom) {
        if (nRoom <= rChunk.nROOM) return;
        auto pBytes = std::make_unique_for_overwrite<char[]>(nRoom + SLACK);
        if (rChunk.pBYTES) std::memcpy(pBytes.get(), rChunk.pBYTES.get(), rChunk.nROOM);
        rChunk.pBYTES = std::move(pBytes);
        rChunk.nROOM = nRoom;
    };
    makeRoom(std::max(CHUNK_SIZE, 2 * nBytes));
    m_sTail.copy(rChunk.pBYTES.get(), nBytes);
    while (nWhole == 0 && !m_bFileEnd) { // a line longer than a chunk makes that longer
        if (nBytes == rChunk.nROOM) makeRoom(2 * nBytes);
        const std::size_t iSearched = nBytes;
        while (nBytes < rChunk.nROOM && !m_bFileEnd) {
            const std::ptrdiff_t nRead = m_file.Read(rChunk.pBYTES.get() + nBytes, rChunk.nROOM - nBytes);
            m_bFileFailed = nRead < 0;
            m_bFileEnd = nRead <= 0;
            nBytes += m_bFileEnd ? 0 : static_cast<std::size_t>(nRead);
        }
        const std::string_view sNew(rChunk.pBYTES.get() + iSearched, nBytes - iSearched);
        const std::size_t iFeed = sNew.rfind('\n');
        nWhole = iFeed == std::string_view::npos ? 0 : iSearched + iFeed + 1;
    }
    if (m_bFileEnd && !m_bFileFailed) nWhole = nBytes;
    m_sTail.assign(rChunk.pBYTES.get() + nWhole, nBytes - nWhole);
    std::memset(rChunk.pBYTES.get() + nWhole, 0, SLACK);
    rChunk.nBYTES = nWhole;
    return nWhole > 0;
}

/// Goes on to the next chunk.
bool CTextReader::FillChunk() {
    const std::size_t iSlot = m_ring->Take();
    m_bEnd = iSlot == CWorkRing::NONE;
    m_bFailed = m_bEnd && m_bFileFailed;
    if (m_bEnd) return false;
    const T_CHUNK_D& rChunk = m_aChunks[iSlot];
    m_pText = rChunk.pBYTES.get();
    m_iNext = 0;
    m_iEnd = rChunk.nBYTES;
    m_pRun = rChunk.aRUNS.data();
    m_pRunsEnd = m_pRun + rChunk.aRUNS.size();
    return true;
}

bool CTextReader::Fill() {
    if (m_bEnd) return false;
    if (m_ring) return FillChunk();
    if (m_aBuffer.empty()) m_aBuffer.resize(BLOCK_SIZE + SLACK);
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
    m_pText = m_aBuffer.data();
    return !m_bEnd;
}

bool CTextReader::Read(std::string_view& rLine) {
    std::size_t nSearched = 0; // bytes of the line already searched for its line feed
    for (;;) {
        const std::size_t nText = m_iEnd - m_iNext;
        const void* pFound =
            nText > nSearched ? std::memchr(m_pText + m_iNext + nSearched, '\n', nText - nSearched) : nullptr;
        if (!pFound) {
            nSearched = nText;
            if (Fill()) continue;
        }
        if (m_bFailed || (!pFound && nText == 0)) return false;
        const char* const pLine = m_pText + m_iNext;
        rLine = {pLine, pFound ? static_cast<std::size_t>(static_cast<const char*>(pFound) - pLine) + 1 : nText};
        m_iNext += rLine.size();
        return true;
    }
}

const T_LINERUN_D* CTextReader::PeekRun(std::string_view& rText) {
    if (!m_ring || (m_iNext == m_iEnd && !Fill())) return nullptr;
    while (m_pRun != m_pRunsEnd && m_pRun->iBEGIN < m_iNext) ++m_pRun;
    if (m_pRun == m_pRunsEnd || m_pRun->iBEGIN > m_iNext) return nullptr;
    rText = {m_pText + m_iNext, m_pRun->iEND - m_iNext};
    return m_pRun;
}

void CTextReader::PassRun() {
    m_iNext = m_pRun->iEND;
    ++m_pRun;
}
