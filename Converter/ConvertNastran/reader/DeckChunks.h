#pragma once
// A long deck in chunks of whole lines, at which several threads look before their turn comes.

#include "platform/File.h"
#include "platform/WorkRing.h"
#include "store/Taken.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A line of more bytes than this comes in pieces.
constexpr std::size_t LONGEST_PIECE = 499;

/// Lines one behind the other, each one card of the same keyword whose records are among those that were taken.
struct T_CARDRUN_D {
    static constexpr std::int32_t MOST_LINES = 1000; // so that what isn't met at its begin is no great loss

    std::size_t iBEGIN = 0, iEND = 0; // bytes of the chunk
    std::int32_t nLINES = 0;
    std::int32_t iKEYWORD = -1;
    E_TAKEN eTAKEN = TAKEN_GRID;
    std::size_t iRECORDS = 0, iRECORDSEND = 0; // places of the first record, and behind the last
};

/// Whole lines of a deck, or pieces of LONGEST_PIECE bytes of a longer one.
struct T_CHUNK_D {
    std::unique_ptr<char[]> pBYTES; // CNastranStrParser::SLACK more than there are
    std::size_t nBYTES = 0;
    bool bSPECIAL = false;          // whether there is a NUL or a Ctrl-Z
    std::vector<T_CARDRUN_D> aRUNS; // ascending, apart from each other; none holds the last line
    CTakenRecords taken;
};

class CDeckChunks {
  public:
    using LOOK = std::function<void(std::size_t iSlot, T_CHUNK_D& rChunk)>;

    /// Begins to read rFile, which was just opened. look is called for each chunk, on one of nThreads threads at a time
    /// for a slot, of which there are CountSlots. Both must outlive this object.
    CDeckChunks(CDeckFile& rFile, std::size_t nThreads, LOOK look);

    static std::size_t CountSlots(std::size_t nThreads) { return CWorkRing::SlotsFor(nThreads); }

    /// The next chunk, which isn't empty, valid until the next call; null at the end of the deck. Throws CRunError if
    /// the deck can't be read on, and what look throws.
    T_CHUNK_D* Take();

  private:
    bool Read(T_CHUNK_D& rChunk);

    CDeckFile& m_rFile;
    bool m_bEnd = false; // the file has no more
    std::string m_sTail; // begin of a line that the chunk before doesn't hold
    std::vector<T_CHUNK_D> m_aChunks;
    CWorkRing m_ring; // last, as it works on all of them
};

/// Whether a text holds a NUL or a Ctrl-Z.
bool HoldsSpecialBytes(const char* pText, std::size_t nText);
