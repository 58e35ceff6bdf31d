#pragma once
// Joins a deck with its includes as NASTRAN does.

#include "messages/RunError.h"
#include "nas2zdt/flatten/LineMap.h"
#include "platform/File.h"

#include <cstdint>
#include <string>
#include <string_view>

/// An INCLUDE statement as NASTRAN reads it: a name of any length and case, quoted or not. A quoted name may go on over
/// several lines; blanks at both ends of a line don't count.
class CIncludeStatement {
  public:
    /// Returns 1 if sLine begins an INCLUDE, which may be whole with it.
    int Begin(std::string_view sLine);

    /// Adds the next line of a statement that isn't whole. Returns 1, or 0 if the name is longer than any path.
    int Continue(std::string_view sLine);

    /// Whether no closing quote is missing.
    bool IsWhole() const { return m_cQuote == '\0'; }

    const std::string& GetName() const { return m_sName; }

  private:
    void Add(std::string_view sText);

    std::string m_sName;
    char m_cQuote = '\0'; // the missing closing quote, or none
};

/// The origins of a joined deck.
struct T_JOINED_D {
    CLineMap lines;
    T_INPUTS files; // read for it
};

/// Writes sDeck to rJoined, with each INCLUDE replaced by the deck that it names, at any depth, and closes rJoined.
/// Relative names start from the folder of the deck that has them. Lines are copied unchanged. ENDDATA in an included
/// deck ends that deck only. Bulk data included before BEGIN BULK is put between markers. Throws CFileException if
/// rJoined fails, or with the place in a deck if that can't be joined or more than nMostDecks decks are opened.
T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, std::int64_t nMostDecks = T_LIMITS_D().nDECKS);
