#pragma once
// The physical lines of one deck.

#include "messages/RunError.h"
#include "platform/File.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

constexpr char CTRL_Z = '\x1A';

/// iLine + 1. Throws CRunError if there is no such number.
inline std::int32_t NextLine(std::int32_t iLine) {
    constexpr std::int32_t LAST = std::numeric_limits<std::int32_t>::max();
    if (iLine == LAST) throw CRunError(FAILURE_TOO_MANY_LINES, LAST, LAST);
    return iLine + 1;
}

/// Reads a deck in large blocks. A line of more than 499 bytes comes in pieces, as with a line buffer of 500.
class CLineReader {
  public:
    /// Returns 1, or 0 with the cause in rCause.
    int Open(const std::string& sPath, std::string& rCause);
    void Close() { m_file.Close(); }
    const T_FILEID_D& GetId() const { return m_file.GetId(); }

    /// The next line without its line feed. False at the end of the deck. The text is valid until the next call, and
    /// CNastranStrParser::SLACK bytes behind it are readable. Throws CRunError if the deck can't be read on.
    bool Read(std::string_view& rText);

    /// How much of the deck was read, in bytes; grows by a block at a time.
    std::uint64_t GetBytesRead() const { return m_nBytesRead; }

    /// Whether that number has changed since this was asked last.
    bool HasReadMore() { return m_bReadMore && std::exchange(m_bReadMore, false); }

    /// Whether the deck, as far as it was read, may hold a NUL or a Ctrl-Z.
    bool HasSpecialBytes() const { return m_bSpecial; }

    /// The first byte of the line that Read gives next, -1 at the end of the deck.
    int PeekByte();

  private:
    bool Fill(std::size_t nWanted);

    CDeckFile m_file;
    std::unique_ptr<char[]> m_pBuffer; // not initialized: a small deck touches little of it
    std::size_t m_iNext = 0;           // first byte not handed out yet
    std::size_t m_iEnd = 0;            // end of what was read
    std::uint64_t m_nBytesRead = 0;
    bool m_bReadMore = false; // since somebody asked
    bool m_bEnd = false;      // the file has no more
    bool m_bSpecial = false;  // a NUL or a Ctrl-Z was met; the few decks with one are searched line by line
};
