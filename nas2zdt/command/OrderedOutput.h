#pragma once
// What several decks print at a time, in the order of their list.

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

enum E_STREAM { STREAM_OUTPUT, STREAM_ERRORS };

/// Decks are numbered from 0. What the first one that hasn't ended prints goes out at once, the rest waits for its
/// turn; where too much waits, so does who prints. Decks must begin in their order. All functions may be called on any
/// thread.
class COrderedOutput {
  public:
    /// fnWrite gets what goes out, and nMost is the most bytes that may wait. Never called on two threads at a time.
    explicit COrderedOutput(std::function<void(E_STREAM, const std::string&)> fnWrite,
                            std::size_t nMost = std::size_t{64} << 20)
        : m_fnWrite(std::move(fnWrite)), m_nMost(nMost) {}

    /// Adds to the output of a deck.
    void Put(std::size_t iDeck, E_STREAM eStream, const std::string& sText);

    /// The deck prints no more. fnEnded is called behind all that it has printed, as fnWrite is; it may be kept as long
    /// as nSize bytes are.
    void End(std::size_t iDeck, std::function<void()> fnEnded, std::size_t nSize);

    /// Returns once all decks before this one have ended and gone out.
    void WaitForTurn(std::size_t iDeck);

  private:
    /// What waits of a deck.
    struct T_WAITING_D {
        std::vector<std::pair<E_STREAM, std::string>> aTEXTS;
        std::function<void()> fnENDED; // none until it has ended
        std::size_t nSIZE = 0;
    };

    bool WaitForRoom(std::unique_lock<std::mutex>& rLock, std::size_t iDeck, std::size_t nSize);
    void NextTurn();

    std::function<void(E_STREAM, const std::string&)> m_fnWrite;
    const std::size_t m_nMost;
    std::mutex m_mutex; // for all below
    std::condition_variable m_changed;
    std::map<std::size_t, T_WAITING_D> m_mapWaiting; // behind the one whose turn it is
    std::size_t m_nWaiting = 0;                      // bytes of it
    std::size_t m_iTurn = 0;
};
