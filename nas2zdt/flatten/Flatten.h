#pragma once
// Joining a deck with its includes as NASTRAN means it.

#include "driver/Limits.h"
#include "nas2zdt/flatten/LineMap.h"
#include "platform/File.h"

#include <cstdint>
#include <string>
#include <string_view>

/// An INCLUDE statement as NASTRAN means it: a name of any length and case, in quotes or not; a quoted one may go on
/// over several lines, of which the blanks at both ends don't count.
class CIncludeStatement {
  public:
    /// Begins with a line. Returns 1 if it is the first line of an INCLUDE, which may be whole with it.
    int Begin(std::string_view sLine);

    /// Goes on with the next line of a statement that isn't whole. Returns 1, or 0 if the name is longer than any path.
    int Continue(std::string_view sLine);

    /// Whether the closing quote was met, or none was opened.
    bool IsWhole() const { return m_cQuote == '\0'; }

    const std::string& GetName() const { return m_sName; }

  private:
    void Add(std::string_view sText);

    std::string m_sName;
    char m_cQuote = '\0'; // the one that is still to come
};

/// What is known of a joined deck.
struct T_JOINED_D {
    CLineMap lines;
    T_INPUTS files; // that were read
};

/// Writes the deck sDeck to rJoined, which is closed at the end, with the text of each INCLUDE in its place, at any
/// depth. Relative names start from the folder of the deck that has them. The lines of an included deck are copied
/// unchanged up to a line that begins with ENDDATA, which ends that deck alone. Bulk data that is included before
/// BEGIN BULK gets markers around it. Throws CFileException for the joined file, and for a deck that can't be joined,
/// with its path and line as the file; that is also one too many for nMostDecks.
T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, std::int64_t nMostDecks = T_LIMITS_D().nDECKS);
