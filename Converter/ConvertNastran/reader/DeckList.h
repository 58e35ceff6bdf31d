#pragma once
// The decks of a run.

#include "platform/File.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// A deck that a run has read or has yet to read.
struct T_DECK_D {
    std::string sPATH;
    std::size_t iORIGIN = 0; // the deck that includes it; the main deck is its own
    T_FILEID_D id;           // once it was opened
};

/// The main deck, then the included ones in the order met. It grows while a run walks it.
class CDeckList {
  public:
    void AddMain(const std::string& sPath) { m_aDecks.push_back({sPath, 0, {}}); }

    /// Adds a deck that the current one includes in line iLine; apostrophes aren't part of its path. Throws CRunError
    /// if there are nMost decks: all will be opened, and their names alone could fill the memory.
    void Include(std::string_view sPath, std::int32_t iLine, std::int64_t nMost);

    const std::vector<T_DECK_D>& GetDecks() const { return m_aDecks; }

    /// The current deck, from the main deck on. There is none at the end.
    const T_DECK_D& GetCurrent() const { return m_aDecks[m_iCurrent]; }
    bool IsMain() const { return m_iCurrent == 0; }
    bool IsAtEnd() const { return m_iCurrent == m_aDecks.size(); }

    /// The current deck was opened and has this identity. Throws CRunError if it is among the decks that led to it.
    void Open(const T_FILEID_D& rId);

    /// The current deck was read; goes on to the next one.
    void Next(std::uint64_t nBytes) {
        m_nBytesRead += static_cast<std::int64_t>(nBytes);
        ++m_iCurrent;
    }

    /// Bytes of all decks that were read.
    std::int64_t GetBytesRead() const { return m_nBytesRead; }

  private:
    std::vector<T_DECK_D> m_aDecks;
    std::size_t m_iCurrent = 0;
    std::int64_t m_nBytesRead = 0;
    std::set<T_FILEID_D> m_setIncluding; // decks that include others
    std::set<T_FILEID_D> m_setTested;    // those that were tested for the cards of m_iTestedOrigin
    std::size_t m_iTestedOrigin = 0;
};
