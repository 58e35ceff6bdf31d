// Chunks in the order of the deck.

#include "reader/DeckChunks.h"

#include "messages/RunError.h"
#include "reader/LineReader.h"
#include "reader/NastranStrParser.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t CHUNK_SIZE = std::size_t{1} << 18;

/// How much of a text that begins with a line is whole lines, or else whole pieces of the one that it is.
std::size_t CountWhole(std::string_view sText) {
    const std::size_t iFeed = sText.rfind('\n');
    return iFeed != std::string_view::npos ? iFeed + 1 : sText.size() / LONGEST_PIECE * LONGEST_PIECE;
}

} // namespace

bool HoldsSpecialBytes(const char* pText, std::size_t nText) {
    return std::memchr(pText, '\0', nText) || std::memchr(pText, CTRL_Z, nText);
}

CDeckChunks::CDeckChunks(CDeckFile& rFile, std::size_t nThreads, LOOK look)
    : m_rFile(rFile), m_aChunks(CountSlots(nThreads)),
      m_ring(
          nThreads, [this](std::size_t iSlot) { return Read(m_aChunks[iSlot]); },
          [this, look = std::move(look)](std::size_t iSlot) { look(iSlot, m_aChunks[iSlot]); }) {}

T_CHUNK_D* CDeckChunks::Take() {
    const std::size_t iSlot = m_ring.Take();
    return iSlot == CWorkRing::NONE ? nullptr : &m_aChunks[iSlot];
}

/// Fills a chunk. False at the end of the deck.
bool CDeckChunks::Read(T_CHUNK_D& rChunk) {
    if (!rChunk.pBYTES) {
        rChunk.pBYTES = std::make_unique_for_overwrite<char[]>(CHUNK_SIZE + CNastranStrParser::SLACK);
    }
    char* const pBytes = rChunk.pBYTES.get();
    std::size_t nBytes = m_sTail.copy(pBytes, m_sTail.size());
    while (nBytes < CHUNK_SIZE && !m_bEnd) {
        const std::ptrdiff_t nRead = m_rFile.Read(pBytes + nBytes, CHUNK_SIZE - nBytes);
        if (nRead < 0) throw CRunError(FAILURE_DECK_NOT_READ);
        m_bEnd = nRead == 0;
        nBytes += static_cast<std::size_t>(nRead);
    }
    rChunk.nBYTES = m_bEnd ? nBytes : CountWhole({pBytes, nBytes});
    m_sTail.assign(pBytes + rChunk.nBYTES, nBytes - rChunk.nBYTES);
    std::memset(pBytes + rChunk.nBYTES, 0, CNastranStrParser::SLACK);
    rChunk.bSPECIAL = HoldsSpecialBytes(pBytes, rChunk.nBYTES);
    return rChunk.nBYTES > 0;
}
