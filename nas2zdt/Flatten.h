#pragma once
// Joining a deck with its includes as NASTRAN means it.

#include "messages/RunError.h"
#include "nas2zdt/LineMap.h"
#include "platform/File.h"

#include <exception>
#include <string>

/// Ends a join: what is wrong, with the file and line of it.
class CFlattenError : public std::exception {
  public:
    explicit CFlattenError(std::string sText) : m_sText(std::move(sText)) {}
    const char* what() const noexcept override { return m_sText.c_str(); }
    const std::string& GetText() const { return m_sText; }

  private:
    std::string m_sText;
};

/// What a join leaves beside its text.
struct T_JOINED_D {
    CLineMap lines;
    T_INPUTS files; // that were read
};

/// Writes the deck sDeck to rJoined, which is closed at the end, with the text of each INCLUDE in its place, at any
/// depth. Relative names start from the folder of the deck that has them. The lines of an included deck are copied as
/// they stand up to a line that begins with ENDDATA, which ends that deck alone. Bulk data that is included before
/// BEGIN BULK becomes bulk data by markers around it. Throws CFlattenError, also if more than nMostDecks decks are
/// opened, and CFileException for the joined file.
T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, std::int64_t nMostDecks = T_LIMITS_D().nDECKS);
