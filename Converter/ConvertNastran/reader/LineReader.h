#pragma once
// The physical lines of one deck.

#include "platform/File.h"
#include "reader/DeckChunks.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

constexpr char CTRL_Z = '\x1A';

/// Reads a deck in large blocks. A line of more than 499 bytes comes in pieces, as with a line buffer of 500.
class CLineReader {
  public:
    /// Returns 1, or 0 with the cause in rCause.
    int Open(const std::string& sPath, std::string& rCause);
    void Close();
    const T_FILEID_D& GetId() const { return m_file.GetId(); }

    /// Size of the deck when it was opened, in bytes.
    std::uint64_t GetSize() const { return m_nSize; }

    /// Has the deck, which was just opened, read by nThreads threads, which look for runs. That doesn't show in
    /// anything else that is asked here.
    void Share(std::size_t nThreads, CDeckChunks::LOOK look);

    /// The next line without its line feed. False at the end of the deck. The text is valid until the next call, and
    /// CNastranStrParser::SLACK bytes behind it are readable. Throws CRunError if the deck can't be read on.
    bool Read(std::string_view& rText);

    /// The run that begins with the line that Read gives next or, with bLast, gave last; null if none does.
    const T_CARDRUN_D* FindRun(bool bLast);

    /// The records of the runs that it gives.
    const CTakenRecords& GetTaken() const { return m_pChunk->taken; }

    /// Goes on behind the first nLines lines of a run, which must be those that FindRun was asked for.
    void Pass(const T_CARDRUN_D& rRun, std::int32_t nLines);

    /// How much of the deck was read, in bytes; grows by a block at a time.
    std::uint64_t GetBytesRead() const { return m_nBytesRead; }

    /// Whether that number has changed since this was asked last.
    bool HasReadMore();

    /// Whether the deck, as far as it was read, may hold a NUL or a Ctrl-Z.
    bool HasSpecialBytes() const { return m_bSpecial; }

    /// The first byte of the line that Read gives next, -1 at the end of the deck.
    int PeekByte();

  private:
    bool Fill(std::size_t nWanted);
    bool TakeChunk();
    void CountBlocks(std::size_t iLine, std::size_t nWanted);

    CDeckFile m_file;
    std::unique_ptr<char[]> m_pBuffer;      // not initialized: a small deck touches little of it
    std::unique_ptr<CDeckChunks> m_pChunks; // of a deck that is shared; behind the file, on which they work
    T_CHUNK_D* m_pChunk = nullptr;          // the current one
    std::size_t m_iRun = 0;                 // its first run that isn't passed
    const char* m_pBytes = nullptr;         // buffer, or bytes of the chunk
    std::uint64_t m_nBefore = 0;            // bytes of the deck before the chunk
    std::size_t m_iLine = 0;                // first byte of the line that was handed out last
    std::size_t m_iNext = 0;                // first byte not handed out yet
    std::size_t m_iEnd = 0;                 // end of what was read
    std::uint64_t m_nSize = 0;
    std::uint64_t m_nBytesRead = 0;
    std::uint64_t m_nBytesTold = 0; // when somebody asked
    bool m_bEnd = false;            // the file has no more
    bool m_bSpecial = false;        // a NUL or a Ctrl-Z was met; the few decks with one are searched line by line
};
