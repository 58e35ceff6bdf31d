#pragma once
// What all decks of a command line have read, which no file that is written may replace.

#include "platform/File.h"

#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// A deck's files may not replace a deck of the command line, nor anything that a deck before it has read or, where
/// that is known only then, written: the same ones whatever is converted at a time. All functions may be called on any
/// thread.
class CReadFiles {
  public:
    /// rDecks are those of the command line, nDecks their number.
    CReadFiles(const T_INPUTS& rDecks, std::size_t nDecks) : m_rDecks(rDecks), m_aRead(nDecks, false) {}

    /// The deck has read these.
    void Add(std::size_t iDeck, const T_INPUTS& rInputs);

    /// The deck will read no more.
    void End(std::size_t iDeck);

    /// Those of rFiles that the deck may not replace, once all decks before it have been read.
    T_INPUTS Find(std::size_t iDeck, const T_INPUTS& rFiles);

  private:
    const T_INPUTS& m_rDecks;
    std::mutex m_mutex; // for all below
    std::condition_variable m_changed;
    std::map<T_FILEID_D, std::pair<std::size_t, std::string>> m_mapFiles; // with the first deck that has read it
    std::vector<bool> m_aRead;                                            // of each deck, whether it reads no more
    std::size_t m_nRead = 0;                                              // of the first decks
};
