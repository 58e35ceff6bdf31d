// Shares the pieces of a section out.

#include "writer/Pieces.h"

#include "platform/Worker.h"

#include <condition_variable>
#include <memory>
#include <mutex>

namespace {

/// Pieces that are being made or wait for their turn. Their number is bounded.
class CPieceRing {
  public:
    CPieceRing(std::size_t nPieces, std::size_t nThreads, const std::function<void(std::size_t, T_PIECE_D&)>& make)
        : m_nPieces(nPieces), m_make(make), m_aSlots(2 * nThreads) {}

    /// What threads do: make pieces until there are no more.
    void Work() {
        std::unique_lock lock(m_mutex);
        try {
            while (!m_bStopped && m_iNext < m_nPieces) {
                if (!MakeOne(lock)) m_changed.wait(lock);
            }
        } catch (...) {
            Stop(lock);
            throw;
        }
    }

    /// Calls take for all pieces, making others until the one whose turn it is is there. Returns early if a thread
    /// failed.
    void TakeAll(const std::function<void(T_PIECE_D&)>& take) {
        for (std::size_t i = 0; i < m_nPieces; ++i) {
            T_SLOT_D& rSlot = SlotOf(i);
            {
                std::unique_lock lock(m_mutex);
                while (!rSlot.bMADE) {
                    if (m_bStopped) return;
                    if (!MakeOne(lock)) m_changed.wait(lock);
                }
            }
            take(rSlot.piece);
            const std::lock_guard lock(m_mutex);
            rSlot.bMADE = false;
            ++m_nTaken;
            m_changed.notify_all();
        }
    }

    /// Lets nobody begin another piece.
    void Stop() {
        std::unique_lock lock(m_mutex);
        Stop(lock);
    }

  private:
    struct T_SLOT_D {
        T_PIECE_D piece;
        bool bMADE = false;
    };

    T_SLOT_D& SlotOf(std::size_t iPiece) { return m_aSlots[iPiece % m_aSlots.size()]; }

    /// Makes the next piece. False if none may be begun now.
    bool MakeOne(std::unique_lock<std::mutex>& rLock) {
        if (m_iNext == m_nPieces || m_iNext == m_nTaken + m_aSlots.size()) return false;
        const std::size_t iPiece = m_iNext++;
        T_SLOT_D& rSlot = SlotOf(iPiece);
        rLock.unlock();
        m_make(iPiece, rSlot.piece);
        rLock.lock();
        rSlot.bMADE = true;
        m_changed.notify_all();
        return true;
    }

    void Stop(std::unique_lock<std::mutex>& rLock) {
        if (!rLock.owns_lock()) rLock.lock();
        m_bStopped = true;
        m_changed.notify_all();
    }

    const std::size_t m_nPieces;
    const std::function<void(std::size_t, T_PIECE_D&)>& m_make;
    std::vector<T_SLOT_D> m_aSlots;
    std::mutex m_mutex; // for the four below, and for the slots' flags
    std::condition_variable m_changed;
    std::size_t m_iNext = 0;  // piece that nobody has begun yet
    std::size_t m_nTaken = 0; // pieces that were taken
    bool m_bStopped = false;
};

} // namespace

void MakePieces(std::size_t nPieces, std::size_t nThreads, const std::function<void(std::size_t, T_PIECE_D&)>& make,
                const std::function<void(T_PIECE_D&)>& take) {
    CPieceRing ring(nPieces, nThreads, make);
    std::vector<std::unique_ptr<CWorker>> aWorkers;
    struct T_STOP_D { // in any case before the threads are waited for
        CPieceRing& rRING;
        ~T_STOP_D() { rRING.Stop(); }
    };
    const T_STOP_D stop{ring};
    for (std::size_t i = 1; i < nThreads; ++i) {
        aWorkers.push_back(std::make_unique<CWorker>([&ring] { ring.Work(); }));
        if (!aWorkers.back()->IsBeside()) break; // there are no more to be had
    }
    ring.TakeAll(take);
    for (const auto& pWorker : aWorkers) {
        if (pWorker->IsBeside()) pWorker->Wait();
    }
}
