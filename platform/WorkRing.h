#pragma once
// Items that several threads make and one takes in order.

#include "platform/Worker.h"

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// Items lie in the slots of a ring, so their number at a time is bounded. Who takes them makes some himself while he
/// would wait.
class CWorkRing {
  public:
    /// begin(slot) begins the next item in a slot, one after the other, and returns false if there are no more items;
    /// make(slot) makes it, on any of nThreads threads, the caller's among them. Both must outlive this object, and so
    /// must the slots, which are SlotsFor(nThreads).
    CWorkRing(std::size_t nThreads, std::function<bool(std::size_t)> begin, std::function<void(std::size_t)> make);

    /// Waits for the threads; what was begun is finished.
    ~CWorkRing();
    CWorkRing(const CWorkRing&) = delete;
    CWorkRing& operator=(const CWorkRing&) = delete;

    static constexpr std::size_t SlotsFor(std::size_t nThreads) { return 2 * nThreads; }

    /// Frees the slot of the item before and returns that of the next one, NONE if there are no more. Throws what begin
    /// or make threw.
    std::size_t Take();
    static constexpr std::size_t NONE = static_cast<std::size_t>(-1);

  private:
    void Work();
    bool MakeOne(std::unique_lock<std::mutex>& rLock);
    void Stop() noexcept;

    const std::size_t m_nSlots;
    const std::function<bool(std::size_t)> m_begin;
    const std::function<void(std::size_t)> m_make;
    std::mutex m_mutex; // for those below
    std::condition_variable m_changed;
    std::vector<char> m_aMade;                        // by slot
    std::size_t m_iNext = 0;                          // item that nobody has begun yet
    std::size_t m_nTaken = 0;                         // items that were taken and freed
    bool m_bHolding = false;                          // whether the one behind those is out
    bool m_bEnd = false;                              // there are no more to begin
    bool m_bStopped = false;                          // nobody wants more
    std::vector<std::unique_ptr<CWorker>> m_aWorkers; // last, as they work on all of them
};
